#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <QApplication>

// The shared library itself, loaded and unloaded by the host.
namespace {

class LoadingThePackage : public ToolWindowFixture {
protected:
    // The library's window; it has a FormInstance of its own.
    static TDockableForm* LoadedWindow()
    {
        for (auto* widget : QApplication::allWidgets())
            if (widget->objectName() == u"MrvToolWindow"_qs)
                return qobject_cast<TDockableForm*>(widget);
        return nullptr;
    }
    static std::string LoadedText()
    {
        std::string text;
        const auto* tree = LoadedWindow()->findChild<TCustomTreeView*>(u"DataSetView"_qs);
        for (const auto* node = tree->Items().GetFirstNode(); node; node = node->GetNext())
            text += std::string(size_t(node->Level()) * 2, ' ') + node->Text().toStdString() + '\n';
        return text;
    }
    void OpenBooks(ScriptedProject& project)
    {
        project.DataModule(u"Data"_qs, u"object Books: TZAQuery\nend"_qs);
        project.Form(u"MainForm"_qs, u"object Local: TZATable\nend"_qs);
        Open(project);
    }
    void MakeFile(QFile& file)
    {
        if (!file.exists())
            New<TMrvConfigurationService>()->Save();
    }
    const QString File = QStringLiteral(MORVANE_BIN_DIR "/Morvane290.bpl");
};

using TKind = ScriptedProject::Kind;
class LoadingAfterTheProject : public LoadingThePackage, public testing::WithParamInterface<TKind> {
protected:
    // A desktop that restores the window as it is registered.
    class Desktop : public IDesktop {
    public:
        Desktop() { Deskutil::SetDesktop(this); }
        ~Desktop() { Deskutil::SetDesktop(nullptr); }
        void FormRegistered(TDockableForm* form) override { form->show(); }
        void FormUnregistered(TDockableForm*) override { }
    };
    std::string Expected()
    {
        return TheHost->ActiveProject()->GetFileName().section(u'/', -1).toStdString()
            + "\n  Data.Books\n  MainForm.Local\n";
    }
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

TEST_F(LoadingThePackage, ShowsTheSameTreeThreeTimesOverAndStopsListening)
{
    ScriptedProject books;
    OpenBooks(books);
    for (int round = 0; round < 3; ++round) {
        ASSERT_EQ(TheHost->LoadPackage(File), QString());
        LoadedWindow()->show();
        Settle();
        EXPECT_EQ(LoadedText(), "Shop.dproj\n  Data.Books\n  MainForm.Local\n");
        EXPECT_EQ(TheHost->Products.size(), 1);
        TheHost->UnloadPackage(File);
        EXPECT_EQ(LoadedWindow(), nullptr);
        EXPECT_TRUE(TheHost->Notifiers.IsEmpty());
    }
    EXPECT_EQ(Exceptions, QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    OfAnyKind, LoadingAfterTheProject, testing::Values(TKind::Delphi, TKind::CppBuilder, TKind::Lazarus));

TEST_P(LoadingAfterTheProject, ShowsEachNodeOnceInAWindowThatIsShownLater)
{
    ScriptedProject books(u"Shop"_qs, GetParam());
    OpenBooks(books);
    ASSERT_EQ(TheHost->LoadPackage(File), QString());
    EXPECT_EQ(LoadedText().find("Books"), std::string::npos);
    LoadedWindow()->show();
    Settle();
    EXPECT_EQ(LoadedText(), Expected());
    TheHost->UnloadPackage(File);
}

TEST_P(LoadingAfterTheProject, ShowsEachNodeOnceInAWindowThatTheDesktopShows)
{
    const Desktop desktop;
    ScriptedProject books(u"Shop"_qs, GetParam());
    OpenBooks(books);
    ASSERT_EQ(TheHost->LoadPackage(File), QString());
    Settle();
    EXPECT_EQ(LoadedText(), Expected());
    TheHost->UnloadPackage(File);
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

TEST_F(LoadingThePackage, SavesAConfigurationAtItsEndOnlyIfItWasModified)
{
    ScriptedProject books;
    OpenBooks(books);
    QFile file(Folder.filePath(u"Morvane.cfg"_qs));
    for (const bool modify : { false, true }) {
        ASSERT_EQ(TheHost->LoadPackage(File), QString());
        LoadedWindow()->show();
        ASSERT_TRUE(file.remove());
        if (modify)
            for (auto* action : LoadedWindow()->findChildren<TAction*>())
                if (action->Name() == u"acScanAll"_qs)
                    action->Execute();
        EXPECT_FALSE(file.exists());
        TheHost->UnloadPackage(File);
        EXPECT_EQ(file.exists(), modify);
        MakeFile(file);
    }
}
