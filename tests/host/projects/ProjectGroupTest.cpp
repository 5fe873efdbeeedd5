#include "host/projects/ProjectFolder.h"
#include "host/projects/ProjectText.h"

#include <gtest/gtest.h>

namespace {

QByteArray group(const QList<QByteArray>& members)
{
    QByteArray text("<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">\n<ItemGroup>\n");
    for (const auto& member : members)
        text += "<Projects Include=\"" + member + "\"><Dependencies/></Projects>\n";
    return text + "</ItemGroup>\n</Project>\n";
}

class ProjectGroup : public ::testing::Test {
protected:
    // What the group leads to, from the folder of the test.
    std::string Shown(const QString& file) const { return TextOf(ReadProjectGroup(file), QDir(Folder.Path())); }

    void WriteProjects(const QStringList& names) const
    {
        for (const auto& name : names)
            Folder.Write(name, "<Project/>");
    }

    ProjectFolder Folder;
};

}

TEST_F(ProjectGroup, GivesItsProjectsInOrder)
{
    WriteProjects({ u"shop/Shop.dproj"_qs, u"tools/Tools.cbproj"_qs });
    Folder.Write(u"web/web.lpi"_qs, "<CONFIG/>");
    const auto file
        = Folder.Write(u"All.groupproj"_qs, group({ "Tools\\Tools.cbproj", "shop\\shop.dproj", "web\\web.lpi" }));
    EXPECT_EQ(Shown(file), "tools/Tools.cbproj\nshop/Shop.dproj\nweb/web.lpi\n");
    QStringList personalities;
    for (const auto& project : ReadProjectGroup(file).AllProjects())
        personalities << project.Personality;
    EXPECT_EQ(personalities,
        (QStringList { u"CPlusPlusBuilder.Personality"_qs, u"Delphi.Personality"_qs, u"Delphi.Personality"_qs }));
}

TEST_F(ProjectGroup, KeepsGroupsWithinIt)
{
    WriteProjects({ u"a/A.dproj"_qs, u"b/B.dproj"_qs, u"C.dproj"_qs });
    Folder.Write(u"a/Inner.groupproj"_qs, group({ "A.dproj", "..\\b\\B.dproj" }));
    const auto file = Folder.Write(u"All.groupproj"_qs, group({ "a\\Inner.groupproj", "C.dproj" }));
    EXPECT_EQ(Shown(file), "a/Inner.groupproj\n  a/A.dproj\n  b/B.dproj\nC.dproj\n");
    EXPECT_EQ(ReadProjectGroup(file).AllProjects().size(), 3);
}

TEST_F(ProjectGroup, ThatNamesItselfIsReportedOnceAndNotFollowed)
{
    WriteProjects({ u"A.dproj"_qs });
    const auto file = Folder.Write(u"All.groupproj"_qs, group({ "All.groupproj", "A.dproj", "all.GROUPPROJ" }));
    EXPECT_EQ(Shown(file), "A.dproj\nAll.groupproj:3:1: the group names itself\n");
}

TEST_F(ProjectGroup, ThatLeadsBackToItselfIsReportedAndNotFollowed)
{
    WriteProjects({ u"A.dproj"_qs, u"B.dproj"_qs });
    Folder.Write(u"Inner.groupproj"_qs, group({ "All.groupproj", "B.dproj" }));
    const auto file = Folder.Write(u"All.groupproj"_qs, group({ "Inner.groupproj", "A.dproj" }));
    EXPECT_EQ(Shown(file),
        "Inner.groupproj\n  B.dproj\n  Inner.groupproj:3:1: All.groupproj is named twice and opened once\nA.dproj\n");
}

TEST_F(ProjectGroup, OpensAProjectThatIsNamedTwiceOnce)
{
    WriteProjects({ u"A.dproj"_qs });
    const auto file = Folder.Write(u"All.groupproj"_qs, group({ "A.dproj", "a.dproj", "x\\..\\A.dproj" }));
    EXPECT_EQ(Shown(file), "A.dproj\nAll.groupproj:4:1: a.dproj is named twice and opened once\n");
}

TEST_F(ProjectGroup, GivesTheRestWhereAProjectIsMissingOrNone)
{
    WriteProjects({ u"A.dproj"_qs });
    Folder.Write(u"readme.txt"_qs, "");
    const auto file = Folder.Write(
        u"All.groupproj"_qs, group({ "Gone.dproj", "readme.txt", "$(BDS)\\X.dproj", "C:\\Y.dproj", "A.dproj" }));
    EXPECT_EQ(Shown(file),
        "A.dproj\n"
        "All.groupproj:3:1: Gone.dproj is not there\n"
        "All.groupproj:4:1: readme.txt is no project\n"
        "All.groupproj:5:1: $(BDS)\\X.dproj is left out: its variables are not known here\n"
        "All.groupproj:6:1: C:\\Y.dproj is not there\n");
}

TEST_F(ProjectGroup, ThatCannotBeReadSaysWhy)
{
    EXPECT_EQ(Shown(Folder.Path(u"None.groupproj"_qs)), "None.groupproj: there is no such file\n");
    EXPECT_EQ(Shown(Folder.Write(u"Text.groupproj"_qs, "text")),
        "Text.groupproj:1:1: is no sound XML: Start tag expected.\n");
    EXPECT_EQ(Shown(Folder.Write(u"Page.groupproj"_qs, "<html/>")),
        "Page.groupproj:1:1: is no project group: it begins with <html>\n");
    EXPECT_FALSE(ReadProjectGroup(Folder.Path(u"Page.groupproj"_qs)).Readable);
}

TEST_F(ProjectGroup, IsFollowedToALimitedDepth)
{
    for (int i = 0; i < 200; ++i)
        Folder.Write(u"G%1.groupproj"_qs.arg(i), group({ "G" + QByteArray::number(i + 1) + ".groupproj" }));
    const auto problems = ReadProjectGroup(Folder.Path(u"G0.groupproj"_qs)).AllProblems();
    ASSERT_EQ(problems.size(), 1);
    EXPECT_EQ(problems[0].Text, u"G33.groupproj is left out: groups are nested deeper than 32"_qs);
}

TEST_F(ProjectGroup, TellsWhichFilesItsDesktopFileLists)
{
    Folder.Write(u"a/Main.pas"_qs, "");
    Folder.Write(u"a/A.dproj"_qs, "<Project><ItemGroup><DCCReference Include=\"Main.pas\"/></ItemGroup></Project>");
    Folder.Write(u"All.dsk"_qs, "[Modules]\r\nModule0=D:\\src\\a\\Main.pas\r\nCount=1\r\n");
    const auto projects = ReadProjectGroup(Folder.Write(u"All.groupproj"_qs, group({ "a\\A.dproj" }))).AllProjects();
    ASSERT_EQ(projects.size(), 1);
    EXPECT_EQ(projects[0].OpenFiles, QStringList { Folder.Path(u"a/Main.pas"_qs) });
}

TEST_F(ProjectGroup, OfOneIsMadeOfAProjectByItself)
{
    WriteProjects({ u"A.dproj"_qs });
    const auto one = ReadProjectOrGroup(Folder.Path(u"A.dproj"_qs));
    EXPECT_EQ(one.FileName, QString());
    EXPECT_EQ(TextOf(one, QDir(Folder.Path())), "A.dproj\n");
    EXPECT_TRUE(one.Readable);
}
