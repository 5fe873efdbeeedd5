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
FormValue valueOf(const QByteArray& bytes)
{
    const auto form = readForm("TPF0\1T\1A\1p" + bytes + QByteArray(2, '\0'));
    const auto* property = form->root().property(u"p");
    return property ? property->value() : FormValue();
}

template <typename T>
QByteArray bytesOf(T number)
{
    return { reinterpret_cast<const char*>(&number), sizeof number };
}

}

TEST(FormBinaryReader, DecodesEveryTypeOfValue)
{
    EXPECT_EQ(valueOf("\2\xFF"), FormValue::integer(-1));
    EXPECT_EQ(valueOf("\3\xFF\x7F"), FormValue::integer(32767));
    EXPECT_EQ(valueOf("\4" + bytesOf(qint32(-70000))), FormValue::integer(-70000));
    EXPECT_EQ(valueOf("\x13" + bytesOf(std::numeric_limits<qint64>::min())),
        FormValue::integer(std::numeric_limits<qint64>::min()));
    EXPECT_EQ(valueOf("\5" + FormExtended::toBytes(1.5L)), FormValue::real(1.5));
    EXPECT_EQ(valueOf("\x0F" + bytesOf(1.5F)), FormValue::real(1.5L, FormValue::Kind::Single));
    EXPECT_EQ(valueOf("\x10" + bytesOf(qint64(15000))), FormValue::real(1.5L, FormValue::Kind::Currency));
    EXPECT_EQ(valueOf("\x11" + bytesOf(1.5)), FormValue::real(1.5L, FormValue::Kind::Date));
    EXPECT_EQ(valueOf("\x15" + bytesOf(1.5)), FormValue::real(1.5L, FormValue::Kind::Double));
    EXPECT_EQ(valueOf("\6\3abc"), FormValue::string(u"abc"_s));
    EXPECT_EQ(valueOf(QByteArray("\x0C\3\0\0\0abc", 8)), FormValue::string(u"abc"_s));
    EXPECT_EQ(valueOf(QByteArray("\x12\1\0\0\0\xAC\x20", 7)), FormValue::string(u"\u20ac"_s));
    EXPECT_EQ(valueOf(QByteArray("\x14\2\0\0\0\xC3\xA4", 7)), FormValue::string(u"\u00e4"_s));
    EXPECT_EQ(valueOf("\7\3a.b"), FormValue::identifier(u"a.b"_s));
    EXPECT_EQ(valueOf("\x08"), FormValue::boolean(false));
    EXPECT_EQ(valueOf("\x09"), FormValue::boolean(true));
    EXPECT_EQ(valueOf("\x0D"), FormValue::nil());
    EXPECT_EQ(valueOf(QByteArray(1, '\0')), FormValue());
    EXPECT_EQ(valueOf(QByteArray("\x0A\2\0\0\0\1\0", 7)), FormValue::binary(QByteArray("\1\0", 2)));
    EXPECT_EQ(valueOf(QByteArray("\x0B\1a\1b\0", 6)), FormValue::set({ u"a"_s, u"b"_s }));
    EXPECT_EQ(valueOf(QByteArray("\1\2\5\1\0\0", 6)), FormValue::list({ FormValue::integer(5), FormValue::list({}) }));
    EXPECT_EQ(valueOf(QByteArray("\x0E\2\4\1\1x\2\5\0\0", 10)),
        FormValue::collection({ { 4, { { u"x"_s, FormValue::integer(5) } } } }));
}

TEST(FormBinaryReader, TakesType21ForAStringWhereADoubleDoesNotFit)
{
    EXPECT_EQ(valueOf(QByteArray("\x15\3\0\0\0a\0b\0\xAC\x20", 11)), FormValue::string(u"ab\u20ac"_s));
}

