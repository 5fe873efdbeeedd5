#include "Shop.h"

#include "data/TDataSetDesigner.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "rtl/SysUtils.h"

#include <QDate>
#include <QFile>

using SqlDataAccessTest = Shop;

namespace {

QString Titles(TDataSet& dataSet)
{
    QStringList titles;
    for (dataSet.First(); !dataSet.Eof() && dataSet.RecordCount() > 0; dataSet.Next())
        titles << dataSet.FieldByName(QStringLiteral("TITLE"))->DisplayText();
    return titles.join(u' ');
}

}

TEST_F(SqlDataAccessTest, ReachesNothingBeforeTheProjectIsAllowed)
{
    Access.Disallow(Project);
    auto* query = NewQuery(QStringLiteral("select * from BOOK"));
    const auto refused = QStringLiteral("qryBooks: conShop: connecting to databases is not allowed for shop.dproj");
    EXPECT_EQ(Failure([&] { query->Open(); }), refused);
    EXPECT_EQ(Failure([&] { query->FieldDefs().Update(); }), refused);
    EXPECT_EQ(Failure([&] { Connection->Open(); }),
        QStringLiteral("conShop: connecting to databases is not allowed for shop.dproj"));
    EXPECT_FALSE(query->Active() || Connection->Connected());
}

TEST_F(SqlDataAccessTest, BringsTheRowsOfAQuery)
{
    auto* query = NewQuery(QStringLiteral("select * from BOOK order by TITLE"));
    query->Open();
    EXPECT_EQ(query->RecordCount(), 2);
    EXPECT_EQ(Titles(*query), QStringLiteral("Emma Ulysses"));
    query->First();
    EXPECT_EQ(query->FieldByName(QStringLiteral("ISSUED"))->Value(), QVariant(QDate(1815, 12, 23)));
    EXPECT_EQ(query->FieldByName(QStringLiteral("INPRINT"))->DisplayText(), QStringLiteral("True"));
    EXPECT_EQ(query->FieldByName(QStringLiteral("PRICE"))->DisplayText(), QStringLiteral("8.9"));
    EXPECT_TRUE(query->FieldByName(QStringLiteral("BLURB"))->IsNull());
}

TEST_F(SqlDataAccessTest, BringsTheDefinitionsOfAQueryAndFieldsAreMadeOfThem)
{
    auto* query = NewQuery(QStringLiteral("select ID, TITLE, PRICE from BOOK"));
    query->FieldDefs().Update();
    ASSERT_EQ(query->FieldDefs().Count(), 3);
    EXPECT_FALSE(query->Active());
    TDSDesigner designer(query);
    auto* price = designer.DoCreateField(QStringLiteral("PRICE"), {});
    EXPECT_EQ(price->ClassName(), QStringLiteral("TBCDField"));
    EXPECT_EQ(price->Name(), QStringLiteral("qryBooksPRICE"));
    EXPECT_EQ(price->Size(), 2);
    EXPECT_EQ(price->FieldNo(), 3);
}

TEST_F(SqlDataAccessTest, ShowsATableByItsNameInAnyCase)
{
    auto* table = new TZATable(&Module);
    table->SetConnection(Connection);
    SetStrProp(table, QStringLiteral("TableName"), QStringLiteral("book"));
    table->Open();
    EXPECT_EQ(Titles(*table), QStringLiteral("Emma Ulysses"));
}

TEST_F(SqlDataAccessTest, ShowsTheDetailsOfTheMastersRecord)
{
    auto* master = NewQuery(QStringLiteral("select * from BOOK order by ID"));
    auto* source = new TDataSource(&Module);
    source->SetDataSet(master);
    auto* byParameter = NewQuery(QStringLiteral("select * from SALE where BOOK = :ID"), QStringLiteral("qrySales"));
    SetObjectProp(byParameter, QStringLiteral("MasterSource"), source);
    auto* byFields = NewQuery(QStringLiteral("select * from SALE;"), QStringLiteral("qrySales2"));
    SetObjectProp(byFields, QStringLiteral("MasterSource"), source);
    SetStrProp(byFields, QStringLiteral("MasterFields"), QStringLiteral("ID"));
    SetStrProp(byFields, QStringLiteral("DetailFields"), QStringLiteral("BOOK"));
    master->Open();
    master->Next();
    byParameter->Open();
    byFields->Open();
    EXPECT_EQ(byParameter->RecordCount(), 2);
    EXPECT_EQ(byFields->RecordCount(), 2);
    EXPECT_EQ(byFields->FieldByName(QStringLiteral("AMOUNT"))->DisplayText(), QStringLiteral("20"));
}

