#include "forms/FormEditor.h"

#include "forms/FormIndenter.h"

#include <algorithm>

FormEditor::FormEditor(FormTree& tree, FormJournal& journal, const QString& fileName)
    : m_tree(tree)
    , m_journal(journal)
    , m_scribe(FormScribe::of(tree, fileName))
{
}

FormProperty& FormEditor::addProperty(FormNode& node, const QString& name, const FormValue& value)
{
    const auto nameBytes = m_tree.encoding.encode(name);
    const auto spelled = m_scribe->newProperty(node, nameBytes, value);
    auto* property = m_tree.makeProperty(&node);
    FormProperty::Pieces pieces;
    pieces.lead = m_tree.keep(spelled.lead);
    pieces.name = pieces.lead.sliced(spelled.nameAt, std::min(nameBytes.size(), pieces.lead.size() - spelled.nameAt));
    pieces.value = m_tree.keep(spelled.value);
    pieces.close = m_tree.keep(spelled.close);
    pieces.trail = m_tree.keep(spelled.trail);
    pieces.isCollection = value.kind() == FormValue::Kind::Collection;
    m_journal.setPieces(*property, pieces);
    std::vector<FormProperty*> all(node.properties().begin(), node.properties().end());
    all.push_back(property);
    m_journal.setProperties(node, m_tree.keep(std::span<FormProperty* const>(all)));
    addItems(*property, value.toItems());
    return *property;
}

void FormEditor::replaceValue(FormProperty& property, const FormValue& value)
{
    const auto spelled = m_scribe->newValue(property, value);
    auto pieces = property.pieces();
    pieces.lead = m_scribe->leadFor(pieces.lead);
    pieces.value = m_tree.keep(spelled.value);
    pieces.close = m_tree.keep(spelled.close);
    pieces.items = {};
    pieces.isCollection = value.kind() == FormValue::Kind::Collection;
    m_journal.setPieces(property, pieces);
    addItems(property, value.toItems());
    const auto all = property.owner().properties();
    mendProperty(property.owner(), static_cast<size_t>(std::find(all.begin(), all.end(), &property) - all.begin()) + 1);
}

void FormEditor::addItems(FormProperty& collection, const QList<FormItem>& items)
{
    for (const auto& item : items) {
        auto& node = addItem(collection, item.index, -1);
        for (const auto& property : item.properties)
            addProperty(node, property.name, property.value);
    }
}

void FormEditor::removeProperty(FormProperty& property)
{
    auto& node = property.owner();
    std::vector<FormProperty*> all(node.properties().begin(), node.properties().end());
    const auto found = std::find(all.begin(), all.end(), &property);
    if (found == all.end())
        return;
    const auto at = static_cast<size_t>(found - all.begin());
    all.erase(found);
    m_journal.setProperties(node, m_tree.keep(std::span<FormProperty* const>(all)));
    mendProperty(node, at);
}

FormNode& FormEditor::makeNode(const QByteArray& indent, const FormNames& names)
{
    auto* node = m_tree.makeNode(names.kind);
    const auto header = m_tree.keep(m_scribe->newHeader(indent, names));
    const auto frame = m_scribe->newFrame(indent, names.kind);
    m_tree.setHeader(*node, m_scribe->locate(header, names));
    m_tree.setFrame(*node, m_tree.keep(frame.middle), m_tree.keep(frame.footer));
    return *node;
}

FormNode& FormEditor::addChild(FormNode& parent, const FormNames& names, int position)
{
    auto& node = makeNode(m_scribe->childIndent(parent), names);
    Nodes all(parent.children().begin(), parent.children().end());
    insert(all, node, position);
    setChildren(parent, all, static_cast<size_t>(std::find(all.begin(), all.end(), &node) - all.begin()));
    return node;
}

FormNode& FormEditor::addItem(FormProperty& collection, std::optional<int> index, int position)
{
    auto& node = makeNode(m_scribe->itemIndent(collection), { FormNode::Kind::Item, {}, {}, index });
    Nodes all(collection.items().begin(), collection.items().end());
    insert(all, node, position);
    setItems(collection, all);
    return node;
}

void FormEditor::insert(Nodes& nodes, FormNode& node, int position)
{
    const auto end = static_cast<int>(nodes.size());
    nodes.insert(nodes.begin() + (position < 0 || position > end ? end : position), &node);
}

FormEditor::Nodes FormEditor::siblings(const FormNode& node)
{
    const auto all = node.collection() ? node.collection()->items() : node.parent()->children();
    return { all.begin(), all.end() };
}

