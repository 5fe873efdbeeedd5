#include "host/forms/FormFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

// Every form here is broken, and each says what is wrong, where, and what to do.

namespace {

std::string ErrorOf(const QByteArray& bytes)
{
    return ReadError(bytes, { u"F.dfm"_s }).toStdString();
}

std::string ValueError(const QByteArray& value)
{
    return ErrorOf("object A: TA\n  p = " + value + "\nend\n");
}

QByteArray Binary(const QByteArray& body)
{
    return "TPF0\x02TA\x01"
           "A"
        + body;
}

// A property p with the bytes of a value.
std::string BinaryValueError(const QByteArray& value)
{
    return ErrorOf(Binary("\x01p" + value));
}

QByteArray Nested(int depth, const QByteArray& open, const QByteArray& close)
{
    return open.repeated(depth) + close.repeated(depth);
}

}

TEST(HostileForm, IsEmpty)
{
    const auto said = "F.dfm:1:1: the file is empty; a form begins with a line like \"object Form1: TForm1\"";
    EXPECT_EQ(ErrorOf(""), said);
    EXPECT_EQ(ErrorOf("\xEF\xBB\xBF"), said);
}

TEST(HostileForm, HoldsOnlyBlanks)
{
    EXPECT_EQ(
        ErrorOf(" \r\n \n"), "F.dfm:3:1: the file is empty; a form begins with a line like \"object Form1: TForm1\"");
}

TEST(HostileForm, IsCutOff)
{
    EXPECT_EQ(ErrorOf("object A: TA\n  Left = 1\n"),
        "F.dfm:3:1: the file ends where the name of a property, or \"end\" should stand; it is cut off, take it from a "
        "backup");
    EXPECT_EQ(ErrorOf("object A: TA\n  Left ="),
        "F.dfm:2:9: the file ends where a value should stand; it is cut off, take it from a backup");
    EXPECT_EQ(ErrorOf("object A:"),
        "F.dfm:1:10: the file ends where the name of a class should stand; it is cut off, take it from a backup");
    EXPECT_EQ(ErrorOf("object A: TA\n  Data = {0102"),
        "F.dfm:2:10: binary data without its closing brace; the file is cut off, take it from a backup");
    EXPECT_EQ(ErrorOf("object A: TA\n  Caption = 'abc"),
        "F.dfm:2:13: a string without its closing quote; end it with ' on the same line");
}

TEST(HostileForm, HasAWrongToken)
{
    EXPECT_EQ(ErrorOf("unit A;"),
        "F.dfm:1:1: \"unit\" where \"object\", \"inherited\" or \"inline\" should stand; write that there");
    EXPECT_EQ(ValueError("="), "F.dfm:2:7: \"=\" where a value should stand; write that there");
    EXPECT_EQ(ValueError("[a b]"),
        "F.dfm:2:10: \"b\" where \",\" (elements of a set are parted by commas and the set ends with ]) should stand; "
        "write that there");
    EXPECT_EQ(ValueError("[a,]"),
        "F.dfm:2:10: \"]\" where an element of the set behind the comma should stand; write that there");
    EXPECT_EQ(ValueError("<object end>"),
        "F.dfm:2:8: \"object\" where \"item\", or > at the end of the collection should stand; write that there");
    EXPECT_EQ(ValueError("'a' + 1"),
        "F.dfm:2:13: \"1\" where the string that goes on behind the + should stand; write that there");
    EXPECT_EQ(ValueError("\"a\""), "F.dfm:2:7: a character that has no meaning in a form file; remove it");
    EXPECT_EQ(
        ValueError("#"), "F.dfm:2:7: a # without the number of a character from 0 to 65535; write it right after");
    EXPECT_EQ(
        ValueError("#65536"), "F.dfm:2:7: a # without the number of a character from 0 to 65535; write it right after");
    EXPECT_EQ(ValueError("{ 01 0G }"),
        "F.dfm:2:13: binary data holds something other than pairs of hexadecimal digits; mend the digits");
    EXPECT_EQ(ValueError("{ 010 }"),
        "F.dfm:2:12: binary data holds something other than pairs of hexadecimal digits; mend the digits");
    EXPECT_EQ(ValueError("1E"), "F.dfm:2:7: a number whose exponent has no digits; write them after the E");
    EXPECT_EQ(ValueError("-"), "F.dfm:2:7: a minus sign without a number; write the digits right after it");
    EXPECT_EQ(ValueError("$"), "F.dfm:2:7: a $ without hexadecimal digits; write them right after it");
    EXPECT_EQ(
        ValueError("99999999999999999999"), "F.dfm:2:7: a whole number of more than 64 bits; write a smaller one");
    EXPECT_EQ(ErrorOf("object A: TA [x]\nend\n"),
        "F.dfm:1:15: \"x\" where the number of the place among the siblings should stand; write that there");
    EXPECT_EQ(ErrorOf("object A: TA [4294967296]\nend\n"),
        "F.dfm:1:15: a place that is out of range; write the number of the place among the siblings");
}

