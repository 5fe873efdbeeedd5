#include "ide/MrvEvents.h"
#include "ide/MrvInteropServices.h"
#include "ide/MrvSvcManager.h"
#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

class Attaching : public ToolWindowFixture {
protected:
    static void Tell(TOTAFileNotification code, const QString& fileName)
    {
        bool cancel = false;
        MrvApiProxy->OnFileNotification(nullptr, code, fileName, cancel);
    }
};

// Notes how many datasets the model holds when it is told that a project opened or closed.
class CountingSink : public TEvents {
public:
    explicit CountingSink(QList<int>& counts)
        : FCounts(counts)
    {
    }
    void OnProjectOpened() override { Note(); }
    void OnProjectClosed() override { Note(); }

private:
    void Note()
    {
        const auto list = MrvApiProxy ? MrvApiProxy->GetDataSetList() : nullptr;
        FCounts << (list ? list->GetCount() : -1);
    }
    QList<int>& FCounts;
};

}

TEST_F(Attaching, LogsTheStepsWithTheWindowShown)
{
    StartLog();
    StartShown();
    Shop.Form(u"MainForm"_qs).KeepClosed(u"MainForm"_qs);
    TakeLog();
    Open(Shop);
    const auto log = TakeLog();
    const auto expected = LogText::Of({ u""_qs, u"***** Project opening: Shop.dproj *****"_qs,
        u"Try unload assembly..."_qs, u"Try create win32 instances of TMrvInteropServices"_qs,
        u"Try register configuration service in TMrvInteropService"_qs, u"Try create TDataSetList instance..."_qs,
        u"Try create TSvcManager instance..."_qs, u"Notifier TIdeNotifier.Create"_qs,
        u"TSvcManager instance created."_qs, u"TDataSetList instance created"_qs, u"Try register events"_qs,
        u"Try register configuration service in DataSet List"_qs, u"Try build DataSet list"_qs,
        u"Try register project notifier"_qs, u"Notifier TModuleNotifier.Create"_qs });
    EXPECT_EQ(log.substr(0, expected.size()), expected);
}

TEST_F(Attaching, ShowsTheTreeOfADelphiProject)
{
    StartShown();
    OpenShop();
    EXPECT_EQ(Text(),
        "Shop.dproj\n"
        "  Data.Authors\n    Master DataSet\n      Data.Books\n        Fields\n"
        "          0 - Id{BooksId}\n          1 - Title{BooksTitle}\n"
        "  Data.Books\n    Fields\n      0 - Id{BooksId}\n      1 - Title{BooksTitle}\n"
        "  Data.Loose\n  Data.Memory\n  MainForm.Local\n");
    EXPECT_TRUE(Tree().Items().GetFirstNode()->Expanded());
    EXPECT_TRUE(MrvApiProxy->GetIsProjectOpened());
    EXPECT_EQ(MrvApiProxy->GetActiveProjectName(), u"Shop.dproj"_qs);
    EXPECT_EQ(MrvApiProxy->GetProjectPersonality(), u"Delphi.Personality"_qs);
}

TEST_F(Attaching, WithAHiddenWindowBuildsNothingUntilItShows)
{
    StartPlugin();
    OpenShop();
    EXPECT_TRUE(List().FDormant);
    EXPECT_EQ(Text(), "Shop.dproj\n");
    Window().show();
    EXPECT_FALSE(List().FDormant);
    EXPECT_EQ(List().GetItemCount(), 5);
    EXPECT_EQ(Text(), FreshText());
    EXPECT_NE(Text(), "Shop.dproj\n");
}

TEST_F(Attaching, LeavesTheListOfACppProjectEmptyUntilARefresh)
{
    StartShown();
    ScriptedProject cpp(u"Shop"_qs, ScriptedProject::Kind::CppBuilder);
    cpp.DataModule(u"Data"_qs, u"object Books: TZAQuery\nend"_qs).KeepClosed(u"Data"_qs);
    cpp.Form(u"MainForm"_qs);
    Open(cpp);
    EXPECT_EQ(Text(), "Shop.cbproj\n");
    EXPECT_TRUE(MrvApiProxy->GetIsProjectOpened());
    EXPECT_EQ(List().GetItemCount(), 0);
    TheHost->OpenModuleFile(cpp.UnitOf(u"Data"_qs));
    Settle();
    EXPECT_EQ(Text(), "Shop.cbproj\n  Data.Books\n");
}

