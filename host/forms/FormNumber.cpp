#include "forms/FormNumber.h"

#include <array>
#include <cmath>
#include <cstdio>
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

Decimal decimal(long double number, int count)
{
    std::array<char, 64> text {};
    std::snprintf(text.data(), text.size(), "%.*Le", count - 1, number);
    const QByteArray whole(text.data());
    const auto e = whole.indexOf('e');
    Decimal made;
    made.negative = whole.startsWith('-');
    for (const char c : whole.first(e))
        if (isDigit(c))
            made.digits += c;
    while (made.digits.size() > 1 && made.digits.endsWith('0'))
        made.digits.chop(1);
    made.exponent = whole.mid(e + 1).toInt() + 1;
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

QByteArray spell(const Decimal& number, bool padded)
{
    const bool plain = number.exponent > -5 && number.exponent <= 18 && number.digits.size() - number.exponent <= 18;
    return plain ? fixed(number, padded) : scientific(number);
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
    const bool negative = digits.startsWith('-');
    qsizetype at = negative ? 1 : 0;
    long double sum = 0;
    for (; at < digits.size() && isDigit(digits[at]); ++at)
        sum = sum * 10 + (digits[at] - '0');
    if (at < digits.size() && digits[at] == '.') {
        long double scale = 1;
        for (++at; at < digits.size() && isDigit(digits[at]); ++at) {
            sum = sum * 10 + (digits[at] - '0');
            scale *= 10;
        }
        sum /= scale;
    }
    if (at < digits.size() && (digits[at] | 0x20) == 'e') {
        const bool down = ++at < digits.size() && digits[at] == '-';
        if (down || (at < digits.size() && digits[at] == '+'))
            ++at;
        int exponent = 0;
        for (; at < digits.size() && isDigit(digits[at]) && exponent < 10000; ++at)
            exponent = exponent * 10 + (digits[at] - '0');
        long double scale = 1;
        for (int i = 0; i < exponent; ++i)
            scale *= 10;
        sum = down ? sum / scale : sum * scale;
    }
    return negative ? -sum : sum;
}

QByteArray FormNumber::print(long double number, bool padded)
{
    if (std::isnan(number))
        return "NAN";
    if (std::isinf(number))
        return number < 0 ? "-1E5000" : "1E5000";
    long double target = number;
    QByteArray text;
    for (int count = 15; count <= 24; ++count) {
        text = spell(decimal(target, count), padded);
        const auto meant = parse(text);
        if (meant == number)
            return text;
        if (count >= 21 && std::isfinite(meant))
            target += number - meant;
    }
    return text;
}

QByteArray FormNumber::printCurrency(long double number)
{
    auto units = std::llround(number * 10000);
    for (const auto near : { units - 1, units + 1 })
        if (static_cast<long double>(near) / 10000 == number)
            units = near;
    const auto size = units < 0 ? 0 - static_cast<quint64>(units) : static_cast<quint64>(units);
    auto part = QByteArray::number(size % 10000).rightJustified(4, '0');
    while (part.size() > 1 && part.endsWith('0'))
        part.chop(1);
    return (units < 0 ? "-" : "") + QByteArray::number(size / 10000) + (part == "0" ? "" : "." + part) + 'c';
}
