#include "projects/ProjectEdits.h"

#include <gtest/gtest.h>

namespace {

ProjectEdits::ModuleFiles ToWindow(const QString& newFolder = QStringLiteral("/shop"))
{
    const auto unit = newFolder + QStringLiteral("/Window.pas");
    return { { QStringLiteral("/shop/Main.pas"), unit, QStringLiteral("Main"), QStringLiteral("Window"), {} },
        { { QStringLiteral("/shop/Main.pas"), unit },
            { QStringLiteral("/shop/Main.h"), newFolder + QStringLiteral("/Window.h") },
            { QStringLiteral("/shop/Main.dfm"), newFolder + QStringLiteral("/Window.dfm") } } };
}

FormRename ToShopWindow()
{
    return { QStringLiteral("Main"), QStringLiteral("/shop/Main.pas"), QStringLiteral("MainForm"),
        QStringLiteral("ShopWindow"), QStringLiteral("TMainForm"), QStringLiteral("TShopWindow"), true };
}

std::string Renamed(
    const QString& fileName, const QByteArray& text, const ProjectEdits::ModuleFiles& module = ToWindow())
{
    SourceFile file(fileName, text);
    if (const auto failure = ProjectEdits::RenameModule(file, fileName, module))
        return failure->ToString().toStdString();
    return file.Bytes().toStdString();
}

std::string RenamedForm(const QString& fileName, const QByteArray& text)
{
    SourceFile file(fileName, text);
    if (const auto failure = ProjectEdits::RenameForm(file, fileName, ToShopWindow()))
        return failure->ToString().toStdString();
    return file.Bytes().toStdString();
}

const QByteArray dproj("<Project>\r\n  <PropertyGroup><Src>.</Src></PropertyGroup>\r\n  <ItemGroup>\r\n"
                       "    <DCCReference Include=\"Main.pas\">\r\n      <Form>MainForm</Form>\r\n"
                       "    </DCCReference>\r\n    <DCCReference Include='$(Src)\\MAIN.pas'/>\r\n"
                       "    <DCCReference Include=\"sub\\Main.pas\"><Form>MainForm</Form></DCCReference>\r\n"
                       "    <FormResources Include=\"Main.dfm\"/>\r\n  </ItemGroup>\r\n</Project>\r\n");

}

TEST(ProjectEdits, ADelphiProjectNamesTheNewFilesAndNothingElseChanges)
{
    auto expected = dproj;
    expected.replace("\"Main.pas\"", "\"Window.pas\"")
        .replace("MAIN.pas", "Window.pas")
        .replace("\"Main.dfm\"", "\"Window.dfm\"");
    EXPECT_EQ(Renamed(QStringLiteral("/shop/shop.dproj"), dproj), expected.toStdString());
}

TEST(ProjectEdits, AFileInAnotherFolderIsNamedFromTheProjectsOwn)
{
    EXPECT_EQ(Renamed(QStringLiteral("/shop/shop.dproj"),
                  "<Project><ItemGroup><DCCReference Include=\"Main.pas\"/></ItemGroup></Project>",
                  ToWindow(QStringLiteral("/shop/a&b"))),
        "<Project><ItemGroup><DCCReference Include=\"a&amp;b\\Window.pas\"/></ItemGroup></Project>");
}

TEST(ProjectEdits, ACppProjectNamesTheHeaderToo)
{
    EXPECT_EQ(Renamed(QStringLiteral("/shop/shop.cbproj"),
                  "<Project><ItemGroup><CppCompile Include=\"Main.pas\"><Form>MainForm</Form>\n"
                  "<DependentOn>Main.h</DependentOn></CppCompile></ItemGroup></Project>"),
        "<Project><ItemGroup><CppCompile Include=\"Window.pas\"><Form>MainForm</Form>\n"
        "<DependentOn>Window.h</DependentOn></CppCompile></ItemGroup></Project>");
}

