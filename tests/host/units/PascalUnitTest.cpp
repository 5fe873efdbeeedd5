#include "units/PascalUnit.h"

#include <gtest/gtest.h>

namespace {

PascalUnit unitOf(const QByteArray& text, PascalDialect dialect = PascalDialect::Delphi)
{
    return PascalUnit(SourceFile(u"Main.pas"_qs, text), dialect);
}

std::string textOf(const PascalUnit& unit)
{
    return unit.File().Bytes().toStdString();
}

std::string messageOf(const Failure& failure)
{
    return failure ? failure->ToString().toStdString() : std::string("done");
}

const QByteArray formUnit("unit Main;\r\n"
                          "\r\n"
                          "interface\r\n"
                          "\r\n"
                          "uses\r\n"
                          "  Winapi.Windows, System.SysUtils, System.Classes,\r\n"
                          "  Vcl.Forms, Vcl.StdCtrls;\r\n"
                          "\r\n"
                          "type\r\n"
                          "  TMainForm = class(TForm)\r\n"
                          "    Edit1: TEdit;\r\n"
                          "    Button1: TButton; // closes\r\n"
                          "    procedure Button1Click(Sender: TObject);\r\n"
                          "  private\r\n"
                          "    FCount: Integer;\r\n"
                          "  public\r\n"
                          "    { Public declarations }\r\n"
                          "  end;\r\n"
                          "\r\n"
                          "var\r\n"
                          "  MainForm: TMainForm;\r\n"
                          "\r\n"
                          "implementation\r\n"
                          "\r\n"
                          "{$R *.dfm}\r\n"
                          "\r\n"
                          "end.\r\n");

// The unit's text with `added` behind the first `behind`.
std::string with(QByteArray text, const QByteArray& behind, const QByteArray& added)
{
    const auto at = text.indexOf(behind);
    EXPECT_GE(at, 0);
    return text.insert(at + behind.size(), added).toStdString();
}

}

TEST(PascalUnit, KnowsItsNameItsUsesAndItsForm)
{
    const auto unit = unitOf(formUnit);
    EXPECT_EQ(unit.UnitName(), u"Main"_qs);
    EXPECT_EQ(unit.InterfaceUses(),
        (QStringList {
            u"Winapi.Windows"_qs, u"System.SysUtils"_qs, u"System.Classes"_qs, u"Vcl.Forms"_qs, u"Vcl.StdCtrls"_qs }));
    EXPECT_EQ(unit.ImplementationUses(), QStringList());
    const ClassDeclaration expected { u"TMainForm"_qs, u"TForm"_qs,
        { { u"Edit1"_qs, u"TEdit"_qs }, { u"Button1"_qs, u"TButton"_qs } }, { u"Button1Click"_qs } };
    EXPECT_EQ(unit.FindClass(u"tmainform"_qs), expected);
    EXPECT_EQ(unit.Check(), Problems());
}

TEST(PascalUnit, DeclaresAComponentBehindThePublishedFields)
{
    auto unit = unitOf(formUnit);
    EXPECT_EQ(messageOf(unit.AddField(u"TMainForm"_qs, { u"DBEdit1"_qs, u"TDBEdit"_qs })), "done");
    EXPECT_EQ(textOf(unit), with(formUnit, "    Button1: TButton; // closes\r\n", "    DBEdit1: TDBEdit;\r\n"));
}

TEST(PascalUnit, AddsAScopedEntryWhereTheOthersAreScoped)
{
    auto unit = unitOf(formUnit);
    EXPECT_EQ(messageOf(unit.UseInInterface({ u"Vcl.DBCtrls"_qs, u"DBCtrls"_qs })), "done");
    EXPECT_EQ(textOf(unit), with(formUnit, "Vcl.StdCtrls", ", Vcl.DBCtrls"));
}

TEST(PascalUnit, SaysWhatIsWrongWhereTheClassIsNotDeclared)
{
    auto unit = unitOf(formUnit);
    EXPECT_EQ(messageOf(unit.AddField(u"TOther"_qs, { u"Edit2"_qs, u"TEdit"_qs })),
        "Main.pas:3:1: the unit does not declare the class TOther");
    EXPECT_EQ(textOf(unit), formUnit.toStdString());
}
