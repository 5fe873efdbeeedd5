#include "workbench/app/WindowFixture.h"

#include "configuration/UserConfiguration.h"
#include "ui/TPopupMenu.h"
#include "visual/TAction.h"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QTextBrowser>
#include <QTreeWidget>

class MainWindowTest : public WindowFixture {
protected:
    MainWindowTest()
    {
        Shop.Form(QStringLiteral("MainForm"), QStringLiteral("object Button1: TButton\n Left = 8\n Top = 8\nend"))
            .DataModule(QStringLiteral("Data"),
                QStringLiteral(
                    "object Books: TZAQuery\n object BooksTitle: TStringField\n FieldName = 'Title'\n end\nend"));
    }
    void MoveTheButton()
    {
        auto& designer = FormModule(QStringLiteral("MainForm")).TheDesigner();
        designer.SelectComponent(designer.GetComponent(QStringLiteral("Button1")));
        Window->ViewOf(FormModule(QStringLiteral("MainForm")))->Surface()->MoveSelection({ 8, 0 });
        Settle();
    }
    bool Close()
    {
        QCloseEvent event;
        QCoreApplication::sendEvent(Window.get(), &event);
        return event.isAccepted();
    }

    ScriptedProject Shop;
};

TEST_F(MainWindowTest, ThePluginsWindowIsDockedOnTheRightAndShownAtFirst)
{
    Start();
    EXPECT_EQ(Window->dockWidgetArea(&ToolWindow()), Qt::RightDockWidgetArea);
    EXPECT_TRUE(ToolWindow().IsWindowVisible());
}

TEST_F(MainWindowTest, ThePluginsWindowComesBackAsItWasLeft)
{
    Start();
    ToolWindow().hide();
    EXPECT_TRUE(Close());
    Start();
    EXPECT_FALSE(ToolWindow().IsWindowVisible());
}

TEST_F(MainWindowTest, ThePluginHasItsItemInTheToolsMenu)
{
    Start();
    auto* tools = Window->Menu().Items().FindByName(QStringLiteral("ToolsMenu"));
    ASSERT_NE(tools, nullptr);
    EXPECT_NE(tools->Find(QStringLiteral("Morvane")), nullptr);
}

TEST_F(MainWindowTest, EachOpenModuleHasATab)
{
    Start(Shop.Write());
    EXPECT_EQ(Tabs(), QStringList({ QStringLiteral("MainForm"), QStringLiteral("Data") }));
    Window->TheHost().CloseModule(FormModule(QStringLiteral("MainForm")));
    Settle();
    EXPECT_EQ(Tabs(), QStringList(QStringLiteral("Data")));
}

TEST_F(MainWindowTest, AChangedModuleIsMarkedUntilItIsSaved)
{
    Start(Shop.Write());
    EXPECT_FALSE(Window->isWindowModified());
    MoveTheButton();
    EXPECT_EQ(Tabs().first(), QStringLiteral("MainForm*"));
    EXPECT_TRUE(Window->isWindowModified());
    Window->Execute(Command::SaveAll);
    Settle();
    EXPECT_EQ(Tabs().first(), QStringLiteral("MainForm"));
    EXPECT_TRUE(ScriptedProject::Read(Shop.FormOf(QStringLiteral("MainForm"))).contains("Left = 16"));
}

TEST_F(MainWindowTest, ChangesAreNotLostWithoutAWord)
{
    Start(Shop.Write());
    MoveTheButton();
    EXPECT_FALSE(Close());
    EXPECT_EQ(Questions, QStringList(QStringLiteral("Save changes to MainFormUnit.pas?")));
    Answer = mrNo;
    EXPECT_TRUE(Close());
    EXPECT_TRUE(ScriptedProject::Read(Shop.FormOf(QStringLiteral("MainForm"))).contains("Left = 8"));
}

TEST_F(MainWindowTest, UndoAndRedoFollowTheGestures)
{
    Start(Shop.Write());
    EXPECT_FALSE(MainMenu::Item(Window->Menu(), Command::Undo).Enabled());
    MoveTheButton();
    EXPECT_TRUE(MainMenu::Item(Window->Menu(), Command::Undo).Enabled());
    Window->Execute(Command::Undo);
    Settle();
    EXPECT_FALSE(Window->TheHost().IsModified());
    EXPECT_TRUE(MainMenu::Item(Window->Menu(), Command::Redo).Enabled());
}

TEST_F(MainWindowTest, TheStatusBarTellsWhyTheTreeIsEmpty)
{
    Start();
    EXPECT_EQ(Status(), QStringLiteral("Open a project: File > Open Project"));
}

