#include "data/DataRoles.h"

#include "classes/Forms.h"
#include "classes/TClassBuilder.h"
#include "data/DataClasses.h"
#include "data/PropertyTypes.h"
#include "data/TCustomZAConnection.h"
#include "data/TCustomZASQL.h"
#include "data/ZADataSets.h"

#include <gtest/gtest.h>

namespace {

TClass MakeClass(const QString& name, TClass parent, const QList<TPropInfo>& properties)
{
    auto info = std::make_unique<TClassInfo>();
    info->Name = name;
    info->Parent = parent;
    info->Properties = properties;
    return DefineClass(std::move(info));
}

TPropInfo Text(const QString& name)
{
    return StoredProperty(name, StringType(), QString());
}

class DataRolesTest : public testing::Test {
protected:
    DataRolesTest() { RegisterDataClasses(); }
    TDataModule Module;
    TZAConnection* Connection = new TZAConnection(&Module);
};

}

TEST_F(DataRolesTest, AClassOfACatalogueHoldsItsConnectionInItsOwnProperty)
{
    const auto queryClass = MakeClass(QStringLiteral("TOtherQuery"), TCustomZADataSet::Class(),
        { StoredProperty(QStringLiteral("DataBase"), ReferenceType(QStringLiteral("TCustomZAConnection"))) });
    TDataSetRoles roles;
    roles.Connection = QStringLiteral("DataBase");
    SetDataSetRoles(queryClass, roles);
    auto* query = static_cast<TCustomZADataSet*>(queryClass.Create(&Module));
    query->SetConnection(Connection);
    EXPECT_EQ(GetObjectProp(query, QStringLiteral("DataBase")), Connection);
    EXPECT_EQ(query->GetConnection(), Connection);
    EXPECT_EQ(Connection->DataSets(), QList<TDataSet*>({ static_cast<TDataSet*>(query) }));
    SetObjectProp(query, QStringLiteral("DataBase"), nullptr);
    EXPECT_EQ(query->GetConnection(), nullptr);
    EXPECT_TRUE(Connection->DataSets().isEmpty());
}

TEST_F(DataRolesTest, AClassTakesWhatItLeavesOpenFromItsParents)
{
    const auto base = MakeClass(QStringLiteral("TOtherBase"), TCustomZADataSet::Class(), {});
    const auto derived = MakeClass(QStringLiteral("TOtherTable"), base, {});
    TDataSetRoles roles;
    roles.Connection = QStringLiteral("Link");
    roles.Table = QStringLiteral("Name");
    SetDataSetRoles(base, roles);
    TDataSetRoles own;
    own.Table = QStringLiteral("TableName");
    SetDataSetRoles(derived, own);
    EXPECT_EQ(GetDataSetRoles(derived).Connection, QStringLiteral("Link"));
    EXPECT_EQ(GetDataSetRoles(derived).Table, QStringLiteral("TableName"));
}

TEST_F(DataRolesTest, AConnectionIsReadFromLinesPartsAndProperties)
{
    const auto aClass = MakeClass(QStringLiteral("TOtherConnection"), TCustomZAConnection::Class(),
        { Text(QStringLiteral("ConnectionString")), Text(QStringLiteral("UserName")),
            Text(QStringLiteral("DriverID")) });
    TConnectionRoles roles;
    roles.Provider = { QStringLiteral("DriverID") };
    roles.Providers = { { QStringLiteral("PG"), QStringLiteral("PostgreSQL") } };
    roles.Database
        = { QStringLiteral("ConnectionString.Initial Catalog"), QStringLiteral("ConnectionString.Data Source") };
    roles.UserName = { QStringLiteral("Params.User_Name"), QStringLiteral("UserName") };
    SetConnectionRoles(aClass, roles);
    auto* connection = static_cast<TCustomZAConnection*>(aClass.Create(&Module));
    SetStrProp(connection, QStringLiteral("DriverID"), QStringLiteral("PG"));
    SetStrProp(connection, QStringLiteral("ConnectionString"), QStringLiteral("Provider=x; data source='a b.db'"));
    SetStrProp(connection, QStringLiteral("UserName"), QStringLiteral("jane"));
    const auto parameters = connection->ConnectionParameters();
    EXPECT_EQ(parameters.Provider, QStringLiteral("PostgreSQL"));
    EXPECT_EQ(parameters.Database, QStringLiteral("a b.db"));
    EXPECT_EQ(parameters.UserName, QStringLiteral("jane"));
}

TEST_F(DataRolesTest, APropertyThatTakesAnotherKindOfConnectionRefusesOurs)
{
    const auto other = MakeClass(QStringLiteral("TThirdConnection"), TCustomZAConnection::Class(), {});
    RegisterClass(other);
    const auto queryClass = MakeClass(QStringLiteral("TThirdQuery"), TCustomZADataSet::Class(),
        { StoredProperty(QStringLiteral("Connection"), ReferenceType(QStringLiteral("TThirdConnection"))) });
    TDataSetRoles roles;
    roles.Connection = QStringLiteral("Connection");
    SetDataSetRoles(queryClass, roles);
    auto* query = static_cast<TCustomZADataSet*>(queryClass.Create(&Module));
    EXPECT_THROW(query->SetConnection(Connection), EPropertyError);
    UnRegisterClass(other);
}

TEST_F(DataRolesTest, AConnectionThatGoesIsClearedEverywhere)
{
    auto* query = new TZAQuery(&Module);
    auto* sql = new TZASQL(&Module);
    auto* script = new TZAScript(&Module);
    query->SetConnection(Connection);
    sql->SetConnection(Connection);
    script->SetConnection(Connection);
    EXPECT_EQ(sql->GetConnection(), Connection);
    delete Connection;
    EXPECT_EQ(query->GetConnection(), nullptr);
    EXPECT_EQ(GetObjectProp(query, QStringLiteral("Connection")), nullptr);
    EXPECT_EQ(sql->GetConnection(), nullptr);
    EXPECT_EQ(script->GetConnection(), nullptr);
}

TEST_F(DataRolesTest, ACommandTypeDecidesWhatTheTextIs)
{
    const auto aClass = MakeClass(QStringLiteral("TOtherDataSet"), TCustomZADataSet::Class(),
        { Text(QStringLiteral("CommandText")), Text(QStringLiteral("CommandType")) });
    TDataSetRoles roles;
    roles.SQL = QStringLiteral("CommandText");
    roles.CommandType = QStringLiteral("CommandType");
    roles.TableCommands = { QStringLiteral("ctTable") };
    SetDataSetRoles(aClass, roles);
    auto* dataSet = static_cast<TCustomZADataSet*>(aClass.Create(&Module));
    SetStrProp(dataSet, QStringLiteral("CommandText"), QStringLiteral("BOOK"));
    EXPECT_EQ(dataSet->Statement().Kind, TStatement::Sql);
    SetStrProp(dataSet, QStringLiteral("CommandType"), QStringLiteral("ctTable"));
    EXPECT_EQ(dataSet->Statement().Kind, TStatement::Table);
    EXPECT_EQ(dataSet->Statement().Text, QStringLiteral("BOOK"));
}
