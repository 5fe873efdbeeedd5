#include "host/units/UnitText.h"

#include <gtest/gtest.h>

namespace {

const QByteArray main("unit Main; { the shop's window }\r\n\r\ninterface\r\n\r\nuses\r\n  Vcl.Forms, Orders;\r\n\r\n"
                      "type\r\n  TMainForm = class(TForm)\r\n    procedure FormShow(Sender: TObject);\r\n  end;\r\n\r\n"
                      "var\r\n  MainForm: TMainForm;\r\n\r\nimplementation\r\n\r\n{$R *.dfm}\r\n\r\n"
                      "{ TMainForm }\r\n\r\nprocedure TMainForm.FormShow(Sender: TObject);\r\nbegin\r\n"
                      "  Main.MainForm.Caption := 'MainForm';\r\n  Other.MainForm := 1; // MainForm\r\nend;\r\n\r\n"
                      "end.\r\n");

FormRename ToShopWindow()
{
    return { QStringLiteral("Main"), QStringLiteral("/shop/Main.pas"), QStringLiteral("MainForm"),
        QStringLiteral("ShopWindow"), QStringLiteral("TMainForm"), QStringLiteral("TShopWindow"), true };
}

UnitRename ToWindow()
{
    return { QStringLiteral("/shop/Main.pas"), QStringLiteral("/shop/Window.pas"), QStringLiteral("Main"),
        QStringLiteral("Window"), { QStringLiteral("TMainForm"), QStringLiteral("MainForm") } };
}

PascalUnit UnitAt(const QString& fileName, const QByteArray& text, PascalDialect dialect = PascalDialect::Delphi)
{
    return PascalUnit(SourceFile(fileName, text), dialect);
}

}

TEST(PascalRenames, AUnitUnderAnotherNameBearsItAndKeepsTheRest)
{
    auto unit = PascalOf(main);
    EXPECT_EQ(MessageOf(unit.SaveUnder(QStringLiteral("/shop/Shop.Window.pas"))), "done");
    EXPECT_EQ(unit.Files().first().FileName, QStringLiteral("/shop/Shop.Window.pas"));
    EXPECT_EQ(unit.UnitName(), QStringLiteral("Shop.Window"));
    EXPECT_EQ(BytesOf(unit), QByteArray(main).replace("unit Main;", "unit Shop.Window;").toStdString());
}

TEST(PascalRenames, AUnitUnderAnotherNameNamesItsFormFileAndItsOwnClassesByIt)
{
    auto unit = PascalOf("unit Main;\ninterface\ntype TMainForm = class(TForm) end;\nimplementation\n{$R Main.dfm}\n"
                         "{$R Other.dfm}\nbegin\n  Main.TMainForm.Create(Main.Count);\nend.\n");
    EXPECT_EQ(MessageOf(unit.SaveUnder(QStringLiteral("/shop/Window.pas"))), "done");
    EXPECT_EQ(BytesOf(unit),
        "unit Window;\ninterface\ntype TMainForm = class(TForm) end;\nimplementation\n{$R Window.dfm}\n"
        "{$R Other.dfm}\nbegin\n  Window.TMainForm.Create(Main.Count);\nend.\n");
}

TEST(PascalRenames, AUnitThatCannotBeFollowedKeepsNameAndText)
{
    auto unit = PascalOf("unit Main;\ninterface\nimplementation\n{ never closed\nend.\n");
    EXPECT_EQ(
        MessageOf(unit.SaveUnder(QStringLiteral("/shop/Window.pas"))), "Main.pas:4:1: this comment is not closed");
    EXPECT_EQ(unit.Files().first().FileName, QStringLiteral("Main.pas"));
}

TEST(PascalRenames, AProgramNamesTheUnitAndItsFileAnew)
{
    auto program = UnitAt(QStringLiteral("/shop/shop.dpr"),
        "program shop;\r\nuses\r\n  Forms,\r\n  Main in 'Main.pas' {MainForm},\r\n  Mains in 'Mains.pas';\r\nend.\r\n");
    EXPECT_EQ(MessageOf(program.RenameUsedUnit(ToWindow())), "done");
    EXPECT_EQ(BytesOf(program),
        "program shop;\r\nuses\r\n  Forms,\r\n  Window in 'Window.pas' {MainForm},\r\n  Mains in "
        "'Mains.pas';\r\nend.\r\n");
}

TEST(PascalRenames, AProgramNamesAUnitThatMovedByItsNewFolder)
{
    auto rename = ToWindow();
    rename.NewFile = QStringLiteral("/shop/forms/Window.pas");
    auto delphi = UnitAt(QStringLiteral("/shop/shop.dpr"), "program shop;\nuses Main in 'Main.pas';\nend.\n");
    EXPECT_EQ(MessageOf(delphi.RenameUsedUnit(rename)), "done");
    EXPECT_EQ(BytesOf(delphi), "program shop;\nuses Window in 'forms\\Window.pas';\nend.\n");
    auto lazarus
        = UnitAt(QStringLiteral("/shop/shop.lpr"), "program shop;\nuses Main;\nend.\n", PascalDialect::Lazarus);
    EXPECT_EQ(MessageOf(lazarus.RenameUsedUnit(rename)), "done");
    EXPECT_EQ(BytesOf(lazarus), "program shop;\nuses Window in 'forms/Window.pas';\nend.\n");
}