void FormEditor::take(FormNode& node)
{
    auto all = siblings(node);
    auto* parent = node.parent();
    auto* collection = node.collection();
    const auto found = std::find(all.begin(), all.end(), &node);
    const auto at = static_cast<size_t>(found - all.begin());
    all.erase(found);
    if (collection)
        setItems(*collection, all);
    else
        setChildren(*parent, all, at);
}

void FormEditor::reorder(FormNode& node, int position)
{
    auto all = siblings(node);
    auto* parent = node.parent();
    auto* collection = node.collection();
    all.erase(std::find(all.begin(), all.end(), &node));
    insert(all, node, position);
    if (collection)
        return setItems(*collection, all);
    for (size_t i = 0; i < all.size(); ++i)
        if (all[i] != parent->children()[i])
            return setChildren(*parent, all, i);
}

void FormEditor::move(FormNode& node, FormNode& parent, int position)
{
    if (node.parent() == &parent)
        return reorder(node, position);
    take(node);
    if (m_scribe->indents())
        FormIndenter(m_tree, m_journal).indent(node, formIndentOf(node.header().bytes), m_scribe->childIndent(parent));
    Nodes all(parent.children().begin(), parent.children().end());
    insert(all, node, position);
    setChildren(parent, all, static_cast<size_t>(std::find(all.begin(), all.end(), &node) - all.begin()));
}

void FormEditor::changeHeader(FormNode& node, const FormNames& names)
{
    const auto bytes = m_tree.keep(m_scribe->changedHeader(node, names));
    m_journal.setHeader(node, names.kind, m_scribe->locate(bytes, names));
}

void FormEditor::setChildren(FormNode& parent, const Nodes& nodes, size_t changed)
{
    m_journal.setChildren(parent, m_tree.keep(std::span<FormNode* const>(nodes)));
    const auto last = std::min(changed + 1, nodes.size());
    for (size_t i = changed; i <= last; ++i)
        mendChild(parent, i);
}

void FormEditor::setItems(FormProperty& collection, const Nodes& nodes)
{
    auto pieces = collection.pieces();
    pieces.items = m_tree.keep(std::span<FormNode* const>(nodes));
    m_journal.setPieces(collection, pieces);
    for (size_t i = 1; i < nodes.size(); ++i)
        mendItem(collection, i);
}

QByteArrayView FormEditor::endOf(const FormProperty& property)
{
    const auto& pieces = property.pieces();
    if (!pieces.trail.isEmpty())
        return pieces.trail;
    return pieces.isCollection ? pieces.close : pieces.value;
}

QByteArrayView FormEditor::beginOf(const FormNode& node, size_t child)
{
    return child < node.children().size() ? node.children()[child]->header().bytes : node.footer();
}

void FormEditor::mendProperty(FormNode& node, size_t i)
{
    const auto all = node.properties();
    const auto before = i == 0 ? node.header().bytes : endOf(*all[i - 1]);
    const auto after = i < all.size() ? all[i]->pieces().lead : beginOf(node, 0);
    const auto gap = m_scribe->gap(before, after);
    if (gap.isEmpty())
        return;
    if (i > 0)
        return addGap(*all[i - 1], gap);
    addGap(node, gap);
}

void FormEditor::mendChild(FormNode& node, size_t i)
{
    if (i == 0)
        return mendProperty(node, node.properties().size());
    auto& before = *node.children()[i - 1];
    const auto gap = m_scribe->gap(before.footer(), beginOf(node, i));
    if (!gap.isEmpty())
        m_journal.setFrame(before, before.middle(), m_tree.keep(before.footer().toByteArray() + gap));
}

void FormEditor::mendItem(FormProperty& collection, size_t i)
{
    auto& before = *collection.items()[i - 1];
    const auto gap = m_scribe->gap(before.footer(), collection.items()[i]->header().bytes);
    if (!gap.isEmpty())
        m_journal.setFrame(before, before.middle(), m_tree.keep(before.footer().toByteArray() + gap));
}

void FormEditor::addGap(FormProperty& property, const QByteArray& gap)
{
    auto pieces = property.pieces();
    pieces.trail = m_tree.keep(pieces.trail.toByteArray() + gap);
    m_journal.setPieces(property, pieces);
}

void FormEditor::addGap(FormNode& node, const QByteArray& gap)
{
    const auto bytes = m_tree.keep(node.header().bytes.toByteArray() + gap);
    m_journal.setHeader(node, node.kind(), node.header().rebased(bytes, 0));
}
