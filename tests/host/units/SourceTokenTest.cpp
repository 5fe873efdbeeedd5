#include "units/SourceToken.h"

#include <gtest/gtest.h>

#include <random>

namespace {

const char* nameOf(SourceToken::Kind kind)
{
    switch (kind) {
    case SourceToken::Blank:
        return "blank";
    case SourceToken::Comment:
        return "comment";
    case SourceToken::Directive:
        return "directive";
    case SourceToken::Text:
        return "text";
    case SourceToken::Number:
        return "number";
    case SourceToken::Word:
        return "word";
    case SourceToken::Symbol:
        break;
    }
    return "symbol";
}

// Each token in brackets with its kind, blanks left out.
std::string shown(const QString& text, const SourceTokens& tokens)
{
    std::string line;
    for (const auto& token : tokens) {
        if (token.Type == SourceToken::Blank)
            continue;
        line += std::string(token.Active ? "" : "-") + nameOf(token.Type) + (token.Unterminated ? "!" : "") + '['
            + token.In(text).toString().toStdString() + ']';
    }
    return line;
}

std::string pascal(const QString& text, PascalDialect dialect = PascalDialect::Delphi)
{
    return shown(text, TokenizePascal(text, dialect));
}

std::string cpp(const QString& text)
{
    return shown(text, TokenizeCpp(text));
}

// The tokens cover the text without a gap.
void expectWhole(const QString& text, const SourceTokens& tokens)
{
    QString joined;
    qsizetype end = 0;
    for (const auto& token : tokens) {
        ASSERT_EQ(token.Offset, end);
        ASSERT_GT(token.Length, 0);
        joined += token.In(text);
        end = token.End();
    }
    ASSERT_EQ(joined, text);
}

}

TEST(PascalTokens, TellCommentsFromDirectivesAndCode)
{
    EXPECT_EQ(pascal(u"{a}(*b*)//c\n{$R *.dfm}(*$I x*)d"_qs),
        "comment[{a}]comment[(*b*)]comment[//c]directive[{$R *.dfm}]directive[(*$I x*)]word[d]");
    EXPECT_EQ(pascal(u"{a (*b*) // } c"_qs), "comment[{a (*b*) // }]word[c]");
    EXPECT_EQ(pascal(u"( * )"_qs), "symbol[(]symbol[*]symbol[)]");
}

TEST(PascalTokens, KnowStringsWithQuotesAndCharacters)
{
    EXPECT_EQ(pascal(u"'it''s'#13#$0A'{x}' ''"_qs), "text['it''s']number[#13]number[#$0A]text['{x}']text['']");
    EXPECT_EQ(pascal(u"'open\nx"_qs), "text!['open]word[x]");
    EXPECT_EQ(pascal(u"''''"_qs), "text['''']");
}

TEST(PascalTokens, KnowTextOfSeveralLines)
{
    EXPECT_EQ(pascal(u"a := '''\n  it's {\n  ''';b"_qs), "word[a]symbol[:=]text['''\n  it's {\n  ''']symbol[;]word[b]");
    EXPECT_EQ(pascal(u"'''\nx"_qs), "text!['''\nx]");
}

TEST(PascalTokens, KnowNumbersAndRanges)
{
    EXPECT_EQ(pascal(u"1..2 1.5 $FF 1e5"_qs), "number[1]symbol[..]number[2]number[1.5]number[$FF]number[1e5]");
}

TEST(PascalTokens, KnowNamesInAnyScriptAndEscapedKeywords)
{
    EXPECT_EQ(pascal(u"Größe &end _x1"_qs), "word[Größe]word[&end]word[_x1]");
}

TEST(PascalTokens, LeaveOutBranchesThatTheCompilerLeavesOut)
{
    EXPECT_EQ(pascal(u"{$IFDEF FPC}a{$ELSE}b{$ENDIF}"_qs),
        "directive[{$IFDEF FPC}]-word[a]directive[{$ELSE}]word[b]directive[{$ENDIF}]");
    EXPECT_EQ(pascal(u"{$ifndef fpc}a{$else}b{$endif}c"_qs, PascalDialect::Lazarus),
        "directive[{$ifndef fpc}]-word[a]directive[{$else}]word[b]directive[{$endif}]word[c]");
    EXPECT_EQ(pascal(u"{$IFDEF X}a{$ELSE}b{$ENDIF}"_qs),
        "directive[{$IFDEF X}]word[a]directive[{$ELSE}]-word[b]directive[{$ENDIF}]");
    EXPECT_EQ(pascal(u"{$IFDEF FPC}{$IFDEF X}a{$ELSE}b{$ENDIF}{$ENDIF}c"_qs),
        "directive[{$IFDEF FPC}]-directive[{$IFDEF "
        "X}]-word[a]-directive[{$ELSE}]-word[b]-directive[{$ENDIF}]directive[{$ENDIF}]word[c]");
    EXPECT_EQ(pascal(u"{$ENDIF}{$ELSE}a"_qs), "directive[{$ENDIF}]directive[{$ELSE}]word[a]");
}

