#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <QFile>

namespace {

// A Lazarus project whose data module's unit is a .pp file.
class APpUnit : public ToolWindowFixture {
protected:
    void SetUp() override
    {
        StartShown();
        Shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs, u"object Books: TZAQuery\nend"_qs);
        const auto project = Shop.Write();
        const auto unit = Shop.UnitOf(u"Data"_qs);
        ASSERT_TRUE(QFile::rename(unit, ChangeFileExt(unit, u".pp"_qs)));
        const auto name = ExtractFileName(unit).toUtf8();
        for (const auto& file : { project, ChangeFileExt(project, u".lps"_qs), ChangeFileExt(project, u".lpr"_qs) })
            if (QFile::exists(file))
                ScriptedProject::WriteFile(
                    file, ScriptedProject::Read(file).replace(name, name.chopped(3) + QByteArray("pp")));
        ASSERT_TRUE(TheHost->Open(project)) << Problems();
        Settle();
    }

    ScriptedProject Shop { u"Shop"_qs, ScriptedProject::Kind::Lazarus };
};

}

TEST_F(APpUnit, StandsInTheTree)
{
    EXPECT_EQ(Text(), "Shop.lpi\n  Data.Books\n");
}

TEST_F(APpUnit, IsFollowedInTheTree)
{
    DesignerOf(u"Data"_qs).CreateComponent(GetClass(u"TZAQuery"_qs), nullptr, 10, 10, 0, 0);
    Settle();
    EXPECT_EQ(Text(), "Shop.lpi\n  Data.Books\n  Data.ZAQuery1\n");
    TheHost->CloseModule(FormOf(u"Data"_qs));
    Settle();
    EXPECT_EQ(Text(), "Shop.lpi\n");
}

TEST_F(APpUnit, IsReadWhenAllFormsAreScanned)
{
    TheHost->CloseModule(FormOf(u"Data"_qs));
    Settle();
    Window().acScanAll->Execute();
    Settle();
    EXPECT_EQ(Text(), "Shop.lpi\n  Data.Books\n");
}
