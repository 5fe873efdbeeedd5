#include "PackagesFixture.h"

#include "data/TCustomZAConnection.h"
#include "data/TCustomZADataSet.h"
#include "data/TCustomZASQL.h"
#include "data/TField.h"
#include "packages/JsonTree.h"
#include "rtl/SysUtils.h"

#include <QFile>
#include <QSet>

// The catalogues of the repository, installed once for all tests of this file.
class ShippedCatalogues : public PackagesFixture {
protected:
    static void SetUpTestSuite() { ShippedCatalogues().Prepare(); }
    static void TearDownTestSuite() { FInstalled.reset(); }
    void TestBody() override { }
    void Prepare()
    {
        FInstalled = std::make_unique<PackageList>();
        for (const auto& problem : FInstalled->Load(QStringLiteral(MORVANE_SOURCE_DIR "/packages")))
            FTold += problem.ToString() + u'\n';
    }

    static TClass Class(const char* name, const char* group = "VCL")
    {
        return GetClassInGroup(QString::fromLatin1(name), QString::fromLatin1(group));
    }
    static std::unique_ptr<TPersistent> Made(const char* name, const char* group = "VCL")
    {
        return std::unique_ptr<TPersistent>(Class(name, group).Create(nullptr));
    }

    static inline std::unique_ptr<PackageList> FInstalled;
    static inline QString FTold;
};

TEST_F(ShippedCatalogues, HaveNoProblem)
{
    EXPECT_EQ(FTold.toStdString(), "");
    EXPECT_GE(FInstalled->Count(), 20);
}

TEST_F(ShippedCatalogues, AreCalledAsTheirPackages)
{
    for (int i = 0; i < FInstalled->Count(); ++i) {
        const auto& package = FInstalled->Package(i);
        EXPECT_TRUE(package.FileName.endsWith(u'/' + package.Package + QStringLiteral(".json")))
            << package.FileName.toStdString();
        EXPECT_FALSE(package.Description.isEmpty()) << package.FileName.toStdString();
    }
}

namespace {

QByteArray content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void addKeys(const JsonValue& object, QSet<QString>& keys)
{
    for (const auto& member : object.Members)
        keys << member.Name;
}

// The keys that the catalogue uses, without those that are names of its own.
QSet<QString> usedKeys(const JsonValue& root)
{
    QSet<QString> keys;
    addKeys(root, keys);
    const auto* classes = root.Find(QLatin1String("classes"));
    for (const auto& described : classes ? classes->Items : QList<JsonValue>()) {
        addKeys(described, keys);
        for (const auto* part : { "geometry", "bindings", "connection", "dataset" })
            if (const auto* object = described.Find(QLatin1String(part)))
                addKeys(*object, keys);
        if (const auto* creates = described.Find(QLatin1String("creates")))
            for (const auto& created : creates->Items)
                addKeys(created, keys);
    }
    return keys;
}

}

TEST_F(ShippedCatalogues, UseNoKeyThatTheirReadmeDoesNotExplain)
{
    const auto readme = content(QStringLiteral(MORVANE_SOURCE_DIR "/packages/README.md"));
    QSet<QString> keys;
    for (int i = 0; i < FInstalled->Count(); ++i) {
        Problems problems;
        const auto& fileName = FInstalled->Package(i).FileName;
        keys += usedKeys(*JsonTree(fileName, content(fileName), problems).Root());
    }
    for (const auto& key : keys)
        EXPECT_TRUE(readme.contains('`' + key.toUtf8() + '`')) << key.toStdString();
}

TEST_F(ShippedCatalogues, MakeEveryComponentOfThePalette)
{
    for (int i = 0; i < FInstalled->Count(); ++i)
        for (const auto& name : FInstalled->ComponentNames(i)) {
            const auto aClass = GetClassInGroup(name, FInstalled->Package(i).Group);
            ASSERT_TRUE(aClass) << name.toStdString();
            const std::unique_ptr<TPersistent> made(aClass.Create(nullptr));
            EXPECT_EQ(made->ClassName(), name);
            EXPECT_NE(dynamic_cast<TComponent*>(made.get()), nullptr) << name.toStdString();
            EXPECT_FALSE(FInstalled->Info(aClass).Draw.isEmpty()) << name.toStdString();
            EXPECT_FALSE(FInstalled->Info(aClass).Units.isEmpty()) << name.toStdString();
        }
}

