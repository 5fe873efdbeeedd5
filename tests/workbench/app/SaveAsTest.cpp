#include "workbench/app/WindowFixture.h"

#include <QTreeWidget>

namespace {

// Asks nobody for a name.
class NamingWindow : public MainWindow {
public:
    using MainWindow::MainWindow;
    QString NewName;
    QStringList Offered;

protected:
    QString AskForNewName(const QString& unitFile) override
    {
        Offered << unitFile;
        return NewName;
    }
};

}

class SaveAsTest : public WindowFixture {
protected:
    std::unique_ptr<MainWindow> MakeWindow(SessionOptions options, const QString& settings) override
    {
        return std::make_unique<NamingWindow>(std::move(options), settings);
    }
    void SetUp() override
    {
        Shop.Form(QStringLiteral("MainForm")).DataModule(QStringLiteral("Data"));
        Start(Shop.Write());
    }
    void SaveAs(const QString& fileName)
    {
        static_cast<NamingWindow&>(*Window).NewName = fileName;
        Window->Execute(Command::SaveAs);
        Settle();
    }
    QStringList Files()
    {
        QStringList texts;
        const auto* files = Window->findChild<QTreeWidget*>(QStringLiteral("ProjectFiles"));
        for (int i = 0; i < files->topLevelItem(0)->childCount(); ++i)
            texts << files->topLevelItem(0)->child(i)->text(0);
        return texts;
    }

    ScriptedProject Shop;
};

TEST_F(SaveAsTest, TheModuleInFrontIsSavedUnderTheNameThatIsGiven)
{
    SaveAs(Shop.Path(QStringLiteral("Window.pas")));
    EXPECT_EQ(static_cast<NamingWindow&>(*Window).Offered, QStringList(Shop.UnitOf(QStringLiteral("MainForm"))));
    EXPECT_TRUE(QFile::exists(Shop.Path(QStringLiteral("Window.dfm"))));
    EXPECT_EQ(Files(), QStringList({ QStringLiteral("MainForm (Window.pas)"), QStringLiteral("Data (DataUnit.pas)") }));
    EXPECT_EQ(Questions, QStringList());
}

TEST_F(SaveAsTest, NoNameIsNoChange)
{
    SaveAs({});
    EXPECT_EQ(FormModule(QStringLiteral("MainForm")).UnitFile(), Shop.UnitOf(QStringLiteral("MainForm")));
}

TEST_F(SaveAsTest, FilesThatAreThereAreNotWrittenOverWithoutAWord)
{
    ScriptedProject::WriteFile(Shop.Path(QStringLiteral("Window.pas")), "somebody's");
    ScriptedProject::WriteFile(Shop.Path(QStringLiteral("Window.dfm")), "somebody's");
    Answer = mrNo;
    SaveAs(Shop.Path(QStringLiteral("Window.pas")));
    EXPECT_EQ(Questions, QStringList(QStringLiteral("Window.pas and Window.dfm are there already. Replace them?")));
    EXPECT_EQ(ScriptedProject::Read(Shop.Path(QStringLiteral("Window.pas"))), "somebody's");
    Answer = mrYes;
    SaveAs(Shop.Path(QStringLiteral("Window.pas")));
    EXPECT_TRUE(ScriptedProject::Read(Shop.Path(QStringLiteral("Window.pas"))).startsWith("unit Window;"));
}

TEST_F(SaveAsTest, WhatCannotBeDoneIsToldOnce)
{
    SaveAs(Shop.Path(QStringLiteral("Data.pas")));
    EXPECT_EQ(Questions,
        QStringList(Shop.Path(QStringLiteral("Data.pas")) + QStringLiteral(": a form of the project is called Data")));
    EXPECT_FALSE(QFile::exists(Shop.Path(QStringLiteral("Data.pas"))));
}

TEST_F(SaveAsTest, ARenamedFormShowsItsNewNameInTabAndFileList)
{
    auto& designer = FormModule(QStringLiteral("MainForm")).TheDesigner();
    designer.RenameComponent(*designer.Root(), QStringLiteral("Window"));
    Settle();
    EXPECT_EQ(Tabs(), QStringList({ QStringLiteral("Window*"), QStringLiteral("Data") }));
    EXPECT_EQ(Files().first(), QStringLiteral("Window (MainFormUnit.pas)"));
    Window->Execute(Command::Undo);
    Settle();
    EXPECT_EQ(Files().first(), QStringLiteral("MainForm (MainFormUnit.pas)"));
}

TEST_F(SaveAsTest, ClosingARenamedFormAsksForAllThatGoesWithIt)
{
    auto& data = FormModule(QStringLiteral("Data")).TheDesigner();
    data.CreateComponent(GetClass(QStringLiteral("TDataSource")), nullptr, 8, 8, 0, 0);
    auto& designer = FormModule(QStringLiteral("MainForm")).TheDesigner();
    designer.RenameComponent(*designer.Root(), QStringLiteral("Window"));
    Settle();
    Window->Execute(Command::Close);
    EXPECT_EQ(Questions, QStringList(QStringLiteral("Save changes to MainFormUnit.pas, DataUnit.pas?")));
}
