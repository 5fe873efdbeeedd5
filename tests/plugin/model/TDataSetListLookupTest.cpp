#include "ModelFixture.h"

#include "data/TCustomZAConnection.h"
#include "data/TDataSource.h"
#include "data/TextFields.h"
#include "data/ZADataSets.h"
#include "model/MrvComponentList.h"

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

TEST_F(LookingUp, GivesItsEntriesByPosition)
{
    OpenShop();
    InterfacePtr<IMrvDataSetAttr> item;
    for (int i = 0; i < List->GetCount(); ++i) {
        List->IntfGetItem(i, item);
        EXPECT_EQ(item, InterfacePtr<IMrvDataSetAttr>(List->GetItem(i)));
    }
    InterfacePtr<IMrvConnectionAttr> connection;
    List->GetConnectionItem(0, connection);
    EXPECT_EQ(connection, InterfacePtr<IMrvConnectionAttr>(ConnectionOf(u"Data.Shop"_qs)));
    EXPECT_EQ(List->GetConnectionCount(), 1);
}

TEST_F(LookingUp, FindsTheLastDatasetThatShowsADefinition)
{
    Shop.DataModule(u"Data"_qs,
        u"object First: TZAScratchTable\nFieldDefs = <\nitem\nName = 'Id'\nDataType = ftInteger\nend\n>\nend\n"
        "object Second: TZAScratchTable\nFieldDefs = <\nitem\nName = 'Id'\nDataType = ftInteger\nend\n>\nend"_qs);
    Open(Shop);
    Attach();
    auto* def = dynamic_cast<TDataSet*>(Component(u"Data.First"_qs))->FieldDefs().Items(0);
    EXPECT_EQ(List->GetDataSetAttrByFieldDefObj(def), DataSet(u"Data.First"_qs));
    for (int i = 0; i < List->GetItemCount(); ++i)
        List->GetItem(i)->GetFieldDefs(0)->FPersistent = def;
    EXPECT_EQ(List->GetDataSetAttrByFieldDefObj(def), List->GetItem(1));
    EXPECT_EQ(List->GetDataSetAttrByFieldDefObj(nullptr), nullptr);
}

TEST_F(LookingUp, TellsTheDesignerInFrontThatItsFormChanged)
{
    OpenShop();
    DesignerOf(u"Data"_qs).Activate();
    HostRecorder recorder(*TheHost);
    EXPECT_EQ(List->SetActiveDesignerModified(), 0);
    EXPECT_EQ(recorder.Take(), "modified Data\n");
}

TEST_F(LookingUp, AddsWhatWasGatheredTwiceAsItCameAndToAnExistingListWithoutASearch)
{
    OpenShop();
    TMrvObjectList target;
    TComponentList gathered(List->FSvcManager.get(), List.get());
    for (int i = 0; i < 2; ++i)
        gathered.FItem.Add(DataSet(u"Data.Books"_qs));
    gathered.AddOrReplace(target);
    EXPECT_EQ(target.Count(), 2);
    gathered.AddOrReplace(target);
    EXPECT_EQ(target.Count(), 2);
    gathered.AddToExisting(target);
    EXPECT_EQ(target.Count(), 4);
}

TEST_F(LookingUp, NeedsAWrapperClassToMakeWrappersOf)
{
    OpenShop();
    TComponentList gathered(List->FSvcManager.get(), List.get());
    try {
        gathered.StrProc(Component(u"Data.Books"_qs));
        FAIL();
    } catch (const EAssertionFailed& failure) {
        EXPECT_EQ(failure.Message(), u"Assertion failure"_qs);
    }
}

TEST_F(LookingUp, GivesEveryWrapperTheNewDefaultWhenThePreferencesChange)
{
    Shop.DataModule(u"Data"_qs,
        u"object Books: TZAScratchTable\nFieldDefs = <\nitem\nName = 'Id'\nDataType = ftInteger\nend\n>\n"
        "object BooksTitle: TStringField\nFieldName = 'Title'\nend\nend"_qs);
    Open(Shop);
    Attach();
    auto* books = DataSet(u"Data.Books"_qs);
    const QList<TCustomComponentAttr*> all { books, books->GetField(0), books->GetFieldDefs(0) };
    const auto chosen = [&all] {
        QStringList names;
        for (auto* attr : all)
            names << attr->FCtrlClassName;
        return names;
    };
    for (auto* attr : all)
        attr->IntfSetCtrlIndex(NoneCtrlIndex);
    EXPECT_EQ(chosen(), QStringList({ u"None"_qs, u"None"_qs, u"None"_qs }));
    List->IntfPreferencesWasChanged();
    EXPECT_EQ(chosen(), QStringList({ u"TDBGrid"_qs, u"TDBEdit"_qs, u"TDBEdit"_qs }));
}
