#include "forms/FormDocument.h"

#include "forms/FormEditor.h"
#include "forms/FormJournal.h"

#include <algorithm>

FormEditor& FormDocument::editor()
{
    if (!m_editor)
        m_editor = std::make_unique<FormEditor>(*m_tree, *m_journal, m_fileName);
    return *m_editor;
}

FormProperty& FormDocument::setProperty(FormNode& node, const QString& name, const FormValue& value)
{
    auto* property = node.property(name);
    if (property && property->value() == value)
        return *property;
    const FormJournal::Edit edit(*m_journal);
    if (!property)
        return editor().addProperty(node, name, value);
    editor().replaceValue(*property, value);
    return *property;
}

bool FormDocument::removeProperty(FormNode& node, QStringView name)
{
    auto* property = node.property(name);
    if (property)
        removeProperty(*property);
    return property != nullptr;
}

void FormDocument::removeProperty(FormProperty& property)
{
    const FormJournal::Edit edit(*m_journal);
    editor().removeProperty(property);
}

FormNode& FormDocument::addChild(
    FormNode& parent, FormNode::Kind kind, const QString& className, const QString& name, int position)
{
    const FormJournal::Edit edit(*m_journal);
    const auto& encoding = m_tree->encoding;
    return editor().addChild(
        parent, { kind, encoding.encode(className), encoding.encode(name), std::nullopt }, position);
}

FormNode& FormDocument::addItem(FormNode& owner, const QString& property, int position)
{
    const FormJournal::Edit edit(*m_journal);
    auto* collection = owner.property(property);
    if (!collection)
        collection = &editor().addProperty(owner, property, FormValue::collection({}));
    else if (!collection->isCollection())
        editor().replaceValue(*collection, FormValue::collection({}));
    return editor().addItem(*collection, std::nullopt, position);
}

bool FormDocument::remove(FormNode& node)
{
    if (!node.parent())
        return false;
    const FormJournal::Edit edit(*m_journal);
    editor().take(node);
    return true;
}

bool FormDocument::move(FormNode& node, FormNode& parent, int position)
{
    if (node.kind() == FormNode::Kind::Item || !node.parent())
        return false;
    for (const auto* above = &parent; above; above = above->parent())
        if (above == &node)
            return false;
    const FormJournal::Edit edit(*m_journal);
    editor().move(node, parent, position);
    return true;
}

bool FormDocument::reorder(FormNode& node, int position)
{
    if (!node.parent())
        return false;
    if (node.position() == position)
        return true;
    const FormJournal::Edit edit(*m_journal);
    editor().reorder(node, position);
    return true;
}

static FormNames namesOf(const FormNode& node)
{
    return { node.kind(), node.header().className.toByteArray(), node.header().name.toByteArray(), node.index() };
}

void FormDocument::rename(FormNode& node, const QString& name)
{
    auto names = namesOf(node);
    names.name = m_tree->encoding.encode(name);
    changeHeader(node, names);
}

void FormDocument::setClassName(FormNode& node, const QString& className)
{
    auto names = namesOf(node);
    names.className = m_tree->encoding.encode(className);
    changeHeader(node, names);
}

void FormDocument::setIndex(FormNode& node, std::optional<int> index)
{
    auto names = namesOf(node);
    names.index = index;
    changeHeader(node, names);
}

void FormDocument::setKind(FormNode& node, FormNode::Kind kind)
{
    auto names = namesOf(node);
    names.kind = kind;
    changeHeader(node, names);
}

void FormDocument::changeHeader(FormNode& node, const FormNames& names)
{
    if (names == namesOf(node) || names.className.isEmpty() != (node.kind() == FormNode::Kind::Item))
        return;
    const FormJournal::Edit edit(*m_journal);
    editor().changeHeader(node, names);
}
