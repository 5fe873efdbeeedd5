#include "host/forms/FormFixture.h"

#include "forms/FormTextPrinter.h"
#include "forms/FormTextValue.h"

using namespace Qt::StringLiterals;

namespace {

FormValue ValueOf(const QByteArray& spelling, const FormEncoding& encoding = {})
{
    return FormTextValue(spelling, encoding).Read();
}

}

TEST(FormValue, IsDecodedByItsKind)
{
    EXPECT_EQ(ValueOf("-12").ToInteger(), -12);
    EXPECT_EQ(ValueOf("$1F").ToInteger(), 31);
    EXPECT_EQ(ValueOf("1.5").ToReal(), 1.5L);
    EXPECT_EQ(ValueOf("tRUE"), FormValue::Boolean(true));
    EXPECT_EQ(ValueOf("False"), FormValue::Boolean(false));
    EXPECT_EQ(ValueOf("nil"), FormValue::Nil());
    EXPECT_EQ(ValueOf("Null"), FormValue());
    EXPECT_EQ(ValueOf("DataModule1 . Query1"), FormValue::Identifier(u"DataModule1.Query1"_s));
    EXPECT_EQ(ValueOf("[akLeft,\n akTop]"), FormValue::Set({ u"akLeft"_s, u"akTop"_s }));
    EXPECT_EQ(ValueOf("{ 0aFF\n 10 }").ToBinary(), QByteArray("\x0A\xFF\x10"));
    EXPECT_EQ(ValueOf("('a' 1 (nil))"),
        FormValue::List({ FormValue::String(u"a"_s), FormValue::Integer(1), FormValue::List({ FormValue::Nil() }) }));
    EXPECT_EQ(ValueOf("<item x = 1 end item [4] end>"),
        FormValue::Collection({ { std::nullopt, { { u"x"_s, FormValue::Integer(1) } } }, { 4, {} } }));
}

TEST(FormValue, KnowsANumbersKindByItsSuffix)
{
    EXPECT_EQ(ValueOf("1.5").TheKind(), FormValue::Kind::Real);
    EXPECT_EQ(ValueOf("1.5s").TheKind(), FormValue::Kind::Single);
    EXPECT_EQ(ValueOf("1.5C").TheKind(), FormValue::Kind::Currency);
    EXPECT_EQ(ValueOf("1.5d").TheKind(), FormValue::Kind::Date);
    EXPECT_EQ(ValueOf("15c").ToReal(), 15.0L);
}

TEST(FormValue, JoinsTheLinesAndEscapesOfAString)
{
    EXPECT_EQ(ValueOf("'it''s'#13#10 +\n  'K'#228'se'#8364").ToString(), u"it's\r\nK\u00e4se\u20ac"_s);
    EXPECT_EQ(ValueOf("''''").ToString(), u"'"_s);
    EXPECT_EQ(ValueOf("''").ToString(), QString());
    EXPECT_EQ(ValueOf("#39'x'#39").ToString(), u"'x'"_s);
    EXPECT_EQ(ValueOf("#55357#56832").ToString(), u"\U0001F600"_s);
}

TEST(FormValue, DecodesTheBytesOfAStringInTheEncodingOfTheFile)
{
    EXPECT_EQ(ValueOf("'\xC3\xA4'").ToString(), u"\u00e4"_s);
    EXPECT_EQ(ValueOf("'\xE4\x80'", FormEncoding::CodePage("windows-1252")).ToString(), u"\u00e4\u20ac"_s);
    EXPECT_EQ(ValueOf("'\xCF'", FormEncoding::CodePage("windows-1251")).ToString(), u"\u041f"_s);
}

TEST(FormValue, KeepsTheSpellingItCameIn)
{
    EXPECT_EQ(ValueOf("$00FF").Spelling(), "$00FF");
    EXPECT_EQ(FormValue::Integer(255).Spelling(), QByteArray());
    EXPECT_EQ(ValueOf("$00FF"), FormValue::Integer(255));
}

TEST(FormValue, AnswersEmptyForAnotherKind)
{
    const auto value = FormValue::Integer(5);
    EXPECT_FALSE(value.ToBool());
    EXPECT_EQ(value.ToString(), QString());
    EXPECT_EQ(value.ToStringList(), QStringList());
    EXPECT_EQ(value.ToBinary(), QByteArray());
    EXPECT_EQ(value.ToReal(), 5.0L);
    EXPECT_EQ(FormValue::String(u"x"_s).ToInteger(), 0);
}

TEST(FormValue, IsEqualOnlyInKindAndContent)
{
    EXPECT_NE(FormValue::Integer(1), FormValue::Real(1));
    EXPECT_NE(FormValue::String(u"a"_s), FormValue::Identifier(u"a"_s));
    EXPECT_NE(FormValue::List({}), FormValue::Collection({}));
    EXPECT_EQ(FormValue::String(u"\u00e4"_s), ValueOf("'\xC3\xA4'"));
}

TEST(FormValue, TakesADoubleForTheDecimalThatItStandsFor)
{
    EXPECT_EQ(FormTextPrinter({}).Value(FormValue::Real(0.1), {}), "0.100000000000000000");
    EXPECT_EQ(FormValue::Real(0.1), ValueOf("0.1"));
}
