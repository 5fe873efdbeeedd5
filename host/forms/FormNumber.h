#pragma once

#include <QByteArray>

#include <optional>

// Numbers of form files in text: what digits mean and which digits to write.
namespace FormNumber {

// "12", "-12", "$1F". Decimal numbers up to 18446744073709551615 are taken as their 64 bits; more has no value.
std::optional<qint64> parseInteger(QByteArrayView digits);

// The number before a suffix, in the precision and by the steps that stream readers of compilers use, so that the
// same digits give the same 80 bits.
long double parse(QByteArrayView digits);

// The fewest digits that parse() reads back as the same number. With `padded` they are filled up to 18 decimals.
QByteArray print(long double number, bool padded);
QByteArray printCurrency(long double number);

}
