#include "forms/FormNode.h"

#include "forms/FormTree.h"
#include "forms/FormValueReader.h"

#include <algorithm>

QString FormProperty::name() const
{
    return m_owner->m_tree->encoding.decode(m_pieces.name);
}

bool FormProperty::isNamed(QStringView name) const
{
    return m_owner->m_tree->encoding.isSame(m_pieces.name, name);
}

FormValue FormProperty::value() const
{
    return readFormValue(*m_owner->m_tree, *this);
}

QString FormNode::name() const
{
    return m_tree->encoding.decode(m_header.name);
}

bool FormNode::isNamed(QStringView name) const
{
    return m_tree->encoding.isSame(m_header.name, name);
}

QString FormNode::className() const
{
    return m_tree->encoding.decode(m_header.className);
}

FormDocument& FormNode::document() const
{
    return *m_tree->document;
}

FormProperty* FormNode::property(QStringView name) const
{
    const auto found = std::find_if(
        m_properties.begin(), m_properties.end(), [name](const auto* property) { return property->isNamed(name); });
    return found == m_properties.end() ? nullptr : *found;
}

FormNode* FormNode::child(QStringView name) const
{
    for (auto* node : m_children)
        if (node->isNamed(name))
            return node;
    return nullptr;
}

int FormNode::position() const
{
    if (!m_parent)
        return -1;
    const auto siblings = m_collection ? m_collection->items() : m_parent->children();
    const auto found = std::find(siblings.begin(), siblings.end(), this);
    return found == siblings.end() ? -1 : static_cast<int>(found - siblings.begin());
}

FormNode::Header FormNode::Header::rebased(QByteArrayView other, qsizetype shift) const
{
    const auto move = [&](QByteArrayView view) {
        const auto at = view.data() - bytes.data();
        const bool within = !view.isEmpty() && at >= 0 && at + view.size() <= bytes.size();
        return within ? other.sliced(at + shift, view.size()) : view;
    };
    return { other, move(name), move(className), index };
}
