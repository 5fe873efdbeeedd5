#include "host/projects/ProjectFolder.h"
#include "host/projects/ProjectText.h"

#include <gtest/gtest.h>

namespace {

class CppProject : public ::testing::Test {
protected:
    ProjectFolder Folder;

    void SetUp() override
    {
        for (const auto* name : { "Main.cpp", "Main.h", "Main.dfm", "Data.cpp", "Data.h", "Data.dfm", "Tools.cpp",
                 "Legacy.pas", "Legacy.dfm" })
            Folder.Write(QString::fromLatin1(name), "");
        Folder.Write(u"Shop.cpp"_qs,
            "#include <vcl.h>\r\n#pragma hdrstop\r\nUSEFORM(\"Main.cpp\", MainForm);\r\n"
            "USEFORM(\"Data.cpp\", Data); /* TDataModule: File Type */\r\n"
            "int WINAPI _tWinMain(HINSTANCE, HINSTANCE, LPTSTR, int)\r\n{\r\n"
            "  Application->CreateForm(__classid(TData), &Data);\r\n"
            "  Application->CreateForm(__classid(TMainForm), &MainForm);\r\n}\r\n");
    }
};

}

TEST_F(CppProject, GivesItsModulesInBuildOrder)
{
    const auto file = Folder.Write(u"Shop.cbproj"_qs,
        "<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\"><PropertyGroup>"
        "<FrameworkType>VCL</FrameworkType><MainSource>Shop.cpp</MainSource></PropertyGroup><ItemGroup>"
        "<CppCompile "
        "Include=\"Data.cpp\"><Form>Data</Form><FormType>dfm</FormType><DesignClass>TDataModule</DesignClass>"
        "<DependentOn>Data.h</DependentOn><BuildOrder>3</BuildOrder></CppCompile>\n"
        "<CppCompile "
        "Include=\"Main.cpp\"><Form>MainForm</Form><FormType>dfm</FormType><BuildOrder>1</BuildOrder></CppCompile>\n"
        "<CppCompile Include=\"Shop.cpp\"><BuildOrder>0</BuildOrder></CppCompile>\n"
        "<CppCompile Include=\"Tools.cpp\"><BuildOrder>2</BuildOrder></CppCompile>\n"
        "<DelphiCompile Include=\"Legacy.pas\"><Form>LegacyForm</Form><BuildOrder>4</BuildOrder></DelphiCompile>\n"
        "<FormResources Include=\"Main.dfm\"/><LibFiles Include=\"x.lib\"/></ItemGroup>"
        "<ProjectExtensions><Borland.Personality>CPlusPlusBuilder.Personality.12</Borland.Personality></"
        "ProjectExtensions></Project>");
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop CPlusPlusBuilder.Personality VCL main MainForm\n"
        "0 Main.cpp Main.dfm MainForm\n"
        "2 Tools.cpp\n"
        "1 Data.cpp Data.dfm Data: TDataModule\n"
        "0 Legacy.pas Legacy.dfm LegacyForm\n");
}

TEST_F(CppProject, TakesFormsFromItsSourceWhereItsOwnFileNamesNone)
{
    const auto file = Folder.Write(u"Shop.cbproj"_qs,
        "<Project><ItemGroup><CppCompile Include=\"Shop.cpp\"/><CppCompile "
        "Include=\"Tools.cpp\"/></ItemGroup></Project>");
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop CPlusPlusBuilder.Personality VCL main MainForm\n"
        "2 Tools.cpp\n"
        "0 Main.cpp Main.dfm MainForm\n"
        "1 Data.cpp Data.dfm Data: TDataModule\n");
}

TEST_F(CppProject, OfAnEarlierFormatListsItsFilesWithTheirForms)
{
    const auto file = Folder.Write(u"Shop.bdsproj"_qs,
        "<BorlandProject><PersonalityInfo><Option><Option "
        "Name=\"Personality\">CPlusPlusBuilder.Personality</Option></Option></PersonalityInfo>\n"
        "<CPlusPlusBuilder.Personality><Source><Source Name=\"MainSource\">Shop.cpp</Source></Source><FILELIST>\n"
        "<FILE FILENAME=\"Shop.res\" FORMNAME=\"\" UNITNAME=\"Shop.res\" CONTAINERID=\"ResTool\" DESIGNCLASS=\"\"/>\n"
        "<FILE FILENAME=\"Shop.cpp\" FORMNAME=\"\" UNITNAME=\"Shop\" CONTAINERID=\"CCompiler\" DESIGNCLASS=\"\"/>\n"
        "<FILE FILENAME=\"Main.cpp\" FORMNAME=\"MainForm\" UNITNAME=\"Main\" CONTAINERID=\"CCompiler\" "
        "DESIGNCLASS=\"\"/>\n"
        "<FILE FILENAME=\"Data.cpp\" FORMNAME=\"Data\" UNITNAME=\"Data\" CONTAINERID=\"CCompiler\" "
        "DESIGNCLASS=\"TDataModule\"/>\n"
        "</FILELIST></CPlusPlusBuilder.Personality></BorlandProject>");
    EXPECT_EQ(TextOf(ReadProject(file)),
        "Shop CPlusPlusBuilder.Personality VCL main MainForm\n"
        "0 Main.cpp Main.dfm MainForm\n"
        "1 Data.cpp Data.dfm Data: TDataModule\n");
}
