#include "host/units/UnitText.h"

#include <gtest/gtest.h>

namespace {

const UnitReference dbControls { u"Vcl.DBCtrls"_qs, u"DBCtrls"_qs };

QByteArray unitWith(const QByteArray& uses, const QByteArray& implementationUses = {})
{
    return "unit Main;\n\ninterface\n" + uses + "\ntype\n  TMain = class\n  end;\n\nimplementation\n"
        + implementationUses + "\nend.\n";
}

// What becomes of a uses clause when a unit is added to it.
std::string added(const QByteArray& uses, PascalDialect dialect = PascalDialect::Delphi)
{
    auto unit = PascalOf(unitWith(uses), dialect);
    const auto failure = unit.UseInInterface(dbControls);
    if (failure)
        return MessageOf(failure);
    const auto text = QByteArray::fromStdString(BytesOf(unit));
    const QByteArray head("unit Main;\n\ninterface\n");
    const QByteArray tail("\ntype\n  TMain = class\n  end;\n\nimplementation\n\nend.\n");
    if (!text.startsWith(head) || !text.endsWith(tail))
        return "more was changed: " + text.toStdString();
    return text.sliced(head.size(), text.size() - head.size() - tail.size()).toStdString();
}

}

TEST(PascalUses, TakesAPlainNameWhereTheOthersArePlain)
{
    EXPECT_EQ(added("uses Forms, SysUtils;\n"), "uses Forms, SysUtils, DBCtrls;\n");
    EXPECT_EQ(added("uses MyUnit, My.Other;\n"), "uses MyUnit, My.Other, DBCtrls;\n");
    EXPECT_EQ(added("uses FireDAC.Comp.Client, Forms;\n"), "uses FireDAC.Comp.Client, Forms, DBCtrls;\n");
}

TEST(PascalUses, TakesAScopedNameWhereTheOthersAreScoped)
{
    EXPECT_EQ(added("uses Vcl.Forms, MyUnit;\n"), "uses Vcl.Forms, MyUnit, Vcl.DBCtrls;\n");
    EXPECT_EQ(added("uses FMX.Forms;\n"), "uses FMX.Forms, Vcl.DBCtrls;\n");
}

TEST(PascalUses, AreAlwaysPlainInLazarus)
{
    EXPECT_EQ(added("uses System.UITypes, Forms;\n", PascalDialect::Lazarus), "uses System.UITypes, Forms, DBCtrls;\n");
}

TEST(PascalUses, StayAsTheyAreWhereTheUnitIsNamedUnderEitherName)
{
    for (const auto* uses : { "uses vcl.dbctrls;\n", "uses DBCTRLS;\n", "uses Forms,DBCtrls in 'x.pas', A;\n",
             "uses\n  {$IFDEF X}\n  DBCtrls,\n  {$ENDIF}\n  A;\n" })
        EXPECT_EQ(added(uses), uses);
}

TEST(PascalUses, AreFilledLineByLine)
{
    EXPECT_EQ(added("uses\n  Windows, Messages, SysUtils, Variants, Classes, Graphics, Controls, Forms, XYZ;\n"),
        "uses\n  Windows, Messages, SysUtils, Variants, Classes, Graphics, Controls, Forms, XYZ,\n  DBCtrls;\n");
    EXPECT_EQ(added("uses Windows, Messages, SysUtils, Variants, Classes, Graphics, Controls, Forms, X;\n"),
        "uses Windows, Messages, SysUtils, Variants, Classes, Graphics, Controls, Forms, X,\n  DBCtrls;\n");
    EXPECT_EQ(added("uses\n  Forms;\n"), "uses\n  Forms, DBCtrls;\n");
}

TEST(PascalUses, KeepAnEntryALine)
{
    EXPECT_EQ(added("uses\n  Forms,\n  Menus;\n"), "uses\n  Forms,\n  Menus,\n  DBCtrls;\n");
    EXPECT_EQ(added("uses Forms,\n     Menus;\n"), "uses Forms,\n     Menus,\n     DBCtrls;\n");
    EXPECT_EQ(added("uses\r\n\tForms, // first\r\n\tMenus // second\r\n\t;\r\n"),
        "uses\r\n\tForms, // first\r\n\tMenus,\r\n\tDBCtrls // second\r\n\t;\r\n");
}

TEST(PascalUses, KeepCommasAtTheStartOfLines)
{
    EXPECT_EQ(added("uses\n    Forms\n  , Menus\n  ;\n"), "uses\n    Forms\n  , Menus\n  , DBCtrls\n  ;\n");
}

TEST(PascalUses, AreExtendedOutsideOfDirectives)
{
    EXPECT_EQ(added("uses\n  Forms, Menus\n  {$IFDEF X}, Extra{$ENDIF};\n"),
        "uses\n  Forms, Menus, DBCtrls\n  {$IFDEF X}, Extra{$ENDIF};\n");
    EXPECT_EQ(added("uses {$IFDEF X}One{$ELSE}Two{$ENDIF};\n"), "uses DBCtrls, {$IFDEF X}One{$ELSE}Two{$ENDIF};\n");
}