TEST(PascalTokens, NestCommentsWhereTheModeSaysSo)
{
    EXPECT_EQ(
        pascal(u"{$mode objfpc}{ { } a }"_qs, PascalDialect::Lazarus), "directive[{$mode objfpc}]comment[{ { } a }]");
    EXPECT_EQ(
        pascal(u"{$mode delphi}{ { } a"_qs, PascalDialect::Lazarus), "directive[{$mode delphi}]comment[{ { }]word[a]");
    EXPECT_EQ(pascal(u"{ { } a"_qs), "comment[{ { }]word[a]");
}

TEST(PascalTokens, TellWhatIsNotClosed)
{
    EXPECT_EQ(pascal(u"a { b"_qs), "word[a]comment![{ b]");
    EXPECT_EQ(pascal(u"(* b *"_qs), "comment![(* b *]");
    EXPECT_EQ(pascal(u"{$IFDEF"_qs), "comment![{$IFDEF]");
}

TEST(CppTokens, TellCommentsFromDirectivesAndCode)
{
    EXPECT_EQ(cpp(u"#include <a.h> // b\n  #define X \\\n 1\nint/*c*/ y;"_qs),
        "directive[#include <a.h> ]comment[// b]directive[#define X \\\n 1]word[int]comment[/*c*/]word[y]symbol[;]");
    EXPECT_EQ(cpp(u"a # b"_qs), "word[a]symbol[#]word[b]");
    EXPECT_EQ(cpp(u"// a \\\nb\nc"_qs), "comment[// a \\\nb]word[c]");
}

TEST(CppTokens, KnowLiterals)
{
    EXPECT_EQ(cpp(u"\"a\\\"//\" 'x' '\\'' R\"t(a)\" \")t\" L\"w\" 1'000.5"_qs),
        "text[\"a\\\"//\"]text['x']text['\\'']text[R\"t(a)\" \")t\"]word[L]text[\"w\"]number[1'000.5]");
    EXPECT_EQ(cpp(u"\"open\nx"_qs), "text![\"open]word[x]");
    EXPECT_EQ(cpp(u"a::b /* c"_qs), "word[a]symbol[::]word[b]comment![/* c]");
}

TEST(SourceTokens, PutTogetherAreTheText)
{
    const QStringList pieces { u"{"_qs, u"}"_qs, u"(*"_qs, u"*)"_qs, u"//"_qs, u"'"_qs, u"'''"_qs, u"\""_qs, u"R\"("_qs,
        u"\\"_qs, u"\n"_qs, u"\r\n"_qs, u"\r"_qs, u" "_qs, u"\t"_qs, u"{$IFDEF FPC}"_qs, u"{$ELSE}"_qs, u"{$ENDIF}"_qs,
        u"{$mode objfpc}"_qs, u"#if X"_qs, u"#endif"_qs, u"/*"_qs, u"*/"_qs, u"a"_qs, u"&"_qs, u"class"_qs, u"12"_qs,
        u"."_qs, u".."_qs, u":="_qs, u"::"_qs, u"$"_qs, u"#"_qs, u"ß"_qs, u"\U0001F600"_qs, QString(QChar(0xD800)),
        QString(QChar(0)), QString(QChar(0x1A)), u";"_qs };
    for (unsigned seed = 0; seed < 3000; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        QString text;
        for (auto count = random() % 40; count > 0; --count)
            text += pieces[qsizetype(random() % size_t(pieces.size()))];
        expectWhole(text, TokenizePascal(text, PascalDialect::Delphi));
        expectWhole(text, TokenizePascal(text, PascalDialect::Lazarus));
        expectWhole(text, TokenizeCpp(text));
        if (HasFatalFailure())
            return;
    }
}
