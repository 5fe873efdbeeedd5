#pragma once

#include "ide/MrvDragAndDropIntf.h"
#include "support/MrvNodeData.h"
#include "ui/TCustomTreeView.h"

#include <QHash>
#include <QVarLengthArray>

#include <span>

class QToolButton;
class TMrvTreeView;

using TNotifyItemMoved = std::function<void(TMrvTreeView* sender, TTreeNode* source, TTreeNode* dest)>;
using TNotifyAcceptDragging = std::function<bool(TMrvTreeView* sender, TTreeNode* draggedItem, TTreeNode* currentItem)>;
using TNotifyItemButtonClick = std::function<void(QObject* sender, TTreeNode* node)>;
using TNotifyOnChanged = std::function<void(TMrvTreeView* sender, TTreeNode* oldNode, TTreeNode* newNode)>;
using TNotifyActions = std::function<void(TMrvTreeView* sender, int charCode, Qt::KeyboardModifiers shiftState)>;

// The tree of the tool window: lookups by node kind and by wrapper, a small button that rides on the selected node,
// selection rules fitted to fields, the start of a drag towards the designer, a drag inside the tree, and events before
// and after a change. It knows what a node carries and the wrappers' session-unique values, but no window logic.
//
// Each node's Data is a TNodeData, which the tree frees. Nodes of one wrapper are found through an index by its value;
// the answers are those of a walk through the tree.
class TMrvTreeView : public TCustomTreeView {
    Q_OBJECT
public:
    explicit TMrvTreeView(QWidget* parent = nullptr);
    ~TMrvTreeView() override;

    // What a node carries; nil for none.
    static TNodeData* NodeData(const TTreeNode* node);
    // ndtBlank for a node that carries nothing.
    static TNodeDataType NodeType(const TTreeNode* node);
    // The wrapper behind the node, or nil.
    static InterfacePtr<IMrvCustomComponentAttr> NodeAttr(const TTreeNode* node);

    // New nodes with their data; nodes are made by these alone.
    TTreeNode* AddNode(TTreeNode* parent, const QString& text, TNodeDataType type, const InterfacePtr<IInterface>& ref);
    TTreeNode* AddNodeFirst(
        TTreeNode* parent, const QString& text, TNodeDataType type, const InterfacePtr<IInterface>& ref);
    TTreeNode* InsertNode(
        TTreeNode* before, const QString& text, TNodeDataType type, const InterfacePtr<IInterface>& ref);
    // Deletes the node with all below it and frees what they carry.
    void DeleteNode(TTreeNode* node);
    void DeleteChildren(TTreeNode* node);
    // Frees everything.
    void Clear();

    // Direct children of the parent, or the top level for nil.
    TTreeNode* FindChildNodeByName(TTreeNode* parent, const QString& name) const;
    TTreeNode* FindChildNodeByDataRef(TTreeNode* parent, const InterfacePtr<IInterface>& ref) const;
    TTreeNode* FindChildNodeByType(TTreeNode* parent, TNodeDataType type) const;
    // The next node of the wrapper behind `after` in tree order, exclusively; from the top for nil.
    TTreeNode* FindNodeByDataRef(const InterfacePtr<IInterface>& ref, TTreeNode* after = nullptr) const;
    TTreeNode* FindNodeByDataRef(const TNodeData* data, TTreeNode* after = nullptr) const;
    // All nodes of the wrapper, in tree order.
    QList<TTreeNode*> FindNodesByDataRef(const InterfacePtr<IInterface>& ref) const;
    // From `start` on, inclusively.
    TTreeNode* FindNodeByType(TNodeDataType type, TTreeNode* start = nullptr) const;
    // From `after` on, inclusively; with regard to case.
    TTreeNode* FindNodeByName(const QString& name, TTreeNode* after = nullptr) const;
    // The first child of the root node with exactly that caption: a group of the tree. What stands deeper may bear the
    // same caption and is no group.
    TTreeNode* FindGroupNode(const QString& name) const;
    // Binary search among the sorted children of the first node.
    TTreeNode* FastFindNodeByName(const QString& name) const;

