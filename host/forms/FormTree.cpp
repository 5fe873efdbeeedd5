#include "forms/FormTree.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr qsizetype SmallestBlock = 4096;

}

FormTree::FormTree(QByteArray source)
    : FSource(std::move(source))
    , FMemory(size_t(std::max(SmallestBlock, FSource.size())))
{
}

template <typename T>
T* FormTree::Make()
{
    static_assert(std::is_trivially_destructible_v<T>);
    return new (FMemory.allocate(sizeof(T), alignof(T))) T();
}

FormNode* FormTree::MakeNode(FormNode::Kind kind)
{
    auto* node = Make<FormNode>();
    node->FKind = kind;
    node->FTree = this;
    return node;
}

FormProperty* FormTree::MakeProperty(FormNode* owner)
{
    auto* property = Make<FormProperty>();
    property->FOwner = owner;
    return property;
}

QByteArrayView FormTree::Keep(QByteArrayView bytes)
{
    if (bytes.isEmpty())
        return {};
    auto* place = static_cast<char*>(FMemory.allocate(size_t(bytes.size()), 1));
    std::memcpy(place, bytes.data(), size_t(bytes.size()));
    return { place, bytes.size() };
}

std::span<FormNode* const> FormTree::Keep(std::span<FormNode* const> nodes)
{
    if (nodes.empty())
        return {};
    auto* place = static_cast<FormNode**>(FMemory.allocate(nodes.size_bytes(), alignof(FormNode*)));
    std::copy(nodes.begin(), nodes.end(), place);
    return { place, nodes.size() };
}

std::span<FormProperty* const> FormTree::Keep(std::span<FormProperty* const> properties)
{
    if (properties.empty())
        return {};
    auto* place = static_cast<FormProperty**>(FMemory.allocate(properties.size_bytes(), alignof(FormProperty*)));
    std::copy(properties.begin(), properties.end(), place);
    return { place, properties.size() };
}

void FormTree::SetFrame(FormNode& node, QByteArrayView middle, QByteArrayView footer)
{
    node.FMiddle = middle;
    node.FFooter = footer;
}

void FormTree::SetChildren(FormNode& node, std::span<FormNode* const> children)
{
    for (auto* child : node.FChildren)
        child->FParent = nullptr;
    node.FChildren = children;
    for (auto* child : children)
        child->FParent = &node;
}

void FormTree::SetPieces(FormProperty& property, const FormProperty::Pieces& pieces)
{
    for (auto* item : property.FPieces.Items) {
        item->FParent = nullptr;
        item->FCollection = nullptr;
    }
    property.FPieces = pieces;
    for (auto* item : pieces.Items) {
        item->FParent = property.FOwner;
        item->FCollection = &property;
    }
}
