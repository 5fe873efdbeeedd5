#include "forms/FormNumber.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

namespace {

std::string Spell(
    long double number, bool padded = false, FormNumber::Precision precision = FormNumber::Precision::Extended)
{
    return FormNumber::Print(number, padded, precision).toStdString();
}

}

TEST(FormNumber, ReadsWholeNumbersUpTo64Bits)
{
    EXPECT_EQ(FormNumber::ParseInteger("-9223372036854775808"), std::numeric_limits<qint64>::min());
    EXPECT_EQ(FormNumber::ParseInteger("9223372036854775807"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(FormNumber::ParseInteger("18446744073709551615"), -1);
    EXPECT_EQ(FormNumber::ParseInteger("$fF"), 255);
    EXPECT_EQ(FormNumber::ParseInteger("$FFFFFFFFFFFFFFFF"), -1);
    EXPECT_EQ(FormNumber::ParseInteger("18446744073709551616"), std::nullopt);
    EXPECT_EQ(FormNumber::ParseInteger("-9223372036854775809"), std::nullopt);
    EXPECT_EQ(FormNumber::ParseInteger("$10000000000000000"), std::nullopt);
}

TEST(FormNumber, ReadsRealNumbersAndLeavesTheSuffixAlone)
{
    EXPECT_EQ(FormNumber::Parse("1."), 1.0L);
    EXPECT_EQ(FormNumber::Parse("-1.5E+003"), -1500.0L);
    EXPECT_EQ(FormNumber::Parse("2.25c"), 2.25L);
    EXPECT_EQ(FormNumber::Parse("1E5000"), std::numeric_limits<long double>::infinity());
    EXPECT_EQ(FormNumber::Parse("-1E5000"), -std::numeric_limits<long double>::infinity());
    EXPECT_EQ(FormNumber::Parse("1E-6000"), 0.0L);
}

TEST(FormNumber, ReadsAndWritesThePointWhateverThePersonsLanguage)
{
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* name : { "de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8" })
        if (std::setlocale(LC_NUMERIC, name))
            break;
    EXPECT_EQ(FormNumber::Parse("1.5"), 1.5L);
    EXPECT_EQ(Spell(1.5L), "1.5");
    std::setlocale(LC_NUMERIC, before.c_str());
}

TEST(FormNumber, WritesTheFewestDigitsThatMeanTheNumber)
{
    EXPECT_EQ(Spell(0.0L), "0.0");
    EXPECT_EQ(Spell(24.0L), "24.0");
    EXPECT_EQ(Spell(-0.1L), "-0.1");
    EXPECT_EQ(Spell(0.1L, true), "0.100000000000000000");
    EXPECT_EQ(Spell(1e20L), "1E20");
    EXPECT_EQ(Spell(1.25e-12L), "1.25E-12");
    EXPECT_EQ(Spell(double(0.1), true), "1.0000000000000000555E-1");
    EXPECT_EQ(Spell(double(0.1), true, FormNumber::Precision::Double), "0.100000000000000000");
    EXPECT_EQ(Spell(0.1F, false, FormNumber::Precision::Single), "0.1");
    EXPECT_EQ(Spell(0.1L, false, FormNumber::Precision::Single), "0.1");
    EXPECT_EQ(Spell(NAN), "NAN");
    EXPECT_EQ(Spell(-INFINITY), "-1E5000");
}

TEST(FormNumber, WritesCurrencyWithItsFourDecimalsToTheLastUnit)
{
    EXPECT_EQ(FormNumber::PrintCurrency(1.5L).toStdString(), "1.5c");
    EXPECT_EQ(FormNumber::PrintCurrency(15.0L).toStdString(), "15c");
    EXPECT_EQ(FormNumber::PrintCurrency(-0.0001L).toStdString(), "-0.0001c");
    for (const qint64 units : { std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::max() - 1,
             std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::min() + 1 }) {
        const auto text = FormNumber::PrintCurrency(static_cast<long double>(units) / 10000);
        EXPECT_EQ(QByteArray(text).remove(text.indexOf('.'), 1).chopped(1).toLongLong(), units) << text.constData();
    }
}