TEST(HostileForm, HasAPropertyBehindAChild)
{
    EXPECT_EQ(ErrorOf("object A: TA\n  object B: TB\n  end\n  Left = 1\nend\n"),
        "F.dfm:4:3: \"Left\" after a child object; a property stands before the first child, and every object is "
        "closed with \"end\"");
}

TEST(HostileForm, CountsColumnsInCharactersAndLinesByEveryKindOfLineEnd)
{
    EXPECT_EQ(ErrorOf("object A: TA\r\n  a = 1\r  b = 2\n  c = ('\xC3\xA4\xE2\x82\xAC' ?)\r\nend"),
        "F.dfm:4:13: a character that has no meaning in a form file; remove it");
    EXPECT_EQ(ErrorOf("\xEF\xBB\xBFobject ?"), "F.dfm:1:8: a character that has no meaning in a form file; remove it");
    EXPECT_EQ(ErrorOf("object A: TA\n  c = ('\xE4' ?)\r\nend"),
        "F.dfm:2:12: a character that has no meaning in a form file; remove it");
}

TEST(HostileForm, IsInAnEncodingThatIsNotKnown)
{
    const auto said = "F.dfm:1:1: the file is in UTF-16, which form files cannot be in; save it as UTF-8";
    EXPECT_EQ(ErrorOf(QByteArray("\xFF\xFEo\0b\0", 6)), said);
    EXPECT_EQ(ErrorOf(QByteArray("\xFE\xFF\0o\0b", 6)), said);
    EXPECT_EQ(ErrorOf(QByteArray("o\0b\0j\0", 6)), said);
    FormReadOptions options { u"F.dfm"_s, "windows-9999" };
    EXPECT_EQ(ReadError("object A: TA\n p = '\xE4'\nend", options),
        u"F.dfm:1:1: the code page \"windows-9999\" is not known; name another one, for example windows-1252"_s);
}

TEST(HostileForm, HoldsNuls)
{
    const auto said = "a NUL byte where text should be; the file is damaged or in an encoding that is not known, save "
                      "it as UTF-8 or take it from a backup";
    EXPECT_EQ(ErrorOf(QByteArray("object \0A", 9)), std::string("F.dfm:1:8: ") + said);
    EXPECT_EQ(ErrorOf(QByteArray(100, '\0')), std::string("F.dfm:1:1: ") + said);
    EXPECT_EQ(ValueError(QByteArray("'a\0b'", 5)),
        "F.dfm:2:7: a string without its closing quote; end it with ' on the same line");
}

TEST(HostileForm, IsNestedTenThousandDeep)
{
    const std::string said
        = "more than 1000 levels inside one another; no program can show such a form, take out levels";
    EXPECT_EQ(ErrorOf(Nested(10000, "object A: TA\n", "end\n")), "F.dfm:1001:1: " + said);
    EXPECT_EQ(ValueError(Nested(10000, "(", ")")), "F.dfm:2:1006: " + said);
    EXPECT_EQ(ValueError(Nested(10000, "<item x=", "end>")), "F.dfm:2:7999: " + said);
    EXPECT_EQ(ValueError(Nested(10000, "(<item x=", "end>)")), "F.dfm:2:4499: " + said);
    EXPECT_EQ(ErrorOf("TPF0" + QByteArray("\1T\1A\0", 5).repeated(10000)), "F.dfm: " + said + " (at byte 5004)");
    EXPECT_EQ(BinaryValueError(QByteArray(10000, '\1')), "F.dfm: " + said + " (at byte 1011)");
    EXPECT_EQ(ErrorOf("TPF0\1T\1A" + QByteArray("\1p\x0E\1", 4).repeated(10000)), "F.dfm: " + said + " (at byte 4006)");
}