TEST_F(SqlDataAccessTest, BindsParametersWithoutAValueAsNull)
{
    auto* query = NewQuery(QStringLiteral("select TITLE from BOOK where ID = :ID or :ID is null"));
    query->Open();
    EXPECT_EQ(query->RecordCount(), 2);
    query->Close();
    auto* parameter = static_cast<TParam*>(query->Params().Add());
    parameter->SetName(QStringLiteral("id"));
    parameter->SetValue(2);
    query->Open();
    EXPECT_EQ(Titles(*query), QStringLiteral("Ulysses"));
}

TEST_F(SqlDataAccessTest, StopsAtTheRowsThatWereAskedFor)
{
    TStatement statement;
    statement.Text = QStringLiteral("select * from SALE");
    const auto two = Access.Query(*Connection, statement, 2, {});
    EXPECT_EQ(two.Rows.size(), 2);
    EXPECT_TRUE(two.Truncated);
    const auto three = Access.Query(*Connection, statement, 3, {});
    EXPECT_EQ(three.Rows.size(), 3);
    EXPECT_FALSE(three.Truncated);
}

TEST_F(SqlDataAccessTest, StopsAStatementThatRunsWhenTheUserNoLongerWantsIt)
{
    TStatement statement;
    statement.Text = QStringLiteral("with recursive C(X) as (select 1 union all select X + 1 from C) "
                                    "select X from C where X < 0");
    int asked = 0;
    EXPECT_THROW(Access.Query(*Connection, statement, 1, [&asked] { return ++asked > 3; }), EAbort);
    EXPECT_GT(asked, 3);
}

TEST_F(SqlDataAccessTest, LeavesADatasetClosedWhoseOpeningWasStopped)
{
    auto* query = NewQuery(QStringLiteral("select * from BOOK"));
    SetQueryCancelled([] { return true; });
    EXPECT_THROW(query->Open(), EAbort);
    SetQueryCancelled({});
    EXPECT_FALSE(query->Active());
    EXPECT_EQ(query->FieldCount(), 0);
}

TEST_F(SqlDataAccessTest, AFieldMadeWhileTheDatasetIsOpenShowsItsValueAtOnce)
{
    auto* query = NewQuery(QStringLiteral("select * from BOOK order by ID"));
    query->FieldDefs().Update();
    query->Open();
    TDSDesigner designer(query);
    designer.BeginDesign();
    auto* title = designer.DoCreateField(QStringLiteral("TITLE"), {});
    designer.EndDesign();
    EXPECT_TRUE(query->IsOpen());
    EXPECT_EQ(query->FieldCount(), 1);
    EXPECT_EQ(title->DisplayText(), QStringLiteral("Emma"));
}

TEST_F(SqlDataAccessTest, AsksForALoginOnceAndOnlyForAServer)
{
    int asked = 0;
    Access.SetLogin([&asked](const TCustomZAConnection&, TConnectionParameters&) { return ++asked, false; });
    Connection->Open();
    EXPECT_EQ(asked, 0);
    Connection->Close();
    SetStrProp(Connection, QStringLiteral("ProviderName"), QStringLiteral("PostgreSQL"));
    EXPECT_THROW(Connection->Open(), EAbort);
    EXPECT_EQ(asked, 1);
    SetPropValue(Connection, QStringLiteral("LoginPrompt"), false);
    SetStrProp(Connection, QStringLiteral("Server"), QStringLiteral("nowhere.invalid"));
    EXPECT_THROW(Connection->Open(), EDatabaseError);
    EXPECT_EQ(asked, 1);
}

TEST_F(SqlDataAccessTest, WritesNothing)
{
    EXPECT_EQ(Failure([this] { NewQuery(QStringLiteral("/* all */ delete from BOOK returning ID"))->Open(); }),
        QStringLiteral("qryBooks: only statements that read are run at design time, and this one begins with DELETE"));
    EXPECT_EQ(Failure([this] {
        NewQuery(QStringLiteral("with A as (select 1) delete from BOOK returning ID"), QStringLiteral("qryGone"))
            ->Open();
    }),
        QStringLiteral("qryGone: attempt to write a readonly database"));
    auto* query = NewQuery(QStringLiteral("select * from BOOK"), QStringLiteral("qryAll"));
    query->Open();
    EXPECT_EQ(query->RecordCount(), 2);
}

