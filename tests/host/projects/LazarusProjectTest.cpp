#include "host/projects/ProjectFolder.h"
#include "host/projects/ProjectText.h"

#include <gtest/gtest.h>

namespace {

QByteArray lpi(const QByteArray& units, const QByteArray& general = "<MainUnit Value=\"0\"/>")
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CONFIG><ProjectOptions><PathDelim Value=\"\\\"/><General>"
        + general
        + "</General><RequiredPackages><Item1><PackageName Value=\"LCL\"/></Item1></RequiredPackages>\n<Units>\n"
        + "<Unit0><Filename Value=\"shop.lpr\"/><IsPartOfProject Value=\"True\"/></Unit0>\n" + units
        + "</Units></ProjectOptions></CONFIG>\n";
}

class LazarusProject : public ::testing::Test {
protected:
    void SetUp() override
    {
        Folder.Write(u"shop.lpr"_qs,
            "program shop;\n{$mode objfpc}{$H+}\nuses {$IFDEF UNIX}cthreads,{$ENDIF} Interfaces, Forms, umain, udata;\n"
            "begin\n  Application.CreateForm(TData, Data);\n  Application.CreateForm(TMainForm, MainForm);\nend.\n");
        for (const auto* name : { "umain.pas", "forms/uframe.pp", "utools.pas" })
            Folder.Write(QString::fromLatin1(name), "");
        Folder.Write(u"umain.lfm"_qs, "object MainForm: TMainForm\nend\n");
        Folder.Write(u"udata.pas"_qs, "unit udata; interface type TData = class(TDataModule) end; implementation end.");
        Folder.Write(u"udata.lfm"_qs, "object Data: TData\nend\n");
        Folder.Write(u"forms/uframe.lfm"_qs, "object Frame1: TFrame1\nend\n");
    }

    ProjectFolder Folder;
};

const QByteArray allUnits(
    "<Unit1><Filename Value=\"umain.pas\"/><IsPartOfProject Value=\"True\"/><ComponentName Value=\"MainForm\"/>"
    "<HasResources Value=\"True\"/><ResourceBaseClass Value=\"Form\"/></Unit1>\n"
    "<Unit2><Filename Value=\"udata.pas\"/><IsPartOfProject Value=\"True\"/><HasResources Value=\"True\"/></Unit2>\n"
    "<Unit3><Filename Value=\"Forms\\uframe.pp\"/><IsPartOfProject Value=\"True\"/><ComponentName Value=\"Frame1\"/>"
    "<ResourceBaseClass Value=\"Frame\"/></Unit3>\n"
    "<Unit4><Filename Value=\"..\\elsewhere.pas\"/><EditorIndex Value=\"0\"/></Unit4>\n"
    "<Unit5><Filename Value=\"utools.pas\"/><IsPartOfProject Value=\"True\"/></Unit5>\n");

}

TEST_F(LazarusProject, GivesItsUnitsWithTheirForms)
{
    const auto project = ReadProject(Folder.Write(u"shop.lpi"_qs, lpi(allUnits)));
    EXPECT_EQ(TextOf(project),
        "shop Delphi.Personality LCL main MainForm\n"
        "0 umain.pas umain.lfm MainForm\n"
        "1 udata.pas udata.lfm Data: TDataModule\n"
        "0 forms/uframe.pp forms/uframe.lfm Frame1: TFrame\n"
        "2 utools.pas\n");
    EXPECT_EQ(project.MainSource, Folder.Path(u"shop.lpr"_qs));
    EXPECT_TRUE(project.IsLazarus());
}

TEST_F(LazarusProject, TellsWhichFilesItsSessionHoldsInTheOrderOfTheirTabs)
{
    Folder.Write(u"shop.lps"_qs,
        "<CONFIG><ProjectSession><PathDelim Value=\"\\\"/><Units>"
        "<Unit><Filename Value=\"umain.pas\"/><EditorIndex Value=\"1\"/><Loaded Value=\"True\"/></Unit>"
        "<Unit><Filename Value=\"utools.pas\"/><EditorIndex Value=\"-1\"/></Unit>"
        "<Unit><Filename Value=\"forms\\uframe.pp\"/><EditorIndex Value=\"0\"/></Unit>"
        "<Unit><Filename Value=\"/usr/lib/forms.pas\"/><EditorIndex Value=\"2\"/></Unit>"
        "</Units></ProjectSession></CONFIG>");
    const auto project = ReadProject(Folder.Write(u"shop.lpi"_qs, lpi(allUnits)));
    EXPECT_EQ(project.OpenFiles, (QStringList { Folder.Path(u"forms/uframe.pp"_qs), Folder.Path(u"umain.pas"_qs) }));
}

TEST_F(LazarusProject, MayKeepItsSessionInItsOwnFile)
{
    auto units = allUnits;
    units.replace("<ComponentName Value=\"MainForm\"/>",
        "<ComponentName Value=\"MainForm\"/><EditorIndex Value=\"3\"/><Loaded Value=\"True\"/>");
    const auto project = ReadProject(Folder.Write(u"shop.lpi"_qs, lpi(units)));
    EXPECT_EQ(project.OpenFiles, QStringList { Folder.Path(u"umain.pas"_qs) });
}

TEST_F(LazarusProject, TakesTheUnitThatIsNamedAsItsMainOne)
{
    Folder.Write(u"other.lpr"_qs, "program other; begin end.");
    const auto file = Folder.Write(u"shop.lpi"_qs,
        lpi("<Unit1><Filename Value=\"other.lpr\"/><IsPartOfProject Value=\"True\"/></Unit1>\n",
            "<MainUnit Value=\"1\"/>"));
    const auto project = ReadProject(file);
    EXPECT_EQ(project.MainSource, Folder.Path(u"other.lpr"_qs));
    EXPECT_EQ(TextOf(project), "shop Delphi.Personality LCL main -\n3 shop.lpr\n");
}

TEST_F(LazarusProject, ThatNamesItselfIsReportedOnce)
{
    const auto file = Folder.Write(u"shop.lpi"_qs,
        lpi("<Unit1><Filename Value=\"shop.lpi\"/><IsPartOfProject Value=\"True\"/></Unit1>\n"
            "<Unit2><Filename Value=\"Shop.LPI\"/><IsPartOfProject Value=\"True\"/></Unit2>\n"));
    EXPECT_EQ(TextOf(ReadProject(file)),
        "shop Delphi.Personality LCL main -\nshop.lpi:5:1: the project names itself as one of its modules\n");
}
