#include "data/TField.h"

#include "classes/Forms.h"
#include "data/DataClasses.h"
#include "data/NumericFields.h"
#include "data/ObjectFields.h"
#include "data/TDataSet.h"
#include "data/TextFields.h"
#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

namespace {

class TFieldTest : public testing::Test {
protected:
    TFieldTest() { RegisterDataClasses(); }

    TField* Add(const QString& fieldName)
    {
        auto* field = new TStringField(&Module);
        field->SetDataSet(DataSet);
        field->SetFieldName(fieldName);
        return field;
    }
    QStringList Names() const
    {
        QStringList names;
        for (auto* field : DataSet->Fields())
            names << QStringLiteral("%1:%2").arg(field->Index()).arg(field->FieldName());
        return names;
    }

    TDataModule Module;
    TDataSet* DataSet = new TDataSet(&Module);
};

}

TEST_F(TFieldTest, StandsInItsDatasetInOrderOfArrival)
{
    Add(QStringLiteral("Id"));
    Add(QStringLiteral("Title"));
    EXPECT_EQ(Names(), QStringList({ QStringLiteral("0:Id"), QStringLiteral("1:Title") }));
}

TEST_F(TFieldTest, MovesToTheIndexThatItIsGiven)
{
    Add(QStringLiteral("A"));
    Add(QStringLiteral("B"));
    auto* third = Add(QStringLiteral("C"));
    third->SetIndex(0);
    EXPECT_EQ(Names(), QStringList({ QStringLiteral("0:C"), QStringLiteral("1:A"), QStringLiteral("2:B") }));
    third->SetIndex(99);
    EXPECT_EQ(Names(), QStringList({ QStringLiteral("0:A"), QStringLiteral("1:B"), QStringLiteral("2:C") }));
}

TEST_F(TFieldTest, LeavesItsDatasetWhenItGoes)
{
    auto* first = Add(QStringLiteral("A"));
    Add(QStringLiteral("B"));
    delete first;
    EXPECT_EQ(Names(), QStringList { QStringLiteral("0:B") });
    EXPECT_EQ(DataSet->FindField(QStringLiteral("A")), nullptr);
}

TEST_F(TFieldTest, GoesWithItsDataset)
{
    const WeakRef<TField> field(Add(QStringLiteral("A")));
    delete DataSet;
    EXPECT_EQ(field.get(), nullptr);
    EXPECT_EQ(Module.ComponentCount(), 0);
}

TEST_F(TFieldTest, IsFoundByNameWithoutRegardToCaseAlsoAfterARename)
{
    auto* field = Add(QStringLiteral("Title"));
    EXPECT_EQ(DataSet->FindField(QStringLiteral("TITLE")), field);
    field->SetFieldName(QStringLiteral("Name"));
    EXPECT_EQ(DataSet->FindField(QStringLiteral("Title")), nullptr);
    EXPECT_EQ(DataSet->FindField(QStringLiteral("name")), field);
    EXPECT_THROW(DataSet->FieldByName(QStringLiteral("Title")), EDatabaseError);
}

TEST_F(TFieldTest, RefusesANameThatAnotherFieldBears)
{
    Add(QStringLiteral("Title"));
    auto* other = Add(QStringLiteral("Name"));
    EXPECT_THROW(other->SetFieldName(QStringLiteral("TITLE")), EDatabaseError);
    EXPECT_EQ(other->FieldName(), QStringLiteral("Name"));
}

TEST_F(TFieldTest, TakesADoubleNameWhileItsFormIsRead)
{
    Add(QStringLiteral("Title"));
    auto* field = new TStringField(&Module);
    field->SetComponentState(csLoading);
    field->SetDataSet(DataSet);
    field->SetFieldName(QStringLiteral("Title"));
    EXPECT_EQ(DataSet->FieldCount(), 2);
    EXPECT_EQ(DataSet->FindField(QStringLiteral("Title"))->Index(), 0);
}

