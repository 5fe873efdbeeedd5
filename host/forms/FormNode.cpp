#include "forms/FormNode.h"

#include "forms/FormTree.h"
#include "forms/FormValueReader.h"

#include <algorithm>

QString FormProperty::Name() const
{
    return FOwner->FTree->Encoding.Decode(FPieces.Name);
}

bool FormProperty::IsNamed(QStringView name) const
{
    return FOwner->FTree->Encoding.IsSame(FPieces.Name, name);
}

FormValue FormProperty::Value() const
{
    return ReadFormValue(*FOwner->FTree, *this);
}

QString FormNode::Name() const
{
    return FTree->Encoding.Decode(FHeader.Name);
}

bool FormNode::IsNamed(QStringView name) const
{
    return FTree->Encoding.IsSame(FHeader.Name, name);
}

QString FormNode::ClassName() const
{
    return FTree->Encoding.Decode(FHeader.ClassName);
}

FormDocument& FormNode::Document() const
{
    return *FTree->Document;
}

FormProperty* FormNode::Property(QStringView name) const
{
    const auto found = std::find_if(
        FProperties.begin(), FProperties.end(), [name](const auto* property) { return property->IsNamed(name); });
    return found == FProperties.end() ? nullptr : *found;
}

FormNode* FormNode::Child(QStringView name) const
{
    for (auto* node : FChildren)
        if (node->IsNamed(name))
            return node;
    return nullptr;
}

int FormNode::Position() const
{
    if (!FParent)
        return -1;
    const auto siblings = FCollection ? FCollection->Items() : FParent->Children();
    const auto found = std::find(siblings.begin(), siblings.end(), this);
    return found == siblings.end() ? -1 : static_cast<int>(found - siblings.begin());
}

FormNode::Header FormNode::Header::Rebased(QByteArrayView other, qsizetype shift) const
{
    const auto move = [&](QByteArrayView view) {
        const auto at = view.data() - Bytes.data();
        const bool within = !view.isEmpty() && at >= 0 && at + view.size() <= Bytes.size();
        return within ? other.sliced(at + shift, view.size()) : view;
    };
    return { other, move(Name), move(ClassName), Index };
}
