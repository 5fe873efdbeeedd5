#include "forms/FormNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::optional<quint64> Magnitude(QByteArrayView digits, quint64 base)
{
    quint64 sum = 0;
    for (const char c : digits) {
        const auto digit = quint64(IsDigit(c) ? c - '0' : (c | 0x20) - 'a' + 10);
        if (sum > (std::numeric_limits<quint64>::max() - digit) / base)
            return std::nullopt;
        sum = sum * base + digit;
    }
    return sum;
}

// Digits d1..dn and a decimal exponent, so that the number is 0.d1..dn times ten to the exponent.
struct Decimal {
    QByteArray Digits;
    int Exponent = 0;
    bool Negative = false;
};

// The fewest digits that tell the number from its neighbours of the same precision.
template <typename T>
Decimal Shortest(T number)
{
    std::array<char, 64> text {};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::scientific).ptr;
    const QByteArrayView whole(text.data(), end - text.data());
    const auto e = whole.indexOf('e');
    Decimal made;
    made.Negative = whole.startsWith('-');
    for (const char c : whole.first(e))
        if (IsDigit(c))
            made.Digits += c;
    made.Exponent = whole.sliced(e + 1).toInt() + 1;
    return made;
}

QByteArray Fixed(const Decimal& number, bool padded)
{
    QByteArray whole = number.Exponent > 0 ? number.Digits.left(number.Exponent) : QByteArray("0");
    QByteArray part
        = number.Exponent > 0 ? number.Digits.mid(number.Exponent) : QByteArray(-number.Exponent, '0') + number.Digits;
    if (number.Exponent > whole.size())
        whole += QByteArray(number.Exponent - whole.size(), '0');
    if (part.isEmpty())
        part = "0";
    if (padded)
        part = part.leftJustified(18, '0');
    return (number.Negative ? "-" : "") + whole + '.' + part;
}

QByteArray Scientific(const Decimal& number)
{
    auto digits = number.Digits;
    if (digits.size() > 1)
        digits.insert(1, '.');
    return (number.Negative ? "-" : "") + digits + 'E' + QByteArray::number(number.Exponent - 1);
}

template <typename T>
QByteArray Spell(T number, bool padded)
{
    if (std::isnan(number))
        return "NAN";
    if (std::isinf(number))
        return number < 0 ? "-1E5000" : "1E5000";
    const auto digits = Shortest(number);
    const bool plain = digits.Exponent > -5 && digits.Exponent <= 18 && digits.Digits.size() - digits.Exponent <= 18;
    return plain ? Fixed(digits, padded) : Scientific(digits);
}

template <typename T>
QByteArray SpellNarrow(long double number, bool padded)
{
    const auto text = Spell(static_cast<T>(number), padded);
    return static_cast<T>(FormNumber::Parse(text)) == number ? text : Spell(number, padded);
}

}

std::optional<qint64> FormNumber::ParseInteger(QByteArrayView digits)
{
    if (digits.startsWith('$')) {
        const auto found = Magnitude(digits.sliced(1), 16);
        return found ? std::optional(static_cast<qint64>(*found)) : std::nullopt;
    }
    const bool negative = digits.startsWith('-');
    const auto found = Magnitude(digits.sliced(negative ? 1 : 0), 10);
    if (!found || (negative && *found > quint64(1) << 63))
        return std::nullopt;
    return static_cast<qint64>(negative ? 0 - *found : *found);
}

long double FormNumber::Parse(QByteArrayView digits)
{
    long double number = 0;
    const auto end = digits.data() + digits.size();
    if (std::from_chars(digits.data(), end, number).ec != std::errc::result_out_of_range)
        return number;
    const bool tiny = digits.contains("E-") || digits.contains("e-");
    return std::copysign(
        tiny ? 0 : std::numeric_limits<long double>::infinity(), digits.startsWith('-') ? -1.0L : 1.0L);
}

QByteArray FormNumber::Print(long double number, bool padded, Precision precision)
{
    switch (precision) {
    case Precision::Single:
        return SpellNarrow<float>(number, padded);
    case Precision::Double:
        return SpellNarrow<double>(number, padded);
    default:
        return Spell(number, padded);
    }
}

QByteArray FormNumber::PrintCurrency(long double number)
{
    auto units = std::llround(number * 10000);
    for (const auto step : { -1, 1 }) {
        const auto near = static_cast<qint64>(static_cast<quint64>(units) + static_cast<quint64>(step)); // may wrap
        if (static_cast<long double>(near) / 10000 == number)
            units = near;
    }
    const auto size = units < 0 ? 0 - static_cast<quint64>(units) : static_cast<quint64>(units);
    auto part = QByteArray::number(size % 10000).rightJustified(4, '0');
    while (part.size() > 1 && part.endsWith('0'))
        part.chop(1);
    return (units < 0 ? "-" : "") + QByteArray::number(size / 10000) + (part == "0" ? "" : "." + part) + 'c';
}
