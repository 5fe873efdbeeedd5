#include "forms/FormBinaryPrinter.h"

#include "forms/FormBinaryValue.h"

#include <QtEndian>

#include <cmath>
#include <limits>

namespace {

QByteArray Tag(BinaryType type)
{
    return QByteArray(1, static_cast<char>(type));
}

template <typename T>
QByteArray BytesOf(T number)
{
    QByteArray bytes(sizeof(T), Qt::Uninitialized);
    qToLittleEndian(number, bytes.data());
    return bytes;
}

template <typename T>
bool Fits(qint64 number)
{
    return number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
}

QByteArray LongString(BinaryType type, const QByteArray& bytes)
{
    return Tag(type) + BytesOf(static_cast<quint32>(bytes.size())) + bytes;
}

QByteArray Wide(BinaryType type, const QString& text)
{
    QByteArray units(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    return Tag(type) + BytesOf(static_cast<quint32>(text.size())) + units;
}

QByteArray Narrow(const QByteArray& bytes)
{
    if (bytes.size() > 255)
        return LongString(BinaryType::LString, bytes);
    return Tag(BinaryType::String) + FormBinaryPrinter::ShortString(bytes);
}

}

QByteArray FormBinaryPrinter::ShortString(QByteArrayView bytes)
{
    const auto cut = bytes.first(std::min<qsizetype>(bytes.size(), 255));
    return QByteArray(1, static_cast<char>(cut.size())) + cut.toByteArray();
}

QByteArray FormBinaryPrinter::Integer(qint64 number)
{
    if (Fits<qint8>(number))
        return Tag(BinaryType::Int8) + BytesOf(static_cast<qint8>(number));
    if (Fits<qint16>(number))
        return Tag(BinaryType::Int16) + BytesOf(static_cast<qint16>(number));
    if (Fits<qint32>(number))
        return Tag(BinaryType::Int32) + BytesOf(static_cast<qint32>(number));
    return Tag(BinaryType::Int64) + BytesOf(number);
}

QByteArray FormBinaryPrinter::Header(
    FormNode::Kind kind, std::optional<int> index, QByteArrayView className, QByteArrayView name)
{
    if (kind == FormNode::Kind::Item)
        return (index ? Integer(*index) : QByteArray()) + Tag(BinaryType::List);
    uchar flags = index ? 2 : 0;
    if (kind == FormNode::Kind::Inherited)
        flags |= 1;
    if (kind == FormNode::Kind::Inline)
        flags |= 4;
    QByteArray bytes;
    if (flags)
        bytes += static_cast<char>(0xF0 | flags);
    if (index)
        bytes += Integer(*index);
    return bytes + ShortString(className) + ShortString(name);
}

QByteArray FormBinaryPrinter::Value(const FormValue& value) const
{
    switch (value.TheKind()) {
    case FormValue::Kind::Null: // as the identifier, since its own byte would end a list
        return Tag(BinaryType::Ident) + ShortString("Null");
    case FormValue::Kind::Nil:
        return Tag(BinaryType::Nil);
    case FormValue::Kind::Boolean:
        return Tag(value.ToBool() ? BinaryType::True : BinaryType::False);
    case FormValue::Kind::Integer:
        return Integer(value.ToInteger());
    case FormValue::Kind::String:
        return String(value);
    case FormValue::Kind::Identifier:
        return Tag(BinaryType::Ident) + ShortString(FEncoding.Encode(value.ToString()));
    case FormValue::Kind::Set:
        return Set(value.ToStringList());
    case FormValue::Kind::List: {
        QByteArray bytes = Tag(BinaryType::List);
        for (const auto& element : value.ToList())
            bytes += this->Value(element);
        return bytes + '\0';
    }
    case FormValue::Kind::Collection: {
        QByteArray bytes = Tag(BinaryType::Collection);
        for (const auto& element : value.ToItems())
            bytes += Item(element);
        return bytes + '\0';
    }
    case FormValue::Kind::Binary:
        return LongString(BinaryType::Binary, value.ToBinary());
    default:
        return Real(value);
    }
}

QByteArray FormBinaryPrinter::Real(const FormValue& value) const
{
    switch (FReals == Reals::Extended ? FormValue::Kind::Real : value.TheKind()) {
    case FormValue::Kind::Double:
        return Tag(BinaryType::Double) + BytesOf(static_cast<double>(value.ToReal()));
    case FormValue::Kind::Single:
        return Tag(BinaryType::Single) + BytesOf(static_cast<float>(value.ToReal()));
    case FormValue::Kind::Currency:
        return Tag(BinaryType::Currency) + BytesOf(static_cast<qint64>(std::llround(value.ToReal() * 10000)));
    case FormValue::Kind::Date:
        return Tag(BinaryType::Date) + BytesOf(static_cast<double>(value.ToReal()));
    default:
        return Tag(BinaryType::Extended) + FormExtended::ToBytes(value.ToReal());
    }
}

QByteArray FormBinaryPrinter::String(const FormValue& value) const
{
    switch (value.TheStringWidth()) {
    case FormValue::StringWidth::Wide:
        return Wide(BinaryType::WString, value.ToString());
    case FormValue::StringWidth::Unicode:
        return Wide(BinaryType::Double, value.ToString());
    case FormValue::StringWidth::Utf8:
        return LongString(BinaryType::Utf8String, value.ToString().toUtf8());
    default:
        // Bytes from a form in another encoding would mean something else here.
        return FEncoding.Decode(value.NarrowBytes()) == value.ToString() ? Narrow(value.NarrowBytes())
                                                                         : Wide(BinaryType::WString, value.ToString());
    }
}

QByteArray FormBinaryPrinter::Set(const QStringList& names) const
{
    QByteArray bytes = Tag(BinaryType::Set);
    for (const auto& name : names)
        bytes += ShortString(FEncoding.Encode(name));
    return bytes + '\0';
}

QByteArray FormBinaryPrinter::Item(const FormItem& item) const
{
    auto bytes = Header(FormNode::Kind::Item, item.Index, {}, {});
    for (const auto& property : item.Properties)
        bytes += ShortString(FEncoding.Encode(property.Name)) + Value(property.Value);
    return bytes + '\0';
}
