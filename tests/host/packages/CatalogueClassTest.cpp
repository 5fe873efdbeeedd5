#include "PackagesFixture.h"

#include "classes/Forms.h"
#include "data/TCustomZAConnection.h"
#include "data/TCustomZADataSet.h"
#include "data/TDataSource.h"
#include "data/TParams.h"
#include "rtl/SysUtils.h"

class ACatalogueClass : public PackagesFixture {
protected:
    template <class T>
    std::unique_ptr<T> Made(const QString& className)
    {
        return std::unique_ptr<T>(dynamic_cast<T*>(FindClass(className).Create(nullptr)));
    }
};

TEST_F(ACatalogueClass, IsMadeByTheNearestClassOfThePlatform)
{
    LoadClasses(R"({ "name": "TCustomEdit", "parent": "TWinControl", "abstract": true },
                   { "name": "TEdit", "parent": "TCustomEdit", "unit": "Vcl.StdCtrls" })");
    const auto edit = Made<TWinControl>(QStringLiteral("TEdit"));
    ASSERT_TRUE(edit);
    EXPECT_EQ(edit->ClassName(), QStringLiteral("TEdit"));
    EXPECT_TRUE(edit->InheritsFrom(FindClass(QStringLiteral("TCustomEdit"))));
    EXPECT_TRUE(edit->InheritsFrom(TControl::Class()));
    EXPECT_EQ(edit->ClassType().UnitName(), QStringLiteral("Vcl.StdCtrls"));
    EXPECT_EQ(edit->ClassType().Group(), QStringLiteral("VCL"));
}

TEST_F(ACatalogueClass, CannotBeMadeWhenItIsAbstract)
{
    LoadClasses(R"({ "name": "TCustomEdit", "parent": "TWinControl", "abstract": true })");
    EXPECT_THROW(FindClass(QStringLiteral("TCustomEdit")).Create(nullptr), EInvalidOperation);
}

TEST_F(ACatalogueClass, GivesANewControlItsDefaultSize)
{
    LoadClasses(R"({ "name": "TA", "parent": "TWinControl", "defaultSize": [121, 23] },
                   { "name": "TB", "parent": "TA" }, { "name": "TC", "parent": "TB", "defaultSize": [7, 8] })");
    EXPECT_EQ(Made<TControl>(QStringLiteral("TB"))->Bounds(), QRect(0, 0, 121, 23));
    EXPECT_EQ(Made<TControl>(QStringLiteral("TC"))->Bounds(), QRect(0, 0, 7, 8));
}

TEST_F(ACatalogueClass, IsGoneWithItsPackageList)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "group": "VCL", "classes": [
        { "name": "TA", "parent": "TComponent" },
        { "name": "TForm", "builtIn": true, "properties": ["Menu: TComponent"] } ] })");
    {
        PackageList packages;
        ASSERT_TRUE(packages.Load(FFolder.path()).isEmpty());
        EXPECT_TRUE(GetClass(QStringLiteral("TA")));
        EXPECT_FALSE(GetClass(QStringLiteral("TForm")) == TForm::Class());
    }
    EXPECT_FALSE(GetClass(QStringLiteral("TA")));
    EXPECT_TRUE(GetClass(QStringLiteral("TForm")) == TForm::Class());
}

TEST_F(ACatalogueClass, StandsInItsGroupOnly)
{
    Write(QStringLiteral("a.json"),
        R"({ "package": "a", "group": "VCL", "classes": [ { "name": "TA", "parent": "TControl", "unit": "Vcl.A" } ] })");
    Write(QStringLiteral("b.json"),
        R"({ "package": "b", "group": "LCL", "classes": [ { "name": "TA", "parent": "TControl", "unit": "A" } ] })");
    ASSERT_EQ(Load(), "");
    EXPECT_EQ(GetClassInGroup(QStringLiteral("TA"), QStringLiteral("VCL")).UnitName(), QStringLiteral("Vcl.A"));
    EXPECT_EQ(GetClassInGroup(QStringLiteral("TA"), QStringLiteral("LCL")).UnitName(), QStringLiteral("A"));
    EXPECT_FALSE(GetClassInGroup(QStringLiteral("TA"), QStringLiteral("FMX")));
}

