#include "data/TDataSet.h"

#include "classes/Forms.h"
#include "data/DataClasses.h"
#include "data/DataRoles.h"
#include "data/TCustomZAConnection.h"
#include "data/TDataLink.h"
#include "data/TDataSource.h"
#include "data/TextFields.h"
#include "data/ZADataSets.h"
#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

namespace {

// Rows that need no database; every question is noted.
class MemoryAccess : public IDataAccess {
public:
    MemoryAccess() { SetDataAccess(this); }
    ~MemoryAccess() { SetDataAccess(nullptr); }
    bool IsAllowed(const TCustomZAConnection&) override { return true; }
    void Connect(TCustomZAConnection&) override { Asked << QStringLiteral("connect"); }
    void Disconnect(TCustomZAConnection&) override { Asked << QStringLiteral("disconnect"); }
    QList<TDataColumn> Describe(TCustomZAConnection&, const TStatement& statement) override
    {
        Asked << QStringLiteral("describe ") + statement.Text;
        Fail();
        return Rows.Columns;
    }
    TRowSet Query(TCustomZAConnection&, const TStatement& statement, int, const std::function<bool()>&) override
    {
        Asked << QStringLiteral("query ") + statement.Text;
        Fail();
        return Rows;
    }
    QStringList TableNames(TCustomZAConnection&) override { return {}; }
    void Forget(const TCustomZAConnection&) override { }

    TRowSet Rows { { { QStringLiteral("ID"), ftInteger }, { QStringLiteral("TITLE"), ftString, 40 } },
        { { 1, QStringLiteral("Emma") }, { 2, QStringLiteral("Ulysses") } }, false };
    QStringList Asked;
    QString Failure;

private:
    void Fail() const
    {
        if (!Failure.isEmpty())
            throw EDatabaseError(Failure);
    }
};

class TDataSetTest : public testing::Test {
protected:
    TDataSetTest()
    {
        RegisterDataClasses();
        Module.SetName(QStringLiteral("dmShop"));
        Connection->SetName(QStringLiteral("conShop"));
        Query->SetName(QStringLiteral("qryBooks"));
        Query->SetConnection(Connection);
        Query->SQL().SetText(QStringLiteral("select * from BOOK"));
    }
    MemoryAccess Access;
    TDataModule Module;
    TZAConnection* Connection = new TZAConnection(&Module);
    TZAQuery* Query = new TZAQuery(&Module);
};

}

TEST_F(TDataSetTest, KeepsAStoredActiveWithoutOpening)
{
    SetPropValue(Query, QStringLiteral("Active"), true);
    EXPECT_TRUE(Query->Active());
    EXPECT_FALSE(Query->IsOpen());
    EXPECT_EQ(Access.Asked, QStringList());
}

TEST_F(TDataSetTest, OpensOnRequestAndLeavesTheStoredStateAsItWas)
{
    Query->Open();
    EXPECT_TRUE(Query->Active());
    EXPECT_EQ(GetPropValue(Query, QStringLiteral("Active")), QVariant(false));
    EXPECT_EQ(Access.Asked, QStringList(QStringLiteral("query select * from BOOK")));
    Query->SetActive(false);
    EXPECT_FALSE(Query->Active());
}

TEST_F(TDataSetTest, StoredAsActiveAndClosedForNowCanBeMadeActiveAgainWithoutADatabase)
{
    SetPropValue(Query, QStringLiteral("Active"), true);
    Query->Close();
    EXPECT_FALSE(Query->Active());
    EXPECT_TRUE(Query->StoredActive());
    Query->SetActive(true);
    EXPECT_TRUE(Query->Active());
    EXPECT_FALSE(Query->IsOpen());
}

TEST_F(TDataSetTest, ClosedAfterItHadRowsHasThemAgainWhenItIsMadeActive)
{
    SetPropValue(Query, QStringLiteral("Active"), true);
    Query->Open();
    Query->Close();
    Query->SetActive(true);
    EXPECT_TRUE(Query->IsOpen());
}

