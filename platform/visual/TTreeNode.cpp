#include "visual/TTreeNode.h"

#include "visual/TTreeNodes.h"

#include <utility>

TTreeNode::TTreeNode(TTreeNodes* owner, TTreeNode* parent)
    : FOwner(owner)
    , FParent(parent)
{
}

TTreeNode::~TTreeNode() = default;

void TTreeNode::SetText(const QString& text)
{
    if (text == FText)
        return;
    const auto oldText = std::exchange(FText, text);
    FOwner->TextChanged(this, oldText);
}

void TTreeNode::SetImageIndex(int index)
{
    if (index == FImageIndex)
        return;
    FImageIndex = index;
    if (!FOwner->Resetting()) {
        const auto place = FOwner->IndexOf(this);
        Q_EMIT FOwner->dataChanged(place, place, { Qt::DecorationRole });
    }
}

TTreeNode* TTreeNode::Parent() const
{
    return FParent && FParent->FParent ? FParent : nullptr;
}

TTreeNode* TTreeNode::Item(int index) const
{
    return index >= 0 && index < Count() ? FChildren[size_t(index)].get() : nullptr;
}

int TTreeNode::Index() const
{
    if (!FParent)
        return -1;
    if (FParent->FIndexesStale) {
        int position = 0;
        for (const auto& child : FParent->FChildren)
            child->FIndex = position++;
        FParent->FIndexesStale = false;
    }
    return FIndex;
}

TTreeNode* TTreeNode::GetNextSibling() const
{
    return FParent ? FParent->Item(Index() + 1) : nullptr;
}

TTreeNode* TTreeNode::GetPrevSibling() const
{
    return FParent ? FParent->Item(Index() - 1) : nullptr;
}

TTreeNode* TTreeNode::GetNext() const
{
    if (HasChildren())
        return GetFirstChild();
    for (const auto* walk = this; walk; walk = walk->FParent)
        if (auto* sibling = walk->GetNextSibling())
            return sibling;
    return nullptr;
}

TTreeNode* TTreeNode::LastBelow() const
{
    auto* walk = const_cast<TTreeNode*>(this);
    while (walk->HasChildren())
        walk = walk->GetLastChild();
    return walk;
}

TTreeNode* TTreeNode::GetPrev() const
{
    if (auto* sibling = GetPrevSibling())
        return sibling->LastBelow();
    return Parent();
}

int TTreeNode::AbsoluteIndex() const
{
    int position = 0;
    for (const auto* walk = FOwner->GetFirstNode(); walk && walk != this; walk = walk->GetNext())
        ++position;
    return position;
}

int TTreeNode::Level() const
{
    int level = 0;
    for (const auto* walk = Parent(); walk; walk = walk->Parent())
        ++level;
    return level;
}

void TTreeNode::SetExpanded(bool expanded)
{
    if (expanded == FExpanded || (expanded && !HasChildren()))
        return;
    FExpanded = expanded;
    if (FOwner->View() && !FOwner->Resetting())
        FOwner->View()->NodeExpanded(this, expanded);
}

void TTreeNode::Expand(bool recurse)
{
    SetExpanded(true);
    if (recurse)
        for (const auto& child : FChildren)
            child->Expand(true);
}

void TTreeNode::Collapse(bool recurse)
{
    SetExpanded(false);
    if (recurse)
        for (const auto& child : FChildren)
            child->Collapse(true);
}

void TTreeNode::SetSelected(bool selected)
{
    auto* view = FOwner->View();
    if (!view || FOwner->Resetting())
        FSelected = selected;
    else if (selected)
        view->SelectOnly(this);
    else
        view->Deselect(this);
}

bool TTreeNode::Focused() const
{
    return FOwner->View() && FOwner->View()->FocusedNode() == this;
}

void TTreeNode::SetFocused(bool focused)
{
    if (FOwner->View() && focused)
        FOwner->View()->FocusNode(this);
}

QRect TTreeNode::DisplayRect(bool textOnly) const
{
    return FOwner->View() ? FOwner->View()->NodeRect(this, textOnly) : QRect();
}

void TTreeNode::MoveTo(TTreeNode* destination, TNodeAttachMode mode)
{
    auto* siblings = destination ? destination->FParent : FOwner->FRoot.get();
    switch (mode) {
    case naAdd:
        return FOwner->Move(this, siblings, siblings->Count());
    case naAddFirst:
        return FOwner->Move(this, siblings, 0);
    case naAddChild:
        return FOwner->Move(this, destination, destination->Count());
    case naAddChildFirst:
        return FOwner->Move(this, destination, 0);
    case naInsert:
        return FOwner->Move(this, siblings, destination->Index());
    }
}

void TTreeNode::DeleteChildren()
{
    FOwner->RemoveChildren(this);
}

void TTreeNode::Delete()
{
    FOwner->Remove(this);
}
