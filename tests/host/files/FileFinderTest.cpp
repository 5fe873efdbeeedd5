#include "files/FileFinder.h"
#include "host/projects/ProjectFolder.h"

#include <gtest/gtest.h>

TEST(FileFinder, FindsAFileInAnyCaseAndThroughBackslashes)
{
    ProjectFolder folder;
    const auto file = folder.Write(u"Sub Folder/Größe.Pas"_qs, "");
    EXPECT_EQ(FindFileIgnoringCase(folder.Path(u"SUB FOLDER\\grÖßE.pas"_qs)), file);
    EXPECT_EQ(FindFileIgnoringCase(folder.Path(u"sub folder/GRÖßE.PAS"_qs)), file);
    EXPECT_EQ(FindFileIgnoringCase(folder.Path(u"x\\..\\sub folder\\.\\größe.pas"_qs)), file);
    EXPECT_EQ(FindFileIgnoringCase(folder.Path(u"Sub Folder/Other.pas"_qs)), QString());
}

TEST(FileFinder, PrefersTheExactName)
{
    ProjectFolder folder;
    const auto upper = folder.Write(u"UNIT1.PAS"_qs, "");
    const auto lower = folder.Write(u"unit1.pas"_qs, "");
    EXPECT_EQ(FindFileIgnoringCase(lower), lower);
    EXPECT_EQ(FindFileIgnoringCase(upper), upper);
    EXPECT_EQ(FindFileIgnoringCase(folder.Path(u"Unit1.pas"_qs)), upper) << "the first by name";
}

TEST(FileFinder, MeetsNamesWhoseAccentsAreComposedInAnotherWay)
{
    ProjectFolder folder;
    const auto file = folder.Write(u"Concilia\u00E7\u00E3o.pas"_qs, "");
    EXPECT_EQ(FindFileIgnoringCase(folder.Path(u"Conciliac\u0327a\u0303o.PAS"_qs)), file);
}

TEST(FileFinder, FindsNothingOnADriveOrAShare)
{
    EXPECT_EQ(FindFileIgnoringCase(u"C:\\Windows\\a.pas"_qs), QString());
    EXPECT_EQ(FindFileIgnoringCase(u"\\\\server\\share\\a.pas"_qs), QString());
    EXPECT_EQ(FindFileIgnoringCase(QString()), QString());
}

TEST(FileFinder, ResolvesAPathAgainstAFolder)
{
    EXPECT_EQ(ResolvedPath(u"/shop/src"_qs, u"..\\Main.pas"_qs), u"/shop/Main.pas"_qs);
    EXPECT_EQ(ResolvedPath(u"/shop"_qs, u"/etc/./x"_qs), u"/etc/x"_qs);
    EXPECT_EQ(ResolvedPath(u"/shop"_qs, u"C:\\a\\..\\b.pas"_qs), u"C:/b.pas"_qs);
}