TEST_F(ACatalogueClass, MayBearTheNameOfThePlatformsClassInAnotherGroup)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "group": "LCL", "classes": [
        { "name": "TForm", "parent": "TForm", "properties": ["LCLVersion: string"] },
        { "name": "TMyForm", "parent": "TForm" } ] })");
    ASSERT_EQ(Load(), "");
    const auto form = GetClassInGroup(QStringLiteral("TMyForm"), QStringLiteral("LCL"));
    EXPECT_NE(GetPropInfo(form, QStringLiteral("LCLVersion")), nullptr);
    EXPECT_TRUE(form.InheritsFrom(TForm::Class()));
    EXPECT_TRUE(GetClassInGroup(QStringLiteral("TForm"), QStringLiteral("VCL")) == TForm::Class());
}

TEST_F(ACatalogueClass, PublishesItsOwnAndItsIncludedProperties)
{
    LoadClasses(R"({ "name": "TA", "parent": "TComponent", "include": ["common"], "events": ["OnClick"],
                     "properties": ["Flat: Boolean = True"] })",
        R"("types": { "TAlign": ["alNone", "alTop"] },
           "propertySets": { "common": { "properties": ["Align: TAlign = alNone", "Flat: Boolean = False"],
                                         "events": ["OnShow"] } },)");
    QStringList names;
    for (const auto* property : GetPropList(FindClass(QStringLiteral("TA")), {}, false))
        if (!GetPropInfo(TComponent::Class(), property->Name))
            names << property->Name;
    EXPECT_EQ(names.join(u' '), QStringLiteral("Align Flat OnShow OnClick"));
    EXPECT_EQ(GetPropInfo(FindClass(QStringLiteral("TA")), QStringLiteral("Flat"))->Default, QVariant(true));
}

TEST_F(ACatalogueClass, SeesTheTypesAndSetsOfThePackagesThatItsPackageRequires)
{
    Write(QStringLiteral("a.json"), R"({ "package": "a", "requires": ["b"], "classes": [
        { "name": "TA", "parent": "TB", "include": ["s"], "properties": ["P: TE = e1"] } ] })");
    Write(QStringLiteral("b.json"), R"({ "package": "b", "requires": ["c"],
        "classes": [ { "name": "TB", "parent": "TComponent" } ] })");
    Write(QStringLiteral("c.json"), R"({ "package": "c", "types": { "TE": ["e1"] },
        "propertySets": { "s": { "properties": ["Q: Integer"] } } })");
    ASSERT_EQ(Load(), "");
    EXPECT_NE(GetPropInfo(FindClass(QStringLiteral("TA")), QStringLiteral("Q")), nullptr);
    EXPECT_EQ(FPackages.Package(0).Package + FPackages.Package(1).Package, QStringLiteral("cb"));
}

TEST_F(ACatalogueClass, KeepsValuesAndAnswersDefaultsBefore)
{
    LoadClasses(R"({ "name": "TA", "parent": "TComponent", "properties": [
        "Count: Integer = 5", "Style: TStyle = sB", "Sides: TSides = [sA]", "Back: TColor = clRed", "Title: string",
        "Flat: Boolean = True", "Scale: Double", "Free: Integer" ] })",
        R"("types": { "TStyle": ["sA", "sB"], "TSides": "set of TStyle",
                      "TColor": { "integer": { "clRed": 255 } } },)");
    const auto object = Made<TComponent>(QStringLiteral("TA"));
    const auto value = [&object](const char* name) { return GetPropValue(object.get(), QString::fromLatin1(name)); };
    EXPECT_EQ(value("Count"), QVariant(qlonglong(5)));
    EXPECT_EQ(value("Style"), QVariant(QStringLiteral("sB")));
    EXPECT_EQ(value("Sides"), QVariant(QStringList(QStringLiteral("sA"))));
    EXPECT_EQ(value("Back"), QVariant(qlonglong(255)));
    EXPECT_EQ(value("Title"), QVariant(QString()));
    EXPECT_EQ(value("Flat"), QVariant(true));
    EXPECT_EQ(value("Scale"), QVariant(0.0));
    EXPECT_EQ(value("Free"), QVariant(qlonglong(0)));
    SetPropValue(object.get(), QStringLiteral("Count"), 7);
    SetPropValue(object.get(), QStringLiteral("Flat"), false);
    EXPECT_EQ(value("Count"), QVariant(qlonglong(7)));
    EXPECT_EQ(value("Flat"), QVariant(false));
}

