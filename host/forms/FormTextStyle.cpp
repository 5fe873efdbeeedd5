#include "forms/FormTextStyle.h"

#include "forms/FormLexer.h"
#include "forms/FormTree.h"

#include <optional>

namespace {

QByteArray firstLineEnd(QByteArrayView bytes)
{
    const auto at = bytes.indexOf('\n');
    if (at > 0 && bytes[at - 1] == '\r')
        return "\r\n";
    if (at >= 0)
        return "\n";
    return bytes.contains('\r') ? "\r" : "\r\n";
}

QByteArray stepOf(const FormNode& root)
{
    const auto outer = formIndentOf(root.header().bytes);
    QByteArray inner;
    if (!root.properties().empty())
        inner = formIndentOf(root.properties().front()->pieces().lead);
    else if (!root.children().empty())
        inner = formIndentOf(root.children().front()->header().bytes);
    return inner.size() > outer.size() && inner.startsWith(outer) ? inner.mid(outer.size()) : QByteArrayLiteral("  ");
}

bool isReal(QByteArrayView value)
{
    return !value.isEmpty() && (value[0] == '-' || (value[0] >= '0' && value[0] <= '9')) && value.contains('.');
}

// What the first list, number, string and place that can tell say about the hand.
struct Probe {
    std::optional<bool> ownLineClose;
    std::optional<bool> paddedReals;
    std::optional<bool> breakStrings;
    std::optional<bool> tightIndex;

    bool isDone() const { return ownLineClose && paddedReals && breakStrings && tightIndex; }

    void look(const FormNode& node)
    {
        if (isDone())
            return;
        if (node.index() && !node.className().isEmpty() && !tightIndex)
            tightIndex = node.header().bytes[node.header().bytes.indexOf('[') - 1] != ' ';
        for (const auto* property : node.properties()) {
            lookAtValue(property->valueBytes());
            for (const auto* item : property->items())
                look(*item);
        }
        for (const auto* child : node.children())
            look(*child);
    }

private:
    void lookAtValue(QByteArrayView value)
    {
        if (!ownLineClose && value.startsWith('(') && value.contains('\n'))
            ownLineClose = FormLexer::isBlank(value[value.size() - 2]);
        else if (!paddedReals && isReal(value))
            paddedReals = value.size() - value.indexOf('.') > 18;
        else if (!breakStrings && value.startsWith('\'') && value.size() > 66)
            breakStrings = value.contains('\n');
    }
};

}

QByteArray formIndentOf(QByteArrayView piece)
{
    qsizetype start = 0;
    qsizetype at = 0;
    for (; at < piece.size() && FormLexer::isBlank(piece[at]); ++at)
        if (piece[at] == '\n' || piece[at] == '\r')
            start = at + 1;
    return piece.sliced(start, at - start).toByteArray();
}

FormTextStyle formStyleOf(const FormTree& tree, const QString& fileName)
{
    const bool loose = tree.rawStrings || fileName.endsWith(QLatin1StringView(".lfm"), Qt::CaseInsensitive);
    Probe probe;
    probe.look(*tree.root);
    FormTextStyle style;
    style.lineEnd = firstLineEnd(tree.source());
    style.step = stepOf(*tree.root);
    style.encoding = tree.encoding;
    style.rawStrings = loose && tree.encoding.isUtf8();
    style.breakStrings = probe.breakStrings.value_or(!loose);
    style.paddedReals = probe.paddedReals.value_or(!loose);
    style.tightIndex = probe.tightIndex.value_or(loose);
    style.ownLineClose = probe.ownLineClose.value_or(loose);
    return style;
}
