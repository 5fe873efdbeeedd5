#include "support/HostFixture.h"

namespace {

class OpeningProjects : public PackagedHostFixture {
protected:
    HostRecorder Recorder { *TheHost };
};

}

TEST_F(OpeningProjects, AnnouncesTheActiveProjectFirstAndThenEachModuleOnce)
{
    ScriptedProject shop;
    shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs);
    Open(shop);
    EXPECT_EQ(Recorder.Take(),
        "file ofnFileOpened Shop.dproj\n"
        "file ofnActiveProjectChanged Shop.dproj\n"
        "opened MainForm\n"
        "file ofnFileOpened MainFormUnit.pas\n"
        "activated MainFormUnit.dfm\n"
        "opened Data\n"
        "file ofnFileOpened DataUnit.pas\n"
        "activated DataUnit.dfm\n"
        "activated MainFormUnit.dfm\n");
}

TEST_F(OpeningProjects, OpensWhatTheDesktopFileListsAndNoMore)
{
    ScriptedProject shop;
    shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs).Form(u"Orders"_qs);
    shop.KeepClosed(u"Orders"_qs);
    Open(shop);
    EXPECT_EQ(TheHost->Modules().size(), 2);
    EXPECT_EQ(TheHost->FormModule(u"Orders"_qs), nullptr);
    EXPECT_EQ(GetActiveProject()->GetModuleCount(), 3);
    EXPECT_EQ(GetActiveProject()->GetModule(2)->GetFormName(), u"Orders"_qs);
}

TEST_F(OpeningProjects, ClosesTheProjectBeforeItsModulesWhileOneIsInFront)
{
    ScriptedProject shop;
    shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs);
    Open(shop);
    Recorder.Take();
    QStringList fronts;
    Recorder.OnLine = [&](const QString& line) {
        if (line.startsWith(QLatin1String("file ofnFileClosing")))
            fronts << (TheHost->CurrentModule() ? TheHost->CurrentModule()->FormName() : QStringLiteral("none"));
    };
    TheHost->CloseProject(*TheHost->ActiveProject());
    EXPECT_EQ(Recorder.Take(),
        "file ofnFileClosing Shop.dproj\n"
        "file ofnFileClosing MainFormUnit.pas\n"
        "closed MainForm\n"
        "destroyed MainFormUnit.dfm\n"
        "destroyed MainFormUnit.pas\n"
        "file ofnFileClosing DataUnit.pas\n"
        "closed Data\n"
        "destroyed DataUnit.dfm\n"
        "destroyed DataUnit.pas\n"
        "file ofnActiveProjectChanged\n");
    EXPECT_EQ(fronts, QStringList({ u"MainForm"_qs, u"MainForm"_qs, u"Data"_qs }));
}

TEST_F(OpeningProjects, FacadesOfAClosedModuleAnswerNil)
{
    ScriptedProject shop;
    shop.DataModule(u"Data"_qs, u"object Books: TZAQuery\nend"_qs);
    Open(shop);
    const InterfacePtr<IOTAModule> module(&FormOf(u"Data"_qs));
    const auto editor = InterfaceCast<IOTAFormEditor>(module->GetModuleFileEditor(1));
    const auto native = InterfaceCast<INTAFormEditor>(editor);
    const auto designer = native->FormDesigner();
    const auto books = editor->FindComponent(u"Books"_qs);
    const auto project = GetActiveProject();
    TheHost->CloseAll();
    EXPECT_EQ(module->GetFileName(), QString());
    EXPECT_EQ(module->GetModuleFileCount(), 0);
    EXPECT_EQ(editor->GetRootComponent(), nullptr);
    EXPECT_EQ(editor->FindComponent(u"Books"_qs), nullptr);
    EXPECT_EQ(editor->GetModule(), nullptr);
    EXPECT_EQ(designer->GetRoot(), nullptr);
    EXPECT_EQ(InterfaceCast<INTAComponent>(books)->GetComponent(), nullptr);
    EXPECT_EQ(project->GetModuleCount(), 0);
    EXPECT_EQ(GetActiveProject(), nullptr);
}

TEST_F(OpeningProjects, CppAndLazarusProjectsCloseUnderTheAliasThatPlugInsKnow)
{
    ScriptedProject cpp(u"Shop"_qs, ScriptedProject::Kind::CppBuilder);
    cpp.Form(u"MainForm"_qs);
    Open(cpp);
    Recorder.Take();
    TheHost->CloseAll();
    EXPECT_EQ(Recorder.Take(),
        "file ofnFileClosing Shop.cbproj\n"
        "file ofnFileClosing Shop.dproj\n"
        "file ofnFileClosing MainFormUnit.cpp\n"
        "closed MainForm\n"
        "destroyed MainFormUnit.dfm\n"
        "destroyed MainFormUnit.cpp\n");
}

TEST_F(OpeningProjects, ALazarusProjectCountsAsDelphi)
{
    ScriptedProject lazarus(u"shop"_qs, ScriptedProject::Kind::Lazarus);
    lazarus.Form(u"MainForm"_qs);
    Open(lazarus);
    EXPECT_EQ(GetActiveProject()->GetPersonality(), u"Delphi.Personality"_qs);
    EXPECT_EQ(GetActiveProject()->GetFrameworkType(), u"LCL"_qs);
    EXPECT_EQ(ActiveClassGroup(), u"LCL"_qs);
}

