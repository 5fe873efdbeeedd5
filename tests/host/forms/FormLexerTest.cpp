#include "forms/FormLexer.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace {

const char* KindName(FormToken::Kind kind)
{
    static const char* const names[] = { "end", "symbol", "integer", "real", "string", "binary", "mark", "error" };
    return names[static_cast<int>(kind)];
}

// The tokens as "kind text", one after the other; an error with what it says.
std::string Tokens(const QByteArray& bytes)
{
    FormLexer lexer(bytes);
    std::string all;
    for (;;) {
        const auto token = lexer.Next();
        if (token.Type == FormToken::Kind::End)
            return all;
        all += (all.empty() ? "" : " | ") + std::string(KindName(token.Type)) + ' ';
        if (token.Type == FormToken::Kind::Error)
            return all + lexer.Message();
        all += lexer.Text(token).toByteArray().toStdString();
    }
}

}

TEST(FormLexer, CutsALineIntoItsTokens)
{
    EXPECT_EQ(Tokens("object Edit1: TEdit [2]"),
        "symbol object | symbol Edit1 | mark : | symbol TEdit | mark [ | integer 2 | mark ]");
    EXPECT_EQ(Tokens("Font.Charset=DEFAULT_CHARSET"),
        "symbol Font | mark . | symbol Charset | mark = | symbol DEFAULT_CHARSET");
}

TEST(FormLexer, TellsWholeNumbersFromRealOnes)
{
    EXPECT_EQ(Tokens("1 -1 $1F 1. 1.5 1E3 1e-3 1.5E+003"),
        "integer 1 | integer -1 | integer $1F | real 1. | real 1.5 | real 1E3 | real 1e-3 | real 1.5E+003");
    EXPECT_EQ(Tokens("1.5s 2c 3D 4x"), "real 1.5s | real 2c | real 3D | integer 4 | symbol x");
}

TEST(FormLexer, TakesARunOfQuotesAndNumbersAsOneString)
{
    EXPECT_EQ(Tokens("'it''s'#13#10'x' 'y'"), "string 'it''s'#13#10'x' | string 'y'");
    EXPECT_EQ(Tokens("''''''"), "string ''''''");
}

TEST(FormLexer, TakesBinaryDataWithItsBraces)
{
    EXPECT_EQ(Tokens("{ 0A fF\r\n10 }}"),
        "binary { 0A fF\r\n10 } | error a character that has no meaning in a form file; remove it");
    EXPECT_EQ(Tokens("{}"), "binary {}");
}

TEST(FormLexer, CountsBytesAbove127AsLetters)
{
    EXPECT_EQ(Tokens("K\xC3\xA4se = 1"), "symbol K\xC3\xA4se | mark = | integer 1");
}

TEST(FormLexer, SaysWhetherAStringHeldRawCharacters)
{
    FormLexer plain("N\xC3\xA4me 'x'#228");
    while (plain.Next().Type != FormToken::Kind::End) { }
    EXPECT_FALSE(plain.SawRawNonAscii());
    FormLexer raw("'\xC3\xA4'");
    while (raw.Next().Type != FormToken::Kind::End) { }
    EXPECT_TRUE(raw.SawRawNonAscii());
}

TEST(FormLexer, StopsAtAStringThatIsNotClosedInItsLine)
{
    const auto said = "error a string without its closing quote; end it with ' on the same line";
    EXPECT_EQ(Tokens("'abc"), said);
    EXPECT_EQ(Tokens("'abc\n'"), said);
    EXPECT_EQ(Tokens("'abc\r'"), said);
}