TEST_F(TDataSetTest, WithoutPersistentFieldsHasFieldsOfItsOwnWhileItIsOpen)
{
    Query->Open();
    ASSERT_EQ(Query->FieldCount(), 2);
    EXPECT_EQ(Query->Fields()[1]->Owner(), Query);
    EXPECT_EQ(Query->Fields()[1]->ClassName(), QStringLiteral("TStringField"));
    EXPECT_EQ(Query->Fields()[1]->Size(), 40);
    EXPECT_EQ(Query->Fields()[1]->DisplayText(), QStringLiteral("Emma"));
    Query->Close();
    EXPECT_EQ(Query->FieldCount(), 0);
}

TEST_F(TDataSetTest, ShowsItsValuesInItsPersistentFields)
{
    auto* title = new TStringField(&Module);
    title->SetDataSet(Query);
    title->SetFieldName(QStringLiteral("Title"));
    Query->Open();
    Query->Next();
    EXPECT_EQ(Query->FieldCount(), 1);
    EXPECT_EQ(title->Value(), QVariant(QStringLiteral("Ulysses")));
    Query->Close();
    EXPECT_FALSE(title->Value().isValid());
}

TEST_F(TDataSetTest, MovesOverItsRecordsAndStopsAtTheEnds)
{
    EXPECT_EQ(Query->RecNo(), 0);
    Query->Open();
    EXPECT_EQ(Query->RecordCount(), 2);
    EXPECT_EQ(Query->RecNo(), 1);
    EXPECT_EQ(Query->MoveBy(5), 1);
    EXPECT_EQ(Query->RecNo(), 2);
    EXPECT_TRUE(Query->Eof());
    Query->First();
    EXPECT_TRUE(Query->Bof());
    EXPECT_FALSE(Query->Eof());
    EXPECT_THROW(Query->SetRecNo(3), EDatabaseError);
}

TEST_F(TDataSetTest, BringsDefinitionsThatAChangeOfTheStatementMakesOutOfDate)
{
    EXPECT_FALSE(Query->FieldDefs().Updated());
    Query->FieldDefs().Update();
    EXPECT_TRUE(Query->FieldDefs().Updated());
    EXPECT_EQ(Query->FieldDefs().Count(), 2);
    Query->SQL().SetText(QStringLiteral("select ID from BOOK"));
    EXPECT_FALSE(Query->FieldDefs().Updated());
    Query->FieldDefs().Update();
    SetPropValue(Connection, QStringLiteral("Database"), QStringLiteral("other.db"));
    EXPECT_FALSE(Query->FieldDefs().Updated());
}

TEST_F(TDataSetTest, OfAnotherLibraryHasTheFieldTypesOfThatLibrary)
{
    auto info = std::make_unique<TClassInfo>();
    info->Name = QStringLiteral("TWideQuery");
    info->Parent = TZAQuery::Class();
    const auto aClass = DefineClass(std::move(info));
    TDataSetRoles roles;
    roles.FieldTypes = { { QStringLiteral("ftString"), QStringLiteral("ftWideString") } };
    SetDataSetRoles(aClass, roles);
    auto* query = static_cast<TZAQuery*>(aClass.Create(&Module));
    query->SetConnection(Connection);
    query->SQL().SetText(QStringLiteral("select * from BOOK"));
    query->FieldDefs().Update();
    EXPECT_EQ(query->FieldDefs().Items(0)->DataType(), ftInteger);
    EXPECT_EQ(query->FieldDefs().Items(1)->DataType(), ftWideString);
    query->Open();
    EXPECT_EQ(query->Fields()[1]->ClassName(), QStringLiteral("TWideStringField"));
}

TEST_F(TDataSetTest, WithoutAConnectionSaysSoWhenItIsOpened)
{
    Query->SetConnection(nullptr);
    try {
        Query->Open();
        FAIL() << "it opened";
    } catch (const EDatabaseError& error) {
        EXPECT_EQ(error.Message(), QStringLiteral("qryBooks: no connection is assigned"));
    }
    EXPECT_FALSE(Query->Active());
}

