#include "forms/FormEditor.h"

#include "forms/FormIndenter.h"

#include <algorithm>

FormEditor::FormEditor(FormTree& tree, FormJournal& journal, const QString& fileName)
    : FTree(tree)
    , FJournal(journal)
    , FScribe(FormScribe::Of(tree, fileName))
{
}

FormProperty& FormEditor::AddProperty(FormNode& node, const QString& name, const FormValue& value)
{
    const auto nameBytes = FTree.Encoding.Encode(name);
    const auto spelled = FScribe->NewProperty(node, nameBytes, value);
    auto* property = FTree.MakeProperty(&node);
    FormProperty::Pieces pieces;
    pieces.Lead = FTree.Keep(spelled.Lead);
    pieces.Name = pieces.Lead.sliced(spelled.NameAt, std::min(nameBytes.size(), pieces.Lead.size() - spelled.NameAt));
    pieces.Value = FTree.Keep(spelled.Value);
    pieces.Close = FTree.Keep(spelled.Close);
    pieces.Trail = FTree.Keep(spelled.Trail);
    pieces.IsCollection = value.TheKind() == FormValue::Kind::Collection;
    FJournal.SetPieces(*property, pieces);
    std::vector<FormProperty*> all(node.Properties().begin(), node.Properties().end());
    all.push_back(property);
    FJournal.SetProperties(node, FTree.Keep(std::span<FormProperty* const>(all)));
    AddItems(*property, value.ToItems());
    return *property;
}

void FormEditor::ReplaceValue(FormProperty& property, const FormValue& value)
{
    const auto spelled = FScribe->NewValue(property, value);
    auto pieces = property.ThePieces();
    pieces.Lead = FScribe->LeadFor(pieces.Lead);
    pieces.Value = FTree.Keep(spelled.Value);
    pieces.Close = FTree.Keep(spelled.Close);
    pieces.Items = {};
    pieces.IsCollection = value.TheKind() == FormValue::Kind::Collection;
    FJournal.SetPieces(property, pieces);
    AddItems(property, value.ToItems());
    const auto all = property.Owner().Properties();
    MendProperty(property.Owner(), static_cast<size_t>(std::find(all.begin(), all.end(), &property) - all.begin()) + 1);
}

void FormEditor::AddItems(FormProperty& collection, const QList<FormItem>& items)
{
    for (const auto& item : items) {
        auto& node = AddItem(collection, item.Index, -1);
        for (const auto& property : item.Properties)
            AddProperty(node, property.Name, property.Value);
    }
}

void FormEditor::RemoveProperty(FormProperty& property)
{
    auto& node = property.Owner();
    std::vector<FormProperty*> all(node.Properties().begin(), node.Properties().end());
    const auto found = std::find(all.begin(), all.end(), &property);
    if (found == all.end())
        return;
    const auto at = static_cast<size_t>(found - all.begin());
    all.erase(found);
    FJournal.SetProperties(node, FTree.Keep(std::span<FormProperty* const>(all)));
    MendProperty(node, at);
}

FormNode& FormEditor::MakeNode(const QByteArray& indent, const FormNames& names)
{
    auto* node = FTree.MakeNode(names.Kind);
    const auto header = FTree.Keep(FScribe->NewHeader(indent, names));
    const auto frame = FScribe->NewFrame(indent, names.Kind);
    FTree.SetHeader(*node, FScribe->Locate(header, names));
    FTree.SetFrame(*node, FTree.Keep(frame.Middle), FTree.Keep(frame.Footer));
    return *node;
}

FormNode& FormEditor::AddChild(FormNode& parent, const FormNames& names, int position)
{
    auto& node = MakeNode(FScribe->ChildIndent(parent), names);
    Nodes all(parent.Children().begin(), parent.Children().end());
    Insert(all, node, position);
    SetChildren(parent, all, static_cast<size_t>(std::find(all.begin(), all.end(), &node) - all.begin()));
    return node;
}

FormNode& FormEditor::AddItem(FormProperty& collection, std::optional<int> index, int position)
{
    auto& node = MakeNode(FScribe->ItemIndent(collection), { FormNode::Kind::Item, {}, {}, index });
    Nodes all(collection.Items().begin(), collection.Items().end());
    Insert(all, node, position);
    SetItems(collection, all);
    return node;
}

void FormEditor::Insert(Nodes& nodes, FormNode& node, int position)
{
    const auto end = static_cast<int>(nodes.size());
    nodes.insert(nodes.begin() + (position < 0 || position > end ? end : position), &node);
}

FormEditor::Nodes FormEditor::Siblings(const FormNode& node)
{
    const auto all = node.Collection() ? node.Collection()->Items() : node.Parent()->Children();
    return { all.begin(), all.end() };
}

