#pragma once

#include <QByteArray>

#include <optional>

// Numbers of form files in text: what digits mean and which digits to write.
namespace FormNumber {

// "12", "-12", "$1F". Decimal numbers up to 18446744073709551615 are taken as their 64 bits; more has no value.
std::optional<qint64> ParseInteger(QByteArrayView digits);

// The number nearest to the digits; what stands behind them, a suffix, does not count. Too large is infinite.
long double Parse(QByteArrayView digits);

enum class Precision { Single, Double, Extended };

// The fewest digits that mean the same number in its precision. With `padded` they are filled up to 18 decimals. A
// number that does not fit its precision is spelled in full.
QByteArray Print(long double number, bool padded, Precision precision = Precision::Extended);
QByteArray PrintCurrency(long double number);

}
