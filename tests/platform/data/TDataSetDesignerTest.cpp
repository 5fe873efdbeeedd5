#include "data/TDataSetDesigner.h"

#include "classes/Forms.h"
#include "classes/TClassBuilder.h"
#include "data/DataClasses.h"
#include "data/NumericFields.h"
#include "data/ObjectFields.h"
#include "data/TextFields.h"

#include <gtest/gtest.h>

namespace {

class TDSDesignerTest : public testing::Test {
protected:
    TDSDesignerTest()
    {
        RegisterDataClasses();
        Module.SetName(QStringLiteral("dmShop"));
        DataSet->SetName(QStringLiteral("qryBooks"));
        auto& defs = DataSet->FieldDefs();
        defs.AddFieldDef(QStringLiteral("ID"), ftInteger, 0, true);
        defs.AddFieldDef(QStringLiteral("Title"), ftString, 40);
        defs.AddFieldDef(QStringLiteral("Unit price"), ftBCD, 2)->SetPrecision(10);
        auto* address = defs.AddFieldDef(QStringLiteral("Address"), ftADT);
        for (const auto* part : { "City", "Street" }) {
            auto* child = address->AddChild();
            child->SetName(QString::fromLatin1(part));
            child->SetDataType(ftString);
        }
        defs.AddFieldDef(QStringLiteral("Rows"), ftCursor);
    }
    TField* Create(const QString& name)
    {
        TDSDesigner designer(DataSet);
        designer.BeginDesign();
        auto* field = designer.DoCreateField(name, {});
        designer.EndDesign();
        return field;
    }
    TDataModule Module;
    TDataSet* DataSet = new TDataSet(&Module);
};

}

TEST_F(TDSDesignerTest, MakesAFieldOfTheDefinitionOnTheDatasetsOwner)
{
    auto* title = Create(QStringLiteral("title"));
    EXPECT_EQ(title->Name(), QStringLiteral("qryBookstitle"));
    EXPECT_EQ(title->FieldName(), QStringLiteral("Title"));
    EXPECT_EQ(title->ClassName(), QStringLiteral("TStringField"));
    EXPECT_EQ(title->Size(), 40);
    EXPECT_EQ(title->Owner(), &Module);
    EXPECT_EQ(title->DataSet(), DataSet);
    EXPECT_EQ(Create(QStringLiteral("ID"))->Required(), true);
}

TEST_F(TDSDesignerTest, TakesPrecisionAndSizeOfADecimalDefinition)
{
    auto* price = Create(QStringLiteral("Unit price"));
    EXPECT_EQ(price->Name(), QStringLiteral("qryBooksUnitprice"));
    EXPECT_EQ(price->Precision(), 10);
    EXPECT_EQ(price->Size(), 2);
}

TEST_F(TDSDesignerTest, PutsANumberBehindANameThatIsTaken)
{
    (new TComponent(&Module))->SetName(QStringLiteral("QRYBOOKSTITLE"));
    EXPECT_EQ(Create(QStringLiteral("Title"))->Name(), QStringLiteral("qryBooksTitle2"));
}

TEST_F(TDSDesignerTest, RefusesWhatIsNotDefinedWhatIsThereAlreadyAndWhatNoFieldIsMadeOf)
{
    Create(QStringLiteral("Title"));
    EXPECT_THROW(Create(QStringLiteral("Author")), EDatabaseError);
    EXPECT_THROW(Create(QStringLiteral("TITLE")), EDatabaseError);
    EXPECT_THROW(Create(QStringLiteral("Rows")), EDatabaseError);
    EXPECT_EQ(DataSet->FieldCount(), 1);
}

TEST_F(TDSDesignerTest, MakesAnObjectFieldWithItsChildren)
{
    auto* address = dynamic_cast<TObjectField*>(Create(QStringLiteral("Address")));
    ASSERT_NE(address, nullptr);
    ASSERT_EQ(address->FieldCount(), 2);
    EXPECT_EQ(address->Fields()[0]->FullName(), QStringLiteral("Address.City"));
    EXPECT_EQ(address->Fields()[0]->Name(), QStringLiteral("qryBooksAddressCity"));
    EXPECT_EQ(DataSet->FieldCount(), 1);
}

TEST_F(TDSDesignerTest, MakesTheParentOfAChildField)
{
    auto* city = Create(QStringLiteral("Address.City"));
    EXPECT_EQ(city->FullName(), QStringLiteral("Address.City"));
    EXPECT_EQ(city->ParentField(), DataSet->FindField(QStringLiteral("Address")));
}

TEST_F(TDSDesignerTest, IsTheDatasetsDesignerWhileItLives)
{
    EXPECT_EQ(DataSet->Designer(), nullptr);
    {
        TDSDesigner designer(DataSet);
        EXPECT_EQ(DataSet->Designer(), &designer);
    }
    EXPECT_EQ(DataSet->Designer(), nullptr);
    TDSDesigner designer(DataSet);
    delete DataSet;
    EXPECT_EQ(designer.DataSet(), nullptr);
}

