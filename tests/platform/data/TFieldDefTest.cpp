#include "data/TFieldDef.h"

#include "classes/Forms.h"
#include "data/TDataSet.h"
#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

namespace {

QStringList Paths(const TFieldDefList& list)
{
    QStringList paths;
    for (int i = 0; i < list.Count(); ++i)
        paths << list.Paths(i);
    return paths;
}

TFieldDef* AddChild(TFieldDef* parent, const QString& name, TFieldType type)
{
    auto* child = parent->AddChild();
    child->SetName(name);
    child->SetDataType(type);
    return child;
}

}

TEST(TFieldDefList, HoldsChildrenUnderTheirPaths)
{
    TDataSet dataSet;
    dataSet.FieldDefs().AddFieldDef(QStringLiteral("Id"), ftInteger);
    auto* address = dataSet.FieldDefs().AddFieldDef(QStringLiteral("Address"), ftADT);
    AddChild(address, QStringLiteral("City"), ftString);
    auto* phones = dataSet.FieldDefs().AddFieldDef(QStringLiteral("Phones"), ftArray, 2);
    AddChild(phones, QStringLiteral("P0"), ftString);
    auto* second = AddChild(phones, QStringLiteral("P1"), ftADT);
    AddChild(second, QStringLiteral("Area"), ftString);
    EXPECT_EQ(Paths(dataSet.FieldDefList()).join(u' '),
        QStringLiteral("Id Address Address.City Phones Phones[0] Phones[1] Phones[1].Area"));
    EXPECT_EQ(dataSet.FieldDefList().Find(QStringLiteral("phones[1]")), second);
    EXPECT_EQ(dataSet.FieldDefList().Find(QStringLiteral("City")), nullptr);
}

TEST(TFieldDefList, LeavesTheNameOfAnUnnamedObjectOut)
{
    TDataSet dataSet;
    auto* object = dataSet.FieldDefs().AddFieldDef(QStringLiteral("Row"), ftADT);
    object->SetAttributes(faUnNamed);
    AddChild(object, QStringLiteral("City"), ftString);
    EXPECT_EQ(Paths(dataSet.FieldDefList()).join(u' '), QStringLiteral("Row City"));
}

TEST(TFieldDefList, FollowsEveryChangeOfTheDefinitions)
{
    TDataSet dataSet;
    auto* def = dataSet.FieldDefs().AddFieldDef(QStringLiteral("Id"), ftInteger);
    EXPECT_EQ(dataSet.FieldDefList().Find(QStringLiteral("Id")), def);
    def->SetName(QStringLiteral("Number"));
    EXPECT_EQ(dataSet.FieldDefList().Find(QStringLiteral("Id")), nullptr);
    EXPECT_EQ(dataSet.FieldDefList().Find(QStringLiteral("Number")), def);
    AddChild(def, QStringLiteral("Part"), ftString);
    EXPECT_EQ(Paths(dataSet.FieldDefList()).join(u' '), QStringLiteral("Number Number.Part"));
    dataSet.FieldDefs().Clear();
    EXPECT_EQ(dataSet.FieldDefList().Count(), 0);
}

TEST(TFieldDef, KnowsItsParentItsDatasetAndItsNumber)
{
    TDataSet dataSet;
    dataSet.FieldDefs().AddFieldDef(QStringLiteral("Id"), ftInteger);
    auto* address = dataSet.FieldDefs().AddFieldDef(QStringLiteral("Address"), ftADT);
    auto* city = AddChild(address, QStringLiteral("City"), ftString);
    EXPECT_EQ(city->ParentDef(), address);
    EXPECT_EQ(address->ParentDef(), nullptr);
    EXPECT_EQ(city->DataSet(), &dataSet);
    EXPECT_EQ(address->FieldNo(), 2);
    EXPECT_TRUE(address->HasChildDefs());
    EXPECT_FALSE(city->HasChildDefs());
}

TEST(TFieldDef, IsReadAndWrittenThroughItsPublishedProperties)
{
    TFieldDefs defs;
    auto* def = static_cast<TFieldDef*>(defs.Add());
    SetPropValue(def, QStringLiteral("Name"), QStringLiteral("Title"));
    SetPropValue(def, QStringLiteral("DataType"), QStringLiteral("ftString"));
    SetPropValue(def, QStringLiteral("Attributes"), QStringList({ QStringLiteral("faRequired") }));
    SetPropValue(def, QStringLiteral("Size"), 40);
    EXPECT_EQ(def->DataType(), ftString);
    EXPECT_TRUE(def->Required());
    EXPECT_EQ(GetPropValue(def, QStringLiteral("Attributes")), QVariant(QStringList(QStringLiteral("faRequired"))));
}

TEST(TFieldDefs, OfAFormFileAreUpToDateAndStored)
{
    TDataSet dataSet;
    EXPECT_FALSE(dataSet.FieldDefs().Updated());
    dataSet.FieldDefs().AddFieldDef(QStringLiteral("Id"), ftInteger);
    EXPECT_TRUE(dataSet.FieldDefs().Updated());
    EXPECT_TRUE(GetPropInfo(&dataSet, QStringLiteral("FieldDefs"))->IsStored(&dataSet));
}

TEST(TFieldDefs, OfADatabaseReportNoChangeAndAreNotStored)
{
    struct Hook : IDesignerHook {
        QStringList Heard;
        void PropertyChanged(TPersistent*, const QString& property) override { Heard << property; }
        void ValidateRename(TComponent*, const QString&, const QString&) override { }
        void Renamed(TComponent*, const QString&) override { }
    } hook;
    TDataModule module;
    module.SetDesignerHook(&hook);
    auto* dataSet = new TDataSet(&module);
    dataSet->FieldDefs().Describe({ { QStringLiteral("Id"), ftInteger, 0, 0, true, false } });
    EXPECT_EQ(hook.Heard, QStringList());
    EXPECT_TRUE(dataSet->FieldDefs().Items(0)->Required());
    EXPECT_FALSE(GetPropInfo(dataSet, QStringLiteral("FieldDefs"))->IsStored(dataSet));
    module.SetDesignerHook(nullptr);
}

TEST(TFieldDefs, DescribedAgainStayTheSameObjects)
{
    TFieldDefs defs;
    defs.Describe({ { QStringLiteral("A"), ftInteger }, { QStringLiteral("B"), ftString, 10 } });
    auto* first = defs.Items(0);
    defs.Describe({ { QStringLiteral("A"), ftFloat } });
    EXPECT_EQ(defs.Count(), 1);
    EXPECT_EQ(defs.Items(0), first);
    EXPECT_EQ(first->DataType(), ftFloat);
    EXPECT_THROW(defs.Items(1), EListError);
}
