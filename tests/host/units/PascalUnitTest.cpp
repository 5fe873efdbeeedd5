#include "host/units/UnitText.h"

#include <gtest/gtest.h>

namespace {

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

}

TEST(PascalUnit, KnowsItsNameItsUsesAndItsForm)
{
    const auto unit = PascalOf(formUnit);
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
    auto unit = PascalOf(formUnit);
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"DBEdit1"_qs, u"TDBEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), With(formUnit, "    Button1: TButton; // closes\r\n", "    DBEdit1: TDBEdit;\r\n"));
}

TEST(PascalUnit, AddsAScopedEntryWhereTheOthersAreScoped)
{
    auto unit = PascalOf(formUnit);
    EXPECT_EQ(MessageOf(unit.UseInInterface({ u"Vcl.DBCtrls"_qs, u"DBCtrls"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), With(formUnit, "Vcl.StdCtrls", ", Vcl.DBCtrls"));
}

TEST(PascalUnit, SaysWhatIsWrongWhereTheClassIsNotDeclared)
{
    auto unit = PascalOf(formUnit);
    EXPECT_EQ(MessageOf(unit.AddField(u"TOther"_qs, { u"Edit2"_qs, u"TEdit"_qs })),
        "Main.pas:3:1: the unit does not declare the class TOther");
    EXPECT_EQ(BytesOf(unit), formUnit.toStdString());
}

TEST(PascalUnit, DeclaresTheFirstComponentBehindTheClassHeader)
{
    const QByteArray text(
        "unit Main;\ninterface\ntype\n  TMainForm = class(TForm)\n  private\n    A: Integer;\n  end;\n"
        "implementation\nend.\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"Edit1"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), With(text, "class(TForm)\n", "    Edit1: TEdit;\n"));
}

TEST(PascalUnit, DeclaresAComponentBeforeTheMethodsOfAClassWithoutFields)
{
    const QByteArray text(
        "unit Main;\ninterface\ntype\n  TMainForm = class(TForm)\n\tprocedure Go;\n  end;\nimplementation\nend.\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"Edit1"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), With(text, "class(TForm)\n", "    Edit1: TEdit;\n"));
}

TEST(PascalUnit, KeepsTheIndentOfTheOtherFields)
{
    const QByteArray text(
        "unit Main;\ninterface\ntype\n\tTMainForm = class(TForm)\n\t\tEdit1: TEdit;\n\tend;\nimplementation\nend.\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"Edit2"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), With(text, "\t\tEdit1: TEdit;\n", "\t\tEdit2: TEdit;\n"));
}

TEST(PascalUnit, DeclaresInAnExplicitPublishedSectionWhereNothingStandsBeforeIt)
{
    const QByteArray text(
        "unit Main;\ninterface\ntype\n  TMainForm = class(TForm)\n  private\n    FX: Integer;\n  published\n"
        "    Edit1: TEdit;\n    procedure Go;\n  public\n    FY: Integer;\n  end;\nimplementation\nend.\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(FieldsOf(unit, u"TMainForm"_qs), "Edit1: TEdit");
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"Edit2"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), With(text, "    Edit1: TEdit;\n", "    Edit2: TEdit;\n"));
}

TEST(PascalUnit, GivesAClassWithoutABodyOne)
{
    const QByteArray text("unit Main;\ninterface\ntype\n  TMainForm = class(TBaseForm);\nimplementation\nend.\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"Edit1"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit),
        "unit Main;\ninterface\ntype\n  TMainForm = class(TBaseForm)\n    Edit1: TEdit;\n  "
        "end;\nimplementation\nend.\n");
    EXPECT_EQ(FieldsOf(unit, u"TMainForm"_qs), "Edit1: TEdit");
}

TEST(PascalUnit, DeclaresWithinTheLineWhereTheClassStandsOnOneLine)
{
    auto unit = PascalOf("unit U; interface type TF = class(TForm) A: TEdit; procedure X; end; implementation end.");
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"B"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit),
        "unit U; interface type TF = class(TForm) A: TEdit; B: TEdit; procedure X; end; implementation end.");
}

TEST(PascalUnit, DeclaresBehindAFieldThatLacksItsSemicolon)
{
    auto unit = PascalOf("unit U; interface type TF = class(TForm)\n  A: TEdit\nend; implementation end.");
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"B"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(
        BytesOf(unit), "unit U; interface type TF = class(TForm)\n  A: TEdit;\n  B: TEdit;\nend; implementation end.");
}

TEST(PascalUnit, DeclaresOutsideOfTheDirectivesAroundTheLastField)
{
    const QByteArray text(
        "unit U;\ninterface\ntype\n  TF = class(TForm)\n    A: TEdit;\n{$IFDEF EXTRA}\n    B: TEdit;\n{$ENDIF}\n"
        "  end;\nimplementation\nend.\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"C"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), With(text, "{$ENDIF}\n", "    C: TEdit;\n"));
}

TEST(PascalUnit, ReadsTheBranchThatItsCompilerReads)
{
    const QByteArray text(
        "unit U;\ninterface\nuses {$IFDEF FPC}LCLIntf{$ELSE}Windows{$ENDIF};\ntype\n{$IFNDEF FPC}\n  TF = "
        "class(TForm)\n"
        "    A: TEdit;\n{$ELSE}\n  TF = class(TLazForm)\n    B: TEdit;\n{$ENDIF}\n  end;\nimplementation\nend.\n");
    EXPECT_EQ(FieldsOf(PascalOf(text), u"TF"_qs), "A: TEdit");
    EXPECT_EQ(PascalOf(text).InterfaceUses(), QStringList { u"Windows"_qs });
    EXPECT_EQ(FieldsOf(PascalOf(text, PascalDialect::Lazarus), u"TF"_qs), "B: TEdit");
    EXPECT_EQ(PascalOf(text, PascalDialect::Lazarus).InterfaceUses(), QStringList { u"LCLIntf"_qs });
}

TEST(PascalUnit, PassesOverForwardsReferencesHelpersGenericsAndText)
{
    const QByteArray text("unit U;\ninterface\n{ TF = class(TWrong) A: TEdit; end; }\nconst S = 'TF = "
                          "class(TWrong)';\ntype\n  TF = class;\n"
                          "  TF<T> = class(TWrong)\n    W: TEdit;\n  end;\n  TFClass = class of TF;\n"
                          "  TFHelper = class helper for TF\n  end;\n  TOuter = class\n  type\n    TF = "
                          "class(TWrong)\n      V: TEdit;\n    end;\n"
                          "  end;\n  TF = class(TForm, IShow)\n    Right: TEdit;\n  end;\nimplementation\nend.\n");
    const ClassDeclaration expected { u"TF"_qs, u"TForm"_qs, { { u"Right"_qs, u"TEdit"_qs } }, {} };
    EXPECT_EQ(PascalOf(text).FindClass(u"TF"_qs), expected);
}

TEST(PascalUnit, ReadsAllKindsOfMembers)
{
    const auto unit = PascalOf(
        "unit U;\ninterface\ntype\n  TF = class abstract(Vcl.Forms.TForm)\n    A, B: TEdit;\n    [Weak] C: TDB.TEdit;\n"
        "    R: record X: Integer; case Integer of 0: (Y: Byte); 1: (Z: Word); end;\n"
        "    L: TList<TPair<string, Integer>>;\n    P: procedure(X: Integer) of object;\n"
        "    procedure Go(X: Integer; var Y: string); virtual; abstract;\n    class function Make: TF; static;\n"
        "  strict private\n    H: Integer;\n  public\n    type TInner = class I: Integer; end;\n    const K: Integer = "
        "1;\n"
        "    class var V: Integer;\n    property Q: Integer read H write H default 0;\n    constructor Create;\n"
        "    class operator Implicit(X: TF): string;\n  end;\nimplementation\nend.\n");
    EXPECT_EQ(FieldsOf(unit, u"TF"_qs),
        "A: TEdit, B: TEdit, C: TDB.TEdit, R: record X: Integer; case Integer of 0: (Y: Byte); 1: (Z: Word); end, "
        "L: TList<TPair<string, Integer>>, P: procedure(X: Integer) of object");
    const auto found = unit.FindClass(u"TF"_qs);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->Ancestor, u"Vcl.Forms.TForm"_qs);
    EXPECT_EQ(found->Methods, (QStringList { u"Go"_qs, u"Make"_qs, u"Create"_qs, u"Implicit"_qs }));
}

TEST(PascalUnit, DoesNothingForAComponentThatIsDeclaredAlready)
{
    auto unit = PascalOf(formUnit);
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"EDIT1"_qs, u"tedit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), formUnit.toStdString());
}

TEST(PascalUnit, RefusesANameThatIsDeclaredWithAnotherType)
{
    auto unit = PascalOf(formUnit);
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"FCount"_qs, u"TEdit"_qs })),
        "Main.pas:15:5: FCount is declared as Integer already");
    EXPECT_EQ(BytesOf(unit), formUnit.toStdString());
}

