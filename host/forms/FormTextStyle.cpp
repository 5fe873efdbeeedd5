#include "forms/FormTextStyle.h"

#include "forms/FormLexer.h"
#include "forms/FormTree.h"

#include <optional>

namespace {

QByteArray FirstLineEnd(QByteArrayView bytes)
{
    const auto at = bytes.indexOf('\n');
    if (at > 0 && bytes[at - 1] == '\r')
        return "\r\n";
    if (at >= 0)
        return "\n";
    return bytes.contains('\r') ? "\r" : "\r\n";
}

QByteArray StepOf(const FormNode& root)
{
    const auto outer = FormIndentOf(root.TheHeader().Bytes);
    QByteArray inner;
    if (!root.Properties().empty())
        inner = FormIndentOf(root.Properties().front()->ThePieces().Lead);
    else if (!root.Children().empty())
        inner = FormIndentOf(root.Children().front()->TheHeader().Bytes);
    return inner.size() > outer.size() && inner.startsWith(outer) ? inner.mid(outer.size()) : QByteArrayLiteral("  ");
}

bool IsReal(QByteArrayView value)
{
    return !value.isEmpty() && (value[0] == '-' || (value[0] >= '0' && value[0] <= '9')) && value.contains('.');
}

// What the first list, number, string and place that can tell say about the hand.
struct Probe {
    std::optional<bool> OwnLineClose;
    std::optional<bool> PaddedReals;
    std::optional<bool> BreakStrings;
    std::optional<bool> TightIndex;

    bool IsDone() const { return OwnLineClose && PaddedReals && BreakStrings && TightIndex; }

    void Look(const FormNode& node)
    {
        if (IsDone())
            return;
        if (node.Index() && !node.ClassName().isEmpty() && !TightIndex)
            TightIndex = node.TheHeader().Bytes[node.TheHeader().Bytes.indexOf('[') - 1] != ' ';
        for (const auto* property : node.Properties()) {
            LookAtValue(property->ValueBytes());
            for (const auto* item : property->Items())
                Look(*item);
        }
        for (const auto* child : node.Children())
            Look(*child);
    }

private:
    void LookAtValue(QByteArrayView value)
    {
        if (!OwnLineClose && value.startsWith('(') && value.contains('\n'))
            OwnLineClose = FormLexer::IsBlank(value[value.size() - 2]);
        else if (!PaddedReals && IsReal(value))
            PaddedReals = value.size() - value.indexOf('.') > 18;
        else if (!BreakStrings && value.startsWith('\'') && value.size() > 66)
            BreakStrings = value.contains('\n');
    }
};

}

QByteArray FormIndentOf(QByteArrayView piece)
{
    qsizetype start = 0;
    qsizetype at = 0;
    for (; at < piece.size() && FormLexer::IsBlank(piece[at]); ++at)
        if (piece[at] == '\n' || piece[at] == '\r')
            start = at + 1;
    return piece.sliced(start, at - start).toByteArray();
}

FormTextStyle FormStyleOf(const FormTree& tree, const QString& fileName)
{
    const bool loose = tree.RawStrings || fileName.endsWith(QLatin1StringView(".lfm"), Qt::CaseInsensitive);
    Probe probe;
    probe.Look(*tree.Root);
    FormTextStyle style;
    style.LineEnd = FirstLineEnd(tree.Source());
    style.Step = StepOf(*tree.Root);
    style.Encoding = tree.Encoding;
    style.RawStrings = loose && tree.Encoding.IsUtf8();
    style.BreakStrings = probe.BreakStrings.value_or(!loose);
    style.PaddedReals = probe.PaddedReals.value_or(!loose);
    style.TightIndex = probe.TightIndex.value_or(loose);
    style.OwnLineClose = probe.OwnLineClose.value_or(loose);
    return style;
}