TEST(FormBinaryReader, KeepsWhatStandsBehindTheForm)
{
    const auto bytes = QByteArray("TPF0\1T\1A\0\0", 10);
    EXPECT_EQ(readForm(bytes)->notes(), QStringList());
    const auto form = readForm(bytes + "rest");
    EXPECT_EQ(form->bytes(), bytes + "rest");
    EXPECT_EQ(form->notes(), QStringList { u"4 bytes behind the end of the form are kept but not read"_s });
}

TEST(FormBinaryReader, KnowsInheritedAndInlineObjectsAndTheirPlaces)
{
    const auto form
        = readForm(QByteArray("TPF0\xF1\1T\1A\0\xF4\1T\1B\0\0\xF3\2\5\1T\1C\0\0\xF6\3\x2C\1\1T\0\0\0\0", 36));
    EXPECT_EQ(form->root().kind(), FormNode::Kind::Inherited);
    const auto children = form->root().children();
    ASSERT_EQ(children.size(), 3u);
    EXPECT_EQ(children[0]->kind(), FormNode::Kind::Inline);
    EXPECT_EQ(children[0]->index(), std::nullopt);
    EXPECT_EQ(children[1]->kind(), FormNode::Kind::Inherited);
    EXPECT_EQ(children[1]->index(), 5);
    EXPECT_EQ(children[2]->kind(), FormNode::Kind::Inline);
    EXPECT_EQ(children[2]->index(), 300);
    EXPECT_EQ(children[2]->name(), QString());
}

TEST(FormExtended, GoesToTenBytesAndBackForEveryKindOfNumber)
{
    const auto tiny = std::numeric_limits<long double>::denorm_min();
    for (const auto number : { 0.0L, -0.0L, 1.0L, -1.5L, 0.1L, 1e4000L, -1e-4900L, tiny, 12345 * tiny,
             std::numeric_limits<long double>::max(), std::numeric_limits<long double>::min(),
             std::numeric_limits<long double>::infinity(), -std::numeric_limits<long double>::infinity() }) {
        const auto bytes = FormExtended::toBytes(number);
        const auto back = FormExtended::fromBytes(bytes);
        EXPECT_EQ(back, number);
        EXPECT_EQ(std::signbit(back), std::signbit(number));
        EXPECT_EQ(FormExtended::toBytes(back), bytes);
    }
    EXPECT_TRUE(std::isnan(FormExtended::fromBytes(FormExtended::toBytes(std::nanl("")))));
    EXPECT_EQ(FormExtended::toBytes(1.5L).toHex(), "00000000000000c0ff3f");
}

TEST(FormBinaryPrinter, SpellsValuesInTheFewestBytes)
{
    const FormBinaryPrinter printer(FormEncoding::utf8());
    const auto spell = [&](const FormValue& value) { return printer.value(value).toHex(' ').toStdString(); };
    EXPECT_EQ(spell(FormValue::integer(127)), "02 7f");
    EXPECT_EQ(spell(FormValue::integer(128)), "03 80 00");
    EXPECT_EQ(spell(FormValue::integer(-32769)), "04 ff 7f ff ff");
    EXPECT_EQ(spell(FormValue::integer(1LL << 31)), "13 00 00 00 80 00 00 00 00");
    EXPECT_EQ(spell(FormValue::string(u"a"_s)), "06 01 61");
    EXPECT_EQ(spell(FormValue::string(u"\u20ac"_s)), "12 01 00 00 00 ac 20");
    EXPECT_EQ(spell(FormValue::string(u"\u20ac"_s, FormValue::StringWidth::Utf8)), "14 03 00 00 00 e2 82 ac");
    EXPECT_EQ(spell(FormValue::real(1.5L, FormValue::Kind::Single)), "0f 00 00 c0 3f");
    EXPECT_EQ(spell(FormValue::real(1.5L, FormValue::Kind::Currency)), "10 98 3a 00 00 00 00 00 00");
    EXPECT_EQ(spell(FormValue::set({ u"a"_s })), "0b 01 61 00");
    EXPECT_EQ(spell(FormValue()), "07 04 4e 75 6c 6c");
}
