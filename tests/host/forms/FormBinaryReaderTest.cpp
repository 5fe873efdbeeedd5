#include "forms/FormBinaryReader.h"

#include "forms/FormBinaryPrinter.h"
#include "forms/FormBinaryValue.h"
#include "host/forms/FormFixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

// The value of a property p with these bytes, in an otherwise empty binary form.
FormValue ValueOf(const QByteArray& bytes)
{
    const auto form = ReadForm("TPF0\1T\1A\1p" + bytes + QByteArray(2, '\0'));
    const auto* property = form->Root().Property(u"p");
    return property ? property->Value() : FormValue();
}

template <typename T>
QByteArray BytesOf(T number)
{
    return { reinterpret_cast<const char*>(&number), sizeof number };
}

}

TEST(FormBinaryReader, DecodesEveryTypeOfValue)
{
    EXPECT_EQ(ValueOf("\2\xFF"), FormValue::Integer(-1));
    EXPECT_EQ(ValueOf("\3\xFF\x7F"), FormValue::Integer(32767));
    EXPECT_EQ(ValueOf("\4" + BytesOf(qint32(-70000))), FormValue::Integer(-70000));
    EXPECT_EQ(ValueOf("\x13" + BytesOf(std::numeric_limits<qint64>::min())),
        FormValue::Integer(std::numeric_limits<qint64>::min()));
    EXPECT_EQ(ValueOf("\5" + FormExtended::ToBytes(1.5L)), FormValue::Real(1.5));
    EXPECT_EQ(ValueOf("\x0F" + BytesOf(1.5F)), FormValue::Real(1.5L, FormValue::Kind::Single));
    EXPECT_EQ(ValueOf("\x10" + BytesOf(qint64(15000))), FormValue::Real(1.5L, FormValue::Kind::Currency));
    EXPECT_EQ(ValueOf("\x11" + BytesOf(1.5)), FormValue::Real(1.5L, FormValue::Kind::Date));
    EXPECT_EQ(ValueOf("\x15" + BytesOf(1.5)), FormValue::Real(1.5L, FormValue::Kind::Double));
    EXPECT_EQ(ValueOf("\6\3abc"), FormValue::String(u"abc"_s));
    EXPECT_EQ(ValueOf(QByteArray("\x0C\3\0\0\0abc", 8)), FormValue::String(u"abc"_s));
    EXPECT_EQ(ValueOf(QByteArray("\x12\1\0\0\0\xAC\x20", 7)), FormValue::String(u"\u20ac"_s));
    EXPECT_EQ(ValueOf(QByteArray("\x14\2\0\0\0\xC3\xA4", 7)), FormValue::String(u"\u00e4"_s));
    EXPECT_EQ(ValueOf("\7\3a.b"), FormValue::Identifier(u"a.b"_s));
    EXPECT_EQ(ValueOf("\x08"), FormValue::Boolean(false));
    EXPECT_EQ(ValueOf("\x09"), FormValue::Boolean(true));
    EXPECT_EQ(ValueOf("\x0D"), FormValue::Nil());
    EXPECT_EQ(ValueOf(QByteArray(1, '\0')), FormValue());
    EXPECT_EQ(ValueOf(QByteArray("\x0A\2\0\0\0\1\0", 7)), FormValue::Binary(QByteArray("\1\0", 2)));
    EXPECT_EQ(ValueOf(QByteArray("\x0B\1a\1b\0", 6)), FormValue::Set({ u"a"_s, u"b"_s }));
    EXPECT_EQ(ValueOf(QByteArray("\1\2\5\1\0\0", 6)), FormValue::List({ FormValue::Integer(5), FormValue::List({}) }));
    EXPECT_EQ(ValueOf(QByteArray("\x0E\2\4\1\1x\2\5\0\0", 10)),
        FormValue::Collection({ { 4, { { u"x"_s, FormValue::Integer(5) } } } }));
}

TEST(FormBinaryReader, TakesType21ForAStringWhereADoubleDoesNotFit)
{
    EXPECT_EQ(ValueOf(QByteArray("\x15\3\0\0\0a\0b\0\xAC\x20", 11)), FormValue::String(u"ab\u20ac"_s));
}

