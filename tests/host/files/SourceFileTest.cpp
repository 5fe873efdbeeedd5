#include "files/SourceFile.h"
#include "host/projects/ProjectFolder.h"

#include <gtest/gtest.h>

#include <random>

#include <sys/stat.h>

using Encoding = SourceFile::Encoding;

namespace {

SourceFile fileOf(const QByteArray& bytes)
{
    return SourceFile(u"a.pas"_qs, bytes);
}

}

TEST(SourceFile, TellsTheEncodingByTheMarkAndTheBytes)
{
    EXPECT_EQ(fileOf("abc").TextEncoding(), Encoding::Utf8);
    EXPECT_EQ(fileOf("\xC3\xA4").Text(), u"ä"_qs);
    EXPECT_EQ(fileOf("\xEF\xBB\xBF\xC3\xA4").TextEncoding(), Encoding::Utf8WithMark);
    EXPECT_EQ(fileOf("\xEF\xBB\xBF\xC3\xA4").Text(), u"ä"_qs);
    EXPECT_EQ(fileOf("\xE4").TextEncoding(), Encoding::Ansi);
    EXPECT_EQ(fileOf("\xE4\x80").Text(), u"ä€"_qs);
    EXPECT_EQ(fileOf(QByteArray("\xFF\xFE\xE4\x00", 4)).TextEncoding(), Encoding::Utf16LittleEndian);
    EXPECT_EQ(fileOf(QByteArray("\xFE\xFF\x00\xE4", 4)).TextEncoding(), Encoding::Utf16BigEndian);
    EXPECT_EQ(fileOf(QByteArray("\xFE\xFF\x00\xE4", 4)).Text(), u"ä"_qs);
    EXPECT_EQ(fileOf("a\xC3").TextEncoding(), Encoding::Ansi) << "cut off within a character";
    EXPECT_EQ(fileOf("\xEF\xBB\xBF\xE4").TextEncoding(), Encoding::Ansi) << "a mark that lies";
}

TEST(SourceFile, TakesAnotherCodePageForOneByteCharacters)
{
    const SourceFile file(u"a.pas"_qs, "\xC8\xEC\xFF", "windows-1251");
    EXPECT_EQ(file.Text(), u"Имя"_qs);
}

TEST(SourceFile, KeepsAllBytesThatAnEditDoesNotTouch)
{
    for (unsigned seed = 0; seed < 3000; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        static const QList<QByteArray> marks { "", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF" };
        QByteArray bytes = marks[seed % 4];
        for (auto count = random() % 60; count > 0; --count)
            bytes += random() % 3 ? char(random() % 128) : char(random() % 256);
        auto file = fileOf(bytes);
        ASSERT_EQ(file.Apply({ { 0, 0, QString() } }), Failure());
        ASSERT_EQ(file.Bytes(), bytes);
        const auto offset = qsizetype(random() % size_t(file.Text().size() + 1));
        const auto text = file.Text();
        if (offset > 0 && offset < text.size() && text[offset].isLowSurrogate())
            continue;
        ASSERT_EQ(file.Apply({ { offset, 0, u"xyz"_qs } }), Failure());
        ASSERT_EQ(file.Text(), QString(text).insert(offset, u"xyz"_qs));
        ASSERT_EQ(file.Apply({ { offset, 3, QString() } }), Failure());
        ASSERT_EQ(file.Bytes(), bytes);
    }
}

TEST(SourceFile, MakesSeveralEditsAtOnce)
{
    auto file = fileOf("one \xC3\xA4 two three");
    EXPECT_EQ(file.Apply({ { 10, 5, u"3"_qs }, { 0, 3, u"ö"_qs }, { 6, 0, u"<"_qs } }), Failure());
    EXPECT_EQ(file.Bytes(), QByteArray("\xC3\xB6 \xC3\xA4 <two 3"));
    EXPECT_EQ(file.Text(), u"ö ä <two 3"_qs);
}

TEST(SourceFile, GivesTheLineEndOfTheLine)
{
    const auto file = fileOf("a\r\nb\nc\rd");
    EXPECT_EQ(file.LineEndAt(0), u"\r\n"_qs);
    EXPECT_EQ(file.LineEndAt(2), u"\r\n"_qs);
    EXPECT_EQ(file.LineEndAt(3), u"\n"_qs);
    EXPECT_EQ(file.LineEndAt(5), u"\r"_qs);
    EXPECT_EQ(file.LineEndAt(7), u"\r"_qs) << "the last line has none, its neighbour has";
    EXPECT_EQ(fileOf("abc").LineEndAt(1), u"\r\n"_qs);
}

TEST(SourceFile, CountsLinesAndColumnsFromOne)
{
    const auto file = fileOf("a\r\nb\nc\rdef");
    EXPECT_EQ(file.ProblemAt(0, {}).ToString(), u"a.pas:1:1: "_qs);
    EXPECT_EQ(file.ProblemAt(3, {}).ToString(), u"a.pas:2:1: "_qs);
    EXPECT_EQ(file.ProblemAt(9, u"x"_qs).ToString(), u"a.pas:4:3: x"_qs);
    EXPECT_EQ(file.ProblemAt(99, u"x"_qs).ToString(), u"a.pas:4:4: x"_qs);
}

TEST(SourceFile, ReadsOrdinaryFilesOnly)
{
    ProjectFolder folder;
    Failure failure;
    const auto file = SourceFile::Read(folder.Write(u"a.pas"_qs, "unit A;"), failure);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Bytes(), QByteArray("unit A;"));
    EXPECT_FALSE(SourceFile::Read(folder.Path(), failure));
    EXPECT_EQ(failure->ToString(), folder.Path() + u": is not a file"_qs);
    const auto pipe = folder.Path(u"pipe"_qs);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(SourceFile::Read(pipe, failure)) << "reading it would wait for ever";
    EXPECT_FALSE(SourceFile::Read(u"/dev/zero"_qs, failure));
}

TEST(SourceFile, RefusesAHugeFile)
{
    ProjectFolder folder;
    const auto path = folder.Write(u"a.pas"_qs, "");
    ASSERT_TRUE(QFile::resize(path, SourceFile::LargestSize + 1));
    Failure failure;
    EXPECT_FALSE(SourceFile::Read(path, failure));
    EXPECT_EQ(failure->Text, u"is larger than 64 MB"_qs);
}

TEST(SourceFile, IsSavedAsItsBytesAre)
{
    ProjectFolder folder;
    Failure failure;
    const QByteArray bytes("unit A;\r\n// \xE4\n");
    auto file = SourceFile::Read(folder.Write(u"a.pas"_qs, bytes), failure);
    ASSERT_EQ(file->Apply({ { 0, 4, u"UNIT"_qs } }), Failure());
    EXPECT_EQ(file->Save(), Failure());
    EXPECT_EQ(ProjectFolder::Read(folder.Path(u"a.pas"_qs)), QByteArray("UNIT A;\r\n// \xE4\n"));
}