TEST_F(SqlDataAccessTest, NamesAMissingFileAndMakesNone)
{
    SetStrProp(Connection, QStringLiteral("Database"), QStringLiteral("data\\none.db"));
    const auto file = File(QStringLiteral("data/none.db"));
    EXPECT_EQ(Failure([this] { NewQuery(QStringLiteral("select 1"))->Open(); }),
        QStringLiteral("qryBooks: conShop: the database file %1 does not exist").arg(file));
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(SqlDataAccessTest, SaysThatAFileIsNoDatabase)
{
    QFile file(File(QStringLiteral("text.db")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4096, 'x'));
    file.close();
    SetStrProp(Connection, QStringLiteral("Database"), QStringLiteral("text.db"));
    EXPECT_EQ(Failure([this] { NewQuery(QStringLiteral("select * from BOOK"))->FieldDefs().Update(); }),
        QStringLiteral("qryBooks: file is not a database"));
}

TEST_F(SqlDataAccessTest, FindsAFileWhoseNameDiffersInCase)
{
    SetStrProp(Connection, QStringLiteral("Database"), QStringLiteral(".\\SHOP.DB"));
    EXPECT_EQ(Access.TargetOf(*Connection).Database, File(QStringLiteral("shop.db")));
}

TEST_F(SqlDataAccessTest, SaysWhichProvidersThereAre)
{
    SetStrProp(Connection, QStringLiteral("ProviderName"), QStringLiteral("Oracle"));
    EXPECT_EQ(Failure([this] { Connection->Open(); }),
        QStringLiteral("conShop: the provider Oracle cannot be reached; these can: SQLite, PostgreSQL, MySQL, ODBC"));
    SetStrProp(Connection, QStringLiteral("ProviderName"), QString());
    EXPECT_EQ(Failure([this] { Connection->Open(); }), QStringLiteral("conShop: the connection names no provider"));
}

TEST_F(SqlDataAccessTest, ReachesAnotherDatabaseWithoutTouchingTheForm)
{
    ASSERT_TRUE(QFile::copy(File(QStringLiteral("shop.db")), File(QStringLiteral("other.db"))));
    RunStatements({ QStringLiteral("SQLite"), {}, 0, File(QStringLiteral("other.db")), {}, {} },
        QStringLiteral("QSQLITE"), { QStringLiteral("delete from BOOK where TITLE = 'Emma'") });
    SetStrProp(Connection, QStringLiteral("ProviderName"), QStringLiteral("Oracle"));
    Access.Retarget(QStringLiteral("DMSHOP.conshop"), File(QStringLiteral("other.db")));
    auto* query = NewQuery(QStringLiteral("select * from BOOK"));
    query->Open();
    EXPECT_EQ(Titles(*query), QStringLiteral("Ulysses"));
    EXPECT_EQ(GetStrProp(Connection, QStringLiteral("Database")), QStringLiteral("shop.db"));
    EXPECT_EQ(GetStrProp(Connection, QStringLiteral("ProviderName")), QStringLiteral("Oracle"));
}

TEST_F(SqlDataAccessTest, ListsTablesAndViews)
{
    EXPECT_EQ(Access.TableNames(*Connection).join(u' '), QStringLiteral("BOOK CHEAP SALE sqlite_sequence"));
}

TEST_F(SqlDataAccessTest, ConnectsAndLetsGoOnRequest)
{
    Connection->Open();
    EXPECT_TRUE(Connection->Connected());
    EXPECT_EQ(GetPropValue(Connection, QStringLiteral("Connected")), QVariant(false));
    auto* query = NewQuery(QStringLiteral("select * from BOOK"));
    query->Open();
    Connection->Close();
    EXPECT_FALSE(Connection->Connected());
    EXPECT_FALSE(query->Active());
}

TEST_F(SqlDataAccessTest, KeepsAStoredConnectedWithoutConnecting)
{
    SetStrProp(Connection, QStringLiteral("Database"), QStringLiteral("none.db"));
    SetPropValue(Connection, QStringLiteral("Connected"), true);
    EXPECT_TRUE(Connection->Connected());
    EXPECT_FALSE(Connection->IsOpen());
}

TEST_F(SqlDataAccessTest, ForgetsAConnectionThatGoes)
{
    auto* query = NewQuery(QStringLiteral("select * from BOOK"));
    query->Open();
    delete Connection;
    Access.Disallow(Project);
    query->Close();
    EXPECT_EQ(Failure([&] { query->Open(); }), QStringLiteral("qryBooks: no connection is assigned"));
}