TEST(FormBinaryReader, KeepsWhatStandsBehindTheForm)
{
    const auto bytes = QByteArray("TPF0\1T\1A\0\0", 10);
    EXPECT_EQ(ReadForm(bytes)->Notes(), QStringList());
    const auto form = ReadForm(bytes + "rest");
    EXPECT_EQ(form->Bytes(), bytes + "rest");
    EXPECT_EQ(form->Notes(), QStringList { u"4 bytes behind the end of the form are kept but not read"_s });
}

TEST(FormBinaryReader, KnowsInheritedAndInlineObjectsAndTheirPlaces)
{
    const auto form
        = ReadForm(QByteArray("TPF0\xF1\1T\1A\0\xF4\1T\1B\0\0\xF3\2\5\1T\1C\0\0\xF6\3\x2C\1\1T\0\0\0\0", 36));
    EXPECT_EQ(form->Root().TheKind(), FormNode::Kind::Inherited);
    const auto children = form->Root().Children();
    ASSERT_EQ(children.size(), 3u);
    EXPECT_EQ(children[0]->TheKind(), FormNode::Kind::Inline);
    EXPECT_EQ(children[0]->Index(), std::nullopt);
    EXPECT_EQ(children[1]->TheKind(), FormNode::Kind::Inherited);
    EXPECT_EQ(children[1]->Index(), 5);
    EXPECT_EQ(children[2]->TheKind(), FormNode::Kind::Inline);
    EXPECT_EQ(children[2]->Index(), 300);
    EXPECT_EQ(children[2]->Name(), QString());
}

TEST(FormExtended, GoesToTenBytesAndBackForEveryKindOfNumber)
{
    const auto tiny = std::numeric_limits<long double>::denorm_min();
    for (const auto number : { 0.0L, -0.0L, 1.0L, -1.5L, 0.1L, 1e4000L, -1e-4900L, tiny, 12345 * tiny,
             std::numeric_limits<long double>::max(), std::numeric_limits<long double>::min(),
             std::numeric_limits<long double>::infinity(), -std::numeric_limits<long double>::infinity() }) {
        const auto bytes = FormExtended::ToBytes(number);
        const auto back = FormExtended::FromBytes(bytes);
        EXPECT_EQ(back, number);
        EXPECT_EQ(std::signbit(back), std::signbit(number));
        EXPECT_EQ(FormExtended::ToBytes(back), bytes);
    }
    EXPECT_TRUE(std::isnan(FormExtended::FromBytes(FormExtended::ToBytes(std::nanl("")))));
    EXPECT_EQ(FormExtended::ToBytes(1.5L).toHex(), "00000000000000c0ff3f");
}

TEST(FormBinaryPrinter, SpellsValuesInTheFewestBytes)
{
    const FormBinaryPrinter printer(FormEncoding::Utf8());
    const auto spell = [&](const FormValue& value) { return printer.Value(value).toHex(' ').toStdString(); };
    EXPECT_EQ(spell(FormValue::Integer(127)), "02 7f");
    EXPECT_EQ(spell(FormValue::Integer(128)), "03 80 00");
    EXPECT_EQ(spell(FormValue::Integer(-32769)), "04 ff 7f ff ff");
    EXPECT_EQ(spell(FormValue::Integer(1LL << 31)), "13 00 00 00 80 00 00 00 00");
    EXPECT_EQ(spell(FormValue::String(u"a"_s)), "06 01 61");
    EXPECT_EQ(spell(FormValue::String(u"\u20ac"_s)), "12 01 00 00 00 ac 20");
    EXPECT_EQ(spell(FormValue::String(u"\u20ac"_s, FormValue::StringWidth::Utf8)), "14 03 00 00 00 e2 82 ac");
    EXPECT_EQ(spell(FormValue::Real(1.5L, FormValue::Kind::Single)), "0f 00 00 c0 3f");
    EXPECT_EQ(spell(FormValue::Real(1.5L, FormValue::Kind::Currency)), "10 98 3a 00 00 00 00 00 00");
    EXPECT_EQ(spell(FormValue::Set({ u"a"_s })), "0b 01 61 00");
    EXPECT_EQ(spell(FormValue()), "07 04 4e 75 6c 6c");
}