TEST_F(OpeningProjects, AfterAnInactiveProjectClosedTheActiveOneIsAnnouncedAgain)
{
    ScriptedProject first(u"First"_qs);
    first.Form(u"FirstForm"_qs);
    ScriptedProject second(u"Second"_qs);
    second.Form(u"SecondForm"_qs);
    ASSERT_TRUE(TheHost->Open(ScriptedProject::WriteGroup({ &first, &second })));
    TheHost->SetActiveProject(*TheHost->Projects().at(1));
    Recorder.Take();
    TheHost->CloseProject(*TheHost->Projects().at(0));
    EXPECT_EQ(Recorder.Take(),
        "file ofnFileClosing First.dproj\n"
        "file ofnFileClosing FirstFormUnit.pas\n"
        "closed FirstForm\n"
        "destroyed FirstFormUnit.dfm\n"
        "destroyed FirstFormUnit.pas\n"
        "file ofnActiveProjectChanged Second.dproj\n");
}

TEST_F(OpeningProjects, ASwitchBackToACppProjectAnnouncesItsOpenModulesAgain)
{
    ScriptedProject delphi(u"First"_qs);
    delphi.Form(u"FirstForm"_qs);
    ScriptedProject cpp(u"Second"_qs, ScriptedProject::Kind::CppBuilder);
    cpp.Form(u"SecondForm"_qs);
    ASSERT_TRUE(TheHost->Open(ScriptedProject::WriteGroup({ &delphi, &cpp }), u"Second"_qs));
    TheHost->SetActiveProject(*TheHost->Projects().at(0));
    Recorder.Take();
    TheHost->SetActiveProject(*TheHost->Projects().at(1));
    EXPECT_EQ(Recorder.Take(),
        "file ofnActiveProjectChanged Second.cbproj\n"
        "file ofnFileOpened SecondFormUnit.cpp\n");
    TheHost->SetActiveProject(*TheHost->Projects().at(0));
    EXPECT_EQ(Recorder.Take(), "file ofnActiveProjectChanged First.dproj\n");
}

TEST_F(OpeningProjects, OpenModuleTellsOfTheFileBeforeItReturnsAndNeverTwice)
{
    ScriptedProject shop;
    shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs);
    shop.KeepClosed(u"Data"_qs);
    Open(shop);
    Recorder.Take();
    const auto info = GetActiveProject()->GetModule(1);
    const auto module = info->OpenModule();
    EXPECT_EQ(Recorder.Take(), "opened Data\nfile ofnFileOpened DataUnit.pas\n");
    EXPECT_EQ(info->OpenModule(), module);
    EXPECT_EQ(Recorder.Take(), "");
}

TEST_F(OpeningProjects, OpenModuleBringsAnOpenModuleToTheFrontAndTellsNobody)
{
    ScriptedProject shop;
    shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs);
    Open(shop);
    ASSERT_EQ(TheHost->CurrentModule(), &FormOf(u"MainForm"_qs));
    Recorder.Take();
    InterfaceCast<IOTAModuleServices>(BorlandIDEServices)->OpenModule(shop.UnitOf(u"Data"_qs));
    EXPECT_EQ(TheHost->CurrentModule(), &FormOf(u"Data"_qs));
    GetActiveProject()->GetModule(0)->OpenModule();
    EXPECT_EQ(TheHost->CurrentModule(), &FormOf(u"MainForm"_qs));
    EXPECT_EQ(Recorder.Take(), "");
}

TEST_F(OpeningProjects, AModuleThatClosesStaysBehindWhoeverAsksForIt)
{
    ScriptedProject shop;
    shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs).Form(u"Orders"_qs);
    Open(shop);
    const auto unit = shop.UnitOf(u"Data"_qs);
    Recorder.OnLine = [&](const QString& line) {
        if (line.startsWith(QLatin1String("file ofnFileClosing")))
            TheHost->OpenModule(unit);
    };
    TheHost->CloseModule(FormOf(u"Data"_qs));
    EXPECT_EQ(TheHost->CurrentModule(), &FormOf(u"MainForm"_qs));
}

TEST_F(OpeningProjects, FindModuleTakesTheExactNameFirstAndThenAnyCase)
{
    ScriptedProject cpp(u"Shop"_qs, ScriptedProject::Kind::CppBuilder);
    cpp.Form(u"MainForm"_qs);
    Open(cpp);
    const auto services = InterfaceCast<IOTAModuleServices>(BorlandIDEServices);
    const auto unit = cpp.UnitOf(u"MainForm"_qs);
    EXPECT_EQ(services->FindModule(unit)->GetFileName(), unit);
    EXPECT_EQ(services->FindModule(unit.chopped(4) + u".CPP"_qs)->GetFileName(), unit);
    EXPECT_EQ(services->FindModule(cpp.FormOf(u"MainForm"_qs))->GetFileName(), unit);
    EXPECT_EQ(services->FindModule(cpp.ProjectFile())->GetFileName(), cpp.ProjectFile());
    EXPECT_EQ(services->FindModule(u"Elsewhere.pas"_qs), nullptr);
    EXPECT_EQ(services->FindModule(QString()), nullptr);
}

TEST_F(OpeningProjects, FindFormModuleTakesTheActiveProjectFirst)
{
    ScriptedProject first(u"First"_qs);
    first.Form(u"MainForm"_qs);
    ScriptedProject second(u"Second"_qs);
    second.Form(u"MainForm"_qs);
    ASSERT_TRUE(TheHost->Open(ScriptedProject::WriteGroup({ &first, &second })));
    const auto services = InterfaceCast<IOTAModuleServices>(BorlandIDEServices);
    TheHost->SetActiveProject(*TheHost->Projects().at(1));
    EXPECT_EQ(services->FindFormModule(u"mainform"_qs)->GetFileName(), second.UnitOf(u"MainForm"_qs));
    TheHost->SetActiveProject(*TheHost->Projects().at(0));
    EXPECT_EQ(services->FindFormModule(u"MainForm"_qs)->GetFileName(), first.UnitOf(u"MainForm"_qs));
    EXPECT_EQ(services->FindFormModule(QString()), nullptr);
}