TEST_F(Attaching, ClosingTheProjectLeavesTheRootAlone)
{
    StartShown();
    OpenShop();
    TheHost->CloseAll();
    Settle();
    EXPECT_EQ(Text(), "<No active projects>\n");
    EXPECT_FALSE(MrvApiProxy->GetIsProjectOpened());
    EXPECT_FALSE(MrvApiProxy->FMrvInteropServices);
    EXPECT_FALSE(Window().acProperties->Enabled());
    EXPECT_EQ(MrvApiProxy->GetActiveProjectName(), u"<No active projects>"_qs);
}

TEST_F(Attaching, WithoutAProjectDropsTheModelAndStaysOpened)
{
    StartShown();
    OpenShop();
    const auto ide = std::exchange(BorlandIDEServices, nullptr);
    Tell(ofnActiveProjectChanged, u"Shop.dproj"_qs);
    BorlandIDEServices = ide;
    EXPECT_FALSE(MrvApiProxy->FMrvInteropServices);
    EXPECT_TRUE(MrvApiProxy->GetIsProjectOpened());
    // The end of the listener on the project empties the tree.
    EXPECT_EQ(Text(), "<No active projects>\n");
}

TEST_F(Attaching, ServesNoProjectOfAnotherPersonality)
{
    StartLog();
    StartShown();
    Shop.Form(u"MainForm"_qs, u"object Books: TZAQuery\nend"_qs);
    const auto file = Shop.Write();
    auto bytes = ScriptedProject::Read(file);
    bytes.replace("Delphi.Personality.12", "CSharp.Personality");
    ScriptedProject::WriteFile(file, bytes);
    TakeLog();
    ASSERT_TRUE(TheHost->Open(file));
    ASSERT_EQ(TheHost->ActiveProject()->GetPersonality(), u"CSharp.Personality"_qs);
    EXPECT_EQ(TakeLog(),
        LogText::Of({ u""_qs, u"***** Project opening: Shop.dproj *****"_qs, u"Try unload assembly..."_qs,
            u"Try create CLR instances of TMrvInteropServices"_qs }));
    EXPECT_FALSE(MrvApiProxy->FMrvInteropServices);
    EXPECT_FALSE(MrvApiProxy->GetIsProjectOpened());
    EXPECT_EQ(MrvApiProxy->GetActiveProjectName(), u"<No active projects>"_qs);
    EXPECT_EQ(MrvConfigurationService->GetActivePersonality(), prCLR);
    EXPECT_EQ(Text(), "<No active projects>\n");
}

