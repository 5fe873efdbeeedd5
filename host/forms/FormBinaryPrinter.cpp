#include "forms/FormBinaryPrinter.h"

#include "forms/FormBinaryValue.h"

#include <QtEndian>

#include <cmath>
#include <limits>

namespace {

QByteArray tag(BinaryType type)
{
    return QByteArray(1, static_cast<char>(type));
}

template <typename T>
QByteArray bytesOf(T number)
{
    QByteArray bytes(sizeof(T), Qt::Uninitialized);
    qToLittleEndian(number, bytes.data());
    return bytes;
}

template <typename T>
bool fits(qint64 number)
{
    return number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
}

QByteArray longString(BinaryType type, const QByteArray& bytes)
{
    return tag(type) + bytesOf(static_cast<quint32>(bytes.size())) + bytes;
}

QByteArray wide(BinaryType type, const QString& text)
{
    QByteArray units(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    return tag(type) + bytesOf(static_cast<quint32>(text.size())) + units;
}

QByteArray narrow(const QByteArray& bytes)
{
    if (bytes.size() > 255)
        return longString(BinaryType::LString, bytes);
    return tag(BinaryType::String) + FormBinaryPrinter::shortString(bytes);
}

}

QByteArray FormBinaryPrinter::shortString(QByteArrayView bytes)
{
    const auto cut = bytes.first(std::min<qsizetype>(bytes.size(), 255));
    return QByteArray(1, static_cast<char>(cut.size())) + cut.toByteArray();
}

QByteArray FormBinaryPrinter::integer(qint64 number)
{
    if (fits<qint8>(number))
        return tag(BinaryType::Int8) + bytesOf(static_cast<qint8>(number));
    if (fits<qint16>(number))
        return tag(BinaryType::Int16) + bytesOf(static_cast<qint16>(number));
    if (fits<qint32>(number))
        return tag(BinaryType::Int32) + bytesOf(static_cast<qint32>(number));
    return tag(BinaryType::Int64) + bytesOf(number);
}

QByteArray FormBinaryPrinter::header(
    FormNode::Kind kind, std::optional<int> index, QByteArrayView className, QByteArrayView name)
{
    if (kind == FormNode::Kind::Item)
        return (index ? integer(*index) : QByteArray()) + tag(BinaryType::List);
    uchar flags = index ? 2 : 0;
    if (kind == FormNode::Kind::Inherited)
        flags |= 1;
    if (kind == FormNode::Kind::Inline)
        flags |= 4;
    QByteArray bytes;
    if (flags)
        bytes += static_cast<char>(0xF0 | flags);
    if (index)
        bytes += integer(*index);
    return bytes + shortString(className) + shortString(name);
}

QByteArray FormBinaryPrinter::value(const FormValue& value) const
{
    switch (value.kind()) {
    case FormValue::Kind::Null: // as the identifier, since its own byte would end a list
        return tag(BinaryType::Ident) + shortString("Null");
    case FormValue::Kind::Nil:
        return tag(BinaryType::Nil);
    case FormValue::Kind::Boolean:
        return tag(value.toBool() ? BinaryType::True : BinaryType::False);
    case FormValue::Kind::Integer:
        return integer(value.toInteger());
    case FormValue::Kind::String:
        return string(value);
    case FormValue::Kind::Identifier:
        return tag(BinaryType::Ident) + shortString(m_encoding.encode(value.toString()));
    case FormValue::Kind::Set:
        return set(value.toStringList());
    case FormValue::Kind::List: {
        QByteArray bytes = tag(BinaryType::List);
        for (const auto& element : value.toList())
            bytes += this->value(element);
        return bytes + '\0';
    }
    case FormValue::Kind::Collection: {
        QByteArray bytes = tag(BinaryType::Collection);
        for (const auto& element : value.toItems())
            bytes += item(element);
        return bytes + '\0';
    }
    case FormValue::Kind::Binary:
        return longString(BinaryType::Binary, value.toBinary());
    default:
        return real(value);
    }
}

QByteArray FormBinaryPrinter::real(const FormValue& value) const
{
    switch (m_reals == Reals::Extended ? FormValue::Kind::Real : value.kind()) {
    case FormValue::Kind::Double:
        return tag(BinaryType::Double) + bytesOf(static_cast<double>(value.toReal()));
    case FormValue::Kind::Single:
        return tag(BinaryType::Single) + bytesOf(static_cast<float>(value.toReal()));
    case FormValue::Kind::Currency:
        return tag(BinaryType::Currency) + bytesOf(static_cast<qint64>(std::llround(value.toReal() * 10000)));
    case FormValue::Kind::Date:
        return tag(BinaryType::Date) + bytesOf(static_cast<double>(value.toReal()));
    default:
        return tag(BinaryType::Extended) + FormExtended::toBytes(value.toReal());
    }
}

QByteArray FormBinaryPrinter::string(const FormValue& value) const
{
    switch (value.stringWidth()) {
    case FormValue::StringWidth::Wide:
        return wide(BinaryType::WString, value.toString());
    case FormValue::StringWidth::Unicode:
        return wide(BinaryType::Double, value.toString());
    case FormValue::StringWidth::Utf8:
        return longString(BinaryType::Utf8String, value.toString().toUtf8());
    default:
        // Bytes from a form in another encoding would mean something else here.
        return m_encoding.decode(value.narrowBytes()) == value.toString() ? narrow(value.narrowBytes())
                                                                          : wide(BinaryType::WString, value.toString());
    }
}

QByteArray FormBinaryPrinter::set(const QStringList& names) const
{
    QByteArray bytes = tag(BinaryType::Set);
    for (const auto& name : names)
        bytes += shortString(m_encoding.encode(name));
    return bytes + '\0';
}

QByteArray FormBinaryPrinter::item(const FormItem& item) const
{
    auto bytes = header(FormNode::Kind::Item, item.index, {}, {});
    for (const auto& property : item.properties)
        bytes += shortString(m_encoding.encode(property.name)) + value(property.value);
    return bytes + '\0';
}
