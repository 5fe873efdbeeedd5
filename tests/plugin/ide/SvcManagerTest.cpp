#include "ide/MrvSvcManager.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <QCoreApplication>

namespace {

class TheServiceManager : public ToolWindowFixture {
protected:
    void SetUp() override
    {
        StartShown();
        OpenShop();
    }
    TSvcManager& Svc() { return *List().FSvcManager; }
    void Tell(TOTAFileNotification code, const QString& fileName)
    {
        bool cancel = false;
        Svc().FileNotification(&Svc(), code, fileName, cancel);
    }
    InterfacePtr<IOTAFormEditor> EditorOf(const QString& form) { return &FormOf(form).FormEditor(); }
    int Listeners()
    {
        int count = 0;
        for (int i = 0; i < Svc().FNotifierList->Count(); ++i)
            count += Svc().FNotifierList->Item(i) ? 1 : 0;
        return count;
    }
};

}

TEST_F(TheServiceManager, GivesValuesFromOneOn)
{
    TDataSetList list;
    EXPECT_EQ(list.FSvcManager->GetUniqueValue(), 1);
    EXPECT_EQ(list.FSvcManager->GetUniqueValue(), 2);
}

TEST_F(TheServiceManager, RemembersTheFormEditorBeforeThisOne)
{
    const auto main = EditorOf(u"MainForm"_qs);
    const auto data = EditorOf(u"Data"_qs);
    Svc().ClearActiveFormEditor();
    Svc().SetActiveFormEditor(main);
    Svc().SetActiveFormEditor(data);
    EXPECT_EQ(Svc().GetActiveFormEditor().get(), data.get());
    EXPECT_EQ(Svc().FOldActiveFormEditor.get(), main.get());
    Svc().SetActiveFormEditor(nullptr);
    EXPECT_FALSE(Svc().GetActiveFormEditor());
    EXPECT_EQ(Svc().FOldActiveFormEditor.get(), main.get());
    Svc().SetActiveFormEditor(data);
    EXPECT_FALSE(Svc().FOldActiveFormEditor);
    Svc().SearchValidFormEditor();
    EXPECT_TRUE(Svc().GetActiveFormEditor());
    EXPECT_NE(
        Svc().GetActiveFormEditor().get(), TheHost->CurrentModule() == &FormOf(u"Data"_qs) ? data.get() : main.get());
}

TEST_F(TheServiceManager, LogsEachFileEventBeforeAnythingElse)
{
    StartLog();
    const auto line = u"File Notification: FileName: x.txt,\r\n\t\t\t\t NotifyCode: ofnFileOpened, Dormant status: "_qs;
    Tell(ofnFileOpened, u"x.txt"_qs);
    EXPECT_EQ(TakeLog(), LogText::Of({ line + u"False"_qs }));
    List().GoDormant();
    int told = 0;
    Svc().FFileNotification = [&](TObject*, TOTAFileNotification, const QString&, bool&) { ++told; };
    Tell(ofnFileOpened, u"x.txt"_qs);
    EXPECT_EQ(TakeLog(), LogText::Of({ line + u"True"_qs }));
    EXPECT_EQ(told, 0);
    List().FDormant = false;
    Tell(ofnFileOpened, u"x.txt"_qs);
    EXPECT_EQ(told, 1);
}

TEST_F(TheServiceManager, DoesNothingWhileFileEventsAreDisabledWithOneFlag)
{
    int told = 0;
    Svc().FFileNotification = [&](TObject*, TOTAFileNotification, const QString&, bool&) { ++told; };
    Svc().DisableFileNotifications();
    Svc().DisableFileNotifications();
    Tell(ofnFileOpened, u"x.txt"_qs);
    EXPECT_EQ(told, 0);
    Svc().EnableFileNotifications();
    Tell(ofnFileOpened, u"x.txt"_qs);
    EXPECT_EQ(told, 1);
}

TEST_F(TheServiceManager, AnExceptionOfAHandlerIsLogged)
{
    StartLog();
    Svc().FFileNotification
        = [](TObject*, TOTAFileNotification, const QString&, bool&) { throw Exception(u"no luck"_qs); };
    Tell(ofnPackageUninstalled, u"x.bpl"_qs);
    EXPECT_EQ(TakeLog(),
        LogText::Of({ u"File Notification: FileName: x.bpl,\r\n\t\t\t\t NotifyCode: ofnPackageUninstalled, Dormant "
                      "status: False"_qs,
            u"TSvcManager.FileNotification - failed!"_qs, u"Exception.Message is 'no luck'"_qs }));
}

TEST_F(TheServiceManager, ListensOnceToEachFile)
{
    const int listeners = Listeners();
    const InterfacePtr<IOTAModule> module(&FormOf(u"MainForm"_qs));
    for (int i = 0; i < 2; ++i) {
        Svc().AddModuleNotifier(module);
        Svc().AddFormNotifier(module);
        Svc().AddModuleNotifier(nullptr);
        Svc().AddFormNotifier(nullptr);
    }
    EXPECT_EQ(Listeners(), listeners);
    EXPECT_NE(Svc().FNotifierList->IndexOfName(Shop.UnitOf(u"MainForm"_qs)), -1);
    EXPECT_NE(Svc().FNotifierList->IndexOfName(Shop.FormOf(u"MainForm"_qs)), -1);
}

