#include "forms/FormBinaryValue.h"

#include <cmath>

namespace {

constexpr int extendedBias = 16383 + 63;
constexpr int specialExponent = 0x7FFF;

QString utf16(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), size_t(text.size()) * 2);
    return text;
}

}

long double FormExtended::fromBytes(QByteArrayView ten)
{
    FormBinaryCursor cursor(ten);
    const auto mantissa = cursor.number<quint64>();
    const auto top = cursor.number<quint16>();
    const int exponent = top & specialExponent;
    long double number = std::ldexp(static_cast<long double>(mantissa), (exponent ? exponent : 1) - extendedBias);
    if (exponent == specialExponent)
        number = mantissa << 1 ? std::nanl("") : HUGE_VALL;
    return top & 0x8000 ? -number : number;
}

QByteArray FormExtended::toBytes(long double number)
{
    quint16 top = std::signbit(number) ? 0x8000 : 0;
    quint64 mantissa = 0;
    if (!std::isfinite(number)) {
        top |= specialExponent;
        mantissa = std::isnan(number) ? quint64(3) << 62 : quint64(1) << 63;
    } else if (number != 0) {
        int exponent = 0;
        const auto fraction = std::frexp(std::fabs(number), &exponent); // 0.5 to 1
        const int biased = exponent - 64 + extendedBias;
        const int shift = biased < 1 ? biased - 1 : 0; // a number too small to be normal
        mantissa = static_cast<quint64>(std::ldexp(fraction, 64 + shift));
        top |= static_cast<quint16>(biased < 1 ? 0 : biased);
    }
    QByteArray bytes(10, Qt::Uninitialized);
    std::memcpy(bytes.data(), &mantissa, 8);
    std::memcpy(bytes.data() + 8, &top, 2);
    return bytes;
}

FormBinaryValue::FormBinaryValue(QByteArrayView bytes, const FormEncoding& encoding, bool doubles)
    : m_encoding(encoding)
    , m_bytes(bytes)
    , m_cursor(bytes)
    , m_doubles(doubles)
{
}

FormValue FormBinaryValue::read()
{
    auto found = value();
    found.setSpelling(m_bytes.toByteArray());
    return found;
}

FormValue FormBinaryValue::value()
{
    const auto type = static_cast<BinaryType>(m_cursor.number<uchar>());
    switch (type) {
    case BinaryType::Null:
        return {};
    case BinaryType::Nil:
        return FormValue::nil();
    case BinaryType::False:
    case BinaryType::True:
        return FormValue::boolean(type == BinaryType::True);
    case BinaryType::Int8:
    case BinaryType::Int16:
    case BinaryType::Int32:
    case BinaryType::Int64:
    case BinaryType::QWord:
        return FormValue::integer(m_cursor.integer(type));
    case BinaryType::Ident:
        return FormValue::identifier(m_encoding.decode(m_cursor.shortString()));
    case BinaryType::Binary:
        return FormValue::binary(m_cursor.longString().toByteArray());
    case BinaryType::Set:
        return set();
    case BinaryType::List:
        return list();
    case BinaryType::Collection:
        return collection();
    case BinaryType::String:
    case BinaryType::LString:
    case BinaryType::WString:
    case BinaryType::Utf8String:
        return string(type);
    default:
        return type == BinaryType::Double && !m_doubles ? string(type) : real(type);
    }
}

FormValue FormBinaryValue::real(BinaryType type)
{
    switch (type) {
    case BinaryType::Extended:
        return FormValue::real(FormExtended::fromBytes(m_cursor.take(10)), FormValue::Kind::Real);
    case BinaryType::Single:
        return FormValue::real(static_cast<long double>(m_cursor.number<float>()), FormValue::Kind::Single);
    case BinaryType::Currency:
        return FormValue::real(static_cast<long double>(m_cursor.number<qint64>()) / 10000, FormValue::Kind::Currency);
    case BinaryType::Date:
        return FormValue::real(static_cast<long double>(m_cursor.number<double>()), FormValue::Kind::Date);
    default:
        return FormValue::real(static_cast<long double>(m_cursor.number<double>()), FormValue::Kind::Double);
    }
}

FormValue FormBinaryValue::string(BinaryType type)
{
    switch (type) {
    case BinaryType::WString:
        return FormValue::string(utf16(m_cursor.wideString()), FormValue::StringWidth::Wide);
    case BinaryType::Double:
        return FormValue::string(utf16(m_cursor.wideString()), FormValue::StringWidth::Unicode);
    case BinaryType::Utf8String:
        return FormValue::string(QString::fromUtf8(m_cursor.longString()), FormValue::StringWidth::Utf8);
    default: {
        const auto bytes = type == BinaryType::String ? m_cursor.shortString() : m_cursor.longString();
        return FormValue::narrowString(m_encoding.decode(bytes), bytes.toByteArray());
    }
    }
}

FormValue FormBinaryValue::set()
{
    QStringList names;
    for (auto name = m_cursor.shortString(); !name.isEmpty(); name = m_cursor.shortString())
        names << m_encoding.decode(name);
    return FormValue::set(names);
}

FormValue FormBinaryValue::list()
{
    QList<FormValue> values;
    while (m_cursor.peek() != 0)
        values << value();
    m_cursor.take(1);
    return FormValue::list(values);
}

FormValue FormBinaryValue::collection()
{
    QList<FormItem> items;
    while (m_cursor.peek() != 0 && !m_cursor.failed())
        items << item();
    m_cursor.take(1);
    return FormValue::collection(items);
}

FormItem FormBinaryValue::item()
{
    FormItem made;
    const auto first = static_cast<BinaryType>(m_cursor.number<uchar>());
    if (first != BinaryType::List) {
        made.index = static_cast<int>(m_cursor.integer(first));
        m_cursor.take(1);
    }
    while (m_cursor.peek() != 0 && !m_cursor.failed()) {
        const auto name = m_encoding.decode(m_cursor.shortString());
        made.properties << FormItemProperty { name, value() };
    }
    m_cursor.take(1);
    return made;
}
