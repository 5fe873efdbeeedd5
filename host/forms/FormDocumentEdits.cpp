#include "forms/FormDocument.h"

#include "forms/FormEditor.h"
#include "forms/FormJournal.h"

#include <algorithm>

FormEditor& FormDocument::Editor()
{
    if (!FEditor)
        FEditor = std::make_unique<FormEditor>(*FTree, *FJournal, FFileName);
    return *FEditor;
}

FormProperty& FormDocument::SetProperty(FormNode& node, const QString& name, const FormValue& value)
{
    auto* property = node.Property(name);
    if (property && property->Value() == value)
        return *property;
    const FormJournal::Edit edit(*FJournal);
    if (!property)
        return Editor().AddProperty(node, name, value);
    Editor().ReplaceValue(*property, value);
    return *property;
}

bool FormDocument::RemoveProperty(FormNode& node, QStringView name)
{
    auto* property = node.Property(name);
    if (property)
        RemoveProperty(*property);
    return property != nullptr;
}

void FormDocument::RemoveProperty(FormProperty& property)
{
    const FormJournal::Edit edit(*FJournal);
    Editor().RemoveProperty(property);
}

FormNode& FormDocument::AddChild(
    FormNode& parent, FormNode::Kind kind, const QString& className, const QString& name, int position)
{
    const FormJournal::Edit edit(*FJournal);
    const auto& encoding = FTree->Encoding;
    return Editor().AddChild(
        parent, { kind, encoding.Encode(className), encoding.Encode(name), std::nullopt }, position);
}

FormNode& FormDocument::AddItem(FormNode& owner, const QString& property, int position)
{
    const FormJournal::Edit edit(*FJournal);
    auto* collection = owner.Property(property);
    if (!collection)
        collection = &Editor().AddProperty(owner, property, FormValue::Collection({}));
    else if (!collection->IsCollection())
        Editor().ReplaceValue(*collection, FormValue::Collection({}));
    return Editor().AddItem(*collection, std::nullopt, position);
}

bool FormDocument::Remove(FormNode& node)
{
    if (!node.Parent())
        return false;
    const FormJournal::Edit edit(*FJournal);
    Editor().Take(node);
    return true;
}

bool FormDocument::Move(FormNode& node, FormNode& parent, int position)
{
    if (node.TheKind() == FormNode::Kind::Item || !node.Parent())
        return false;
    for (const auto* above = &parent; above; above = above->Parent())
        if (above == &node)
            return false;
    const FormJournal::Edit edit(*FJournal);
    Editor().Move(node, parent, position);
    return true;
}

bool FormDocument::Reorder(FormNode& node, int position)
{
    if (!node.Parent())
        return false;
    if (node.Position() == position)
        return true;
    const FormJournal::Edit edit(*FJournal);
    Editor().Reorder(node, position);
    return true;
}

static FormNames NamesOf(const FormNode& node)
{
    return { node.TheKind(), node.TheHeader().ClassName.toByteArray(), node.TheHeader().Name.toByteArray(),
        node.Index() };
}

void FormDocument::Rename(FormNode& node, const QString& name)
{
    auto names = NamesOf(node);
    names.Name = FTree->Encoding.Encode(name);
    ChangeHeader(node, names);
}

void FormDocument::SetClassName(FormNode& node, const QString& className)
{
    auto names = NamesOf(node);
    names.ClassName = FTree->Encoding.Encode(className);
    ChangeHeader(node, names);
}

void FormDocument::SetIndex(FormNode& node, std::optional<int> index)
{
    auto names = NamesOf(node);
    names.Index = index;
    ChangeHeader(node, names);
}

void FormDocument::SetKind(FormNode& node, FormNode::Kind kind)
{
    auto names = NamesOf(node);
    names.Kind = kind;
    ChangeHeader(node, names);
}

void FormDocument::ChangeHeader(FormNode& node, const FormNames& names)
{
    if (names == NamesOf(node) || names.ClassName.isEmpty() != (node.TheKind() == FormNode::Kind::Item))
        return;
    const FormJournal::Edit edit(*FJournal);
    Editor().ChangeHeader(node, names);
}
