#include "forms/FormTextPrinter.h"

#include "forms/FormNumber.h"

#include <algorithm>

namespace {

constexpr int stringWidth = 64; // characters of a string in one line
constexpr int binaryWidth = 32; // bytes of binary data in one line

bool isAscii(const QByteArray& bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<uchar>(c) < 0x80; });
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
    const auto bytes = value.narrowBytes();
    if (!bytes.isEmpty() && m_style.narrowBytes && !isAscii(bytes) && m_style.encoding.decode(bytes) == text)
        return join(raw(bytes), indent);
    if (m_style.rawStrings && m_style.encoding.canEncode(text))
        return join(raw(m_style.encoding.encode(text)), indent);
    return join(escaped(text), indent);
}

// Everything that is no plain character by its number.
QList<FormTextPrinter::Unit> FormTextPrinter::escaped(const QString& text)
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
QList<FormTextPrinter::Unit> FormTextPrinter::raw(const QByteArray& bytes) const
{
    QList<Unit> units;
    units.reserve(bytes.size());
    for (const char c : bytes) {
        const auto code = static_cast<uchar>(c);
        const bool within = m_style.encoding.isUtf8() && (code & 0xC0) == 0x80 && !units.isEmpty();
        if (within && units.back().quoted)
            units.back().bytes += c;
        else if (code < 0x20 || code == 0x7F)
            units << Unit { '#' + QByteArray::number(code), false };
        else
            units << Unit { c == '\'' ? QByteArray("''") : QByteArray(1, c), true };
    }
    return units;
}

QByteArray FormTextPrinter::join(const QList<Unit>& units, const QByteArray& indent) const
{
    const auto next = newLine(indent + m_style.step);
    const bool broken = m_style.breakStrings && units.size() > stringWidth;
    QByteArray spelled = broken ? next : QByteArray();
    bool open = false;
    for (qsizetype at = 0; at < units.size(); ++at) {
        if (broken && at > 0 && at % stringWidth == 0) {
            spelled += (open ? "' +" : " +") + next;
            open = false;
        }
        if (units[at].quoted != open)
            spelled += '\'';
        open = units[at].quoted;
        spelled += units[at].bytes;
    }
    return open ? spelled + '\'' : spelled;
}
