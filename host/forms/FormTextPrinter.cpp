#include "forms/FormTextPrinter.h"

#include "forms/FormNumber.h"

#include <algorithm>

namespace {

constexpr int stringWidth = 64; // characters of a string in one line
constexpr int binaryWidth = 32; // bytes of binary data in one line

bool isPlain(QChar c)
{
    return c >= u' ' && c != u'\'' && c.unicode() < 0x7F;
}

QByteArray real(const FormValue& value, bool padded)
{
    switch (value.kind()) {
    case FormValue::Kind::Single:
        return FormNumber::print(value.toReal(), padded, FormNumber::Precision::Single) + 's';
    case FormValue::Kind::Currency:
        return FormNumber::printCurrency(value.toReal());
    case FormValue::Kind::Date:
        return FormNumber::print(value.toReal(), padded, FormNumber::Precision::Double) + 'd';
    case FormValue::Kind::Double:
        return FormNumber::print(value.toReal(), padded, FormNumber::Precision::Double);
    default:
        return FormNumber::print(value.toReal(), padded);
    }
}

}

const char* FormTextPrinter::keyword(FormNode::Kind kind)
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
    QByteArray text(keyword(names.kind));
    if (!names.className.isEmpty())
        text += ' ' + (names.name.isEmpty() ? QByteArray() : names.name + ": ") + names.className;
    if (names.index)
        text += (m_style.tightIndex && names.kind != FormNode::Kind::Item ? "[" : " [")
            + QByteArray::number(*names.index) + ']';
    return text;
}

QByteArray FormTextPrinter::value(const FormValue& value, const QByteArray& indent) const
{
    switch (value.kind()) {
    case FormValue::Kind::Null:
        return "Null";
    case FormValue::Kind::Nil:
        return "nil";
    case FormValue::Kind::Boolean:
        return value.toBool() ? "True" : "False";
    case FormValue::Kind::Integer:
        return QByteArray::number(value.toInteger());
    case FormValue::Kind::String:
        return string(value, indent);
    case FormValue::Kind::Identifier:
        return m_style.encoding.encode(value.toString());
    case FormValue::Kind::Set:
        return m_style.encoding.encode(u'[' + value.toStringList().join(QStringLiteral(", ")) + u']');
    case FormValue::Kind::List:
        return list(value.toList(), indent);
    case FormValue::Kind::Collection:
        return collection(value.toItems(), indent);
    case FormValue::Kind::Binary:
        return binary(value.toBinary(), indent);
    default:
        return real(value, m_style.paddedReals);
    }
}

QByteArray FormTextPrinter::list(const QList<FormValue>& values, const QByteArray& indent) const
{
    QByteArray text("(");
    for (const auto& element : values)
        text += newLine(indent + m_style.step) + value(element, indent + m_style.step);
    return text + close(indent, !values.isEmpty()) + ')';
}

QByteArray FormTextPrinter::collection(const QList<FormItem>& items, const QByteArray& indent) const
{
    QByteArray text("<");
    const auto inner = indent + m_style.step;
    for (const auto& item : items) {
        text += newLine(inner) + "item";
        if (item.index)
            text += " [" + QByteArray::number(*item.index) + ']';
        for (const auto& property : item.properties)
            text += newLine(inner + m_style.step) + m_style.encoding.encode(property.name) + " = "
                + value(property.value, inner + m_style.step);
        text += newLine(inner) + "end";
    }
    return text + '>';
}

QByteArray FormTextPrinter::binary(const QByteArray& data, const QByteArray& indent) const
{
    QByteArray text("{");
    for (qsizetype at = 0; at < data.size(); at += binaryWidth)
        text += newLine(indent + m_style.step) + data.mid(at, binaryWidth).toHex().toUpper();
    return text + close(indent, !data.isEmpty()) + '}';
}

QByteArray FormTextPrinter::string(const FormValue& value, const QByteArray& indent) const
{
    const auto text = value.toString();
    if (text.isEmpty())
        return "''";
    if (m_style.rawStrings && value.stringWidth() != FormValue::StringWidth::Narrow && m_style.encoding.canEncode(text))
        return raw(m_style.encoding.encode(text));
    const auto bytes = value.narrowBytes();
    const bool ascii = std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<uchar>(c) < 0x80; });
    if (!bytes.isEmpty() && (m_style.rawStrings || !ascii))
        return raw(bytes);
    return escaped(text, indent);
}

// Everything that is no plain character by its number; a long text goes on in the next line behind a +.
QByteArray FormTextPrinter::escaped(const QString& text, const QByteArray& indent) const
{
    const auto next = newLine(indent + m_style.step);
    QByteArray spelled;
    if (text.size() > stringWidth)
        spelled += next;
    bool open = false;
    for (qsizetype at = 0, lineStart = 0; at < text.size(); ++at) {
        const bool plain = isPlain(text[at]);
        if (at - lineStart >= stringWidth && !(at > 0 && text[at].isLowSurrogate())) {
            spelled += (open ? "' +" : " +") + next;
            lineStart = at;
            open = false;
        }
        if (plain != open)
            spelled += '\'';
        open = plain;
        spelled += plain ? QByteArray(1, text[at].toLatin1()) : '#' + QByteArray::number(text[at].unicode());
    }
    return open ? spelled + '\'' : spelled;
}

QByteArray FormTextPrinter::raw(const QByteArray& bytes) const
{
    QByteArray spelled;
    bool open = false;
    for (const char c : bytes) {
        const bool plain = static_cast<uchar>(c) >= 0x20 && c != 0x7F;
        if (plain != open)
            spelled += '\'';
        open = plain;
        if (plain)
            spelled += c == '\'' ? QByteArray("''") : QByteArray(1, c);
        else
            spelled += '#' + QByteArray::number(static_cast<uchar>(c));
    }
    return open ? spelled + '\'' : spelled;
}