TEST(HostileForm, IsReadAtTheDeepestLevelThatIsAllowed)
{
    const auto text = Nested(1000, "object A: TA\n", "end\n");
    EXPECT_EQ(ReadForm(text)->Bytes(), text);
}

TEST(HostileForm, IsABinaryFormCutOffAnywhere)
{
    const auto whole = Binary(QByteArray("\1p\6\3abc\1l\1\2\5\0\1s\x0B\1a\0\1c\x0E\1\1x\2\1\0\0\0\1T\1B\0\0\0", 37));
    ASSERT_EQ(ErrorOf(whole), "");
    for (qsizetype size = 5; size < whole.size(); ++size)
        EXPECT_THAT(ErrorOf(whole.first(size)), testing::EndsWith(")")) << size;
}

TEST(HostileForm, HasAWrongLengthInItsBinaryForm)
{
    const std::string beyond
        = " reaches beyond the end of the form; the file is cut off or damaged, take it from a backup (at byte ";
    EXPECT_EQ(BinaryValueError("\x0C\xFF\xFF\xFF\xFF"), "F.dfm: a value" + beyond + "16)");
    EXPECT_EQ(BinaryValueError("\x12\xFF\xFF\xFF\x7Fzz"), "F.dfm: a value" + beyond + "16)");
    EXPECT_EQ(BinaryValueError("\x0A\xFF\xFF\xFF\xFF"), "F.dfm: a value" + beyond + "16)");
    EXPECT_EQ(BinaryValueError("\x06\xFFz"), "F.dfm: a value" + beyond + "13)");
    EXPECT_EQ(BinaryValueError("\x13z"), "F.dfm: a number" + beyond + "12)");
    EXPECT_EQ(ErrorOf("TPF0\xFF"), "F.dfm: the place among the siblings" + beyond + "5)");
    EXPECT_EQ(ErrorOf("TPF0\x20T"), "F.dfm: the name of a class" + beyond + "5)");
}

TEST(HostileForm, HasAWrongTypeInItsBinaryForm)
{
    EXPECT_EQ(BinaryValueError("\x7F"),
        "F.dfm: a value of a kind that is not known; the file is damaged or newer than this program (at byte 11)");
    EXPECT_EQ(ErrorOf("TPF0\xF2\x06z"),
        "F.dfm: no whole number where the place among the siblings should stand; the file is damaged (at byte 5)");
    EXPECT_EQ(BinaryValueError("\x0E\x02\x01\x06"),
        "F.dfm: no list of properties where an item of a collection begins; the file is damaged (at byte 14)");
    EXPECT_EQ(ErrorOf(QByteArray("TPF0\0\0", 6)),
        "F.dfm: an object without a class; the file is damaged, take it from a backup (at byte 5)");
}

TEST(HostileForm, HasAWrongResourceHeader)
{
    const QByteArray header("\xFF\x0A\0FORM\0\x30\x10", 10);
    EXPECT_EQ(ErrorOf(header), "F.dfm: the resource header is cut off; take the file from a backup (at byte 10)");
    EXPECT_EQ(ErrorOf(QByteArray("\xFF\x0A\0FORM", 7)),
        "F.dfm: the resource header is cut off; take the file from a backup (at byte 3)");
    EXPECT_EQ(ErrorOf(header + QByteArray("\xFF\0\0\0TPF0", 8)),
        "F.dfm: the resource header promises 255 bytes and 4 are there; the file is cut off or damaged, take it from a "
        "backup (at byte 10)");
    EXPECT_EQ(ErrorOf(header + QByteArray("\4\0\0\0BM..", 8)),
        "F.dfm: no form follows the resource header; it is some other resource (at byte 14)");
}
