#include "forms/FormTextPrinter.h"

#include "forms/FormNumber.h"

#include <algorithm>

namespace {

constexpr int StringWidth = 64; // characters of a string in one line
constexpr int BinaryWidth = 32; // bytes of binary data in one line

bool IsAscii(const QByteArray& bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<uchar>(c) < 0x80; });
}

QByteArray Real(const FormValue& value, bool padded)
{
    switch (value.TheKind()) {
    case FormValue::Kind::Single:
        return FormNumber::Print(value.ToReal(), padded, FormNumber::Precision::Single) + 's';
    case FormValue::Kind::Currency:
        return FormNumber::PrintCurrency(value.ToReal());
    case FormValue::Kind::Date:
        return FormNumber::Print(value.ToReal(), padded, FormNumber::Precision::Double) + 'd';
    case FormValue::Kind::Double:
        return FormNumber::Print(value.ToReal(), padded, FormNumber::Precision::Double);
    default:
        return FormNumber::Print(value.ToReal(), padded);
    }
}

}

const char* FormTextPrinter::Keyword(FormNode::Kind kind)
{
    switch (kind) {
    case FormNode::Kind::Inherited:
        return "inherited";
    case FormNode::Kind::Inline:
        return "inline";
    case FormNode::Kind::Item:
        return "item";
    default:
        return "object";
    }
}

QByteArray FormTextPrinter::header(const FormNames& names) const
{
    QByteArray text(Keyword(names.Kind));
    if (!names.ClassName.isEmpty())
        text += ' ' + (names.Name.isEmpty() ? QByteArray() : names.Name + ": ") + names.ClassName;
    if (names.Index)
        text += (FStyle.TightIndex && names.Kind != FormNode::Kind::Item ? "[" : " [")
            + QByteArray::number(*names.Index) + ']';
    return text;
}

QByteArray FormTextPrinter::Value(const FormValue& value, const QByteArray& indent) const
{
    switch (value.TheKind()) {
    case FormValue::Kind::Null:
        return "Null";
    case FormValue::Kind::Nil:
        return "nil";
    case FormValue::Kind::Boolean:
        return value.ToBool() ? "True" : "False";
    case FormValue::Kind::Integer:
        return QByteArray::number(value.ToInteger());
    case FormValue::Kind::String:
        return String(value, indent);
    case FormValue::Kind::Identifier:
        return FStyle.Encoding.Encode(value.ToString());
    case FormValue::Kind::Set:
        return FStyle.Encoding.Encode(u'[' + value.ToStringList().join(QStringLiteral(", ")) + u']');
    case FormValue::Kind::List:
        return List(value.ToList(), indent);
    case FormValue::Kind::Collection:
        return Collection(value.ToItems(), indent);
    case FormValue::Kind::Binary:
        return Binary(value.ToBinary(), indent);
    default:
        return Real(value, FStyle.PaddedReals);
    }
}

QByteArray FormTextPrinter::List(const QList<FormValue>& values, const QByteArray& indent) const
{
    QByteArray text("(");
    for (const auto& element : values)
        text += NewLine(indent + FStyle.Step) + Value(element, indent + FStyle.Step);
    return text + Close(indent, !values.isEmpty()) + ')';
}

QByteArray FormTextPrinter::Collection(const QList<FormItem>& items, const QByteArray& indent) const
{
    QByteArray text("<");
    const auto inner = indent + FStyle.Step;
    for (const auto& item : items) {
        text += NewLine(inner) + "item";
        if (item.Index)
            text += " [" + QByteArray::number(*item.Index) + ']';
        for (const auto& property : item.Properties)
            text += NewLine(inner + FStyle.Step) + FStyle.Encoding.Encode(property.Name) + " = "
                + Value(property.Value, inner + FStyle.Step);
        text += NewLine(inner) + "end";
    }
    return text + '>';
}

QByteArray FormTextPrinter::Binary(const QByteArray& data, const QByteArray& indent) const
{
    QByteArray text("{");
    for (qsizetype at = 0; at < data.size(); at += BinaryWidth)
        text += NewLine(indent + FStyle.Step) + data.mid(at, BinaryWidth).toHex().toUpper();
    return text + Close(indent, !data.isEmpty()) + '}';
}

QByteArray FormTextPrinter::String(const FormValue& value, const QByteArray& indent) const
{
    const auto text = value.ToString();
    if (text.isEmpty())
        return "''";
    const auto bytes = value.NarrowBytes();
    if (!bytes.isEmpty() && FStyle.NarrowBytes && !IsAscii(bytes) && FStyle.Encoding.Decode(bytes) == text)
        return Join(Raw(bytes), indent);
    if (FStyle.RawStrings && FStyle.Encoding.CanEncode(text))
        return Join(Raw(FStyle.Encoding.Encode(text)), indent);
    return Join(Escaped(text), indent);
}

// Everything that is no plain character by its number.
QList<FormTextPrinter::Unit> FormTextPrinter::Escaped(const QString& text)
{
    QList<Unit> units;
    units.reserve(text.size());
    for (const auto c : text) {
        const bool plain = c >= u' ' && c != u'\'' && c.unicode() < 0x7F;
        units << Unit { plain ? QByteArray(1, c.toLatin1()) : '#' + QByteArray::number(c.unicode()), plain };
    }
    return units;
}

// Only control characters by their number.
QList<FormTextPrinter::Unit> FormTextPrinter::Raw(const QByteArray& bytes) const
{
    QList<Unit> units;
    units.reserve(bytes.size());
    for (const char c : bytes) {
        const auto code = static_cast<uchar>(c);
        const bool within = FStyle.Encoding.IsUtf8() && (code & 0xC0) == 0x80 && !units.isEmpty();
        if (within && units.back().Quoted)
            units.back().Bytes += c;
        else if (code < 0x20 || code == 0x7F)
            units << Unit { '#' + QByteArray::number(code), false };
        else
            units << Unit { c == '\'' ? QByteArray("''") : QByteArray(1, c), true };
    }
    return units;
}

QByteArray FormTextPrinter::Join(const QList<Unit>& units, const QByteArray& indent) const
{
    const auto next = NewLine(indent + FStyle.Step);
    const bool broken = FStyle.BreakStrings && units.size() > StringWidth;
    QByteArray spelled = broken ? next : QByteArray();
    bool open = false;
    for (qsizetype at = 0; at < units.size(); ++at) {
        if (broken && at > 0 && at % StringWidth == 0) {
            spelled += (open ? "' +" : " +") + next;
            open = false;
        }
        if (units[at].Quoted != open)
            spelled += '\'';
        open = units[at].Quoted;
        spelled += units[at].Bytes;
    }
    return open ? spelled + '\'' : spelled;
}