TEST_F(ShippedCatalogues, AnswerForEveryPublishedProperty)
{
    for (int i = 0; i < FInstalled->Count(); ++i)
        for (const auto& name : FInstalled->ComponentNames(i)) {
            const auto made
                = std::unique_ptr<TPersistent>(GetClassInGroup(name, FInstalled->Package(i).Group).Create(nullptr));
            for (const auto* property : GetPropList(made->ClassType()))
                EXPECT_TRUE(property->Get(made.get()).isValid() || property->PropType.Kind == tkVariant
                    || property->PropType.Kind == tkEnumeration)
                    << name.toStdString() << '.' << property->Name.toStdString();
        }
}

TEST_F(ShippedCatalogues, BindEveryDataControlThatTheyList)
{
    for (const auto* name :
        { "TDBEdit", "TDBText", "TDBMemo", "TDBImage", "TDBListBox", "TDBComboBox", "TDBCheckBox", "TDBRadioGroup",
            "TDBLookupListBox", "TDBLookupComboBox", "TDBRichEdit", "TDBGrid", "TDBCtrlGrid", "TDBNavigator" }) {
        const auto* source = GetPropInfo(Class(name), QStringLiteral("DataSource"));
        ASSERT_NE(source, nullptr) << name;
        EXPECT_EQ(source->PropType.Name, QStringLiteral("TDataSource")) << name;
        EXPECT_EQ(FInstalled->Info(Class(name)).Bindings.Source, QStringLiteral("DataSource")) << name;
        const auto field = FInstalled->Info(Class(name)).Bindings.Field;
        EXPECT_TRUE(field.isEmpty() || GetPropInfo(Class(name), field)->PropType.Kind == tkString) << name;
    }
}

TEST_F(ShippedCatalogues, BindCxEditorsThroughTheirDataBinding)
{
    const auto edit = Made("TcxDBTextEdit");
    auto* binding = GetObjectProp(edit.get(), QStringLiteral("DataBinding"));
    ASSERT_NE(binding, nullptr);
    SetStrProp(binding, QStringLiteral("DataField"), QStringLiteral("Title"));
    EXPECT_EQ(GetStrProp(binding, QStringLiteral("DataField")), QStringLiteral("Title"));
    EXPECT_NE(GetPropInfo(binding, QStringLiteral("DataSource")), nullptr);
}

TEST_F(ShippedCatalogues, MakeACxGridWithItsView)
{
    const auto creates = FInstalled->Info(Class("TcxGrid")).Creates;
    ASSERT_EQ(creates.size(), 2);
    EXPECT_EQ(creates[0].Name, QStringLiteral("%sDBTableView1"));
    const auto view = Made("TcxGridDBTableView");
    EXPECT_NE(GetPropInfo(GetObjectProp(view.get(), QStringLiteral("DataController")), QStringLiteral("DataSource")),
        nullptr);
}