TEST(ProjectEdits, AnOldProjectNamesFileAndUnit)
{
    EXPECT_EQ(Renamed(QStringLiteral("/shop/shop.bdsproj"),
                  "<BorlandProject><FILELIST><FILE FILENAME=\"Main.pas\" FORMNAME=\"MainForm\" UNITNAME=\"Main\"/>"
                  "<FILE FILENAME=\"Main.dfm\"/></FILELIST></BorlandProject>"),
        "<BorlandProject><FILELIST><FILE FILENAME=\"Window.pas\" FORMNAME=\"MainForm\" UNITNAME=\"Window\"/>"
        "<FILE FILENAME=\"Window.dfm\"/></FILELIST></BorlandProject>");
}

TEST(ProjectEdits, ALazarusProjectNamesFileAndUnitAlsoInItsSession)
{
    const QByteArray text("<CONFIG><ProjectOptions><Units><Unit><Filename Value=\"Main.pas\"/>\n"
                          "<ComponentName Value=\"MainForm\"/><UnitName Value=\"Main\"/></Unit>\n"
                          "<Unit><Filename Value=\"Mains.pas\"/><UnitName Value=\"Main\"/></Unit>\n"
                          "</Units></ProjectOptions></CONFIG>\n");
    auto expected = text;
    expected.replace("\"Main.pas\"", "\"Window.pas\"")
        .replace("<ComponentName Value=\"MainForm\"/><UnitName Value=\"Main\"/>",
            "<ComponentName Value=\"MainForm\"/><UnitName Value=\"Window\"/>");
    EXPECT_EQ(Renamed(QStringLiteral("/shop/shop.lpi"), text), expected.toStdString());
    EXPECT_EQ(Renamed(QStringLiteral("/shop/shop.lps"), text), expected.toStdString());
}

TEST(ProjectEdits, ADesktopFileNamesTheNewFile)
{
    EXPECT_EQ(Renamed(QStringLiteral("/shop/shop.dsk"),
                  "[Modules]\r\nModule0=Main.pas\r\nModule1=/shop/Main.pas\r\nCount=2\r\n\r\n[Main.pas]\r\nLeft=1\r\n"),
        "[Modules]\r\nModule0=Window.pas\r\nModule1=/shop/Window.pas\r\nCount=2\r\n\r\n[Window.pas]\r\nLeft=1\r\n");
}

TEST(ProjectEdits, ProjectFilesNameTheRenamedForm)
{
    auto expected = dproj;
    expected.replace("<Form>MainForm</Form>\r\n", "<Form>ShopWindow</Form>\r\n");
    EXPECT_EQ(RenamedForm(QStringLiteral("/shop/shop.dproj"), dproj), expected.toStdString());
    EXPECT_EQ(RenamedForm(QStringLiteral("/shop/shop.lpi"),
                  "<CONFIG><Units><Unit><Filename Value=\"Main.pas\"/><ComponentName Value=\"MainForm\"/></Unit>"
                  "</Units></CONFIG>"),
        "<CONFIG><Units><Unit><Filename Value=\"Main.pas\"/><ComponentName Value=\"ShopWindow\"/></Unit>"
        "</Units></CONFIG>");
    EXPECT_EQ(RenamedForm(QStringLiteral("/shop/shop.bdsproj"),
                  "<BorlandProject><FILE FILENAME=\"Main.pas\" FORMNAME=\"MainForm\"/></BorlandProject>"),
        "<BorlandProject><FILE FILENAME=\"Main.pas\" FORMNAME=\"ShopWindow\"/></BorlandProject>");
    EXPECT_EQ(RenamedForm(QStringLiteral("/shop/shop.cpp"),
                  "USEFORM(\"Main.cpp\", MainForm);\nApplication->CreateForm(__classid(TMainForm), &MainForm);\n"),
        "USEFORM(\"Main.cpp\", ShopWindow);\nApplication->CreateForm(__classid(TShopWindow), &ShopWindow);\n");
}

TEST(ProjectEdits, AProjectThatIsNoSoundXmlStaysAsItIs)
{
    const QByteArray text("<Project><ItemGroup><DCCReference Include=\"Main.pas\"");
    EXPECT_EQ(Renamed(QStringLiteral("/shop/shop.dproj"), text), text.toStdString());
}