TEST_F(MainWindowTest, TheStatusBarNamesAPersonalityThatIsNotKnown)
{
    Shop.Write();
    auto project = ScriptedProject::Read(Shop.ProjectFile());
    project.replace("Delphi.Personality.12", "Other.Personality.1").replace("Delphi.Personality", "Other.Personality");
    ScriptedProject::WriteFile(Shop.ProjectFile(), project);
    Start(Shop.ProjectFile());
    EXPECT_TRUE(Status().startsWith(QStringLiteral("The tree is empty: projects of the kind \"Other.Personality")))
        << qPrintable(Status());
}

TEST_F(MainWindowTest, AComponentsMenuLeadsToItsNodeInTheTree)
{
    Start(Shop.Write());
    auto& designer = FormModule(QStringLiteral("Data")).TheDesigner();
    auto* surface = Window->ViewOf(FormModule(QStringLiteral("Data")))->Surface();
    auto* books = designer.GetComponent(QStringLiteral("Books"));
    designer.SelectComponent(books);
    const auto at = surface->RectOf(*books).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, surface->mapToGlobal(at));
    QCoreApplication::sendEvent(surface, &event);
    auto* menu = surface->findChild<TPopupMenu*>();
    ASSERT_NE(menu, nullptr);
    QStringList captions;
    for (int i = 0; i < menu->Items().Count(); ++i)
        captions << menu->Items().Items(i)->Caption();
    EXPECT_EQ(captions.mid(0, 3),
        QStringList(
            { QStringLiteral("Show in Morvane"), QStringLiteral("Create default control"), QStringLiteral("-") }));
    menu->Items().Find(QStringLiteral("Show in Morvane"))->Click();
    const auto* selected = ToolWindow().findChild<TCustomTreeView*>()->Selected();
    ASSERT_NE(selected, nullptr);
    EXPECT_EQ(selected->Text(), QStringLiteral("Data.Books"));
}

TEST_F(MainWindowTest, WhereThePaletteIsDarkTheFormIsToo)
{
    const auto light = QApplication::palette();
    QPalette dark(QColor(45, 48, 52));
    dark.setColor(QPalette::Base, QColor(30, 32, 36));
    QApplication::setPalette(dark);
    Start(Shop.Write());
    Window->grab().save(QStringLiteral(MORVANE_BIN_DIR "/window-dark.png"));
    const auto form = RenderForm(FormModule(QStringLiteral("MainForm")), Window->TheSession().Packages());
    QApplication::setPalette(light);
    EXPECT_LT(form.pixelColor(form.width() / 2, form.height() / 2).lightness(), 80);
}

TEST_F(MainWindowTest, ProblemsInFilesAreListedWithTheirPlace)
{
    Shop.Form(QStringLiteral("Broken")).FormFile(QStringLiteral("Broken"), "object Broken: TBroken\n  Left = \nend\n");
    Start(Shop.Write());
    const auto* list = Window->findChild<QTreeWidget*>(QStringLiteral("ProblemList"));
    ASSERT_EQ(list->topLevelItemCount(), 1);
    EXPECT_EQ(list->topLevelItem(0)->text(1), QStringLiteral("BrokenUnit.dfm"));
    EXPECT_FALSE(list->topLevelItem(0)->text(2).isEmpty());
    EXPECT_EQ(Tabs().size(), 3);
}

TEST_F(MainWindowTest, AProjectConnectsOnlyOnceItIsAllowedTo)
{
    Start(Shop.Write());
    Window->Execute(Command::AllowConnections);
    Settle();
    EXPECT_FALSE(MainMenu::Item(Window->Menu(), Command::AllowConnections).Checked());
    Answer = mrYes;
    Window->Execute(Command::AllowConnections);
    Settle();
    EXPECT_TRUE(MainMenu::Item(Window->Menu(), Command::AllowConnections).Checked());
}

TEST_F(MainWindowTest, ThePluginStartsAgainForItsLog)
{
    Start(Shop.Write());
    Window->Execute(Command::KeepLog);
    Settle();
    EXPECT_EQ(Exceptions, QStringList());
    EXPECT_EQ(Window->dockWidgetArea(&ToolWindow()), Qt::RightDockWidgetArea);
    EXPECT_NE(Window->Menu().Items().FindByName(QStringLiteral("ToolsMenu"))->Find(QStringLiteral("Morvane")), nullptr);
}

TEST_F(MainWindowTest, TheToolWindowsHelpOpensTheGuide)
{
    Start();
    ToolWindow().findChild<TAction*>(QStringLiteral("acHelp"))->Execute();
    const auto* help = Window->findChild<QTextBrowser*>(QStringLiteral("HelpWindow"));
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_TRUE(help->toPlainText().startsWith(QStringLiteral("User guide")))
        << qPrintable(help->toPlainText().left(80));
}