TEST_F(ShippedCatalogues, PresentOtherLibrariesUnderTheFamilies)
{
    const auto all = [](std::initializer_list<const char*> names, TClass family, const char* group) {
        for (const auto* name : names)
            EXPECT_TRUE(Class(name, group).InheritsFrom(family)) << name;
    };
    all({ "TFDConnection", "TADOConnection", "TSQLConnection", "TIBDatabase", "TZConnection", "TDatabase" },
        TCustomZAConnection::Class(), "VCL");
    all({ "TFDQuery", "TFDTable", "TFDStoredProc", "TADOQuery", "TADOTable", "TADODataSet", "TSQLQuery", "TSQLTable",
            "TSQLDataSet", "TIBQuery", "TIBTable", "TIBDataSet", "TZQuery", "TZTable", "TZReadOnlyQuery" },
        TCustomZADataSet::Class(), "VCL");
    all({ "TFDCommand", "TADOCommand", "TIBSQL" }, TCustomZASQL::Class(), "VCL");
    all({ "TFDScript", "TIBScript", "TZSQLProcessor" }, TZAScript::Class(), "VCL");
    all({ "TSQLite3Connection", "TPQConnection", "TMySQL80Connection", "TODBCConnection", "TSQLConnector" },
        TCustomZAConnection::Class(), "LCL");
    all({ "TSQLQuery", "TZQuery" }, TCustomZADataSet::Class(), "LCL");
    all({ "TSQLScript" }, TZAScript::Class(), "LCL");
    for (const auto* name : { "TClientDataSet", "TFDMemTable", "TQuery" }) {
        EXPECT_TRUE(Class(name).InheritsFrom(TDataSet::Class())) << name;
        EXPECT_FALSE(Class(name).InheritsFrom(TCustomZADataSet::Class())) << name;
    }
    EXPECT_TRUE(Class("TBufDataset", "LCL").InheritsFrom(TDataSet::Class()));
}

TEST_F(ShippedCatalogues, NameForEveryRoleAPropertyOfTheClass)
{
    for (int i = 0; i < FInstalled->Count(); ++i)
        for (const auto& name : FInstalled->ComponentNames(i)) {
            const auto aClass = GetClassInGroup(name, FInstalled->Package(i).Group);
            const auto& roles = GetDataSetRoles(aClass);
            for (const auto& property : { roles.Connection, roles.SQL, roles.Table, roles.Procedure, roles.Params,
                     roles.MasterSource, roles.MasterFields, roles.DetailFields, roles.CommandType })
                EXPECT_TRUE(property.isEmpty() || GetPropInfo(aClass, property))
                    << name.toStdString() << '.' << property.toStdString();
            const auto& places = GetConnectionRoles(aClass);
            for (const auto& place :
                places.Provider + places.Server + places.Port + places.Database + places.UserName + places.Password)
                EXPECT_TRUE(GetPropInfo(aClass, place.section(u'.', 0, 0)))
                    << name.toStdString() << '.' << place.toStdString();
        }
}

TEST_F(ShippedCatalogues, ReadTheParametersOfOtherLibrariesConnections)
{
    const auto connection = Made("TFDConnection");
    dynamic_cast<TStrings*>(GetObjectProp(connection.get(), QStringLiteral("Params")))
        ->SetLines({ QStringLiteral("DriverID=MySQL"), QStringLiteral("Server=db1"), QStringLiteral("Port=3307") });
    const auto parameters = static_cast<TCustomZAConnection*>(connection.get())->ConnectionParameters();
    EXPECT_EQ(parameters.Provider, QStringLiteral("MySQL"));
    EXPECT_EQ(parameters.Server, QStringLiteral("db1"));
    EXPECT_EQ(parameters.Port, 3307);

    const auto lite = Made("TSQLite3Connection", "LCL");
    SetStrProp(lite.get(), QStringLiteral("DatabaseName"), QStringLiteral("bookshop.db"));
    const auto embedded = static_cast<TCustomZAConnection*>(lite.get())->ConnectionParameters();
    EXPECT_EQ(embedded.Provider + u' ' + embedded.Database, QStringLiteral("SQLite bookshop.db"));
}

TEST_F(ShippedCatalogues, KeepControlsOfOneLibraryOffTheFormsOfAnother)
{
    EXPECT_TRUE(Class("TDBGrid", "VCL"));
    EXPECT_TRUE(Class("TDBGrid", "LCL"));
    EXPECT_FALSE(Class("TDBGrid", "FMX"));
    EXPECT_FALSE(Class("TDBGrid", "VCL") == Class("TDBGrid", "LCL"));
    EXPECT_EQ(FInstalled->Info(Class("TDBGrid", "LCL")).Units.first().Scoped, QStringLiteral("DBGrids"));
    EXPECT_EQ(FInstalled->Info(Class("TDBGrid", "VCL")).Units.first().Scoped, QStringLiteral("Vcl.DBGrids"));
}
