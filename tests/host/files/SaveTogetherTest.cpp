#include "files/SaveTogether.h"
#include "host/projects/ProjectFolder.h"
#include "host/units/UnitText.h"
#include "support/FileSizeLimit.h"

#include <gtest/gtest.h>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr uid_t somebody = 65534;

// For its lifetime the process has no more rights than an ordinary user.
class OrdinaryUser {
public:
    OrdinaryUser()
        : FRoot(geteuid() == 0)
    {
        if (FRoot && seteuid(somebody) != 0)
            ADD_FAILURE() << "cannot become an ordinary user";
    }
    ~OrdinaryUser()
    {
        if (FRoot && seteuid(0) != 0)
            std::abort();
    }

private:
    bool FRoot;
};

class SaveTogetherTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        // An ordinary user may look into the folder, whoever made it.
        ASSERT_EQ(::chmod(QFile::encodeName(Folder.Path()).constData(), 0755), 0);
        Form = Folder.Write(u"Main.dfm"_qs, "old form");
        Unit = Folder.Write(u"Main.pas"_qs, "old unit");
    }

    // What stands in the folder: each file with its content.
    std::string Shown() const { return Shown(Folder.Path()); }

    static std::string Shown(const QString& folder)
    {
        std::string text;
        for (const auto& name : QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name))
            text += name.toStdString() + ": " + ProjectFolder::Read(folder + u'/' + name).left(20).toStdString() + '\n';
        return text;
    }

    ProjectFolder Folder;
    QString Form;
    QString Unit;
    const std::string Old = "Main.dfm: old form\nMain.pas: old unit\n";
};

}

TEST_F(SaveTogetherTest, SavesAllFilesAndLeavesNothingBeside)
{
    EXPECT_EQ(
        SaveTogether({ { Form, "new form" }, { Unit, "new unit" }, { Folder.Path(u"New.txt"_qs), "new" } }), Failure());
    EXPECT_EQ(Shown(), "Main.dfm: new form\nMain.pas: new unit\nNew.txt: new\n");
}

TEST_F(SaveTogetherTest, KeepsThePermissionsOfAFile)
{
    ASSERT_TRUE(QFile::setPermissions(Unit, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    const auto before = QFile::permissions(Unit);
    EXPECT_EQ(SaveTogether({ { Unit, "new unit" } }), Failure());
    EXPECT_EQ(QFile::permissions(Unit), before);
}

TEST_F(SaveTogetherTest, WritesThroughALink)
{
    const auto link = Folder.Path(u"Link.pas"_qs);
    ASSERT_TRUE(QFile::link(Unit, link));
    EXPECT_EQ(SaveTogether({ { link, "new unit" } }), Failure());
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(ProjectFolder::Read(Unit), QByteArray("new unit"));
}

TEST_F(SaveTogetherTest, SavesNothingWhenAFileCannotBeWrittenWhole)
{
    Failure failure;
    {
        const FileSizeLimit limit(100);
        failure = SaveTogether({ { Form, "new form" }, { Unit, QByteArray(100000, 'x') } });
    }
    EXPECT_EQ(MessageOf(failure), Unit.toStdString() + ": cannot be saved: File too large");
    EXPECT_EQ(Shown(), Old);
}

TEST_F(SaveTogetherTest, SavesNothingWhenASmallFileDoesNotFitEither)
{
    Failure failure;
    {
        const FileSizeLimit limit(10);
        failure = SaveTogether({ { Form, "new form" }, { Unit, QByteArray(11, 'x') } });
    }
    EXPECT_EQ(MessageOf(failure), Unit.toStdString() + ": cannot be saved: File too large");
    EXPECT_EQ(Shown(), Old);
}

TEST_F(SaveTogetherTest, SavesNothingOnAFullDisk)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can mount a small disk";
    const auto disk = Folder.Path(u"disk"_qs);
    ASSERT_TRUE(QDir().mkpath(disk));
    const auto place = QFile::encodeName(disk);
    if (::mount("tmpfs", place.constData(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "this machine does not let root mount";
    for (const auto& name : { u"Main.dfm"_qs, u"Main.pas"_qs }) {
        QFile file(disk + u'/' + name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    }
    const auto failure
        = SaveTogether({ { disk + u"/Main.dfm"_qs, "new" }, { disk + u"/Main.pas"_qs, QByteArray(100000, 'x') } });
    const auto shown = Shown(disk);
    EXPECT_EQ(::umount(place.constData()), 0);
    EXPECT_EQ(MessageOf(failure), disk.toStdString() + "/Main.pas: cannot be saved: No space left on device");
    EXPECT_EQ(shown, "Main.dfm: old\nMain.pas: old\n");
}

TEST_F(SaveTogetherTest, SavesNothingIntoAReadOnlyFolder)
{
    const auto locked = Folder.Write(u"locked/Other.pas"_qs, "old other");
    const auto path = QFile::encodeName(QFileInfo(locked).path());
    ASSERT_EQ(::chmod(path.constData(), 0555), 0);
    if (geteuid() == 0) {
        ASSERT_EQ(::chmod(QFile::encodeName(Folder.Path()).constData(), 0777), 0);
        ASSERT_EQ(::chmod(QFile::encodeName(Form).constData(), 0666), 0);
        ASSERT_EQ(::chmod(QFile::encodeName(locked).constData(), 0666), 0);
    }
    Failure failure;
    {
        const OrdinaryUser user;
        failure = SaveTogether({ { Form, "new form" }, { locked, "new other" } });
    }
    ASSERT_EQ(::chmod(path.constData(), 0755), 0);
    EXPECT_EQ(MessageOf(failure), locked.toStdString() + ": cannot be saved: Permission denied");
    EXPECT_EQ(Shown(), Old);
    EXPECT_EQ(ProjectFolder::Read(locked), QByteArray("old other"));
}

TEST_F(SaveTogetherTest, SavesNothingIntoAFolderThatIsNotThere)
{
    const auto failure = SaveTogether({ { Form, "new form" }, { Folder.Path(u"none/Other.pas"_qs), "x" } });
    EXPECT_EQ(
        failure->ToString(), Folder.Path(u"none/Other.pas"_qs) + u": cannot be saved: No such file or directory"_qs);
    EXPECT_EQ(Shown(), Old);
}

TEST_F(SaveTogetherTest, TakesBackWhatIsReplacedWhenALaterFileCannotBe)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can make a file that others may write and not replace";
    // In a folder with the sticky bit, a file of somebody else can be written and not replaced.
    ASSERT_EQ(::chmod(QFile::encodeName(Folder.Path()).constData(), 01777), 0);
    for (const auto& file : { Form, Unit })
        ASSERT_EQ(::chmod(QFile::encodeName(file).constData(), 0666), 0);
    ASSERT_EQ(::chown(QFile::encodeName(Folder.Path()).constData(), 1, 1), 0);
    ASSERT_EQ(::chown(QFile::encodeName(Form).constData(), somebody, somebody), 0);
    Failure failure;
    {
        const OrdinaryUser user;
        failure = SaveTogether({ { Form, "new form" }, { Folder.Path(u"New.txt"_qs), "new" }, { Unit, "new unit" } });
    }
    EXPECT_EQ(MessageOf(failure), Unit.toStdString() + ": cannot be saved: Operation not permitted");
    EXPECT_EQ(Shown(), Old);
}