TEST(PascalUnit, RefusesWhatIsNoName)
{
    auto unit = PascalOf(formUnit);
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"A; B"_qs, u"TEdit"_qs })),
        "Main.pas:10:3: \"A; B: TEdit\" is no declaration of a component");
    EXPECT_EQ(MessageOf(unit.RenameField(u"TMainForm"_qs, u"Edit1"_qs, u"1"_qs)),
        "Main.pas:11:5: \"1\" is no name of a component");
    EXPECT_EQ(MessageOf(unit.UseInInterface({ u"A B"_qs, u"B"_qs })), "Main.pas:1:1: \"A B\" is no name of a unit");
    EXPECT_EQ(BytesOf(unit), formUnit.toStdString());
}

TEST(PascalUnit, RemovesADeclarationWithItsLineAndComment)
{
    auto unit = PascalOf(formUnit);
    EXPECT_EQ(MessageOf(unit.RemoveField(u"TMainForm"_qs, u"button1"_qs)), "done");
    EXPECT_EQ(BytesOf(unit), Without(formUnit, "    Button1: TButton; // closes\r\n"));
    EXPECT_EQ(MessageOf(unit.RemoveField(u"TMainForm"_qs, u"Button1"_qs)),
        "Main.pas:10:3: the class TMainForm has no field Button1");
}