TEST_F(ACatalogueClass, LeavesOutOfAFileOnlyWhatHasADefaultOrIsEmpty)
{
    LoadClasses(R"({ "name": "TA", "parent": "TComponent", "properties": ["Count: Integer", "Title: string"] })");
    const auto made = FindClass(QStringLiteral("TA"));
    EXPECT_FALSE(GetPropInfo(made, QStringLiteral("Count"))->Default.isValid());
    EXPECT_EQ(GetPropInfo(made, QStringLiteral("Title"))->Default, QVariant(QString()));
}

TEST_F(ACatalogueClass, GivesAPropertyThatThePlatformHasOnlyAnotherDefault)
{
    LoadClasses(R"({ "name": "TA", "parent": "TControl", "properties": ["Visible: Boolean = False"] })");
    const auto control = Made<TControl>(QStringLiteral("TA"));
    SetPropValue(control.get(), QStringLiteral("Visible"), false);
    EXPECT_FALSE(control->Visible());
    EXPECT_EQ(GetPropInfo(control.get(), QStringLiteral("Visible"))->Default, QVariant(false));
}

TEST_F(ACatalogueClass, ShowsItsCaptionOrTextAsTheControlsText)
{
    LoadClasses(R"({ "name": "TA", "parent": "TControl", "properties": ["Caption: string"] },
                   { "name": "TB", "parent": "TWinControl", "properties": ["Text: string"] })");
    const auto button = Made<TControl>(QStringLiteral("TA"));
    SetStrProp(button.get(), QStringLiteral("Caption"), QStringLiteral("OK"));
    EXPECT_EQ(button->Caption(), QStringLiteral("OK"));
    const auto edit = Made<TControl>(QStringLiteral("TB"));
    edit->SetCaption(QStringLiteral("abc"));
    EXPECT_EQ(GetStrProp(edit.get(), QStringLiteral("Text")), QStringLiteral("abc"));
}

TEST_F(ACatalogueClass, RefersToComponentsOfTheDeclaredClass)
{
    LoadClasses(R"({ "name": "TA", "parent": "TControl", "properties": ["DataSource: TDataSource"] })");
    const auto control = Made<TControl>(QStringLiteral("TA"));
    EXPECT_EQ(GetPropInfo(control.get(), QStringLiteral("DataSource"))->PropType.Name, QStringLiteral("TDataSource"));
    auto source = std::make_unique<TDataSource>();
    SetObjectProp(control.get(), QStringLiteral("DataSource"), source.get());
    EXPECT_EQ(GetObjectProp(control.get(), QStringLiteral("DataSource")), source.get());
    TControl other;
    EXPECT_THROW(SetObjectProp(control.get(), QStringLiteral("DataSource"), &other), EPropertyError);
    source.reset();
    EXPECT_EQ(GetObjectProp(control.get(), QStringLiteral("DataSource")), nullptr);
}

TEST_F(ACatalogueClass, RefersToAComponentWhoseClassNobodyKnows)
{
    LoadClasses(R"({ "name": "TList", "parent": "TComponent" },
                   { "name": "TA", "parent": "TComponent", "properties": ["Images: TList"] })");
    auto info = std::make_unique<TClassInfo>();
    info->Name = QStringLiteral("TStranger");
    info->Parent = TComponent::Class();
    const std::unique_ptr<TPersistent> stranger(DefineClass(std::move(info)).Create(nullptr));
    const auto object = Made<TComponent>(QStringLiteral("TA"));
    SetObjectProp(object.get(), QStringLiteral("Images"), stranger.get());
    EXPECT_EQ(GetObjectProp(object.get(), QStringLiteral("Images")), stranger.get());
}

namespace {

// Writes down what changes.
struct ChangeLog : IDesignerHook {
    void PropertyChanged(TPersistent* instance, const QString& property) override
    {
        Lines << instance->ClassName() + u'.' + property;
    }
    void ValidateRename(TComponent*, const QString&, const QString&) override { }
    void Renamed(TComponent*, const QString&) override { }
    QStringList Lines;
};

}

