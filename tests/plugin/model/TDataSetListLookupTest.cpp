#include "ModelFixture.h"

#include "data/TCustomZAConnection.h"
#include "data/TDataSource.h"
#include "data/TextFields.h"
#include "data/ZADataSets.h"

namespace {

class LookingUp : public ModelFixture { };

}

TEST_F(LookingUp, FindsADatasetByItsComponent)
{
    OpenShop();
    EXPECT_EQ(DataSet(u"Data.Books"_qs)->ComponentName(), u"Books"_qs);
    EXPECT_EQ(List->GetItem(List->IndexOfObject(Component(u"Data.Books"_qs))), DataSet(u"Data.Books"_qs));
    TZAQuery stranger;
    EXPECT_EQ(List->GetDataSetAttrByObj(&stranger), nullptr);
    EXPECT_EQ(List->IndexOfObject(&stranger), -1);
    EXPECT_EQ(List->GetDataSetAttrByObj(nullptr), nullptr);
}

TEST_F(LookingUp, FindsADatasetThatHasNoNameToBeFoundBy)
{
    OpenShop();
    auto* attr = DataSet(u"Data.Books"_qs);
    attr->SetComponentName(u"Other"_qs);
    EXPECT_EQ(List->GetDataSetAttrByObj(Component(u"Data.Books"_qs)), attr);
}

TEST_F(LookingUp, TellsCaseApartInPositionsOfNamesOnly)
{
    OpenShop();
    EXPECT_GE(List->IndexOfName(u"Data"_qs, u"Books"_qs), 0);
    EXPECT_EQ(List->IndexOfName(u"Data"_qs, u"books"_qs), -1);
    EXPECT_EQ(List->GetConnectionAttr(u"DATA"_qs, u"shop"_qs), ConnectionOf(u"Data.Shop"_qs));
    EXPECT_EQ(List->GetConnectionAttr(u"MainForm"_qs, u"Shop"_qs), nullptr);
    EXPECT_EQ(List->GetFormAttr(u"data"_qs)->FComponent.get(), Component(u"Data"_qs));
    EXPECT_EQ(List->GetFormAttr(Component(u"Data"_qs)), List->GetFormAttr(u"Data"_qs));
}

TEST_F(LookingUp, FindsAFieldInTheDatasetThatHoldsIt)
{
    OpenShop();
    auto* title = Component(u"Data.BooksTitle"_qs);
    EXPECT_EQ(List->GetFieldAttrByObj(title), Field(u"Data.Books"_qs, u"BooksTitle"_qs));
    int index = -1;
    EXPECT_EQ(List->FindDataSetByFieldObj(title, index), DataSet(u"Data.Books"_qs));
    EXPECT_EQ(index, 1);
    TStringField stranger;
    EXPECT_EQ(List->FindDataSetByFieldObj(&stranger, index), nullptr);
    EXPECT_EQ(index, -1);
}

TEST_F(LookingUp, FindsTheWrapperBehindAnInterface)
{
    OpenShop();
    const InterfacePtr<IMrvDataSetAttr> books(DataSet(u"Data.Books"_qs));
    EXPECT_EQ(List->IndexOfIntf(books), DataSet(u"Data.Books"_qs));
    List->Clear();
    EXPECT_EQ(List->IndexOfIntf(books), nullptr);
}

TEST_F(LookingUp, FindsTheMasterThroughTheMasterSource)
{
    Shop.DataModule(u"Data"_qs,
        u"object Orders: TZAQuery\nend\nobject OrdersSource: TDataSource\nDataSet = Orders\nend\n"
        "object Items: TZAQuery\nMasterSource = OrdersSource\nend\nobject Plain: TDataSet\nend"_qs);
    Open(Shop);
    Attach();
    InterfacePtr<IMrvDataSetAttr> master;
    EXPECT_EQ(List->IntfGetMasterDataSet(DataSet(u"Data.Items"_qs), master), 0);
    EXPECT_EQ(List->IndexOfIntf(master), DataSet(u"Data.Orders"_qs));
    List->IntfGetMasterDataSet(DataSet(u"Data.Orders"_qs), master);
    EXPECT_FALSE(master);
    EXPECT_EQ(TDataSetList::GetMasterSource(Component(u"Data.Items"_qs)), Component(u"Data.OrdersSource"_qs));
    EXPECT_EQ(TDataSetList::GetMasterSource(Component(u"Data.Plain"_qs)), nullptr);
}

