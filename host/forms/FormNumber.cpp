#include "forms/FormNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::optional<quint64> magnitude(QByteArrayView digits, quint64 base)
{
    quint64 sum = 0;
    for (const char c : digits) {
        const auto digit = quint64(isDigit(c) ? c - '0' : (c | 0x20) - 'a' + 10);
        if (sum > (std::numeric_limits<quint64>::max() - digit) / base)
            return std::nullopt;
        sum = sum * base + digit;
    }
    return sum;
}

// Digits d1..dn and a decimal exponent, so that the number is 0.d1..dn times ten to the exponent.
struct Decimal {
    QByteArray digits;
    int exponent = 0;
    bool negative = false;
};

// The fewest digits that tell the number from its neighbours of the same precision.
template <typename T>
Decimal shortest(T number)
{
    std::array<char, 64> text {};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::scientific).ptr;
    const QByteArrayView whole(text.data(), end - text.data());
    const auto e = whole.indexOf('e');
    Decimal made;
    made.negative = whole.startsWith('-');
    for (const char c : whole.first(e))
        if (isDigit(c))
            made.digits += c;
    made.exponent = whole.sliced(e + 1).toInt() + 1;
    return made;
}

QByteArray fixed(const Decimal& number, bool padded)
{
    QByteArray whole = number.exponent > 0 ? number.digits.left(number.exponent) : QByteArray("0");
    QByteArray part
        = number.exponent > 0 ? number.digits.mid(number.exponent) : QByteArray(-number.exponent, '0') + number.digits;
    if (number.exponent > whole.size())
        whole += QByteArray(number.exponent - whole.size(), '0');
    if (part.isEmpty())
        part = "0";
    if (padded)
        part = part.leftJustified(18, '0');
    return (number.negative ? "-" : "") + whole + '.' + part;
}

QByteArray scientific(const Decimal& number)
{
    auto digits = number.digits;
    if (digits.size() > 1)
        digits.insert(1, '.');
    return (number.negative ? "-" : "") + digits + 'E' + QByteArray::number(number.exponent - 1);
}

template <typename T>
QByteArray spell(T number, bool padded)
{
    if (std::isnan(number))
        return "NAN";
    if (std::isinf(number))
        return number < 0 ? "-1E5000" : "1E5000";
    const auto digits = shortest(number);
    const bool plain = digits.exponent > -5 && digits.exponent <= 18 && digits.digits.size() - digits.exponent <= 18;
    return plain ? fixed(digits, padded) : scientific(digits);
}

template <typename T>
QByteArray spellNarrow(long double number, bool padded)
{
    const auto text = spell(static_cast<T>(number), padded);
    return static_cast<T>(FormNumber::parse(text)) == number ? text : spell(number, padded);
}

}

std::optional<qint64> FormNumber::parseInteger(QByteArrayView digits)
{
    if (digits.startsWith('$')) {
        const auto found = magnitude(digits.sliced(1), 16);
        return found ? std::optional(static_cast<qint64>(*found)) : std::nullopt;
    }
    const bool negative = digits.startsWith('-');
    const auto found = magnitude(digits.sliced(negative ? 1 : 0), 10);
    if (!found || (negative && *found > quint64(1) << 63))
        return std::nullopt;
    return static_cast<qint64>(negative ? 0 - *found : *found);
}

long double FormNumber::parse(QByteArrayView digits)
{
    long double number = 0;
    const auto end = digits.data() + digits.size();
    if (std::from_chars(digits.data(), end, number).ec != std::errc::result_out_of_range)
        return number;
    const bool tiny = digits.contains("E-") || digits.contains("e-");
    return std::copysign(
        tiny ? 0 : std::numeric_limits<long double>::infinity(), digits.startsWith('-') ? -1.0L : 1.0L);
}

QByteArray FormNumber::print(long double number, bool padded, Precision precision)
{
    switch (precision) {
    case Precision::Single:
        return spellNarrow<float>(number, padded);
    case Precision::Double:
        return spellNarrow<double>(number, padded);
    default:
        return spell(number, padded);
    }
}

QByteArray FormNumber::printCurrency(long double number)
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
