#include "forms/FormIndenter.h"

#include "forms/FormScribe.h"

void FormIndenter::Indent(FormNode& node, const QByteArray& from, const QByteArray& to)
{
    if (from == to)
        return;
    FFrom = from;
    FTo = to;
    FLineStart = true;
    Visit(node);
}

QByteArrayView FormIndenter::Moved(QByteArrayView piece)
{
    QByteArray made;
    bool lineStart = FLineStart;
    for (qsizetype at = 0; at < piece.size();) {
        if (lineStart && piece.sliced(at).startsWith(FFrom)) {
            made += FTo;
            at += FFrom.size();
        }
        const auto end = piece.indexOf('\n', at);
        lineStart = end >= 0;
        const auto stop = lineStart ? end + 1 : piece.size();
        made += piece.sliced(at, stop - at);
        at = stop;
    }
    FLineStart = lineStart;
    return made == piece ? piece : FTree.Keep(made);
}

void FormIndenter::Visit(FormProperty& property)
{
    auto pieces = property.ThePieces();
    pieces.Lead = Moved(pieces.Lead);
    if (const auto at = pieces.Lead.indexOf(pieces.Name); at >= 0)
        pieces.Name = pieces.Lead.sliced(at, pieces.Name.size());
    pieces.Value = Moved(pieces.Value);
    for (auto* item : pieces.Items)
        Visit(*item);
    pieces.Close = Moved(pieces.Close);
    pieces.Trail = Moved(pieces.Trail);
    FJournal.SetPieces(property, pieces);
}

void FormIndenter::Visit(FormNode& node)
{
    const auto& header = node.TheHeader();
    const auto bytes = Moved(header.Bytes);
    FJournal.SetHeader(node, node.TheKind(), header.Rebased(bytes, bytes.size() - header.Bytes.size()));
    for (auto* property : node.Properties())
        Visit(*property);
    const auto middle = Moved(node.Middle());
    for (auto* child : node.Children())
        Visit(*child);
    FJournal.SetFrame(node, middle, Moved(node.Footer()));
}