    TTreeNode* GetSelectedNode() const;
    int GetSelectionCount() const { return SelectionCount(); }
    // Puts the source where the destination stands, from whichever side it comes.
    void MoveItem(TTreeNode* source, TTreeNode* dest);
    // Puts the move button on the node, if it can take a control; nil hides it.
    void ButtonMoveTo(TTreeNode* node);
    // Takes deleted fields away and gives the others their present caption.
    void RefreshChildNodes(TTreeNode* parent);
    // Every node of exactly that caption takes the new one. Asserts that the names differ.
    void RenameNodes(const QString& oldName, const QString& newName);
    void SaveSelections();
    void RestoreSelections();
    // Fields in dataset order, everything else by caption.
    void Sort();
    // The same for the children of one node.
    void SortChildren(TTreeNode* node);

    bool FBeginDrag = false;
    TTreeNode* FDragedItem = nullptr;
    TNotifyItemMoved FOnItemMoved;
    TNotifyAcceptDragging FOnAcceptDragging;
    std::unique_ptr<TMrvDragDBControl> FDragObject;
    QToolButton* FSpeedButton;
    TNotifyItemButtonClick FOnItemButtonClick;
    bool FIsDocking = false;
    TNotifyOnChanged FOnBeforeChange;
    TNotifyOnChanged FOnAfterChange;
    std::function<void(QObject* sender)> FOnDblClickEvent;
    TTreeNode* FTopItem = nullptr;
    bool FEnabledMoveButton = true;
    std::function<void(QObject* sender)> FOnSelectComponent;
    QList<InterfacePtr<IInterface>> FSelections;
    TNotifyActions FOnActions;
    // A node goes, and those below it after it: whoever remembers one forgets it now.
    std::function<void(TTreeNode* node)> FOnNodeDeletion;

    QString NodeKind(const TTreeNode* node) const override;
    TDragObject* StartDragObject() override;

protected:
    void Change(TTreeNode* node) override;
    void DoContextPopup(QPoint position, bool& handled) override;
    TNodeFont NodeFont(const TTreeNode* node) const override;
    bool DragOver(TDragObject* source, QPoint position) override;
    void DragDrop(TDragObject* source, QPoint position) override;
    void NodeDeletion(TTreeNode* node) override;
    void NodeTextChanged(TTreeNode* node, const QString& oldText) override;

    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;

private:
    // Hits on the icon and the caption alone; the rest of a row yields nil.
    TTreeNode* InternalGetNodeAt(QPoint position) const;
    void LeftButtonDown(QMouseEvent* event);
    void RightButtonDown(QMouseEvent* event);
    void DoItemButtonClick();
    void OnDrawItem();
    void FocusIfVisible();
    bool ButtonStands(const QRect& text, int width) const;
    bool TakesButton(const TTreeNode* node) const;
    // Fills the list with what is dragged; false refuses the drag.
    bool FillDragList(TMrvDragList& list) const;
    bool FillFromNode(const TTreeNode* node, TMrvDragList& list) const;
    bool FillFromSelection(TMrvDragList& list) const;
    void Index(TTreeNode* node);
    // The nodes of the wrapper, in no order; until the next change of the tree.
    std::span<TTreeNode* const> NodesOf(const InterfacePtr<IInterface>& ref) const;
    static bool IsGroup(const TTreeNode* node);
    // Tells of the node and those below it, and takes what they carry.
    void TakeData(TTreeNode* node, std::vector<std::unique_ptr<TNodeData>>& carried);

    // A wrapper's session-unique value. Wrappers that are made together are asked for together: neighbours by value are
    // neighbours in memory.
    struct TGuidKey {
        int Value;
        friend bool operator==(TGuidKey a, TGuidKey b) { return a.Value == b.Value; }
        friend size_t qHash(TGuidKey key, size_t) { return size_t(key.Value); }
    };
    // Nodes by their wrapper, in no order. Most wrappers have one.
    QHash<TGuidKey, QVarLengthArray<TTreeNode*, 2>> FByGuid;
    // Children of the root node by their caption, in no order.
    QHash<QString, QList<TTreeNode*>> FGroups;
    bool FDrawing = false;
    bool FClearing = false;
};
