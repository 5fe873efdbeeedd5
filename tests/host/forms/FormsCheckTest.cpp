#include "forms/FormsCheck.h"

#include "support/Corpus.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FormsCheckTest : public testing::Test {
protected:
    void Write(const QString& name, const QByteArray& bytes)
    {
        const QFileInfo place(Folder.filePath(name));
        ASSERT_TRUE(QDir().mkpath(place.path()));
        QFile file(place.filePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    // What the check says of the paths below the folder, a failure a line and the summary last.
    std::string Say(const QStringList& names)
    {
        QString said;
        FormsCheck check([&](const FormError& error) { said += error.ToString() + u'\n'; });
        for (const auto& name : names)
            check.Check(Folder.filePath(name));
        said += check.Summary();
        return said.remove(Folder.path() + u'/').toStdString();
    }

    QTemporaryDir Folder;
};

}

TEST_F(FormsCheckTest, ReadsEveryFormBelowAFolderAndNamesWhatFailsAndWhere)
{
    Write(u"a/Good.dfm"_s, "object A: TA\nend\n");
    Write(u"a/b/Upper.DFM"_s, "object A: TA\nend\n");
    Write(u"a/b/Other.lfm"_s, "object A: TA\nend\n");
    Write(u"a/b/Three.fmx"_s, "object A: TA\nend\n");
    Write(u"a/b/Four.nfm"_s, "object A: TA\nend\n");
    Write(u"a/b/Five.xfm"_s, "object A: TA\nend\n");
    Write(u"a/Unit.pas"_s, "unit Unit;");
    Write(u"a/Bad.dfm"_s, "object A: TA\n  Left 8\nend\n");
    EXPECT_EQ(Say({ u"a"_s }),
        "a/Bad.dfm:2:8: \"8\" where \"=\" (a property is written as Name = Value) should stand; write that there\n"
        "files 7, read 6, identical 6, failed 1");
}

TEST_F(FormsCheckTest, ReadsAFileThatIsNamedWhateverItsSuffix)
{
    Write(u"form.txt"_s, "object A: TA\nend\n");
    EXPECT_EQ(Say({ u"form.txt"_s }), "files 1, read 1, identical 1, failed 0");
}

TEST_F(FormsCheckTest, CountsAPathThatIsNotThereAsFailed)
{
    EXPECT_EQ(Say({ u"missing.dfm"_s }),
        "missing.dfm:1:1: the file cannot be opened (No such file or directory); see that it is there and may be "
        "read\nfiles 1, read 0, identical 0, failed 1");
}

TEST_F(FormsCheckTest, CountsNothingInAnEmptyFolder)
{
    EXPECT_EQ(Say({ u"."_s }), "files 0, read 0, identical 0, failed 0");
}

TEST_F(FormsCheckTest, FindsTheWholeCorpusIdentical)
{
    if (Corpus::folder().isEmpty())
        GTEST_SKIP() << "no corpus beside the checkout";
    QStringList failures;
    FormsCheck check([&](const FormError& error) { failures << error.ToString(); });
    check.Check(Corpus::folder());
    EXPECT_EQ(failures, QStringList());
    EXPECT_GT(check.Files(), 0);
    EXPECT_EQ(check.Identical(), check.Files());
}