TEST_F(TDSDesignerTest, HearsWhatHappensToTheFields)
{
    struct Listening : TDSDesigner {
        using TDSDesigner::TDSDesigner;
        QList<int> Heard;
        void DataEvent(TDataEvent event, qintptr) override { Heard << event; }
    } designer(DataSet);
    auto* field = designer.DoCreateField(QStringLiteral("Title"), {});
    EXPECT_TRUE(designer.Heard.contains(deFieldListChange));
    designer.Heard.clear();
    designer.DeleteField(field);
    EXPECT_EQ(designer.Heard, QList<int> { deFieldListChange });
}

TEST_F(TDSDesignerTest, LeavesMakingAndDeletingToTheDesignerOfTheForm)
{
    struct Host : IDesignerHook, IFieldDesigner {
        QStringList Heard;
        void PropertyChanged(TPersistent*, const QString&) override { }
        void ValidateRename(TComponent*, const QString&, const QString&) override { }
        void Renamed(TComponent*, const QString&) override { }
        TField* CreateField(TDataSet* dataSet, TClass fieldClass, const QString& name,
            const std::function<void(TField*)>& prepare) override
        {
            auto* field = static_cast<TField*>(fieldClass.Create(dataSet->Owner()));
            prepare(field);
            field->SetName(name);
            Heard << QStringLiteral("made ") + name;
            return field;
        }
        void DeleteField(TField* field) override
        {
            Heard << QStringLiteral("deleted ") + field->Name();
            delete field;
        }
    } host;
    Module.SetDesignerHook(&host);
    TDSDesigner designer(DataSet);
    auto* field = designer.DoCreateField(QStringLiteral("Title"), QStringLiteral("BOOK.TITLE"));
    EXPECT_EQ(field->Origin(), QStringLiteral("BOOK.TITLE"));
    designer.DeleteField(field);
    EXPECT_EQ(host.Heard.join(u'\n'), QStringLiteral("made qryBooksTitle\ndeleted qryBooksTitle"));
    Module.SetDesignerHook(nullptr);
}

TEST_F(TDSDesignerTest, SupportsAggregatesWhereTheClassHasThem)
{
    TDSDesigner designer(DataSet);
    EXPECT_FALSE(designer.SupportsAggregates());
    auto info = std::make_unique<TClassInfo>();
    info->Name = QStringLiteral("TMemoryTable");
    info->Parent = TDataSet::Class();
    info->Properties << StoredProperty(QStringLiteral("Aggregates"), { tkClass, QStringLiteral("TCollection"), {} });
    const auto aClass = DefineClass(std::move(info));
    TDSDesigner other(static_cast<TDataSet*>(aClass.Create(&Module)));
    EXPECT_TRUE(other.SupportsAggregates());
    EXPECT_TRUE(other.SupportsInternalCalc());
}

namespace {

// Writes down the brackets it is told of.
class HookedDesigner : public TDSDesigner {
public:
    using TDSDesigner::TDSDesigner;
    void BeginCreateFields() override { Told << QStringLiteral("begin create"); }
    void EndCreateFields() override { Told << QStringLiteral("end create"); }
    void BeginUpdateFieldDefs() override { Told << QStringLiteral("begin update"); }
    void EndUpdateFieldDefs() override { Told << QStringLiteral("end update"); }
    QStringList Told;
};

class UnreachableDataSet : public TDataSet {
public:
    using TDataSet::TDataSet;
    bool DescribeColumns(QList<TDataColumn>&) override { throw EDatabaseError(QStringLiteral("not there")); }
};

}

TEST_F(TDSDesignerTest, BracketsTheMakingOfAFieldAlsoOneThatFails)
{
    HookedDesigner designer(DataSet);
    designer.DoCreateField(QStringLiteral("Title"), {});
    const QStringList bracket { QStringLiteral("begin create"), QStringLiteral("end create") };
    EXPECT_EQ(std::exchange(designer.Told, {}), bracket);
    EXPECT_THROW(designer.DoCreateField(QStringLiteral("Title"), {}), EDatabaseError);
    EXPECT_EQ(designer.Told, bracket);
}

TEST_F(TDSDesignerTest, IsToldOfTheUpdateOfTheDefinitionsAlsoOfOneThatFails)
{
    UnreachableDataSet unreachable;
    const QStringList bracket { QStringLiteral("begin update"), QStringLiteral("end update") };
    {
        HookedDesigner designer(DataSet);
        DataSet->FieldDefs().Update();
        EXPECT_EQ(designer.Told, bracket);
    }
    HookedDesigner designer(&unreachable);
    EXPECT_THROW(unreachable.FieldDefs().Update(), EDatabaseError);
    EXPECT_EQ(designer.Told, bracket);
}