TEST(PascalUses, AreMadeWhereThereAreNone)
{
    EXPECT_EQ(added(""), "\nuses\n  DBCtrls;\n");
    auto unit = PascalOf("unit U; interface implementation end.");
    EXPECT_EQ(MessageOf(unit.UseInInterface(dbControls)), "done");
    EXPECT_EQ(unit.InterfaceUses(), QStringList { u"DBCtrls"_qs });
    EXPECT_EQ(MessageOf(unit.UseInImplementation({ u"Data"_qs, u"Data"_qs })), "done");
    EXPECT_EQ(unit.ImplementationUses(), QStringList { u"Data"_qs });
    EXPECT_EQ(unit.Check(), Problems());
}

TEST(PascalUses, AreMadeBehindTheKeywordAndItsComment)
{
    auto unit = PascalOf("unit U;\r\ninterface // public\r\nimplementation\r\n\r\n{$R *.dfm}\r\n\r\nend.\r\n");
    EXPECT_EQ(MessageOf(unit.UseInInterface(dbControls)), "done");
    EXPECT_EQ(MessageOf(unit.UseInImplementation({ u"Data"_qs, u"Data"_qs })), "done");
    EXPECT_EQ(BytesOf(unit),
        "unit U;\r\ninterface // public\r\n\r\nuses\r\n  DBCtrls;\r\nimplementation\r\n\r\nuses\r\n  Data;\r\n\r\n{$R "
        "*.dfm}\r\n\r\nend.\r\n");
}

TEST(PascalUses, OfTheImplementationTakeAnotherForm)
{
    const auto text = unitWith("uses Vcl.Forms;\n", "\nuses Tools;\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(MessageOf(unit.UseInImplementation({ u"DataUnit"_qs, u"DataUnit"_qs })), "done");
    EXPECT_EQ(MessageOf(unit.UseInImplementation({ u"dataunit"_qs, u"dataunit"_qs })), "done");
    EXPECT_EQ(MessageOf(unit.UseInImplementation({ u"Vcl.Forms"_qs, u"Forms"_qs })), "done");
    EXPECT_EQ(MessageOf(unit.UseInImplementation({ u"Main"_qs, u"Main"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), With(text, "uses Tools", ", DataUnit"));
    EXPECT_EQ(unit.ImplementationUses(), (QStringList { u"Tools"_qs, u"DataUnit"_qs }));
}

TEST(PascalUses, MoveAUnitThatTheInterfaceNeeds)
{
    auto unit = PascalOf(unitWith("uses Forms;\n", "\nuses Tools, DBCtrls, Menus;\n"));
    EXPECT_EQ(MessageOf(unit.UseInInterface(dbControls)), "done");
    EXPECT_EQ(BytesOf(unit), unitWith("uses Forms, DBCtrls;\n", "\nuses Tools, Menus;\n").toStdString());
    auto last = PascalOf(unitWith("uses Forms;\n", "\nuses Tools, DBCtrls;\n"));
    EXPECT_EQ(MessageOf(last.UseInInterface(dbControls)), "done");
    EXPECT_EQ(BytesOf(last), unitWith("uses Forms, DBCtrls;\n", "\nuses Tools;\n").toStdString());
    auto only = PascalOf(unitWith("uses Forms;\n", "\nuses DBCtrls;\n"));
    EXPECT_EQ(MessageOf(only.UseInInterface(dbControls)), "done");
    EXPECT_EQ(BytesOf(only), unitWith("uses Forms, DBCtrls;\n", "\n").toStdString());
}

TEST(PascalUses, AreNotTouchedWhereAUnitCannotBeMoved)
{
    const auto text = unitWith("uses Forms;\n", "\nuses Tools{$IFDEF X}, DBCtrls{$ENDIF};\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(MessageOf(unit.UseInInterface(dbControls)),
        "Main.pas:12:23: DBCtrls is needed by the interface, and cannot be moved there from between these directives");
    EXPECT_EQ(BytesOf(unit), text.toStdString());
}

TEST(PascalUses, WithoutASemicolonAreAnError)
{
    EXPECT_EQ(added("uses Forms\n"), "Main.pas:4:1: this uses clause does not end with a semicolon");
}

TEST(PascalUses, OfAProgramAreExtendedToo)
{
    auto unit = PascalOf("program Shop;\n\nuses\n  Vcl.Forms,\n  Main in 'Main.pas' {MainForm};\n\nbegin\nend.\n");
    EXPECT_EQ(MessageOf(unit.UseInInterface({ u"Vcl.Themes"_qs, u"Themes"_qs })), "done");
    EXPECT_EQ(BytesOf(unit),
        "program Shop;\n\nuses\n  Vcl.Forms,\n  Main in 'Main.pas' {MainForm},\n  Vcl.Themes;\n\nbegin\nend.\n");
}
