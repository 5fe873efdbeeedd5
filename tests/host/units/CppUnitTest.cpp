#include "units/CppUnit.h"
#include "host/projects/ProjectFolder.h"
#include "host/units/UnitText.h"

#include <gtest/gtest.h>

namespace {

const QByteArray header("//---------------------------------------------------------------------------\r\n"
                        "\r\n"
                        "#ifndef MainH\r\n"
                        "#define MainH\r\n"
                        "//---------------------------------------------------------------------------\r\n"
                        "#include <System.Classes.hpp>\r\n"
                        "#include <Vcl.StdCtrls.hpp>\r\n"
                        "#include \"Base.h\"\r\n"
                        "//---------------------------------------------------------------------------\r\n"
                        "class TMainForm : public TBaseForm\r\n"
                        "{\r\n"
                        "__published:\t// IDE-managed Components\r\n"
                        "\tTEdit *Edit1;\r\n"
                        "\tTButton *Button1; // closes\r\n"
                        "\tvoid __fastcall Button1Click(TObject *Sender);\r\n"
                        "private:\t// User declarations\r\n"
                        "\tint FCount;\r\n"
                        "public:\t\t// User declarations\r\n"
                        "\t__fastcall TMainForm(TComponent* Owner);\r\n"
                        "};\r\n"
                        "//---------------------------------------------------------------------------\r\n"
                        "extern PACKAGE TMainForm *MainForm;\r\n"
                        "#endif\r\n");

const QByteArray source("#include <vcl.h>\r\n"
                        "#pragma hdrstop\r\n"
                        "\r\n"
                        "#include \"Main.h\"\r\n"
                        "//---------------------------------------------------------------------------\r\n"
                        "#pragma package(smart_init)\r\n"
                        "#pragma resource \"*.dfm\"\r\n"
                        "TMainForm *MainForm;\r\n");

CppUnit unitOf(const QByteArray& headerText = header)
{
    return CppUnit(SourceFile(u"Main.cpp"_qs, source), SourceFile(u"Main.h"_qs, headerText));
}

std::string headerOf(const SourceUnit& unit)
{
    return unit.Files().constLast().Bytes.toStdString();
}

}

TEST(CppUnit, KnowsItsNameItsIncludesAndItsForm)
{
    const auto unit = unitOf();
    EXPECT_EQ(unit.UnitName(), u"Main"_qs);
    EXPECT_EQ(unit.InterfaceUses(), (QStringList { u"System.Classes"_qs, u"Vcl.StdCtrls"_qs, u"Base"_qs }));
    EXPECT_EQ(unit.ImplementationUses(), (QStringList { u"vcl"_qs, u"Main"_qs }));
    const ClassDeclaration expected { u"TMainForm"_qs, u"TBaseForm"_qs,
        { { u"Edit1"_qs, u"TEdit"_qs }, { u"Button1"_qs, u"TButton"_qs } }, { u"Button1Click"_qs, u"TMainForm"_qs } };
    EXPECT_EQ(unit.FindClass(u"TMainForm"_qs), expected);
}

TEST(CppUnit, DeclaresAComponentBehindThePublishedFields)
{
    auto unit = unitOf();
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"DBEdit1"_qs, u"TDBEdit"_qs })), "done");
    EXPECT_EQ(headerOf(unit), With(header, "// closes\r\n", "\tTDBEdit *DBEdit1;\r\n"));
    EXPECT_EQ(BytesOf(unit), source.toStdString());
}

TEST(CppUnit, DeclaresTheFirstComponentBehindThePublishedLabel)
{
    const QByteArray text("class TF : public TForm\n{\n  __published: // components\n    void __fastcall Go();\n};\n");
    auto unit = unitOf(text);
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"Edit1"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(headerOf(unit), With(text, "// components\n", "\tTEdit *Edit1;\n"));
}

TEST(CppUnit, MakesAPublishedSectionWhereThereIsNone)
{
    auto unit = unitOf("class TF : public TForm\n{\npublic:\n  int A;\n};\n");
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"Edit1"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(headerOf(unit), "class TF : public TForm\n{\n__published:\n\tTEdit *Edit1;\npublic:\n  int A;\n};\n");
    EXPECT_EQ(FieldsOf(unit, u"TF"_qs), "Edit1: TEdit");
}