TEST_F(TheServiceManager, ListensToTheUnitOfAFormFileInLowerCaseAlone)
{
    Svc().FNotifierList->Clear();
    Tell(ofnFileOpened, Shop.FormOf(u"MainForm"_qs).chopped(4) + u".DFM"_qs);
    EXPECT_EQ(Listeners(), 0);
    Tell(ofnFileOpened, Shop.FormOf(u"MainForm"_qs));
    EXPECT_EQ(Listeners(), 2);
    Tell(ofnFileOpened, Shop.UnitOf(u"Data"_qs).chopped(4) + u".PAS"_qs);
    EXPECT_EQ(Listeners(), 4);
}

TEST_F(TheServiceManager, FindsModulesOfTheProject)
{
    const auto unit = Shop.UnitOf(u"MainForm"_qs);
    EXPECT_TRUE(Svc().GetModuleInfo(unit.toUpper()));
    EXPECT_FALSE(Svc().GetModuleInfo(u"Nowhere.pas"_qs));
    EXPECT_TRUE(Svc().IsModuleFromProject(unit));
    EXPECT_TRUE(Svc().FindModuleInfo(u"MainForm"_qs, {}));
    EXPECT_TRUE(Svc().FindModuleInfo(u"Nothing"_qs, unit));
    EXPECT_FALSE(Svc().FindModuleInfo(u"MAINFORM"_qs, unit.toUpper()));
    EXPECT_TRUE(Svc().GetEditorByFileName(unit, IOTAFormEditor::IID));
    EXPECT_FALSE(Svc().GetEditorByFileName(u"Nowhere.pas"_qs, IOTAFormEditor::IID));
    EXPECT_FALSE(Svc().OpenModule(u"/nowhere/at/all.pas"_qs));
    const auto services = std::exchange(BorlandIDEServices, nullptr);
    EXPECT_FALSE(Svc().IsModuleFromProject(unit));
    EXPECT_FALSE(Svc().FindModuleInfo(u"MainForm"_qs, unit));
    EXPECT_EQ(Svc().FProjectName, QString());
    BorlandIDEServices = services;
    Svc().GetActivePrj();
    EXPECT_EQ(Svc().FProjectName, u"Shop.dproj"_qs);
}

TEST_F(TheServiceManager, FindsComponentsInTheGivenEditorOrTheActiveOne)
{
    Svc().SetActiveFormEditor(EditorOf(u"Data"_qs));
    EXPECT_TRUE(Svc().FindComponent(u"Books"_qs, nullptr));
    EXPECT_FALSE(Svc().FindComponent(u"Books"_qs, EditorOf(u"MainForm"_qs)));
    Svc().ClearActiveFormEditor();
    EXPECT_FALSE(Svc().FindComponent(u"Books"_qs, nullptr));
}

TEST_F(TheServiceManager, TellsOfARenamedProjectAndOfARenamedUnitElsewhere)
{
    // The window would ask for the project's name, and so bring it up to date.
    Svc().RegisterEvents(nullptr);
    QStringList told;
    Svc().FOnModuleRenamed = [&](TObject*, const QString& old, const QString& now) { told << old << now; };
    Svc().ModuleRenamed(nullptr, u"a.pas"_qs, u"b.pas"_qs);
    EXPECT_EQ(told, QStringList({ u"a.pas"_qs, u"b.pas"_qs }));
    Svc().ModuleRenamed(nullptr, u"Shop.dproj"_qs, u"/x/Store.dproj"_qs);
    EXPECT_EQ(told.size(), 2);
    EXPECT_EQ(Svc().FProjectName, u"Store.dproj"_qs);
}

TEST_F(TheServiceManager, KnowsThatTheProjectWentUntilItIsRegisteredAgain)
{
    Svc().RegisterEvents(nullptr);
    Svc().SetActiveFormEditor(EditorOf(u"Data"_qs));
    const InterfacePtr<IOTAModule> project(TheHost->ActiveProject());
    const auto notifier = New<TModuleNotifier>(project, nullptr);
    Svc().ModuleDestroyed(notifier.get());
    EXPECT_TRUE(Svc().FProjectDestroyed);
    EXPECT_EQ(Svc().FProjectName, QString());
    Tell(ofnFileOpened, u"x.txt"_qs);
    EXPECT_FALSE(Svc().GetActiveFormEditor());
    const auto text = Text();
    Tell(ofnFileClosing, Shop.UnitOf(u"MainForm"_qs));
    EXPECT_EQ(Text(), text);
    Svc().RegisterProjectNotifier();
    EXPECT_FALSE(Svc().FProjectDestroyed);
    const auto unit = New<TModuleNotifier>(InterfacePtr<IOTAModule>(&FormOf(u"MainForm"_qs)), nullptr);
    Svc().ModuleDestroyed(unit.get());
    EXPECT_FALSE(Svc().FProjectDestroyed);
}

TEST_F(TheServiceManager, AnActivatedFormIsTheActiveOneAndAsksForTheWindow)
{
    Svc().ClearActiveFormEditor();
    int activated = 0;
    Svc().FFormActivated = [&](TObject*) { ++activated; };
    const auto notifier = New<TFormNotifier>(EditorOf(u"MainForm"_qs), nullptr);
    Window().hide();
    Svc().FormActivated(notifier.get());
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(Svc().GetActiveFormEditor().get(), EditorOf(u"MainForm"_qs).get());
    EXPECT_EQ(activated, 1);
    EXPECT_FALSE(Window().isVisible());
    ShowOnStart = true;
    Svc().FormActivated(notifier.get());
    EXPECT_FALSE(Window().isVisible());
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(Window().isVisible());
    EXPECT_FALSE(ShowOnStart);
}
