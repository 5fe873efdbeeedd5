#include "host/projects/ProjectFolder.h"
#include "host/projects/ProjectText.h"

#include <gtest/gtest.h>

namespace {

const QByteArray form("object X: TX\r\nend\r\n");

QByteArray dproj(const QByteArray& items, const QByteArray& mainSource = "<MainSource>Shop.dpr</MainSource>")
{
    return "\xEF\xBB\xBF<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">\r\n"
           "<PropertyGroup><FrameworkType>VCL</FrameworkType>"
        + mainSource
        + "</PropertyGroup>\r\n<ItemGroup>\r\n"
          "<DelphiCompile Include=\"$(MainSource)\"><MainSource>MainSource</MainSource></DelphiCompile>\r\n"
        + items
        + "</ItemGroup>\r\n<ProjectExtensions><Borland.Personality>Delphi.Personality.12</Borland.Personality>"
          "</ProjectExtensions></Project>\r\n";
}

class DelphiProject : public ::testing::Test {
protected:
    ProjectFolder Folder;
};

}

TEST_F(DelphiProject, GivesItsModulesInOrderWithTheirForms)
{
    Folder.Write(u"Shop.dpr"_qs,
        "program Shop; uses Vcl.Forms;\r\nbegin\r\n"
        "Application.CreateForm(TData, Data);\r\nApplication.CreateForm(TMainForm, MainForm);\r\nend.");
    for (const auto* name :
        { "Main.pas", "Main.dfm", "Data.pas", "Data.dfm", "Tools.pas", "Views/Grid.pas", "Views/Grid.dfm" })
        Folder.Write(QString::fromLatin1(name), form);
    const auto file = Folder.Write(u"Shop.dproj"_qs,
        dproj("<DCCReference Include=\"Main.pas\"><Form>MainForm</Form><FormType>dfm</FormType></DCCReference>\r\n"
              "<DCCReference Include=\"Tools.pas\"/>\r\n"
              "<DCCReference "
              "Include=\"Data.pas\"><Form>Data</Form><DesignClass>TDataModule</DesignClass></DCCReference>\r\n"
              "<DCCReference "
              "Include=\"Views\\Grid.pas\"><Form>GridFrame</Form><DesignClass>TFrame</DesignClass></DCCReference>\r\n"
              "<DCCReference Include=\"rtl.dcp\"/>\r\n"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main MainForm\n"
        "0 Main.pas Main.dfm MainForm\n"
        "2 Tools.pas\n"
        "1 Data.pas Data.dfm Data: TDataModule\n"
        "0 Views/Grid.pas Views/Grid.dfm GridFrame: TFrame\n");
}

TEST_F(DelphiProject, TakesFormsFromItsProgramWhereItsOwnFileNamesNone)
{
    Folder.Write(u"Shop.dpr"_qs,
        "program Shop;\r\nuses\r\n  Vcl.Forms,\r\n  Main in 'Main.pas' {MainForm},\r\n"
        "  Data in 'Data.pas' {Data: TDataModule},\r\n  Grid in 'Grid.pas' {GridFrame: TFrame};\r\n"
        "begin\r\n  Application.CreateForm(TMainForm, MainForm);\r\nend.\r\n");
    for (const auto* name : { "Main.pas", "Main.dfm", "Data.pas", "Data.dfm", "Grid.pas", "Grid.dfm" })
        Folder.Write(QString::fromLatin1(name), form);
    const auto file = Folder.Write(u"Shop.dproj"_qs, dproj("<DCCReference Include=\"Grid.pas\"/>\r\n"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main MainForm\n"
        "0 Grid.pas Grid.dfm GridFrame: TFrame\n"
        "0 Main.pas Main.dfm MainForm\n"
        "1 Data.pas Data.dfm Data: TDataModule\n");
}

TEST_F(DelphiProject, GivenByItsProgramTakesFormsFromTheProjectFileBesideIt)
{
    const auto file
        = Folder.Write(u"Shop.dpr"_qs, "program Shop; uses Main in 'Main.pas', Extra in 'Extra.pas'; begin end.");
    for (const auto* name : { "Main.pas", "Main.dfm", "Extra.pas" })
        Folder.Write(QString::fromLatin1(name), form);
    Folder.Write(
        u"Shop.dproj"_qs, dproj("<DCCReference Include=\"MAIN.PAS\"><Form>MainForm</Form></DCCReference>\r\n"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "0 Main.pas Main.dfm MainForm\n"
        "2 Extra.pas\n");
}

TEST_F(DelphiProject, FindsTheUnitOfACreatedFormThatNoModuleHolds)
{
    const auto file = Folder.Write(u"Old.dpr"_qs,
        "program Old;\nuses Forms, Main, SysUtils;\nbegin\n"
        "  Application.CreateForm(TMainForm, MainForm);\nend.\n");
    Folder.Write(u"main.pas"_qs, "unit Main; interface type TMainForm = class(TForm) end; implementation end.");
    Folder.Write(u"main.dfm"_qs, "object MainForm: TMainForm\nend\n");
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Old Delphi.Personality VCL main MainForm\n"
        "0 main.pas main.dfm MainForm\n");
}

TEST_F(DelphiProject, ReadsTheContentsOfAPackage)
{
    const auto file = Folder.Write(u"Pack.dpk"_qs,
        "package Pack;\n{$R *.res}\nrequires rtl, vcl;\ncontains\n"
        "  Editor in 'Editor.pas' {EditorForm},\n  Reg in 'Reg.pas';\nend.\n");
    for (const auto* name : { "Editor.pas", "Editor.dfm", "Reg.pas" })
        Folder.Write(QString::fromLatin1(name), form);
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Pack Delphi.Personality VCL main -\n"
        "0 Editor.pas Editor.dfm EditorForm\n"
        "2 Reg.pas\n");
}

TEST_F(DelphiProject, KeepsAModuleWhoseUnitIsMissing)
{
    Folder.Write(u"Shop.dpr"_qs, "program Shop; begin end.");
    Folder.Write(u"Main.dfm"_qs, form);
    const auto file = Folder.Write(u"Shop.dproj"_qs,
        dproj("<DCCReference Include=\"Main.pas\"><Form>MainForm</Form></DCCReference>\r\n"
              "  <DCCReference Include=\"Gone.pas\"/>\r\n"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "0 Main.pas (missing) Main.dfm MainForm\n"
        "2 Gone.pas (missing)\n"
        "Shop.dproj:5:1: Main.pas is not there\n"
        "Shop.dproj:6:3: Gone.pas is not there\n");
}

TEST_F(DelphiProject, SaysThatAFormHasNoFormFile)
{
    Folder.Write(u"Shop.dpr"_qs, "program Shop; begin end.");
    Folder.Write(u"Main.pas"_qs, "unit Main;");
    const auto file = Folder.Write(
        u"Shop.dproj"_qs, dproj("<DCCReference Include=\"Main.pas\"><Form>MainForm</Form></DCCReference>"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "0 Main.pas MainForm\n"
        "Shop.dproj:5:1: Main.pas has no form file, though it should hold the form MainForm\n");
}

TEST_F(DelphiProject, SaysThatItsProgramIsMissingAndGivesTheRest)
{
    Folder.Write(u"Main.pas"_qs, "unit Main;");
    const auto file = Folder.Write(u"Shop.dproj"_qs, dproj("<DCCReference Include=\"Main.pas\"/>"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "2 Main.pas\n"
        "Shop.dproj:2:50: Shop.dpr is not there\n");
}

TEST_F(DelphiProject, ThatIsNoXmlIsReadFromItsProgram)
{
    Folder.Write(u"Shop.dpr"_qs, "program Shop; uses Main in 'Main.pas'; begin end.");
    Folder.Write(u"Main.pas"_qs, "unit Main;");
    const auto project = ReadProject(Folder.Write(u"Shop.dproj"_qs, "this is no XML"));
    EXPECT_TRUE(project.Readable);
    EXPECT_EQ(TextOf(project),
        "Shop Delphi.Personality  main -\n"
        "2 Main.pas\n"
        "Shop.dproj:1:1: is no sound XML: Start tag expected.\n");
}

TEST_F(DelphiProject, ThatIsCutOffGivesWhatStandsBeforeTheCut)
{
    Folder.Write(u"Shop.dpr"_qs, "program Shop; begin end.");
    Folder.Write(u"Main.pas"_qs, "unit Main;");
    const auto file
        = Folder.Write(u"Shop.dproj"_qs, dproj("<DCCReference Include=\"Main.pas\"/>\r\n<DCCRef").left(340));
    const auto project = ReadProject(file);
    EXPECT_TRUE(project.Readable);
    ASSERT_EQ(project.Problems.size(), 1);
    EXPECT_EQ(project.Problems[0].Severity, Problem::Error);
    ASSERT_EQ(project.Modules.size(), 1);
    EXPECT_EQ(project.Modules[0].FileName, Folder.Path(u"Main.pas"_qs));
}

TEST_F(DelphiProject, ThatIsEmptyOrMissingIsNotReadable)
{
    const auto empty = ReadProject(Folder.Write(u"Empty.dproj"_qs, ""));
    EXPECT_FALSE(empty.Readable);
    EXPECT_EQ(TextOf(empty),
        "Empty Delphi.Personality  main -\nEmpty.dproj:1:1: is no sound XML: Premature end of document.\n");
    const auto missing = ReadProject(Folder.Path(u"None.dproj"_qs));
    EXPECT_FALSE(missing.Readable);
    EXPECT_EQ(TextOf(missing), "None Delphi.Personality  main -\nNone.dproj: there is no such file\n");
}

TEST_F(DelphiProject, ThatIsXmlOfAnotherKindIsNotReadable)
{
    const auto project = ReadProject(Folder.Write(u"Page.dproj"_qs, "<?xml version=\"1.0\"?>\n<html><body/></html>"));
    EXPECT_FALSE(project.Readable);
    EXPECT_EQ(
        TextOf(project), "Page Delphi.Personality  main -\nPage.dproj:2:1: is no project: it begins with <html>\n");
}

TEST_F(DelphiProject, ThatNamesItselfIsReportedOnce)
{
    const auto file = Folder.Write(u"Shop.dproj"_qs,
        dproj("<DCCReference Include=\"shop.dproj\"/>\r\n<DCCReference Include=\".\\x\\..\\Shop.dproj\"/>\r\n",
            "<MainSource>Shop.dproj</MainSource>"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "Shop.dproj:2:50: the project names itself as its source\n"
        "Shop.dproj:5:1: the project names itself as one of its modules\n");
}

TEST_F(DelphiProject, TakesAModuleThatIsNamedTwiceOnce)
{
    Folder.Write(u"Shop.dpr"_qs, "program Shop; begin end.");
    Folder.Write(u"Main.pas"_qs, "unit Main;");
    const auto file = Folder.Write(u"Shop.dproj"_qs,
        dproj("<DCCReference Include=\"Main.pas\"/>\r\n<DCCReference Include=\"MAIN.pas\"/>\r\n<DCCReference "
              "Include=\"main.pas\"/>\r\n"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "2 Main.pas\n"
        "Shop.dproj:6:1: MAIN.pas is named twice and taken once\n");
}

TEST_F(DelphiProject, KeepsTwoFormsOfOneNameAndSaysSo)
{
    Folder.Write(u"Shop.dpr"_qs, "program Shop; begin end.");
    for (const auto* name : { "One.pas", "One.dfm", "Two.pas", "Two.dfm" })
        Folder.Write(QString::fromLatin1(name), form);
    const auto file = Folder.Write(u"Shop.dproj"_qs,
        dproj("<DCCReference Include=\"One.pas\"><Form>MainForm</Form></DCCReference>\r\n"
              "<DCCReference Include=\"Two.pas\"><Form>mainForm</Form></DCCReference>\r\n"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "0 One.pas One.dfm MainForm\n"
        "0 Two.pas Two.dfm mainForm\n"
        "Shop.dproj:6:1: the form mainForm of Two.pas bears the name of the one in One.pas\n");
}

TEST_F(DelphiProject, KnowsItsOwnVariablesAndLeavesOutWhatNeedsOthers)
{
    Folder.Write(u"Shop.dpr"_qs, "program Shop; begin end.");
    Folder.Write(u"source/Main.pas"_qs, "unit Main;");
    const auto file = Folder.Write(u"Shop.dproj"_qs,
        dproj("<DCCReference Include=\"$(Sources)\\Main.pas\"/>\r\n<DCCReference Include=\"$(BDS)\\Lib.pas\"/>\r\n",
            "<Sources>source</Sources><MainSource>Shop.dpr</MainSource>"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "2 source/Main.pas\n"
        "Shop.dproj:6:1: $(BDS)\\Lib.pas is left out: the variable $(BDS) is not known here\n");
}

TEST_F(DelphiProject, FindsModulesWithoutRegardToCase)
{
    Folder.Write(u"shop.DPR"_qs, "program Shop; begin end.");
    Folder.Write(u"Views/main.PAS"_qs, form);
    Folder.Write(u"Views/MAIN.dfm"_qs, form);
    const auto file = Folder.Write(u"sub/Shop.dproj"_qs,
        dproj("<DCCReference Include=\"..\\VIEWS\\Main.pas\"><Form>MainForm</Form></DCCReference>\r\n",
            "<MainSource>..\\Shop.dpr</MainSource>"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "0 ../Views/main.PAS ../Views/MAIN.dfm MainForm\n");
}

TEST_F(DelphiProject, TellsWhichOfItsFilesItsDesktopFileLists)
{
    Folder.Write(u"Shop.dpr"_qs, "program Shop; begin end.");
    for (const auto* name : { "Main.pas", "Data.pas", "a/Same.pas", "b/Same.pas" })
        Folder.Write(QString::fromLatin1(name), form);
    Folder.Write(u"Shop.dsk"_qs,
        "[Closed Files]\r\nFile_0=SourceModule,'C:\\Work\\Shop\\Main.pas',0,1\r\n\r\n[Modules]\r\n"
        "Module0=C:\\Work\\Shop\\Data.pas\r\nModule2=b\\same.pas\r\nModule1=C:\\Work\\Shop\\a\\Same.pas\r\n"
        "Module3=default.htm\r\nCount=4\r\n\r\n[C:\\Work\\Shop\\Data.pas]\r\nModuleType=SourceModule\r\n");
    const auto file = Folder.Write(u"Shop.dproj"_qs,
        dproj("<DCCReference Include=\"Main.pas\"/><DCCReference Include=\"Data.pas\"/>"
              "<DCCReference Include=\"b\\Same.pas\"/><DCCReference Include=\"a\\Same.pas\"/>"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "2 Main.pas\n2 Data.pas\n2 b/Same.pas\n2 a/Same.pas\n"
        "open Data.pas\nopen a/Same.pas\nopen b/Same.pas\n");
}

TEST_F(DelphiProject, OfAnEarlierFormatTakesItsModulesFromItsProgram)
{
    Folder.Write(u"Shop.dpr"_qs, "program Shop; uses Main in 'Main.pas' {MainForm}; begin end.");
    Folder.Write(u"Main.pas"_qs, "unit Main;");
    Folder.Write(u"Main.dfm"_qs, form);
    const auto file = Folder.Write(u"Shop.bdsproj"_qs,
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<BorlandProject><PersonalityInfo><Option>"
        "<Option Name=\"Personality\">Delphi.Personality</Option></Option></PersonalityInfo>"
        "<Delphi.Personality><Source><Source "
        "Name=\"MainSource\">Shop.dpr</Source></Source></Delphi.Personality></BorlandProject>");
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop Delphi.Personality VCL main -\n"
        "0 Main.pas Main.dfm MainForm\n");
}
