#include "host/forms/FormFixture.h"

#include "forms/FormTextPrinter.h"
#include "forms/FormTextValue.h"

using namespace Qt::StringLiterals;

namespace {

FormValue valueOf(const QByteArray& spelling, const FormEncoding& encoding = {})
{
    return FormTextValue(spelling, encoding).read();
}

}

TEST(FormValue, IsDecodedByItsKind)
{
    EXPECT_EQ(valueOf("-12").toInteger(), -12);
    EXPECT_EQ(valueOf("$1F").toInteger(), 31);
    EXPECT_EQ(valueOf("1.5").toReal(), 1.5L);
    EXPECT_EQ(valueOf("tRUE"), FormValue::boolean(true));
    EXPECT_EQ(valueOf("False"), FormValue::boolean(false));
    EXPECT_EQ(valueOf("nil"), FormValue::nil());
    EXPECT_EQ(valueOf("Null"), FormValue());
    EXPECT_EQ(valueOf("DataModule1 . Query1"), FormValue::identifier(u"DataModule1.Query1"_s));
    EXPECT_EQ(valueOf("[akLeft,\n akTop]"), FormValue::set({ u"akLeft"_s, u"akTop"_s }));
    EXPECT_EQ(valueOf("{ 0aFF\n 10 }").toBinary(), QByteArray("\x0A\xFF\x10"));
    EXPECT_EQ(valueOf("('a' 1 (nil))"),
        FormValue::list({ FormValue::string(u"a"_s), FormValue::integer(1), FormValue::list({ FormValue::nil() }) }));
    EXPECT_EQ(valueOf("<item x = 1 end item [4] end>"),
        FormValue::collection({ { std::nullopt, { { u"x"_s, FormValue::integer(1) } } }, { 4, {} } }));
}

TEST(FormValue, KnowsANumbersKindByItsSuffix)
{
    EXPECT_EQ(valueOf("1.5").kind(), FormValue::Kind::Real);
    EXPECT_EQ(valueOf("1.5s").kind(), FormValue::Kind::Single);
    EXPECT_EQ(valueOf("1.5C").kind(), FormValue::Kind::Currency);
    EXPECT_EQ(valueOf("1.5d").kind(), FormValue::Kind::Date);
    EXPECT_EQ(valueOf("15c").toReal(), 15.0L);
}

TEST(FormValue, JoinsTheLinesAndEscapesOfAString)
{
    EXPECT_EQ(valueOf("'it''s'#13#10 +\n  'K'#228'se'#8364").toString(), u"it's\r\nK\u00e4se\u20ac"_s);
    EXPECT_EQ(valueOf("''''").toString(), u"'"_s);
    EXPECT_EQ(valueOf("''").toString(), QString());
    EXPECT_EQ(valueOf("#39'x'#39").toString(), u"'x'"_s);
    EXPECT_EQ(valueOf("#55357#56832").toString(), u"\U0001F600"_s);
}

TEST(FormValue, DecodesTheBytesOfAStringInTheEncodingOfTheFile)
{
    EXPECT_EQ(valueOf("'\xC3\xA4'").toString(), u"\u00e4"_s);
    EXPECT_EQ(valueOf("'\xE4\x80'", FormEncoding::codePage("windows-1252")).toString(), u"\u00e4\u20ac"_s);
    EXPECT_EQ(valueOf("'\xCF'", FormEncoding::codePage("windows-1251")).toString(), u"\u041f"_s);
}

TEST(FormValue, KeepsTheSpellingItCameIn)
{
    EXPECT_EQ(valueOf("$00FF").spelling(), "$00FF");
    EXPECT_EQ(FormValue::integer(255).spelling(), QByteArray());
    EXPECT_EQ(valueOf("$00FF"), FormValue::integer(255));
}

TEST(FormValue, AnswersEmptyForAnotherKind)
{
    const auto value = FormValue::integer(5);
    EXPECT_FALSE(value.toBool());
    EXPECT_EQ(value.toString(), QString());
    EXPECT_EQ(value.toStringList(), QStringList());
    EXPECT_EQ(value.toBinary(), QByteArray());
    EXPECT_EQ(value.toReal(), 5.0L);
    EXPECT_EQ(FormValue::string(u"x"_s).toInteger(), 0);
}

TEST(FormValue, IsEqualOnlyInKindAndContent)
{
    EXPECT_NE(FormValue::integer(1), FormValue::real(1));
    EXPECT_NE(FormValue::string(u"a"_s), FormValue::identifier(u"a"_s));
    EXPECT_NE(FormValue::list({}), FormValue::collection({}));
    EXPECT_EQ(FormValue::string(u"\u00e4"_s), valueOf("'\xC3\xA4'"));
}

TEST(FormValue, TakesADoubleForTheDecimalThatItStandsFor)
{
    EXPECT_EQ(FormTextPrinter({}).value(FormValue::real(0.1), {}), "0.100000000000000000");
    EXPECT_EQ(FormValue::real(0.1), valueOf("0.1"));
}