TEST(PascalUnit, RemovesOneOfSeveralNamesWithOneType)
{
    const QByteArray text(
        "unit U;\ninterface\ntype\n  TF = class(TForm)\n    A, B, C: TEdit;\n  end;\nimplementation\nend.\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(MessageOf(unit.RemoveField(u"TF"_qs, u"B"_qs)), "done");
    EXPECT_EQ(FieldsOf(unit, u"TF"_qs), "A: TEdit, C: TEdit");
    EXPECT_EQ(MessageOf(unit.RemoveField(u"TF"_qs, u"C"_qs)), "done");
    EXPECT_EQ(BytesOf(unit), Without(text, ", B, C"));
    EXPECT_EQ(MessageOf(unit.RemoveField(u"TF"_qs, u"A"_qs)), "done");
    EXPECT_EQ(BytesOf(unit), Without(text, "    A, B, C: TEdit;\n"));
}

TEST(PascalUnit, RenamesADeclarationAndNothingElse)
{
    auto unit = PascalOf(formUnit);
    EXPECT_EQ(MessageOf(unit.RenameField(u"TMainForm"_qs, u"Button1"_qs, u"CloseButton"_qs)), "done");
    EXPECT_EQ(BytesOf(unit), QByteArray(formUnit).replace("Button1: TButton", "CloseButton: TButton").toStdString());
    EXPECT_EQ(MessageOf(unit.RenameField(u"TMainForm"_qs, u"CloseButton"_qs, u"edit1"_qs)),
        "Main.pas:11:5: edit1 is declared already");
    EXPECT_EQ(MessageOf(unit.RenameField(u"TMainForm"_qs, u"Edit1"_qs, u"EDIT1"_qs)), "done");
    EXPECT_EQ(FieldsOf(unit, u"TMainForm"_qs), "EDIT1: TEdit, CloseButton: TButton");
}

TEST(PascalUnit, KeepsOneByteCharactersAsTheyWere)
{
    const QByteArray text("unit U;\ninterface\n// gr\xFC\xDF\x81\x8D\xFF\ntype\n  TF = class(TForm)\n    A: TEdit; { "
                          "\xE4 }\n  end;\nimplementation\nend.\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(unit.File().TextEncoding(), SourceFile::Encoding::Ansi);
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"Größe"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit),
        With(text, "{ \xE4 }\n",
            "    Gr\xF6\xDF"
            "e: TEdit;\n"));
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"Имя"_qs, u"TEdit"_qs })),
        "Main.pas:8:1: \"Имя: TEdit;\" cannot be written in the encoding of this file");
}