TEST_F(Attaching, TakesItsOwnPackageInAnyCase)
{
    StartShown();
    OpenShop();
    MrvApiProxy->FMrvInteropServices.Clear();
    Tell(ofnPackageInstalled, u"/somewhere/Other290.bpl"_qs);
    EXPECT_FALSE(MrvApiProxy->FMrvInteropServices);
    Tell(ofnPackageInstalled, u"/somewhere/MORVANE290.BPL"_qs);
    EXPECT_TRUE(MrvApiProxy->FMrvInteropServices);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(Attaching, LogsThatThePackageIsUninstalledAndNothingElse)
{
    StartLog();
    StartShown();
    TakeLog();
    Tell(ofnPackageUninstalled, u"/somewhere/Morvane290.bpl"_qs);
    EXPECT_EQ(TakeLog(), LogText::Of({ u"***** Uninstal Morvane *****"_qs }));
    Tell(ofnPackageUninstalled, u"/somewhere/Other290.bpl"_qs);
    Tell(ofnFileOpened, u"/somewhere/Unit1.pas"_qs);
    EXPECT_EQ(TakeLog(), "");
}

TEST_F(Attaching, EachChangeOfTheActiveProjectBuildsTheModelAnew)
{
    StartShown();
    OpenShop();
    ScriptedProject bank(u"Bank"_qs);
    bank.In(Shop.Path());
    bank.DataModule(u"Money"_qs, u"object Accounts: TZAQuery\nend"_qs);
    bank.Write();
    const auto group = ScriptedProject::WriteGroup({ &Shop, &bank });
    ASSERT_TRUE(TheHost->Open(group));
    Settle();
    const auto shop = Text();
    EXPECT_EQ(shop.substr(0, 11), "Shop.dproj\n");
    TheHost->SetActiveProject(*TheHost->Projects()[1]);
    Settle();
    EXPECT_EQ(Text(), "Bank.dproj\n  Money.Accounts\n");
    TheHost->SetActiveProject(*TheHost->Projects()[0]);
    Settle();
    EXPECT_EQ(Text(), shop);
}

TEST_F(Attaching, AFailureIsLoggedAndTheNextNotificationStartsOver)
{
    StartLog();
    StartShown();
    OpenShop();
    const auto text = Text();
    TakeLog();
    const auto service = std::exchange(MrvConfigurationService, nullptr);
    EXPECT_TRUE(MrvApiProxy->FMrvInteropServices);
    Tell(ofnActiveProjectChanged, u"Shop.dproj"_qs);
    EXPECT_FALSE(MrvApiProxy->FMrvInteropServices);
    MrvConfigurationService = service;
    Tell(ofnActiveProjectChanged, Shop.ProjectFile());
    EXPECT_EQ(Text(), text);
}

TEST_F(Attaching, AFailureBehindTheListLeavesTheServicesAndTheProjectNotOpened)
{
    StartLog();
    StartShown();
    OpenShop();
    const auto text = Text();
    SetPreference(u"ScanAllForms"_qs, u"perhaps"_qs);
    TakeLog();
    Tell(ofnActiveProjectChanged, u"/x/Shop.dproj"_qs);
    const auto log = TakeLog();
    EXPECT_TRUE(MrvApiProxy->FMrvInteropServices);
    EXPECT_FALSE(MrvApiProxy->GetIsProjectOpened());
    const auto failure = LogText::Of({ u"TMrvApiProxy.OnFileNotification - failed!"_qs,
        u"File Notification: FileName: /x/Shop.dproj,\r\n\t\t\t\t NotifyCode: ofnActiveProjectChanged"_qs,
        u"Exception.Message is ''perhaps' is not a valid Boolean value'"_qs });
    EXPECT_NE(log.find(failure), std::string::npos) << log;
    SetPreference(u"ScanAllForms"_qs, u"False"_qs);
    Tell(ofnActiveProjectChanged, Shop.ProjectFile());
    EXPECT_TRUE(MrvApiProxy->GetIsProjectOpened());
    EXPECT_EQ(Text(), text);
}

TEST_F(Attaching, ARefreshWithoutAProjectAttaches)
{
    StartShown();
    OpenShop();
    const auto text = Text();
    MrvApiProxy->FIsProjectOpened = false;
    MrvApiProxy->FMrvInteropServices.Clear();
    Window().acRefresh->Execute();
    EXPECT_TRUE(MrvApiProxy->GetIsProjectOpened());
    EXPECT_EQ(Text(), text);
}

TEST_F(Attaching, AttachToProjectNeedsAProject)
{
    StartShown();
    MrvApiProxy->AttachToProject();
    EXPECT_FALSE(MrvApiProxy->GetIsProjectOpened());
    OpenShop();
    MrvApiProxy->FMrvInteropServices.Clear();
    MrvApiProxy->AttachToProject();
    EXPECT_TRUE(MrvApiProxy->FMrvInteropServices);
}

TEST_F(Attaching, InteropServicesAreEmptyBeforeTheyMakeTheirObjects)
{
    StartPlugin();
    const auto services = New<TMrvInteropServices>();
    InterfacePtr<IMrvDataSetList> list;
    InterfacePtr<IMrvIDEControlList> controls;
    InterfacePtr<IMrvConfigurationService> configuration;
    services->GetDataSetList(list);
    services->GetIDECtrlList(controls);
    services->GetConfigurationService(configuration);
    EXPECT_FALSE(list);
    EXPECT_FALSE(controls);
    EXPECT_FALSE(configuration);
    services->CreateObjects();
    services->GetDataSetList(list);
    services->GetIDECtrlList(controls);
    EXPECT_TRUE(list);
    EXPECT_FALSE(static_cast<TDataSetList*>(list.get())->FConfigurationService);
    EXPECT_TRUE(controls->IsLoaded());
}

TEST_F(Attaching, InteropServicesHandTheConfigurationToTheListAndTakeTheListAlong)
{
    StartLog();
    StartPlugin();
    auto services = New<TMrvInteropServices>();
    services->RegisterConfigurationService(MrvConfigurationService);
    InterfacePtr<IMrvConfigurationService> configuration;
    services->GetConfigurationService(configuration);
    EXPECT_EQ(configuration, MrvConfigurationService);
    services->CreateObjects();
    InterfacePtr<IMrvDataSetList> list;
    services->GetDataSetList(list);
    auto& made = *static_cast<TDataSetList*>(list.get());
    EXPECT_EQ(made.FConfigurationService, MrvConfigurationService);
    EXPECT_EQ(made.FSvcManager->FConfigurationService, MrvConfigurationService);
    list.Clear();
    TakeLog();
    services.Clear();
    EXPECT_EQ(
        TakeLog(), LogText::Of({ u"Notifier TIdeNotifier.EraseCallBack"_qs, u"Notifier TIdeNotifier.Destroy"_qs }));
}

TEST_F(Attaching, ServesAPersonalityInAnotherCaseButDoesNotBuildItsList)
{
    StartShown();
    Shop.Form(u"MainForm"_qs, u"object Books: TZAQuery\nend"_qs);
    const auto file = Shop.Write();
    auto bytes = ScriptedProject::Read(file);
    bytes.replace("Delphi.Personality.12", "DELPHI.Personality");
    ScriptedProject::WriteFile(file, bytes);
    QList<int> counts;
    MrvApiProxy->FEvents = New<CountingSink>(counts);
    ASSERT_TRUE(TheHost->Open(file));
    ASSERT_EQ(TheHost->ActiveProject()->GetPersonality(), u"DELPHI.Personality"_qs);
    EXPECT_TRUE(MrvApiProxy->FMrvInteropServices);
    EXPECT_TRUE(MrvApiProxy->GetIsProjectOpened());
    EXPECT_EQ(counts.value(0), 0);
    EXPECT_EQ(MrvConfigurationService->GetActivePersonality(), prVCL);
    StopPlugin();
}

TEST_F(Attaching, LogsAConfigurationThatRefusesAnotherPersonality)
{
    class Refusing : public TMrvConfigurationService {
        void SetAcitvePersonality(int) override { throw Exception(u"no"_qs); }
    };
    StartLog();
    StartShown();
    OpenShop();
    MrvApiProxy->FProjectPersonality = u"CSharp.Personality"_qs;
    const auto own = std::exchange(MrvConfigurationService, InterfacePtr<IMrvConfigurationService>(New<Refusing>()));
    ScriptedProject other(u"Other"_qs);
    other.Form(u"OtherForm"_qs);
    const auto file = other.Write();
    auto bytes = ScriptedProject::Read(file);
    bytes.replace("Delphi.Personality.12", "CSharp.Personality");
    ScriptedProject::WriteFile(file, bytes);
    TheHost->CloseAll();
    TakeLog();
    ASSERT_TRUE(TheHost->Open(file));
    EXPECT_EQ(TakeLog(),
        LogText::Of({ u""_qs, u"***** Project opening: Other.dproj *****"_qs, u"Try unload assembly..."_qs,
            u"Try create CLR instances of TMrvInteropServices"_qs, u"Failed to create Ole object: no"_qs }));
    EXPECT_FALSE(MrvApiProxy->GetIsProjectOpened());
    MrvConfigurationService = own;
}

TEST_F(Attaching, UnloadsTheListOfAPersonalityThatIsNotServedAlone)
{
    StartShown();
    OpenShop();
    MrvApiProxy->FProjectPersonality = u"cplusplusBUILDER.personality"_qs;
    MrvApiProxy->UnloadAssembly();
    EXPECT_EQ(List().GetItemCount(), 5);
    MrvApiProxy->FProjectPersonality = u"CSharp.Personality"_qs;
    MrvApiProxy->UnloadAssembly();
    EXPECT_EQ(List().GetItemCount(), 0);
    EXPECT_TRUE(List().FDormant);
}

TEST_F(Attaching, AServiceWithoutAListIsABrokenInvariant)
{
    StartPlugin();
    MrvApiProxy->FMrvInteropServices = New<TMrvInteropServices>();
    try {
        MrvApiProxy->GetActiveProjectName();
        FAIL();
    } catch (const EAssertionFailed& failure) {
        EXPECT_EQ(failure.Message(), u"Assertion failure"_qs);
        EXPECT_EQ(failure.Unit(), u"MrvServicesProxy"_qs);
    }
}

TEST_F(Attaching, TellsTheWindowOfAClosedProjectWhileTheServicesAreThere)
{
    StartShown();
    OpenShop();
    QList<int> counts;
    const auto own = std::exchange(MrvApiProxy->FEvents, InterfacePtr<IMrvEvents>(New<CountingSink>(counts)));
    Tell(ofnFileClosing, Shop.UnitOf(u"Data"_qs));
    EXPECT_EQ(counts, QList<int>());
    Tell(ofnFileClosing, Shop.ProjectFile());
    EXPECT_EQ(counts, QList<int> { 5 });
    EXPECT_FALSE(MrvApiProxy->FMrvInteropServices);
    MrvApiProxy->FEvents = own;
}

TEST_F(Attaching, LogsTheLifeOfEachWrapper)
{
    StartLog();
    StartShown();
    Shop.Form(u"MainForm"_qs, u"object Clean: TZASQL\nend"_qs);
    Open(Shop);
    TakeLog();
    List().CreateConnectionAttr(Component(u"MainForm.Clean"_qs));
    EXPECT_EQ(TakeLog(), LogText::Of({ u"Try Create TConnectionAttr wrapper..."_qs, u"Wrapper created"_qs }));
    List().FConnectionItem.Clear();
    EXPECT_EQ(TakeLog(), LogText::Of({ u"Destroy TConnectionAttr wrapper"_qs }));
}