TEST_F(TFieldTest, OfAnObjectHasThePathFromTheDatasetAsItsFullName)
{
    auto* address = new TADTField(&Module);
    address->SetDataSet(DataSet);
    address->SetFieldName(QStringLiteral("Address"));
    auto* city = new TStringField(&Module);
    city->SetParentField(address);
    city->SetFieldName(QStringLiteral("City"));
    EXPECT_EQ(city->FullName(), QStringLiteral("Address.City"));
    EXPECT_EQ(city->DataSet(), DataSet);
    EXPECT_EQ(DataSet->FieldCount(), 1);
    EXPECT_EQ(address->FieldCount(), 1);
    EXPECT_EQ(DataSet->FindField(QStringLiteral("address.city")), city);
}

TEST_F(TFieldTest, OfAnArrayIsCalledByItsPosition)
{
    auto* phones = new TArrayField(&Module);
    phones->SetDataSet(DataSet);
    phones->SetFieldName(QStringLiteral("Phones"));
    for (int i = 0; i < 2; ++i)
        (new TStringField(&Module))->SetParentField(phones);
    EXPECT_EQ(phones->Fields()[1]->FullName(), QStringLiteral("Phones[1]"));
    EXPECT_EQ(DataSet->FindField(QStringLiteral("Phones[1]")), phones->Fields()[1]);
}

TEST_F(TFieldTest, HasTheNumberOfItsDefinition)
{
    auto* title = Add(QStringLiteral("Title"));
    EXPECT_EQ(title->FieldNo(), 0);
    DataSet->FieldDefs().AddFieldDef(QStringLiteral("Id"), ftInteger);
    DataSet->FieldDefs().AddFieldDef(QStringLiteral("TITLE"), ftString, 40);
    EXPECT_EQ(title->FieldNo(), 2);
    title->SetFieldKind(fkCalculated);
    EXPECT_EQ(title->FieldNo(), 0);
}

TEST_F(TFieldTest, IsReachedThroughItsPublishedProperties)
{
    auto* field = static_cast<TField*>(FindClass(QStringLiteral("TStringField")).Create(&Module));
    field->SetParentComponent(DataSet);
    SetPropValue(field, QStringLiteral("FieldName"), QStringLiteral("Title"));
    SetPropValue(field, QStringLiteral("Size"), 40);
    SetPropValue(field, QStringLiteral("FieldKind"), QStringLiteral("fkLookup"));
    EXPECT_EQ(field->Size(), 40);
    EXPECT_EQ(field->FieldKind(), fkLookup);
    EXPECT_EQ(GetPropValue(field, QStringLiteral("Index")), QVariant(0));
    EXPECT_EQ(field->GetParentComponent(), DataSet);
}

TEST(TFieldType, HasItsFiftyTwoNamesInOrder)
{
    EXPECT_EQ(FieldTypeInfo().EnumNames.size(), 52);
    EXPECT_EQ(GetEnumName(FieldTypeInfo(), ftSingle), QStringLiteral("ftSingle"));
    EXPECT_EQ(GetEnumName(FieldTypeInfo(), ftGuid), QStringLiteral("ftGuid"));
    EXPECT_EQ(int(ftFMTBcd), 37);
}

TEST(TFieldType, MakesAFieldOfThatVeryType)
{
    RegisterDataClasses();
    QStringList otherwise;
    for (int type = 0; type <= ftSingle; ++type) {
        const auto fieldClass = DefaultFieldClass(TFieldType(type));
        if (!fieldClass)
            continue;
        TFieldDefs defs;
        auto* def = defs.AddFieldDef(QStringLiteral("X"), TFieldType(type));
        const std::unique_ptr<TField> field(static_cast<TField*>(fieldClass.Create(nullptr)));
        field->AssignDef(*def);
        if (field->DataType() != type)
            otherwise << GetEnumName(FieldTypeInfo(), type);
    }
    EXPECT_EQ(otherwise.join(u' '), QStringLiteral("ftOraTimeStamp ftOraInterval"));
}