TEST(PascalRenames, AnotherFileOfTheSameUnitNameIsNotMeant)
{
    const QByteArray text("program shop;\nuses Main in '..\\other\\Main.pas';\nend.\n");
    auto program = UnitAt(QStringLiteral("/shop/shop.dpr"), text);
    EXPECT_EQ(MessageOf(program.RenameUsedUnit(ToWindow())), "done");
    EXPECT_EQ(BytesOf(program), text.toStdString());
}

TEST(PascalRenames, AUnitThatUsesItFollowsInItsClauseAndBeforeItsForm)
{
    auto unit = UnitAt(QStringLiteral("/shop/Orders.pas"),
        "unit Orders;\ninterface\nuses Forms;\nimplementation\nuses Books, main;\nbegin\n  Main.MainForm.Show;\n"
        "  Main.Free;\nend.\n");
    EXPECT_EQ(MessageOf(unit.RenameUsedUnit(ToWindow())), "done");
    EXPECT_EQ(BytesOf(unit),
        "unit Orders;\ninterface\nuses Forms;\nimplementation\nuses Books, Window;\nbegin\n  Window.MainForm.Show;\n"
        "  Main.Free;\nend.\n");
}

TEST(PascalRenames, TheVariableOfAFormIsFoundOutsideOfClassesOnly)
{
    EXPECT_TRUE(PascalOf(main).DeclaresVariable(QStringLiteral("mainform"), QStringLiteral("TMainForm")));
    const auto without = PascalOf("unit Main;\ninterface\ntype\n  TMainForm = class(TForm)\n    MainForm: TMainForm;\n"
                                  "  end;\nimplementation\nend.\n");
    EXPECT_FALSE(without.DeclaresVariable(QStringLiteral("MainForm"), QStringLiteral("TMainForm")));
}

TEST(PascalRenames, AFormIsRenamedWhereverTheCodeMeansIt)
{
    auto unit = PascalOf(main);
    EXPECT_EQ(MessageOf(unit.RenameForm(ToShopWindow())), "done");
    auto expected = main;
    expected.replace("TMainForm", "TShopWindow")
        .replace("  MainForm: ", "  ShopWindow: ")
        .replace("Main.MainForm", "Main.ShopWindow");
    EXPECT_EQ(BytesOf(unit), expected.toStdString());
}

TEST(PascalRenames, AProgramCreatesTheRenamedForm)
{
    auto program = UnitAt(QStringLiteral("/shop/shop.dpr"),
        "program shop;\nuses\n  Main in 'Main.pas' {MainForm: TFrame};\nbegin\n"
        "  Application.MainForm := nil;\n  Application.CreateForm(TMainForm, MainForm);\nend.\n");
    EXPECT_EQ(MessageOf(program.RenameForm(ToShopWindow())), "done");
    EXPECT_EQ(BytesOf(program),
        "program shop;\nuses\n  Main in 'Main.pas' {ShopWindow: TFrame};\nbegin\n"
        "  Application.MainForm := nil;\n  Application.CreateForm(TShopWindow, ShopWindow);\nend.\n");
}

TEST(PascalRenames, BranchesThatAreLeftOutFollowToo)
{
    auto unit = PascalOf("unit Main;\ninterface\nimplementation\n{$IFDEF FPC}\ntype T = TMainForm;\n{$ENDIF}\nend.\n");
    EXPECT_EQ(MessageOf(unit.RenameForm(ToShopWindow())), "done");
    EXPECT_EQ(
        BytesOf(unit), "unit Main;\ninterface\nimplementation\n{$IFDEF FPC}\ntype T = TShopWindow;\n{$ENDIF}\nend.\n");
}

TEST(PascalRenames, ANameThatMeansSomethingElseIsNotMixedUp)
{
    const QByteArray taken("unit Orders;\ninterface\nuses Main;\nvar ShopWindow: Integer;\nimplementation\nbegin\n"
                           "  MainForm.Show;\nend.\n");
    auto unit = UnitAt(QStringLiteral("Orders.pas"), taken);
    EXPECT_EQ(
        MessageOf(unit.RenameForm(ToShopWindow())), "Orders.pas:4:5: ShopWindow means something else here already");
    EXPECT_EQ(BytesOf(unit), taken.toStdString());
    auto own = UnitAt(QStringLiteral("Orders.pas"),
        "unit Orders;\ninterface\nuses Main;\nvar MainForm: Integer;\nimplementation\nend.\n");
    EXPECT_EQ(MessageOf(own.RenameForm(ToShopWindow())), "Orders.pas:4:5: MainForm means something else here already");
}

TEST(PascalRenames, WithoutAVariableOnlyTheClassIsRenamed)
{
    auto rename = ToShopWindow();
    rename.HasVariable = false;
    auto unit = UnitAt(QStringLiteral("Orders.pas"),
        "unit Orders;\ninterface\nuses Main;\nvar MainForm: TMainForm;\nimplementation\nend.\n");
    EXPECT_EQ(MessageOf(unit.RenameForm(rename)), "done");
    EXPECT_EQ(BytesOf(unit), "unit Orders;\ninterface\nuses Main;\nvar MainForm: TShopWindow;\nimplementation\nend.\n");
}
