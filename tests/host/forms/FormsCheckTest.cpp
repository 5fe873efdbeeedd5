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
    void write(const QString& name, const QByteArray& bytes)
    {
        const QFileInfo place(folder.filePath(name));
        ASSERT_TRUE(QDir().mkpath(place.path()));
        QFile file(place.filePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    // What the check says of the paths below the folder, a failure a line and the summary last.
    std::string say(const QStringList& names)
    {
        QString said;
        FormsCheck check([&](const FormError& error) { said += error.toString() + u'\n'; });
        for (const auto& name : names)
            check.check(folder.filePath(name));
        said += check.summary();
        return said.remove(folder.path() + u'/').toStdString();
    }

    QTemporaryDir folder;
};

}

TEST_F(FormsCheckTest, ReadsEveryFormBelowAFolderAndNamesWhatFailsAndWhere)
{
    write(u"a/Good.dfm"_s, "object A: TA\nend\n");
    write(u"a/b/Upper.DFM"_s, "object A: TA\nend\n");
    write(u"a/b/Other.lfm"_s, "object A: TA\nend\n");
    write(u"a/b/Three.fmx"_s, "object A: TA\nend\n");
    write(u"a/b/Four.nfm"_s, "object A: TA\nend\n");
    write(u"a/b/Five.xfm"_s, "object A: TA\nend\n");
    write(u"a/Unit.pas"_s, "unit Unit;");
    write(u"a/Bad.dfm"_s, "object A: TA\n  Left 8\nend\n");
    EXPECT_EQ(say({ u"a"_s }),
        "a/Bad.dfm:2:8: \"8\" where \"=\" (a property is written as Name = Value) should stand; write that there\n"
        "files 7, read 6, identical 6, failed 1");
}

TEST_F(FormsCheckTest, ReadsAFileThatIsNamedWhateverItsSuffix)
{
    write(u"form.txt"_s, "object A: TA\nend\n");
    EXPECT_EQ(say({ u"form.txt"_s }), "files 1, read 1, identical 1, failed 0");
}

TEST_F(FormsCheckTest, CountsAPathThatIsNotThereAsFailed)
{
    EXPECT_EQ(say({ u"missing.dfm"_s }),
        "missing.dfm:1:1: the file cannot be opened (No such file or directory); see that it is there and may be "
        "read\nfiles 1, read 0, identical 0, failed 1");
}

TEST_F(FormsCheckTest, CountsNothingInAnEmptyFolder)
{
    EXPECT_EQ(say({ u"."_s }), "files 0, read 0, identical 0, failed 0");
}

TEST_F(FormsCheckTest, FindsTheWholeCorpusIdentical)
{
    if (Corpus::folder().isEmpty())
        GTEST_SKIP() << "no corpus beside the checkout";
    QStringList failures;
    FormsCheck check([&](const FormError& error) { failures << error.toString(); });
    check.check(Corpus::folder());
    EXPECT_EQ(failures, QStringList());
    EXPECT_GT(check.files(), 0);
    EXPECT_EQ(check.identical(), check.files());
}
