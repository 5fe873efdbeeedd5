#include "forms/FormJournal.h"

#include <algorithm>

FormJournal::Edit::Edit(FormJournal& journal)
    : m_journal(journal)
{
    if (m_journal.m_depth++ > 0)
        return;
    m_journal.m_steps.resize(m_journal.m_position);
    m_journal.m_steps.emplace_back();
    ++m_journal.m_position;
}

FormJournal::Edit::~Edit()
{
    if (--m_journal.m_depth > 0 || !m_journal.m_steps.back().empty())
        return;
    m_journal.m_steps.pop_back();
    --m_journal.m_position;
}

void FormJournal::setHeader(FormNode& node, FormNode::Kind kind, const FormNode::Header& header)
{
    apply(Header { &node, kind, header });
}

void FormJournal::setFrame(FormNode& node, QByteArrayView middle, QByteArrayView footer)
{
    apply(Frame { &node, middle, footer });
}

void FormJournal::setProperties(FormNode& node, std::span<FormProperty* const> properties)
{
    apply(Properties { &node, properties });
}

void FormJournal::setChildren(FormNode& node, std::span<FormNode* const> children)
{
    apply(Children { &node, children });
}

void FormJournal::setPieces(FormProperty& property, const FormProperty::Pieces& pieces)
{
    apply(Pieces { &property, pieces });
}

void FormJournal::apply(Change change)
{
    exchange(change);
    m_steps.back().push_back(change);
}

void FormJournal::undoTo(int position)
{
    const auto target = static_cast<size_t>(std::max(position, 0));
    while (m_position > target) {
        auto& step = m_steps[--m_position];
        for (auto change = step.rbegin(); change != step.rend(); ++change)
            exchange(*change);
    }
}

void FormJournal::redoTo(int position)
{
    const auto target = std::min(static_cast<size_t>(std::max(position, 0)), m_steps.size());
    while (m_position < target)
        for (auto& change : m_steps[m_position++])
            exchange(change);
}

void FormJournal::exchange(Change& change)
{
    std::visit([this](auto& one) { exchange(one); }, change);
}

void FormJournal::exchange(Header& change)
{
    const Header now { change.node, change.node->kind(), change.node->header() };
    m_tree.setKind(*change.node, change.kind);
    m_tree.setHeader(*change.node, change.header);
    change = now;
}

void FormJournal::exchange(Frame& change)
{
    const Frame now { change.node, change.node->middle(), change.node->footer() };
    m_tree.setFrame(*change.node, change.middle, change.footer);
    change = now;
}

void FormJournal::exchange(Properties& change)
{
    const Properties now { change.node, change.node->properties() };
    m_tree.setProperties(*change.node, change.properties);
    change = now;
}

void FormJournal::exchange(Children& change)
{
    const Children now { change.node, change.node->children() };
    m_tree.setChildren(*change.node, change.children);
    change = now;
}

void FormJournal::exchange(Pieces& change)
{
    const Pieces now { change.property, change.property->pieces() };
    m_tree.setPieces(*change.property, change.pieces);
    change = now;
}