TEST_F(TDataSetTest, GivesParametersTheValuesOfItsMastersCurrentRecord)
{
    auto* source = new TDataSource(&Module);
    source->SetDataSet(Query);
    auto* detail = new TZAQuery(&Module);
    detail->SetConnection(Connection);
    detail->SQL().SetText(QStringLiteral("select * from SALE where BOOK = :ID"));
    static_cast<TParam*>(detail->Params().Add())->SetName(QStringLiteral("ID"));
    SetObjectProp(detail, QStringLiteral("MasterSource"), source);
    EXPECT_FALSE(detail->Statement().Parameters[0].Value.isValid());
    Query->Open();
    Query->Next();
    EXPECT_EQ(detail->Statement().Parameters[0].Value, QVariant(2));
}

TEST_F(TDataSetTest, OfATableFollowsItsMasterByTheNamedFields)
{
    auto* source = new TDataSource(&Module);
    source->SetDataSet(Query);
    auto* table = new TZATable(&Module);
    SetPropValue(table, QStringLiteral("TableName"), QStringLiteral("SALE"));
    SetPropValue(table, QStringLiteral("MasterFields"), QStringLiteral("ID"));
    SetPropValue(table, QStringLiteral("DetailFields"), QStringLiteral("BOOK"));
    SetObjectProp(table, QStringLiteral("MasterSource"), source);
    Query->Open();
    const auto statement = table->Statement();
    EXPECT_EQ(statement.Kind, TStatement::Table);
    EXPECT_EQ(statement.Text, QStringLiteral("SALE"));
    ASSERT_EQ(statement.Filter.size(), 1);
    EXPECT_EQ(statement.Filter[0].first, QStringLiteral("BOOK"));
    EXPECT_EQ(statement.Filter[0].second, QVariant(1));
}

TEST_F(TDataSetTest, OfAStatementFollowsItsMasterByTheFieldsThatAreNoParameters)
{
    auto* source = new TDataSource(&Module);
    source->SetDataSet(Query);
    auto* detail = new TZAQuery(&Module);
    detail->SQL().SetText(QStringLiteral("select * from SALE where T = :title"));
    SetPropValue(detail, QStringLiteral("MasterFields"), QStringLiteral("ID;TITLE"));
    SetObjectProp(detail, QStringLiteral("MasterSource"), source);
    EXPECT_EQ(detail->Statement().Filter.size(), 0);
    Query->Open();
    ASSERT_EQ(detail->Statement().Filter.size(), 1);
    EXPECT_EQ(detail->Statement().Filter[0].first, QStringLiteral("ID"));
}

TEST_F(TDataSetTest, ThatGoesIsClearedFromItsDataSources)
{
    TForm form;
    auto* source = new TDataSource(&form);
    source->SetDataSet(Query);
    delete Query;
    EXPECT_EQ(source->DataSet(), nullptr);
}

TEST_F(TDataSetTest, TellsTheLinksOfItsDataSourcesWhatHappens)
{
    struct Link : TDataLink {
        QList<int> Heard;
        void DataEvent(TDataEvent event, qintptr) override { Heard << event; }
    } link;
    TDataSource source;
    source.SetDataSet(Query);
    link.SetDataSource(&source);
    link.Heard.clear();
    int changes = 0;
    source.SetOnDataChange([&changes](TDataSource*, TField*) { ++changes; });
    Query->Open();
    Query->Next();
    EXPECT_TRUE(link.Heard.contains(deDataSetChange));
    EXPECT_EQ(link.Heard.last(), deDataSetScroll);
    EXPECT_EQ(changes, 2);
}

TEST_F(TDataSetTest, NamesItselfInWhatItsDatabaseSays)
{
    Access.Failure = QStringLiteral("no such table: BOOK");
    for (const auto& ask :
        { std::function<void()>([this] { Query->Open(); }), { [this] { Query->FieldDefs().Update(); } } })
        try {
            ask();
            FAIL() << "nothing went wrong";
        } catch (const EDatabaseError& error) {
            EXPECT_EQ(error.Message(), QStringLiteral("qryBooks: no such table: BOOK"));
        }
    EXPECT_FALSE(Query->Active());
    EXPECT_FALSE(Query->FieldDefs().Updated());
}

TEST_F(TDataSetTest, OfAClassWithoutRowsSaysSoWhenItIsOpened)
{
    TDataSet plain;
    EXPECT_THROW(plain.Open(), EDatabaseError);
    EXPECT_FALSE(plain.Active());
}
