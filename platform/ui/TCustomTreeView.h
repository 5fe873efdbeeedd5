#pragma once

#include "design/TDragObject.h"
#include "visual/TColor.h"
#include "visual/TTreeNodes.h"

#include <QDrag>
#include <QTreeView>

enum TShiftStateFlag { ssShift = 1, ssAlt = 2, ssCtrl = 4, ssLeft = 8, ssRight = 16, ssMiddle = 32, ssDouble = 64 };
Q_DECLARE_FLAGS(TShiftState, TShiftStateFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(TShiftState)

class TImageList;

// How one node is drawn, beyond what the view gives all of them.
struct TNodeFont {
    TColor Color = clDefault;
    bool Bold = false;
};

// A tree of TTreeNodes on the screen, with the selection rules of the window library: a list of selected nodes, and one
// of them, the one with the focus, that is the selected node. What a user does reaches overridable operations first.
class TCustomTreeView : public QTreeView, protected ITreeNodesView {
    Q_OBJECT
public:
    explicit TCustomTreeView(QWidget* parent = nullptr);
    ~TCustomTreeView() override;

    TTreeNodes& Items() { return *FItems; }
    const TTreeNodes& Items() const { return *FItems; }
    void SetImages(TImageList* images);

    // The node with the focus, if it is selected; nil otherwise.
    TTreeNode* Selected() const;
    int SelectionCount() const { return int(FSelected.size()); }
    // In the order in which they were selected; nil outside the range.
    TTreeNode* Selections(int index) const { return FSelected.value(index); }
    // Without Shift or Ctrl the node becomes the only selected one, with Ctrl it comes to the others. Nil clears.
    void Select(TTreeNode* node, TShiftState shift = {});
    // Selects exactly these; the last gets the focus.
    void Select(const QList<TTreeNode*>& nodes);
    void ClearSelection(bool keepPrimary);
    // The node whose row is at that point of the client area, or nil.
    TTreeNode* GetNodeAt(int x, int y) const;

    // The program's own word for what the node is; empty where it has none.
    virtual QString NodeKind(const TTreeNode* node) const;
    // The mouse moved away with what is selected. Gives the object to drag, or nil to let it be; may raise EAbort. It
    // stays its maker's.
    virtual TDragObject* StartDragObject();

    // A context menu is asked for; `handled` set to true keeps the form's own menu away.
    std::function<void(QPoint position, bool& handled)> OnContextPopup;

protected:
    // The selection changed; `node` is the selected node now, or nil.
    virtual void Change(TTreeNode* node);
    // The base asks OnContextPopup.
    virtual void DoContextPopup(QPoint position, bool& handled);
    virtual TNodeFont NodeFont(const TTreeNode* node) const;
    // Runs the drag to its end; behind a virtual for platforms on which it returns at once.
    virtual Qt::DropAction ExecDrag(QDrag* drag);
    virtual bool DragOver(TDragObject* source, QPoint position);
    virtual void DragDrop(TDragObject* source, QPoint position);

    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

    void NodeExpanded(TTreeNode* node, bool expanded) override;
    void SelectOnly(TTreeNode* node) override;
    void Deselect(TTreeNode* node) override;
    TTreeNode* FocusedNode() const override;
    void FocusNode(TTreeNode* node) override;
    QRect NodeRect(const TTreeNode* node, bool textOnly) const override;
    void UpdatesHeld(bool held) override;
    void NodeDeletion(TTreeNode* node) override;
    void NodeTextChanged(TTreeNode* node, const QString& oldText) override;

private:
    friend class NodeDelegate;
    void RestoreAfterReset();
    TDragObject* DragObjectOf(const QDropEvent* event) const;

    TTreeNodes* FItems;
    QList<TTreeNode*> FSelected;
    bool FRestoring = false;
};