TEST(CppUnit, LeavesMembersOfAnUnlabelledStartAsPrivateAsTheyWere)
{
    auto unit = unitOf("class TF : public TForm\n{\n  int A;\n};\n");
    EXPECT_EQ(MessageOf(unit.AddField(u"TF"_qs, { u"Edit1"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(headerOf(unit), "class TF : public TForm\n{\n__published:\n\tTEdit *Edit1;\nprivate:\n  int A;\n};\n");
}

TEST(CppUnit, FindsAClassBehindMacrosAndPassesOverOthers)
{
    const auto unit
        = unitOf("class TF;\nfriend class TF;\ntemplate <class TF> class TOther { int A; };\nenum class TF { x };\n"
                 "class __declspec(delphiclass) PACKAGE TF : public Vcl::Forms::TForm, public IShow\n{\n"
                 "\tstruct TInner { int B; };\n\tenum { one, two } Kind;\n\tint Sum() { return 1; }\n__published:\n"
                 "\tTEdit *A, *B;\n\tVcl::Stdctrls::TButton *C;\n\tstd::map<int, int> M;\npublic:\n\tint "
                 "D[3];\n\t~TF() { }\n};\n");
    const auto found = unit.FindClass(u"TF"_qs);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->Ancestor, u"Vcl::Forms::TForm"_qs);
    EXPECT_EQ(FieldsOf(unit, u"TF"_qs), "A: TEdit, B: TEdit, C: Vcl::Stdctrls::TButton, M: std::map<int,int>");
    EXPECT_EQ(found->Methods, (QStringList { u"Sum"_qs, u"TF"_qs }));
}

TEST(CppUnit, RemovesADeclarationWithItsLineAndComment)
{
    auto unit = unitOf();
    EXPECT_EQ(MessageOf(unit.RemoveField(u"TMainForm"_qs, u"Button1"_qs)), "done");
    EXPECT_EQ(headerOf(unit), Without(header, "\tTButton *Button1; // closes\r\n"));
    EXPECT_EQ(MessageOf(unit.RemoveField(u"TMainForm"_qs, u"Button1"_qs)),
        "Main.h:10:7: the class TMainForm has no field Button1");
}

TEST(CppUnit, RemovesOneOfSeveralNamesWithOneType)
{
    const QByteArray text("class TF : public TForm\n{\n__published:\n\tTEdit *A, *B, *C;\n};\n");
    auto unit = unitOf(text);
    EXPECT_EQ(MessageOf(unit.RemoveField(u"TF"_qs, u"B"_qs)), "done");
    EXPECT_EQ(headerOf(unit), Without(text, ", *B"));
    EXPECT_EQ(MessageOf(unit.RemoveField(u"TF"_qs, u"A"_qs)), "done");
    EXPECT_EQ(headerOf(unit), Without(text, "*A, *B, "));
    EXPECT_EQ(MessageOf(unit.RemoveField(u"TF"_qs, u"C"_qs)), "done");
    EXPECT_EQ(headerOf(unit), Without(text, "\tTEdit *A, *B, *C;\n"));
}

TEST(CppUnit, RenamesADeclarationAndTellsCaseApart)
{
    auto unit = unitOf();
    EXPECT_EQ(MessageOf(unit.RenameField(u"TMainForm"_qs, u"Edit1"_qs, u"NameEdit"_qs)), "done");
    EXPECT_EQ(headerOf(unit), QByteArray(header).replace("*Edit1", "*NameEdit").toStdString());
    EXPECT_EQ(MessageOf(unit.RenameField(u"TMainForm"_qs, u"nameedit"_qs, u"A"_qs)),
        "Main.h:10:7: the class TMainForm has no field nameedit");
    EXPECT_EQ(MessageOf(unit.RenameField(u"TMainForm"_qs, u"NameEdit"_qs, u"Button1"_qs)),
        "Main.h:14:11: Button1 is declared already");
}

TEST(CppUnit, RefusesANameThatIsDeclaredWithAnotherType)
{
    auto unit = unitOf();
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"FCount"_qs, u"TEdit"_qs })),
        "Main.h:17:6: FCount is declared as int already");
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"Edit1"_qs, u"TEdit"_qs })), "done");
    EXPECT_EQ(headerOf(unit), header.toStdString());
}

TEST(CppUnit, IncludesALibrarysHeaderAsTheOthersAreIncluded)
{
    auto scoped = unitOf();
    EXPECT_EQ(MessageOf(scoped.UseInInterface({ u"Vcl.DBCtrls"_qs, u"DBCtrls"_qs })), "done");
    EXPECT_EQ(MessageOf(scoped.UseInInterface({ u"vcl.dbctrls"_qs, u"dbctrls"_qs })), "done");
    EXPECT_EQ(headerOf(scoped), With(header, "#include <Vcl.StdCtrls.hpp>\r\n", "#include <Vcl.DBCtrls.hpp>\r\n"));
    auto plain
        = unitOf("#ifndef A\n#define A\n#include <Classes.hpp>\n#ifdef X\n#include <X.hpp>\n#endif\nint A;\n#endif\n");
    EXPECT_EQ(MessageOf(plain.UseInInterface({ u"Vcl.DBCtrls"_qs, u"DBCtrls"_qs })), "done");
    EXPECT_EQ(headerOf(plain),
        "#ifndef A\n#define A\n#include <Classes.hpp>\n#include <DBCtrls.hpp>\n#ifdef X\n#include <X.hpp>\n#endif\nint "
        "A;\n#endif\n");
}

