#include "toolwindow/MrvTreeView.h"

#include "rtl/SysUtils.h"

namespace {

// What stands in two places may be selected in both.
void AddOnce(const InterfacePtr<IMrvCustomComponentAttr>& attr, TMrvDragList& list)
{
    if (!list.contains(attr))
        list << attr;
}

bool AddFieldDef(const TTreeNode* node, TMrvDragList& list)
{
    const auto attr = TMrvTreeView::NodeAttr(node);
    const auto fieldDef = InterfaceCast<IMrvFieldDefAttr>(attr);
    if (!fieldDef || !fieldDef->EnableCreateControl())
        return false;
    AddOnce(attr, list);
    return true;
}

}

TDragObject* TMrvTreeView::StartDragObject()
{
    FDragObject.reset();
    FDragedItem = GetSelectedNode();
    const auto type = NodeType(FDragedItem);
    if (!FDragedItem || type == ndtBlank || type == ndtForm || type == ndtConnection)
        Abort();
    TMrvDragList list;
    if (!FillDragList(list))
        Abort();
    FDragObject = std::make_unique<TMrvDragDBControl>(this, list);
    return FDragObject.get();
}

bool TMrvTreeView::FillDragList(TMrvDragList& list) const
{
    return SelectionCount() < 2 ? FillFromNode(FDragedItem, list) : FillFromSelection(list);
}

bool TMrvTreeView::FillFromNode(const TTreeNode* node, TMrvDragList& list) const
{
    switch (NodeType(node)) {
    case ndtFieldDef:
        return AddFieldDef(node, list);
    case ndtDataSet:
    case ndtField:
        list << NodeAttr(node);
        return true;
    default:
        return false;
    }
}

bool TMrvTreeView::FillFromSelection(TMrvDragList& list) const
{
    for (auto* node = Items().GetFirstNode(); node; node = node->GetNext()) {
        if (!node->Selected())
            continue;
        switch (NodeType(node)) {
        case ndtRoot:
            break;
        case ndtField:
            AddOnce(NodeAttr(node), list);
            break;
        case ndtFieldDef:
            AddFieldDef(node, list);
            break;
        default:
            return false;
        }
    }
    return true;
}

bool TMrvTreeView::DragOver(TDragObject* source, QPoint position)
{
    auto* node = InternalGetNodeAt(position);
    if (!dynamic_cast<TMrvDragDBControl*>(source) || !node || !FDragedItem || !FOnAcceptDragging)
        return false;
    return FOnAcceptDragging(this, FDragedItem, node);
}

// A dataset does not move here: the owner re-parents it through the model.
void TMrvTreeView::DragDrop(TDragObject*, QPoint position)
{
    FBeginDrag = false;
    auto* node = InternalGetNodeAt(position);
    if (!node || !FDragedItem)
        return;
    if (NodeType(FDragedItem) != ndtDataSet)
        MoveItem(FDragedItem, node);
    if (FOnItemMoved)
        FOnItemMoved(this, FDragedItem, node);
}
