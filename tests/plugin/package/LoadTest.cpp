#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <QDir>

// The shared library itself, loaded and unloaded by the host.
namespace {

class LoadingThePackage : public ToolWindowFixture {
protected:
    const QString File = QStringLiteral(MORVANE_BIN_DIR "/Morvane290.bpl");
};

}

TEST_F(LoadingThePackage, LeavesNothingBehindThreeTimesOver)
{
    OpenShop();
    for (int round = 0; round < 3; ++round) {
        ASSERT_EQ(TheHost->LoadPackage(File), QString());
        EXPECT_EQ(ToolsMenu->Count(), 1);
        EXPECT_EQ(TheHost->Wizards().size(), 1);
        EXPECT_TRUE(FindDragTarget(u"TMrvDragDBControl"_qs));
        EXPECT_NE(TheHost->PackageExport("ShowMorvane"), nullptr);
        TheHost->UnloadPackage(File);
        EXPECT_EQ(ToolsMenu->Count(), 0);
        EXPECT_EQ(TheHost->Wizards().size(), 0);
        EXPECT_FALSE(FindDragTarget(u"TMrvDragDBControl"_qs));
        EXPECT_TRUE(Clock.Idle());
        // Nobody listens any more.
        Delete({ u"Data.Memory"_qs });
        TheHost->Undo().Undo();
        Clock.Advance(200);
    }
    EXPECT_EQ(Exceptions, QStringList());
}

TEST_F(LoadingThePackage, ABrokenConfigurationKeepsItOutAndTheHostRunsOn)
{
    QFile file(Folder.filePath(u"Morvane.cfg"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no configuration");
    file.close();
    EXPECT_NE(TheHost->LoadPackage(File), QString());
    EXPECT_FALSE(TheHost->IsPackageLoaded(File));
    EXPECT_EQ(ToolsMenu->Count(), 0);
    EXPECT_EQ(TheHost->Wizards().size(), 0);
    OpenShop();
    Delete({ u"Data.Memory"_qs });
    Clock.Advance(200);
    EXPECT_EQ(Exceptions, QStringList());
    file.remove();
    EXPECT_EQ(TheHost->LoadPackage(File), QString());
}

TEST_F(LoadingThePackage, SavesAModifiedConfigurationAtItsEnd)
{
    QFile file(Folder.filePath(u"Morvane.cfg"_qs));
    file.remove();
    ASSERT_EQ(TheHost->LoadPackage(File), QString());
    EXPECT_TRUE(file.exists());
    TheHost->UnloadPackage(File);
    EXPECT_TRUE(file.exists());
}