TEST_F(ACatalogueClass, HasObjectsOfItsOwnThatReportTheirChanges)
{
    LoadClasses(R"({ "name": "TFont", "parent": "TPersistent", "properties": ["Height: Integer = -11"] },
                   { "name": "TBinding", "parent": "TPersistent", "properties": ["DataSource: TDataSource"] },
                   { "name": "TA", "parent": "TComponent", "properties": [
                       "Font: TFont", "Lines: TStrings", "DataBinding: TBinding"] })");
    const auto object = Made<TComponent>(QStringLiteral("TA"));
    ChangeLog log;
    object->SetDesignerHook(&log);
    auto* font = GetObjectProp(object.get(), QStringLiteral("Font"));
    EXPECT_TRUE(GetPropInfo(object.get(), QStringLiteral("Font"))->IsSubObject);
    EXPECT_EQ(GetPropValue(font, QStringLiteral("Height")), QVariant(qlonglong(-11)));
    EXPECT_EQ(GetObjectProp(object.get(), QStringLiteral("Font")), font);
    SetPropValue(font, QStringLiteral("Height"), -20);
    auto* lines = dynamic_cast<TStrings*>(GetObjectProp(object.get(), QStringLiteral("Lines")));
    ASSERT_NE(lines, nullptr);
    lines->SetText(QStringLiteral("one"));
    auto source = std::make_unique<TDataSource>();
    auto* binding = GetObjectProp(object.get(), QStringLiteral("DataBinding"));
    SetObjectProp(binding, QStringLiteral("DataSource"), source.get());
    source.reset();
    EXPECT_EQ(GetObjectProp(binding, QStringLiteral("DataSource")), nullptr);
    EXPECT_EQ(log.Lines.join(u' '), QStringLiteral("TFont.Height TA.Lines TBinding.DataSource TBinding.DataSource"));
}

TEST_F(ACatalogueClass, MakesItemsOfTheDeclaredClass)
{
    LoadClasses(R"({ "name": "TColumn", "parent": "TCollectionItem", "properties": ["FieldName: string"] },
                   { "name": "TColumns", "parent": "TCollection", "item": "TColumn" },
                   { "name": "TMyColumns", "parent": "TColumns" },
                   { "name": "TA", "parent": "TComponent", "properties": ["Columns: TMyColumns"] })");
    const auto object = Made<TComponent>(QStringLiteral("TA"));
    auto* columns = dynamic_cast<TCollection*>(GetObjectProp(object.get(), QStringLiteral("Columns")));
    ASSERT_NE(columns, nullptr);
    EXPECT_EQ(columns->ClassName(), QStringLiteral("TMyColumns"));
    auto* item = columns->Add();
    EXPECT_EQ(item->ClassName(), QStringLiteral("TColumn"));
    SetStrProp(item, QStringLiteral("FieldName"), QStringLiteral("Title"));
    EXPECT_EQ(GetStrProp(item, QStringLiteral("FieldName")), QStringLiteral("Title"));
}

TEST_F(ACatalogueClass, OfAnotherLibraryConnectsLikeOurs)
{
    LoadClasses(R"({ "name": "TLib", "parent": "TCustomZAConnection", "properties": ["Params: TStrings"],
                     "connection": { "provider": ["Params.DriverID"], "providers": { "PG": "PostgreSQL" },
                                     "server": ["Params.Server"], "database": ["Params.Database"] } },
                   { "name": "TLibQuery", "parent": "TCustomZADataSet",
                     "properties": ["Link: TLib", "Text: TStrings", "ParamData: TParams", "DataSource: TDataSource"],
                     "dataset": { "connection": "Link", "sql": "Text", "params": "ParamData",
                                  "masterSource": "DataSource" } })");
    const auto connection = Made<TCustomZAConnection>(QStringLiteral("TLib"));
    const auto query = Made<TCustomZADataSet>(QStringLiteral("TLibQuery"));
    ASSERT_TRUE(connection && query);
    dynamic_cast<TStrings*>(GetObjectProp(connection.get(), QStringLiteral("Params")))
        ->SetLines({ QStringLiteral("DriverID=PG"), QStringLiteral("Database=shop") });
    SetObjectProp(query.get(), QStringLiteral("Link"), connection.get());
    EXPECT_EQ(query->GetConnection(), connection.get());
    EXPECT_EQ(connection->DataSets(), QList<TDataSet*> { query.get() });
    const auto parameters = connection->ConnectionParameters();
    EXPECT_EQ(parameters.Provider + u'/' + parameters.Database, QStringLiteral("PostgreSQL/shop"));
    auto* params = dynamic_cast<TParams*>(GetObjectProp(query.get(), QStringLiteral("ParamData")));
    ASSERT_NE(params, nullptr);
    EXPECT_EQ(params->PropertyName(), QStringLiteral("ParamData"));
    TDataSource source;
    SetObjectProp(query.get(), QStringLiteral("DataSource"), &source);
    EXPECT_EQ(query->MasterSource(), &source);
    query->SetConnection(nullptr);
    EXPECT_EQ(GetObjectProp(query.get(), QStringLiteral("Link")), nullptr);
}
