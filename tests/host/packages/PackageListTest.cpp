#include "PackagesFixture.h"

#include "classes/Forms.h"
#include "classes/TypInfo.h"

using APackageList = PackagesFixture;

TEST_F(APackageList, NamesTheComponentsThatAPersonCanPutOnAForm)
{
    LoadClasses(R"({ "name": "TCustomA", "parent": "TControl", "abstract": true, "palette": "Standard" },
                   { "name": "TB", "parent": "TCustomA", "palette": "Standard" },
                   { "name": "TPart", "parent": "TPersistent" },
                   { "name": "TA", "parent": "TCustomA", "palette": "Additional" },
                   { "name": "TDataSource", "builtIn": true, "palette": "Data Access" })");
    ASSERT_EQ(FPackages.Count(), 1);
    EXPECT_EQ(FPackages.ComponentNames(0).join(u' '), QStringLiteral("TB TA TDataSource"));
}

TEST_F(APackageList, FindsAPackageByItsName)
{
    LoadClasses("");
    EXPECT_EQ(FPackages.IndexOf(QStringLiteral("ONE")), 0);
    EXPECT_EQ(FPackages.IndexOf(QStringLiteral("two")), -1);
}

TEST_F(APackageList, CompletesWhatItTellsOfAClassFromItsParents)
{
    LoadClasses(R"({ "name": "TA", "parent": "TWinControl", "unit": "Vcl.A", "alsoUses": ["Data.DB"], "palette": "P",
                     "draw": "panel", "container": true, "captionProperty": "Caption",
                     "bindings": { "source": "DataSource", "field": "DataField" },
                     "geometry": { "left": "Position.X", "top": "Position.Y" } },
                   { "name": "TB", "parent": "TA", "draw": "navigator", "container": false })");
    ComponentInfo expected;
    expected.Package = QStringLiteral("one");
    expected.Draw = QStringLiteral("navigator");
    expected.CaptionProperty = QStringLiteral("Caption");
    expected.Bindings = { QStringLiteral("DataSource"), QStringLiteral("DataField") };
    expected.Geometry = { QStringLiteral("Position.X"), QStringLiteral("Position.Y"), {}, {} };
    expected.Units
        = { { QStringLiteral("Vcl.A"), QStringLiteral("A") }, { QStringLiteral("Data.DB"), QStringLiteral("DB") } };
    EXPECT_EQ(FPackages.Info(FindClass(QStringLiteral("TB"))), expected);
}

TEST_F(APackageList, TellsOfAClassOfTheProjectWhatItKnowsOfItsParents)
{
    LoadClasses(R"({ "name": "TForm", "builtIn": true, "unit": "Vcl.Forms", "draw": "form", "container": true,
                     "properties": ["Menu: TComponent"] })");
    auto info = std::make_unique<TClassInfo>();
    info->Name = QStringLiteral("TMainForm");
    info->Parent = FindClass(QStringLiteral("TForm"));
    const auto told = FPackages.Info(DefineClass(std::move(info)));
    EXPECT_EQ(told.Draw, QStringLiteral("form"));
    EXPECT_TRUE(told.Container);
    EXPECT_EQ(told.Package, QString());
}

TEST_F(APackageList, TellsNothingOfAClassThatNoCatalogueKnows)
{
    LoadClasses("");
    EXPECT_EQ(FPackages.Info(nullptr), ComponentInfo());
    EXPECT_EQ(FPackages.Info(TComponent::Class()).Draw, QString());
}

TEST_F(APackageList, TellsWhatIsMadeWithAComponent)
{
    LoadClasses(R"({ "name": "TGrid", "parent": "TCustomControl", "creates": [
        { "class": "TView", "name": "%sView1" },
        { "class": "TLevel", "name": "%sLevel1", "references": { "View": "%sView1" } } ] })");
    const QList<CreatedComponent> expected { { QStringLiteral("TView"), QStringLiteral("%sView1"), {} },
        { QStringLiteral("TLevel"), QStringLiteral("%sLevel1"),
            { { QStringLiteral("View"), QStringLiteral("%sView1") } } } };
    EXPECT_EQ(FPackages.Info(FindClass(QStringLiteral("TGrid"))).Creates, expected);
}

TEST_F(APackageList, KnowsTheNamesOfIntegers)
{
    LoadClasses("", R"("types": { "TColor": { "integer": { "clRed": 255, "clNone": 536870911 } } },)");
    EXPECT_EQ(FPackages.IdentToInt(QStringLiteral("TColor"), QStringLiteral("CLRED")), 255);
    EXPECT_EQ(FPackages.IdentToInt(QStringLiteral("TColor"), QStringLiteral("clBlue")), std::nullopt);
    EXPECT_EQ(FPackages.IntToIdent(QStringLiteral("TColor"), 536870911), QStringLiteral("clNone"));
    EXPECT_EQ(FPackages.IntToIdent(QStringLiteral("TColor"), 1), QString());
}

TEST(PlainUnitName, IsTheUnitsNameWithoutItsScope)
{
    const auto plain = [](const char* scoped) { return PlainUnitName(QString::fromLatin1(scoped)); };
    EXPECT_EQ(plain("Vcl.DBCtrls"), QStringLiteral("DBCtrls"));
    EXPECT_EQ(plain("Data.Win.ADODB"), QStringLiteral("ADODB"));
    EXPECT_EQ(plain("FireDAC.Comp.Client"), QStringLiteral("FireDAC.Comp.Client"));
    EXPECT_EQ(plain("Data.Bind.Components"), QStringLiteral("Data.Bind.Components"));
    EXPECT_EQ(plain("cxGrid"), QStringLiteral("cxGrid"));
}
