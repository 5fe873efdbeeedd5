#include "host/units/UnitText.h"
#include "units/CppUnit.h"

#include <gtest/gtest.h>

namespace {

const QByteArray header("#ifndef MainUnitH\r\n#define MainUnitH\r\n#include <Vcl.Forms.hpp>\r\n"
                        "class TMainForm : public TForm\r\n{\r\n__published:\r\npublic:\r\n"
                        "\t__fastcall TMainForm(TComponent* Owner);\r\n};\r\n"
                        "extern PACKAGE TMainForm *MainForm;\r\n#endif // MainUnitH\r\n");
const QByteArray source(
    "#include <vcl.h>\r\n#include \"MainUnit.h\"\r\n#include \"Data.h\"\r\n"
    "#pragma resource \"*.dfm\"\r\n#pragma resource \"MainUnit.dfm\"\r\nTMainForm *MainForm;\r\n"
    "__fastcall TMainForm::TMainForm(TComponent* Owner) : TForm(Owner) { Other->MainForm = 0; }\r\n");

std::unique_ptr<CppUnit> Unit()
{
    return CppUnit::From(
        { { QStringLiteral("/shop/MainUnit.cpp"), source }, { QStringLiteral("/shop/MainUnit.h"), header } });
}

std::string HeaderOf(const SourceUnit& unit)
{
    return unit.Files().last().Bytes.toStdString();
}

UnitRename ToWindow()
{
    return { QStringLiteral("/shop/MainUnit.cpp"), QStringLiteral("/shop/Window.cpp"), QStringLiteral("MainUnit"),
        QStringLiteral("Window"), {} };
}

}

TEST(CppRenames, AUnitUnderAnotherNameIncludesItsHeaderAndGuardsItByThatName)
{
    const auto unit = Unit();
    EXPECT_EQ(MessageOf(unit->SaveUnder(QStringLiteral("/shop/Window.cpp"))), "done");
    EXPECT_EQ(unit->Files().first().FileName, QStringLiteral("/shop/Window.cpp"));
    EXPECT_EQ(unit->Files().last().FileName, QStringLiteral("/shop/Window.h"));
    EXPECT_EQ(BytesOf(*unit),
        QByteArray(source)
            .replace("\"MainUnit.h\"", "\"Window.h\"")
            .replace("MainUnit.dfm", "Window.dfm")
            .toStdString());
    EXPECT_EQ(HeaderOf(*unit),
        QByteArray(header)
            .replace("#ifndef MainUnitH", "#ifndef WindowH")
            .replace("#define MainUnitH", "#define WindowH")
            .toStdString());
}

TEST(CppRenames, AProgramAndOtherUnitsNameTheUnitAnew)
{
    const auto program = CppUnit::From({ { QStringLiteral("/shop/shop.cpp"),
        "#include <vcl.h>\nUSEFORM(\"MainUnit.cpp\", MainForm);\nUSEFORM(\"Data.cpp\", Data);\n" } });
    EXPECT_EQ(MessageOf(program->RenameUsedUnit(ToWindow())), "done");
    EXPECT_EQ(
        BytesOf(*program), "#include <vcl.h>\nUSEFORM(\"Window.cpp\", MainForm);\nUSEFORM(\"Data.cpp\", Data);\n");
    const auto other = CppUnit::From({ { QStringLiteral("/shop/Other.cpp"),
        "#include \"MainUnit.h\"\n#include \"MainUnits.h\"\n#include <MainUnit.h>\n" } });
    EXPECT_EQ(MessageOf(other->RenameUsedUnit(ToWindow())), "done");
    EXPECT_EQ(BytesOf(*other), "#include \"Window.h\"\n#include \"MainUnits.h\"\n#include <MainUnit.h>\n");
}

TEST(CppRenames, AUnitThatMovedIsIncludedByItsNewFolder)
{
    auto rename = ToWindow();
    rename.NewFile = QStringLiteral("/shop/forms/Window.cpp");
    const auto other = CppUnit::From({ { QStringLiteral("/shop/Other.cpp"), "#include \"MainUnit.h\"\n" } });
    EXPECT_EQ(MessageOf(other->RenameUsedUnit(rename)), "done");
    EXPECT_EQ(BytesOf(*other), "#include \"forms/Window.h\"\n");
}

TEST(CppRenames, AFormIsRenamedInBothFiles)
{
    const auto unit = Unit();
    ASSERT_TRUE(unit->DeclaresVariable(QStringLiteral("MainForm"), QStringLiteral("TMainForm")));
    const FormRename rename { QStringLiteral("MainUnit"), QStringLiteral("/shop/MainUnit.cpp"),
        QStringLiteral("MainForm"), QStringLiteral("ShopWindow"), QStringLiteral("TMainForm"),
        QStringLiteral("TShopWindow"), true };
    EXPECT_EQ(MessageOf(unit->RenameForm(rename)), "done");
    EXPECT_EQ(BytesOf(*unit),
        QByteArray(source).replace("TMainForm", "TShopWindow").replace("*MainForm;", "*ShopWindow;").toStdString());
    EXPECT_EQ(HeaderOf(*unit),
        QByteArray(header).replace("TMainForm", "TShopWindow").replace("*MainForm;", "*ShopWindow;").toStdString());
}

TEST(CppRenames, ANameThatIsTakenInOneFileLeavesBothAsTheyWere)
{
    const auto unit = CppUnit::From({ { QStringLiteral("/shop/MainUnit.cpp"), source },
        { QStringLiteral("/shop/MainUnit.h"), header + "int ShopWindow;\r\n" } });
    const FormRename rename { QStringLiteral("MainUnit"), QStringLiteral("/shop/MainUnit.cpp"),
        QStringLiteral("MainForm"), QStringLiteral("ShopWindow"), QStringLiteral("TMainForm"),
        QStringLiteral("TShopWindow"), true };
    EXPECT_EQ(
        MessageOf(unit->RenameForm(rename)), "/shop/MainUnit.h:12:5: ShopWindow means something else here already");
    EXPECT_EQ(BytesOf(*unit), source.toStdString());
}
