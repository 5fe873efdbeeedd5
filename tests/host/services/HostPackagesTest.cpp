#include "services/ComponentEditors.h"
#include "support/HostFixture.h"

#include <QCoreApplication>

namespace {

class DesignPackages : public PackagedHostFixture {
protected:
    const QString File = QStringLiteral(MORVANE_BIN_DIR "/TestPackage.bpl");
    HostRecorder Recorder { *TheHost };

    void SetUp() override
    {
        qApp->setProperty("packageFails", false);
        qApp->setProperty("packageHeard", 0);
    }
};

}

TEST_F(DesignPackages, StartsAPackageAndAnnouncesIt)
{
    EXPECT_EQ(TheHost->LoadPackage(File), QString());
    EXPECT_EQ(Recorder.Take(), "file ofnPackageInstalled TestPackage.bpl\n");
    EXPECT_EQ(TheHost->Wizards().size(), 1);
    EXPECT_EQ(ToolsMenu->Count(), 1);
    EXPECT_TRUE(FindDragTarget(u"TPackageDrag"_qs));
    EXPECT_TRUE(GetClass(u"TPackageComponent"_qs));
    EXPECT_TRUE(TheHost->IsPackageLoaded(File));
}

TEST_F(DesignPackages, TakesBackWhatAPackageLeavesThreeTimesOver)
{
    for (int round = 0; round < 3; ++round) {
        ASSERT_EQ(TheHost->LoadPackage(File), QString());
        EXPECT_EQ(ToolsMenu->Count(), 1);
        TheHost->UnloadPackage(File);
        EXPECT_EQ(TheHost->Wizards().size(), 0);
        EXPECT_EQ(ToolsMenu->Count(), 0);
        EXPECT_FALSE(FindDragTarget(u"TPackageDrag"_qs));
        EXPECT_FALSE(GetClass(u"TPackageComponent"_qs));
        qApp->setProperty("packageHeard", 0);
        TheHost->Notify(ofnFileOpened, u"x"_qs);
        EXPECT_EQ(qApp->property("packageHeard").toInt(), 0);
    }
    EXPECT_FALSE(TheHost->IsPackageLoaded(File));
}

TEST_F(DesignPackages, LetsTheWizardGoBeforeTheUnitsEnd)
{
    TheHost->LoadPackage(File);
    TheHost->UnloadPackage(File);
    EXPECT_EQ(qApp->property("wizardEnded"), QVariant(false));
    EXPECT_EQ(qApp->property("packageFinalized"), QVariant(true));
}

TEST_F(DesignPackages, SaysWhatFailedAndRunsOn)
{
    qApp->setProperty("packageFails", true);
    EXPECT_EQ(TheHost->LoadPackage(File), u"the unit Broken failed"_qs);
    EXPECT_FALSE(TheHost->IsPackageLoaded(File));
    EXPECT_EQ(Recorder.Take(), "");
    EXPECT_NE(TheHost->LoadPackage(u"/nowhere/at/all.bpl"_qs), QString());
}

TEST_F(DesignPackages, AnnouncesOpenModulesAgainWhereTheAttachDoesNotReadThem)
{
    ScriptedProject cpp(u"Shop"_qs, ScriptedProject::Kind::CppBuilder);
    cpp.Form(u"MainForm"_qs);
    Open(cpp);
    Recorder.Take();
    TheHost->LoadPackage(File);
    EXPECT_EQ(Recorder.Take(), "file ofnPackageInstalled TestPackage.bpl\nfile ofnFileOpened MainFormUnit.cpp\n");
    TheHost->UnloadPackage(File);
    ScriptedProject delphi;
    delphi.Form(u"MainForm"_qs);
    Open(delphi);
    Recorder.Take();
    TheHost->LoadPackage(File);
    EXPECT_EQ(Recorder.Take(), "file ofnPackageInstalled TestPackage.bpl\n");
}

TEST_F(DesignPackages, OffersItsTwoVerbsForDataComponentsWhileItIsLoaded)
{
    ScriptedProject shop;
    shop.DataModule(u"Data"_qs, u"object Books: TZAQuery\nend\nobject Timer: TTimer\nend"_qs);
    Open(shop);
    auto* books = Component(u"Data.Books"_qs);
    EXPECT_EQ(GetComponentEditor(books, &DesignerOf(u"Data"_qs)), nullptr);
    TheHost->LoadPackage(File);
    EXPECT_EQ(GetComponentEditor(Component(u"Data.Timer"_qs), &DesignerOf(u"Data"_qs)), nullptr);
    const auto editor = GetComponentEditor(books, &DesignerOf(u"Data"_qs));
    ASSERT_NE(editor, nullptr);
    ASSERT_EQ(editor->GetVerbCount(), 2);
    EXPECT_EQ(editor->GetVerb(0), u"Show in Morvane"_qs);
    EXPECT_EQ(editor->GetVerb(1), u"Create default control"_qs);
    editor->ExecuteVerb(0);
    EXPECT_EQ(qApp->property("packageShown").toString(), u"Data.Books"_qs);
    editor->ExecuteVerb(1);
    EXPECT_EQ(qApp->property("packageCreated").toString(), u"Data.Books"_qs);
}
