#pragma once

#include "rtl/TObject.h"

#include <QList>
#include <QRect>
#include <QString>

#include <memory>
#include <vector>

class TTreeNodes;

// Where MoveTo puts a node, seen from the node it is given.
enum TNodeAttachMode {
    naAdd, // last among its siblings
    naAddFirst, // first among its siblings
    naAddChild, // its last child
    naAddChildFirst, // its first child
    naInsert, // directly before it
};

// One node of a tree: a caption, picture numbers, a place for the program's own object. It belongs to its parent and
// goes with it. Kept apart from any window: a tree view shows it, and a test looks at it without one.
class TTreeNode {
public:
    ~TTreeNode();
    TTreeNode(const TTreeNode&) = delete;
    TTreeNode& operator=(const TTreeNode&) = delete;

    TTreeNodes* Owner() const { return FOwner; }
    const QString& Text() const { return FText; }
    void SetText(const QString& text);
    // The program's own object; not owned.
    TObject* Data() const { return FData; }
    void SetData(TObject* data) { FData = data; }
    // Numbers in the tree's image list, unselected and selected; -1 is none.
    int ImageIndex() const { return FImageIndex; }
    int SelectedIndex() const { return FSelectedIndex; }
    void SetImageIndex(int index);
    void SetSelectedIndex(int index) { FSelectedIndex = index; }

    // Nil for a top-level node.
    TTreeNode* Parent() const;
    int Count() const { return int(FChildren.size()); }
    bool HasChildren() const { return !FChildren.empty(); }
    // Nil outside the range.
    TTreeNode* Item(int index) const;
    TTreeNode* GetFirstChild() const { return Item(0); }
    TTreeNode* GetLastChild() const { return Item(Count() - 1); }
    TTreeNode* GetNextSibling() const;
    TTreeNode* GetPrevSibling() const;
    // The next and the previous node in tree order, expanded or not.
    TTreeNode* GetNext() const;
    TTreeNode* GetPrev() const;
    // Position among its siblings.
    int Index() const;
    // Position in tree order, from 0.
    int AbsoluteIndex() const;
    // 0 at the top.
    int Level() const;

    bool Expanded() const { return FExpanded; }
    // A node without children does not expand. `recurse` takes all below it along.
    void SetExpanded(bool expanded);
    void Expand(bool recurse);
    void Collapse(bool recurse);
    bool Selected() const { return FSelected; }
    // Makes the node the one selected node, or takes it out of the selection.
    void SetSelected(bool selected);
    // False, and in vain, without a view. Taking the focus away means giving it to another node.
    bool Focused() const;
    void SetFocused(bool focused);
    // Where the view draws the node, in its client pixels: the caption alone, or the whole row. Empty when it is not on
    // the screen.
    QRect DisplayRect(bool textOnly) const;

    // With all below it; in vain below itself. With naAdd and naAddFirst nil stands for any top-level node, with the
    // others a destination is needed.
    void MoveTo(TTreeNode* destination, TNodeAttachMode mode);
    void DeleteChildren();
    // Frees the node with what is below it.
    void Delete();

private:
    friend class TTreeNodes;
    TTreeNode(TTreeNodes* owner, TTreeNode* parent);
    TTreeNode* LastBelow() const;

    TTreeNodes* FOwner;
    TTreeNode* FParent;
    QString FText;
    TObject* FData = nullptr;
    std::vector<std::unique_ptr<TTreeNode>> FChildren;
    mutable int FIndex = 0;
    mutable bool FIndexesStale = false; // of the children
    bool FUnsorted = false; // the children
    bool FExpanded = false;
    bool FSelected = false;
    int FImageIndex = -1;
    int FSelectedIndex = -1;
};
