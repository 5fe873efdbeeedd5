#include "host/forms/FormFixture.h"

using namespace Qt::StringLiterals;

namespace {

QString CaptionOf(const QByteArray& bytes, const FormReadOptions& options = {})
{
    const auto form = ReadForm(bytes, options);
    EXPECT_EQ(form->Bytes(), bytes);
    const auto* caption = form->Root().Property(u"Caption");
    return caption ? caption->Value().ToString() : QString();
}

}

TEST(FormEncoding, ReadsUtf8WithAndWithoutAMark)
{
    EXPECT_EQ(CaptionOf("object A: TA\n Caption = '\xC3\xA4'\nend"), u"\u00e4"_s);
    EXPECT_EQ(CaptionOf("\xEF\xBB\xBFobject A: TA\n Caption = '\xC3\xA4'\nend"), u"\u00e4"_s);
}

TEST(FormEncoding, ReadsACodePageWhereTheBytesAreNotUtf8)
{
    EXPECT_EQ(CaptionOf("object A: TA\n Caption = '\xE4\x80'\nend"), u"\u00e4\u20ac"_s);
    EXPECT_EQ(CaptionOf("object A: TA\n Caption = '\xCF\xF0'\nend", { {}, "windows-1251" }), u"\u041f\u0440"_s);
}

TEST(FormEncoding, NeedsNoKnownCodePageForPlainText)
{
    EXPECT_EQ(CaptionOf("object A: TA\n Caption = 'a'\nend", { {}, "windows-9999" }), u"a"_s);
}

TEST(FormEncoding, ReadsNamesThatAreNotAscii)
{
    const auto form = ReadForm("\xEF\xBB\xBFobject K\xC3\xA4se: TK\xC3\xA4se\n  \xC3\x9C = \xC3\x9C.\xC3\xA4\nend\n");
    EXPECT_EQ(form->Root().Name(), u"K\u00e4se"_s);
    EXPECT_EQ(form->Root().ClassName(), u"TK\u00e4se"_s);
    EXPECT_EQ(form->Root().Property(u"\u00fc")->Value(), FormValue::Identifier(u"\u00dc.\u00e4"_s));
}

TEST(FormEncoding, TellsTheNarrowStringsOfABinaryFormByAllOfThem)
{
    const auto binary = [](const QByteArray& caption, const QByteArray& hint) {
        return QByteArray("TPF0\2TA\1A\7Caption\6") + char(caption.size()) + caption + "\4Hint\6" + char(hint.size())
            + hint + QByteArray(2, '\0');
    };
    EXPECT_EQ(CaptionOf(binary("\xC3\xA4", "\xC3\xB6")), u"\u00e4"_s);
    EXPECT_EQ(CaptionOf(binary("\xC3\xA4", "\xF6")), u"\u00c3\u00a4"_s);
}

TEST(FormEncoding, CountsCharactersNotBytes)
{
    EXPECT_EQ(FormEncoding::Utf8().Characters("a\xC3\xA4\xF0\x9F\x98\x80"), 3);
    EXPECT_EQ(FormEncoding::CodePage("windows-1252").Characters("a\xC3\xA4"), 3);
}
