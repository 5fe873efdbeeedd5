#include "forms/FormBinaryValue.h"

#include <cmath>

namespace {

constexpr int ExtendedBias = 16383 + 63;
constexpr int SpecialExponent = 0x7FFF;

QString Utf16(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), size_t(text.size()) * 2);
    return text;
}

}

long double FormExtended::FromBytes(QByteArrayView ten)
{
    FormBinaryCursor cursor(ten);
    const auto mantissa = cursor.Number<quint64>();
    const auto top = cursor.Number<quint16>();
    const int exponent = top & SpecialExponent;
    long double number = std::ldexp(static_cast<long double>(mantissa), (exponent ? exponent : 1) - ExtendedBias);
    if (exponent == SpecialExponent)
        number = mantissa << 1 ? std::nanl("") : HUGE_VALL;
    return top & 0x8000 ? -number : number;
}

QByteArray FormExtended::ToBytes(long double number)
{
    quint16 top = std::signbit(number) ? 0x8000 : 0;
    quint64 mantissa = 0;
    if (!std::isfinite(number)) {
        top |= SpecialExponent;
        mantissa = std::isnan(number) ? quint64(3) << 62 : quint64(1) << 63;
    } else if (number != 0) {
        int exponent = 0;
        const auto fraction = std::frexp(std::fabs(number), &exponent); // 0.5 to 1
        const int biased = exponent - 64 + ExtendedBias;
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
    : FEncoding(encoding)
    , FBytes(bytes)
    , FCursor(bytes)
    , FDoubles(doubles)
{
}

FormValue FormBinaryValue::Read()
{
    auto found = Value();
    found.SetSpelling(FBytes.toByteArray());
    return found;
}

FormValue FormBinaryValue::Value()
{
    const auto type = static_cast<BinaryType>(FCursor.Number<uchar>());
    switch (type) {
    case BinaryType::Null:
        return {};
    case BinaryType::Nil:
        return FormValue::Nil();
    case BinaryType::False:
    case BinaryType::True:
        return FormValue::Boolean(type == BinaryType::True);
    case BinaryType::Int8:
    case BinaryType::Int16:
    case BinaryType::Int32:
    case BinaryType::Int64:
    case BinaryType::QWord:
        return FormValue::Integer(FCursor.Integer(type));
    case BinaryType::Ident:
        return FormValue::Identifier(FEncoding.Decode(FCursor.ShortString()));
    case BinaryType::Binary:
        return FormValue::Binary(FCursor.LongString().toByteArray());
    case BinaryType::Set:
        return Set();
    case BinaryType::List:
        return List();
    case BinaryType::Collection:
        return Collection();
    case BinaryType::String:
    case BinaryType::LString:
    case BinaryType::WString:
    case BinaryType::Utf8String:
        return String(type);
    default:
        return type == BinaryType::Double && !FDoubles ? String(type) : Real(type);
    }
}

FormValue FormBinaryValue::Real(BinaryType type)
{
    switch (type) {
    case BinaryType::Extended:
        return FormValue::Real(FormExtended::FromBytes(FCursor.Take(10)), FormValue::Kind::Real);
    case BinaryType::Single:
        return FormValue::Real(static_cast<long double>(FCursor.Number<float>()), FormValue::Kind::Single);
    case BinaryType::Currency:
        return FormValue::Real(static_cast<long double>(FCursor.Number<qint64>()) / 10000, FormValue::Kind::Currency);
    case BinaryType::Date:
        return FormValue::Real(static_cast<long double>(FCursor.Number<double>()), FormValue::Kind::Date);
    default:
        return FormValue::Real(static_cast<long double>(FCursor.Number<double>()), FormValue::Kind::Double);
    }
}

FormValue FormBinaryValue::String(BinaryType type)
{
    switch (type) {
    case BinaryType::WString:
        return FormValue::String(Utf16(FCursor.WideString()), FormValue::StringWidth::Wide);
    case BinaryType::Double:
        return FormValue::String(Utf16(FCursor.WideString()), FormValue::StringWidth::Unicode);
    case BinaryType::Utf8String:
        return FormValue::String(QString::fromUtf8(FCursor.LongString()), FormValue::StringWidth::Utf8);
    default: {
        const auto bytes = type == BinaryType::String ? FCursor.ShortString() : FCursor.LongString();
        return FormValue::NarrowString(FEncoding.Decode(bytes), bytes.toByteArray());
    }
    }
}

FormValue FormBinaryValue::Set()
{
    QStringList names;
    for (auto name = FCursor.ShortString(); !name.isEmpty(); name = FCursor.ShortString())
        names << FEncoding.Decode(name);
    return FormValue::Set(names);
}

FormValue FormBinaryValue::List()
{
    QList<FormValue> values;
    while (FCursor.Peek() != 0)
        values << Value();
    FCursor.Take(1);
    return FormValue::List(values);
}

FormValue FormBinaryValue::Collection()
{
    QList<FormItem> items;
    while (FCursor.Peek() != 0 && !FCursor.Failed())
        items << Item();
    FCursor.Take(1);
    return FormValue::Collection(items);
}

FormItem FormBinaryValue::Item()
{
    FormItem made;
    const auto first = static_cast<BinaryType>(FCursor.Number<uchar>());
    if (first != BinaryType::List) {
        made.Index = static_cast<int>(FCursor.Integer(first));
        FCursor.Take(1);
    }
    while (FCursor.Peek() != 0 && !FCursor.Failed()) {
        const auto name = FEncoding.Decode(FCursor.ShortString());
        made.Properties << FormItemProperty { name, Value() };
    }
    FCursor.Take(1);
    return made;
}