TEST_F(LookingUp, NamesAGroupByConnectionAndOwner)
{
    OpenShop();
    auto* shop = dynamic_cast<TCustomZAConnection*>(Component(u"Data.Shop"_qs));
    EXPECT_EQ(TDataSetList::MakeSessionName(shop), u"Shop {Data}"_qs);
    EXPECT_EQ(TDataSetList::MakeSessionName(nullptr), QString());
    EXPECT_EQ(TDataSetList::MakeSessionName(u"Shop"_qs, u"Data"_qs), u"Shop {Data}"_qs);
    EXPECT_EQ(TDataSetList::MakeSessionName(QString(), u"Data"_qs), QString());
    EXPECT_EQ(TDataSetList::MakeSessionName(u"Shop"_qs, QString()), QString());
}

TEST_F(LookingUp, ClassifiesAClassByItsAncestors)
{
    List = New<TDataSetList>();
    TControlType type = ctOther;
    List->IntfGetClassTypeByName(u"TZAQuery"_qs, type);
    EXPECT_EQ(type, ctDataSet);
    List->IntfGetClassTypeByName(u"TStringField"_qs, type);
    EXPECT_EQ(type, ctField);
    type = ctComponent;
    List->IntfGetClassTypeByName(u"TDBEdit"_qs, type);
    EXPECT_EQ(type, ctComponent);
    EXPECT_THROW(List->IntfGetClassTypeByName(u"TNobodyKnows"_qs, type), EClassNotFound);
}

TEST_F(LookingUp, MakesNoWrapperOfNothing)
{
    List = New<TDataSetList>();
    EXPECT_EQ(List->CreateFormAttr(nullptr), nullptr);
    EXPECT_EQ(List->CreateConnectionAttr(nullptr), nullptr);
}

TEST_F(LookingUp, MakesNoSecondWrapperForAConnectionOnADataModule)
{
    Shop.DataModule(u"Data"_qs, u"object Shop: TZAConnection\nend"_qs);
    Shop.Form(u"MainForm"_qs, u"object Books: TZAQuery\nConnection = Data.Shop\nend"_qs);
    Open(Shop);
    Attach();
    for (int i = 0; i < 100; ++i)
        List->BuildDataSetList(false);
    EXPECT_EQ(Text(), "MainForm.Books: TZAQuery in Shop {Data}\nconnection Shop {Data}\n");
}

TEST_F(LookingUp, SelectsOneWrapperOnItsOwnFormAndNoneForAnEmptyList)
{
    OpenShop();
    InterfacePtr<IMrvSelectionList> list;
    List->IntfCreateSelectionList(list);
    DesignerOf(u"MainForm"_qs).Activate();
    list->Add(DataSet(u"Data.Books"_qs));
    List->IntfSetSelections(list);
    EXPECT_EQ(DesignerOf(u"Data"_qs).Selection(), (QList<TPersistent*> { Component(u"Data.Books"_qs) }));
    EXPECT_EQ(TheHost->CurrentModule()->FormName(), u"Data"_qs);
    list->Clear();
    List->IntfSetSelections(list);
    EXPECT_EQ(DesignerOf(u"Data"_qs).Selection(), (QList<TPersistent*> { Component(u"Data.Books"_qs) }));
}

TEST_F(LookingUp, SelectsSeveralWrappersUnheardAndLeavesOutDeletedOnes)
{
    OpenShop();
    DesignerOf(u"Data"_qs).Activate();
    InterfacePtr<IMrvSelectionList> list;
    List->IntfCreateSelectionList(list);
    list->Add(DataSet(u"Data.Books"_qs));
    list->Add(DataSet(u"Data.Authors"_qs));
    list->Add(ConnectionOf(u"Data.Shop"_qs));
    List->PrepareDelete(DataSet(u"Data.Authors"_qs));
    Events->Take();
    List->IntfSetSelections(list);
    EXPECT_EQ(DesignerOf(u"Data"_qs).Selection(),
        (QList<TPersistent*> { Component(u"Data.Books"_qs), Component(u"Data.Shop"_qs) }));
    EXPECT_EQ(Events->Take(), "");
    EXPECT_TRUE(List->IsEventEnabled(deSelectionChanged));
}

TEST_F(LookingUp, KeepsASelectedWrapperAliveUntilTheListIsCleared)
{
    OpenShop();
    InterfacePtr<IMrvSelectionList> list;
    List->IntfCreateSelectionList(list);
    list->Add(DataSet(u"Data.Books"_qs));
    List->Clear();
    InterfacePtr<IMrvCustomComponentAttr> item;
    list->GetItem(0, item);
    QString name;
    item->IntfComponentName(false, name);
    EXPECT_EQ(name, u"Books"_qs);
    EXPECT_EQ(list->Count(), 1);
    list->Clear();
    EXPECT_EQ(list->Count(), 0);
}
