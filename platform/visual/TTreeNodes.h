#pragma once

#include "visual/TTreeNode.h"

#include <QAbstractItemModel>
#include <QPointer>

#include <functional>

class TImageList;

// What a tree asks of the view that shows it. Implemented by the tree view; a tree without one has no focus and no
// rectangles.
class ITreeNodesView {
public:
    // The program expanded or collapsed it.
    virtual void NodeExpanded(TTreeNode* node, bool expanded) = 0;
    virtual void SelectOnly(TTreeNode* node) = 0;
    virtual void Deselect(TTreeNode* node) = 0;
    // Nil when no node has the focus.
    virtual TTreeNode* FocusedNode() const = 0;
    virtual void FocusNode(TTreeNode* node) = 0;
    // In client pixels; empty when it is not on the screen.
    virtual QRect NodeRect(const TTreeNode* node, bool textOnly) const = 0;
    // Brackets: nothing is drawn in between.
    virtual void UpdatesHeld(bool held) = 0;
    // Before a node goes, with what is below it.
    virtual void NodeDeletion(TTreeNode* node) = 0;
    // A node has a new caption; also while nothing is drawn.
    virtual void NodeTextChanged(TTreeNode* node, const QString& oldText) = 0;

protected:
    ~ITreeNodesView() = default;
};

// The nodes of a tree, as a Qt item model of one column. Top-level nodes stand below a hidden root.
//
// BeginUpdate and EndUpdate nest. An update that begins on an empty tree, or on one with a single node, is one reset of
// the model; any other tells the views of each change as it happens, and they draw at the end.
class TTreeNodes : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit TTreeNodes(QObject* parent = nullptr);
    ~TTreeNodes() override;

    int Count() const { return FCount; }
    // In tree order; nil outside. Costs a walk; loops use GetFirstNode and GetNext.
    TTreeNode* Item(int absoluteIndex) const;
    // The first and the last in tree order; nil in an empty tree.
    TTreeNode* GetFirstNode() const { return FRoot->GetFirstChild(); }
    TTreeNode* GetLastNode() const;

    // A new child, last or first; of the hidden root for nil. `data` is not owned.
    TTreeNode* AddChild(TTreeNode* parent, const QString& text) { return AddChildObject(parent, text, nullptr); }
    TTreeNode* AddChildObject(TTreeNode* parent, const QString& text, TObject* data);
    TTreeNode* AddChildObjectFirst(TTreeNode* parent, const QString& text, TObject* data);
    // A new node directly before that one.
    TTreeNode* InsertObject(TTreeNode* before, const QString& text, TObject* data);
    void Clear();

    void BeginUpdate();
    void EndUpdate();
    bool Updating() const { return FUpdateCount > 0; }

    // Sorts the children of every node; below 0 puts the first before the second. Equal nodes keep their order. Only
    // nodes whose children came, moved or changed their caption since the last sort are looked at.
    using Compare = std::function<int(const TTreeNode*, const TTreeNode*)>;
    void CustomSort(const Compare& compare);
    // The same for the children of one node, which the next sort of all then passes over.
    void SortChildren(TTreeNode* node, const Compare& compare);

    // Neither the view nor the images are owned: the view takes itself out before it goes (nil), images may go.
    void SetView(ITreeNodesView* view) { FView = view; }
    ITreeNodesView* View() const { return FView; }
    void SetImages(TImageList* images);
    TImageList* Images() const;

    // Nil for an invalid index, which in turn stands for nil and the hidden root.
    TTreeNode* NodeOf(const QModelIndex& index) const;
    QModelIndex IndexOf(const TTreeNode* node) const;

    // Called by the view: what the user expanded and selected.
    void NoteExpanded(TTreeNode* node, bool expanded) { node->FExpanded = expanded; }
    void NoteSelected(TTreeNode* node, bool selected) { node->FSelected = selected; }

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool hasChildren(const QModelIndex& parent) const override;

private:
    friend class TTreeNode;
    TTreeNode* Insert(TTreeNode* parent, int position, const QString& text, TObject* data);
    void Remove(TTreeNode* node);
    void RemoveChildren(TTreeNode* node);
    void Move(TTreeNode* node, TTreeNode* parent, int position);
    void TextChanged(TTreeNode* node, const QString& oldText);
    void SortEach(std::vector<TTreeNode*> nodes, const Compare& compare);
    void Touch(TTreeNode* parent);
    bool Resetting() const { return FResetting; }

    std::unique_ptr<TTreeNode> FRoot;
    int FCount = 0;
    int FUpdateCount = 0;
    bool FResetting = false;
    std::vector<TTreeNode*> FUnsorted;
    ITreeNodesView* FView = nullptr;
    QPointer<QObject> FImages;
};