void FormEditor::Take(FormNode& node)
{
    auto all = Siblings(node);
    auto* parent = node.Parent();
    auto* collection = node.Collection();
    const auto found = std::find(all.begin(), all.end(), &node);
    const auto at = static_cast<size_t>(found - all.begin());
    all.erase(found);
    if (collection)
        SetItems(*collection, all);
    else
        SetChildren(*parent, all, at);
}

void FormEditor::Reorder(FormNode& node, int position)
{
    auto all = Siblings(node);
    auto* parent = node.Parent();
    auto* collection = node.Collection();
    all.erase(std::find(all.begin(), all.end(), &node));
    Insert(all, node, position);
    if (collection)
        return SetItems(*collection, all);
    for (size_t i = 0; i < all.size(); ++i)
        if (all[i] != parent->Children()[i])
            return SetChildren(*parent, all, i);
}

void FormEditor::Move(FormNode& node, FormNode& parent, int position)
{
    if (node.Parent() == &parent)
        return Reorder(node, position);
    Take(node);
    if (FScribe->Indents())
        FormIndenter(FTree, FJournal).Indent(node, FormIndentOf(node.TheHeader().Bytes), FScribe->ChildIndent(parent));
    Nodes all(parent.Children().begin(), parent.Children().end());
    Insert(all, node, position);
    SetChildren(parent, all, static_cast<size_t>(std::find(all.begin(), all.end(), &node) - all.begin()));
}

void FormEditor::ChangeHeader(FormNode& node, const FormNames& names)
{
    const auto bytes = FTree.Keep(FScribe->ChangedHeader(node, names));
    FJournal.SetHeader(node, names.Kind, FScribe->Locate(bytes, names));
}

void FormEditor::SetChildren(FormNode& parent, const Nodes& nodes, size_t changed)
{
    FJournal.SetChildren(parent, FTree.Keep(std::span<FormNode* const>(nodes)));
    const auto last = std::min(changed + 1, nodes.size());
    for (size_t i = changed; i <= last; ++i)
        MendChild(parent, i);
}

void FormEditor::SetItems(FormProperty& collection, const Nodes& nodes)
{
    auto pieces = collection.ThePieces();
    pieces.Items = FTree.Keep(std::span<FormNode* const>(nodes));
    FJournal.SetPieces(collection, pieces);
    for (size_t i = 1; i < nodes.size(); ++i)
        MendItem(collection, i);
}

QByteArrayView FormEditor::EndOf(const FormProperty& property)
{
    const auto& pieces = property.ThePieces();
    if (!pieces.Trail.isEmpty())
        return pieces.Trail;
    return pieces.IsCollection ? pieces.Close : pieces.Value;
}

QByteArrayView FormEditor::BeginOf(const FormNode& node, size_t child)
{
    return child < node.Children().size() ? node.Children()[child]->TheHeader().Bytes : node.Footer();
}

void FormEditor::MendProperty(FormNode& node, size_t i)
{
    const auto all = node.Properties();
    const auto before = i == 0 ? node.TheHeader().Bytes : EndOf(*all[i - 1]);
    const auto after = i < all.size() ? all[i]->ThePieces().Lead : BeginOf(node, 0);
    const auto gap = FScribe->Gap(before, after);
    if (gap.isEmpty())
        return;
    if (i > 0)
        return AddGap(*all[i - 1], gap);
    AddGap(node, gap);
}

void FormEditor::MendChild(FormNode& node, size_t i)
{
    if (i == 0)
        return MendProperty(node, node.Properties().size());
    auto& before = *node.Children()[i - 1];
    const auto gap = FScribe->Gap(before.Footer(), BeginOf(node, i));
    if (!gap.isEmpty())
        FJournal.SetFrame(before, before.Middle(), FTree.Keep(before.Footer().toByteArray() + gap));
}

void FormEditor::MendItem(FormProperty& collection, size_t i)
{
    auto& before = *collection.Items()[i - 1];
    const auto gap = FScribe->Gap(before.Footer(), collection.Items()[i]->TheHeader().Bytes);
    if (!gap.isEmpty())
        FJournal.SetFrame(before, before.Middle(), FTree.Keep(before.Footer().toByteArray() + gap));
}

void FormEditor::AddGap(FormProperty& property, const QByteArray& gap)
{
    auto pieces = property.ThePieces();
    pieces.Trail = FTree.Keep(pieces.Trail.toByteArray() + gap);
    FJournal.SetPieces(property, pieces);
}

void FormEditor::AddGap(FormNode& node, const QByteArray& gap)
{
    const auto bytes = FTree.Keep(node.TheHeader().Bytes.toByteArray() + gap);
    FJournal.SetHeader(node, node.TheKind(), node.TheHeader().Rebased(bytes, 0));
}
