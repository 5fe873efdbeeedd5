#include "forms/FormTree.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr qsizetype smallestBlock = 4096;

}

FormTree::FormTree(QByteArray source)
    : m_source(std::move(source))
    , m_memory(size_t(std::max(smallestBlock, m_source.size())))
{
}

template <typename T>
T* FormTree::make()
{
    static_assert(std::is_trivially_destructible_v<T>);
    return new (m_memory.allocate(sizeof(T), alignof(T))) T();
}

FormNode* FormTree::makeNode(FormNode::Kind kind)
{
    auto* node = make<FormNode>();
    node->m_kind = kind;
    node->m_tree = this;
    return node;
}

FormProperty* FormTree::makeProperty(FormNode* owner)
{
    auto* property = make<FormProperty>();
    property->m_owner = owner;
    return property;
}

QByteArrayView FormTree::keep(QByteArrayView bytes)
{
    if (bytes.isEmpty())
        return {};
    auto* place = static_cast<char*>(m_memory.allocate(size_t(bytes.size()), 1));
    std::memcpy(place, bytes.data(), size_t(bytes.size()));
    return { place, bytes.size() };
}

std::span<FormNode* const> FormTree::keep(std::span<FormNode* const> nodes)
{
    if (nodes.empty())
        return {};
    auto* place = static_cast<FormNode**>(m_memory.allocate(nodes.size_bytes(), alignof(FormNode*)));
    std::copy(nodes.begin(), nodes.end(), place);
    return { place, nodes.size() };
}

std::span<FormProperty* const> FormTree::keep(std::span<FormProperty* const> properties)
{
    if (properties.empty())
        return {};
    auto* place = static_cast<FormProperty**>(m_memory.allocate(properties.size_bytes(), alignof(FormProperty*)));
    std::copy(properties.begin(), properties.end(), place);
    return { place, properties.size() };
}

void FormTree::setFrame(FormNode& node, QByteArrayView middle, QByteArrayView footer)
{
    node.m_middle = middle;
    node.m_footer = footer;
}

void FormTree::setChildren(FormNode& node, std::span<FormNode* const> children)
{
    for (auto* child : node.m_children)
        child->m_parent = nullptr;
    node.m_children = children;
    for (auto* child : children)
        child->m_parent = &node;
}

void FormTree::setPieces(FormProperty& property, const FormProperty::Pieces& pieces)
{
    for (auto* item : property.m_pieces.items) {
        item->m_parent = nullptr;
        item->m_collection = nullptr;
    }
    property.m_pieces = pieces;
    for (auto* item : pieces.items) {
        item->m_parent = property.m_owner;
        item->m_collection = &property;
    }
}