TEST(CppUnit, IncludesBehindTheGuardWhereNothingIsIncluded)
{
    auto unit = unitOf("#ifndef A\n#define A\n\nint A;\n#endif\n");
    EXPECT_EQ(MessageOf(unit.UseInInterface({ u"Vcl.DBCtrls"_qs, u"DBCtrls"_qs })), "done");
    EXPECT_EQ(headerOf(unit), "#ifndef A\n#define A\n#include <DBCtrls.hpp>\n\nint A;\n#endif\n");
    auto bare = unitOf("int A;\n");
    EXPECT_EQ(MessageOf(bare.UseInInterface({ u"Vcl.DBCtrls"_qs, u"DBCtrls"_qs })), "done");
    EXPECT_EQ(headerOf(bare), "#include <DBCtrls.hpp>\nint A;\n");
}

TEST(CppUnit, IncludesAUnitOfTheProjectInQuotes)
{
    ProjectFolder folder;
    const auto file = folder.Write(u"Main.cpp"_qs, source);
    folder.Write(u"main.H"_qs, header);
    folder.Write(u"DataUnit.h"_qs, "class TData;\n");
    Failure failure;
    const auto unit = OpenSourceUnit(file, false, failure);
    ASSERT_TRUE(unit) << MessageOf(failure);
    EXPECT_EQ(MessageOf(unit->UseInImplementation({ u"DataUnit"_qs, u"DataUnit"_qs })), "done");
    EXPECT_EQ(MessageOf(unit->UseInImplementation({ u"Base"_qs, u"Base"_qs })), "done");
    EXPECT_EQ(MessageOf(unit->UseInImplementation({ u"Main"_qs, u"Main"_qs })), "done");
    EXPECT_EQ(BytesOf(*unit), With(source, "#include \"Main.h\"\r\n", "#include \"DataUnit.h\"\r\n"));
    EXPECT_EQ(headerOf(*unit), header.toStdString());
    ASSERT_EQ(unit->Files().size(), 2);
    EXPECT_EQ(unit->Files()[1].FileName, folder.Path(u"main.H"_qs));
}

TEST(CppUnit, SaysWhatIsWrong)
{
    auto unit = unitOf();
    EXPECT_EQ(MessageOf(unit.AddField(u"TOther"_qs, { u"A"_qs, u"TEdit"_qs })),
        "Main.h:1:1: the unit does not declare the class TOther");
    auto open = unitOf("class TF : public TForm\n{\n  /* never closed\n};\n");
    EXPECT_EQ(MessageOf(open.AddField(u"TF"_qs, { u"A"_qs, u"TEdit"_qs })), "Main.h:3:3: this comment is not closed");
    auto cut = unitOf("class TF : public TForm\n{\n__published:\n  TEdit *A;\n");
    EXPECT_EQ(MessageOf(cut.AddField(u"TF"_qs, { u"B"_qs, u"TEdit"_qs })), "Main.h:1:7: the class TF has no end");
}

TEST(CppUnit, IsRestoredByteForByte)
{
    auto unit = unitOf();
    const auto before = unit.Files();
    EXPECT_EQ(MessageOf(unit.AddField(u"TMainForm"_qs, { u"DBEdit1"_qs, u"TDBEdit"_qs })), "done");
    EXPECT_EQ(MessageOf(unit.UseInImplementation({ u"Data"_qs, u"Data"_qs })), "done");
    EXPECT_NE(unit.Files(), before);
    unit.Restore(before);
    EXPECT_EQ(unit.Files(), before);
    EXPECT_EQ(FieldsOf(unit, u"TMainForm"_qs), "Edit1: TEdit, Button1: TButton");
}

TEST(SourceUnit, IsOpenedByItsExtension)
{
    ProjectFolder folder;
    Failure failure;
    EXPECT_EQ(
        OpenSourceUnit(folder.Write(u"A.pp"_qs, "unit A; interface implementation end."), true, failure)->UnitName(),
        u"A"_qs);
    EXPECT_EQ(OpenSourceUnit(folder.Write(u"B.h"_qs, "class TB;"), false, failure)->UnitName(), u"B"_qs);
    EXPECT_FALSE(OpenSourceUnit(folder.Write(u"C.txt"_qs, ""), false, failure));
    EXPECT_EQ(MessageOf(failure), folder.Path(u"C.txt"_qs).toStdString() + ": is no Pascal or C++ unit");
    EXPECT_FALSE(OpenSourceUnit(folder.Path(u"D.pas"_qs), false, failure));
    EXPECT_EQ(MessageOf(failure), folder.Path(u"D.pas"_qs).toStdString() + ": there is no such file");
}
