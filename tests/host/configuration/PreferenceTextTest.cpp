#include "configuration/PreferenceText.h"

#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

QByteArray With(const QByteArray& content, const QString& name, const QString& value)
{
    return WithPreference(content, name, value).value_or("(none)");
}

QString In(const QByteArray& content, const QString& name)
{
    return PreferenceIn(content, name).value_or(u"(none)"_qs);
}

}

TEST(PreferenceText, AValueIsFoundIgnoringTheCaseOfItsName)
{
    EXPECT_EQ(In("<M><Preferences><Alpha>1 &amp; 2</Alpha></Preferences></M>", u"ALPHA"_qs), u"1 & 2"_qs);
}

TEST(PreferenceText, AnElementOutsideThePreferencesIsNone)
{
    EXPECT_EQ(In("<M><A>1</A><Preferences></Preferences><A>2</A></M>", u"A"_qs), u"(none)"_qs);
    EXPECT_EQ(In({}, u"A"_qs), u"(none)"_qs);
    EXPECT_EQ(In("<M><Preferences><A>1", u"A"_qs), u"(none)"_qs);
}

TEST(PreferenceText, AValueIsReplacedInItsPlace)
{
    EXPECT_EQ(With("<M>\n <Preferences>\n  <A>1</A>\n  <B>2</B>\n </Preferences>\n</M>\n", u"a"_qs, u"<3>"_qs),
        "<M>\n <Preferences>\n  <a>&lt;3&gt;</a>\n  <B>2</B>\n </Preferences>\n</M>\n");
}

TEST(PreferenceText, AnEmptyElementIsFilled)
{
    EXPECT_EQ(With("<M><Preferences><A/><B></B></Preferences></M>", u"A"_qs, u"1"_qs),
        "<M><Preferences><A>1</A><B></B></Preferences></M>");
    EXPECT_EQ(With("<M><Preferences><A x='1' /><B></B></Preferences></M>", u"B"_qs, u"1"_qs),
        "<M><Preferences><A x='1' /><B>1</B></Preferences></M>");
}

TEST(PreferenceText, ANewOneIsTheLastLine)
{
    EXPECT_EQ(With("<M>\r\n  <Preferences>\r\n    <A>1</A>\r\n  </Preferences>\r\n</M>", u"B"_qs, u"2"_qs),
        "<M>\r\n  <Preferences>\r\n    <A>1</A>\r\n    <B>2</B>\r\n  </Preferences>\r\n</M>");
}

TEST(PreferenceText, OnOneLineANewOneStaysOnIt)
{
    EXPECT_EQ(With("<M><Preferences><A>1</A></Preferences></M>", u"B"_qs, u"2"_qs),
        "<M><Preferences><A>1</A><B>2</B></Preferences></M>");
}

TEST(PreferenceText, AnEmptySectionIsOpened)
{
    EXPECT_EQ(With("<M>\n  <Preferences />\n</M>", u"B"_qs, u"2"_qs),
        "<M>\n  <Preferences>\n    <B>2</B>\n  </Preferences>\n</M>");
}

TEST(PreferenceText, LettersBeyondAsciiDoNotMoveThePlace)
{
    const QByteArray text = "<M><!-- Ærø 🙂 日本 --><Preferences><Ö>ä🙂</Ö><A>1</A></Preferences></M>";
    EXPECT_EQ(With(text, u"A"_qs, u"é"_qs), QByteArray(text).replace("<A>1</A>", "<A>é</A>"));
}

TEST(PreferenceText, WithoutASectionThereIsNoPlace)
{
    EXPECT_EQ(With("<M><preferences></preferences></M>", u"A"_qs, u"1"_qs), "(none)");
    EXPECT_EQ(With("<M>", u"A"_qs, u"1"_qs), "(none)");
}

TEST(PreferenceText, AnotherEncodingIsLeftAlone)
{
    EXPECT_EQ(With("<?xml version='1.0' encoding='ISO-8859-1'?><M><Preferences></Preferences></M>", u"A"_qs, u"1"_qs),
        "(none)");
}

TEST(PreferenceText, PreferencesAreTakenOverWhole)
{
    EXPECT_EQ(WithPreferencesOf(
                  "<M><Preferences><A>1</A></Preferences><X/></M>", "<N><Preferences><B>2</B></Preferences><Y/></N>")
                  .value_or("(none)"),
        "<M><Preferences><B>2</B></Preferences><X/></M>");
    EXPECT_FALSE(WithPreferencesOf("<M><Preferences/></M>", "<N/>"));
}
