#include "forms/FormIndenter.h"

#include "forms/FormScribe.h"

void FormIndenter::indent(FormNode& node, const QByteArray& from, const QByteArray& to)
{
    if (from == to)
        return;
    m_from = from;
    m_to = to;
    m_lineStart = true;
    visit(node);
}

QByteArrayView FormIndenter::moved(QByteArrayView piece)
{
    QByteArray made;
    bool lineStart = m_lineStart;
    for (qsizetype at = 0; at < piece.size();) {
        if (lineStart && piece.sliced(at).startsWith(m_from)) {
            made += m_to;
            at += m_from.size();
        }
        const auto end = piece.indexOf('\n', at);
        lineStart = end >= 0;
        const auto stop = lineStart ? end + 1 : piece.size();
        made += piece.sliced(at, stop - at);
        at = stop;
    }
    m_lineStart = lineStart;
    return made == piece ? piece : m_tree.keep(made);
}

void FormIndenter::visit(FormProperty& property)
{
    auto pieces = property.pieces();
    pieces.lead = moved(pieces.lead);
    if (const auto at = pieces.lead.indexOf(pieces.name); at >= 0)
        pieces.name = pieces.lead.sliced(at, pieces.name.size());
    pieces.value = moved(pieces.value);
    for (auto* item : pieces.items)
        visit(*item);
    pieces.close = moved(pieces.close);
    pieces.trail = moved(pieces.trail);
    m_journal.setPieces(property, pieces);
}

void FormIndenter::visit(FormNode& node)
{
    const auto& header = node.header();
    const auto bytes = moved(header.bytes);
    m_journal.setHeader(node, node.kind(), header.rebased(bytes, bytes.size() - header.bytes.size()));
    for (auto* property : node.properties())
        visit(*property);
    const auto middle = moved(node.middle());
    for (auto* child : node.children())
        visit(*child);
    m_journal.setFrame(node, middle, moved(node.footer()));
}