TEST(PascalUnit, KeepsWideCharactersAsTheyWere)
{
    const QString text
        = u"unit U;\ninterface\ntype\n  TF = class(TForm)\n    Größe: TEdit;\n  end;\nimplementation\nend.\n"_qs;
    for (const bool little : { true, false }) {
        const auto encode = [little](const QString& wide) {
            QByteArray bytes(little ? "\xFF\xFE" : "\xFE\xFF", 2);
            for (const QChar c : wide) {
                bytes.append(char(little ? c.cell() : c.row()));
                bytes.append(char(little ? c.row() : c.cell()));
            }
            return bytes;
        };
        auto unit = PascalOf(encode(text) + 'x');
        EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"Имя"_qs, u"TEdit"_qs })), "done");
        auto expected = text;
        expected.insert(expected.indexOf(u"  end;"_qs), u"    Имя: TEdit;\n"_qs);
        EXPECT_EQ(BytesOf(unit), (encode(expected) + 'x').toStdString());
    }
}

TEST(PascalUnit, KeepsAMarkAndManyByteCharacters)
{
    const QByteArray text("\xEF\xBB\xBFunit U;\ninterface\n// \xF0\x9F\x98\x80 \xC3\xA4\ntype\n  TF = class(TForm)\n   "
                          " A: TEdit; // \xE2\x82\xAC\n  end;\nimplementation\nend.\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"B"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), With(text, "\xE2\x82\xAC\n", "    B: TEdit;\n"));
}

TEST(PascalUnit, SaysWhereACommentIsNotClosed)
{
    const QByteArray text(
        "unit U;\ninterface\n  { never closed\ntype\n  TF = class(TForm)\n  end;\nimplementation\nend.\n");
    auto unit = PascalOf(text);
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"B"_qs, u"TEdit"_qs })), "Main.pas:3:3: this comment is not closed");
    EXPECT_EQ(MessageOf(unit.UseInInterface({ u"Vcl.DBCtrls"_qs, u"DBCtrls"_qs })),
        "Main.pas:3:3: this comment is not closed");
    EXPECT_EQ(BytesOf(unit), text.toStdString());
}

TEST(PascalUnit, SaysWhereAClassHasNoEnd)
{
    auto unit = PascalOf("unit U;\ninterface\ntype\n  TF = class(TForm)\n    A: TEdit;\n");
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"B"_qs, u"TEdit"_qs })), "Main.pas:4:3: the class TF has no end");
}

TEST(PascalUnit, SaysThatATextIsNoUnit)
{
    auto unit = PascalOf("hello");
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"B"_qs, u"TEdit"_qs })),
        "Main.pas:1:1: this is no unit: it does not begin with \"unit\" and a name");
    auto empty = PascalOf("");
    EXPECT_EQ(MessageOf(empty.UseInInterface({ u"A"_qs, u"A"_qs })),
        "Main.pas:1:1: this is no unit: it does not begin with \"unit\" and a name");
}

TEST(PascalUnit, EditsBeforeAStringThatIsNotClosed)
{
    const QByteArray text("unit U;\ninterface\ntype\n  TF = class(TForm)\n    A: TEdit;\n  end;\nimplementation\nconst "
                          "S = 'open\nend.\n");
    auto unit = PascalOf(text);
    ASSERT_EQ(unit.Check().size(), 1);
    EXPECT_EQ(unit.Check().constFirst().ToString(), u"Main.pas:8:11: this string is not closed"_qs);
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"B"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(BytesOf(unit), With(text, "    A: TEdit;\n", "    B: TEdit;\n"));
}

TEST(PascalUnit, IsRestoredByteForByte)
{
    auto unit = PascalOf(formUnit);
    const auto before = unit.Files();
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"DBEdit1"_qs, u"TDBEdit"_qs })), "done");
    EXPECT_EQ(MessageOf(unit.UseInInterface({ u"Vcl.DBCtrls"_qs, u"DBCtrls"_qs })), "done");
    unit.Restore(before);
    EXPECT_EQ(BytesOf(unit), formUnit.toStdString());
    EXPECT_EQ(FieldsOf(unit, u"TMainForm"_qs), "Edit1: TEdit, Button1: TButton");
}
