#include "ModelFixture.h"

#include "data/TCustomZAConnection.h"
#include "data/TextFields.h"
#include "data/ZADataSets.h"

namespace {

class FollowingTheDesigner : public ModelFixture {
protected:
    Designer& Data() { return DesignerOf(u"Data"_qs); }
    void Select(const QStringList& names)
    {
        const auto list = CreateSelectionList();
        for (const auto& name : names)
            list->Add(Component(name));
        Data().SetSelections(list);
        Events->Take();
    }
    // The books' child, written into the form file as a person's edit would be.
    void OpenInherited()
    {
        Shop.DataModule(u"Base"_qs,
            u"object Shop: TZAConnection\nend\nobject Other: TZAConnection\nend\n"
            "object Books: TZAQuery\nConnection = Shop\n"
            "object BooksTitle: TStringField\nFieldName = 'Title'\nend\nend"_qs);
        Shop.InheritedForm(u"Child"_qs, u"Base"_qs);
        Open(Shop);
        Attach();
    }
};

}

TEST_F(FollowingTheDesigner, InsertsADatasetAtOnceAndRegroupsItLater)
{
    OpenShop();
    Data().CreateComponent(GetClass(u"TZAQuery"_qs), nullptr, 10, 10, 0, 0);
    const auto told = Events->Take();
    EXPECT_EQ(told.substr(0, told.find('\n')), "OnComponentInsert Data.ZAQuery1");
    EXPECT_NE(DataSet(u"Data.ZAQuery1"_qs), nullptr);
    EXPECT_FALSE(DataSet(u"Data.ZAQuery1"_qs)->FIsInserted);
    Clock.Advance(50);
    EXPECT_EQ(Events->Take(), "OnSessionChanged\n");
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, InsertsAConnectionOnce)
{
    OpenShop();
    Data().CreateComponent(GetClass(u"TZAConnection"_qs), nullptr, 10, 10, 0, 0);
    EXPECT_EQ(List->GetConnectionCount(), 2);
    EXPECT_NE(Events->Take().find("OnComponentInsert ZAConnection1"), std::string::npos);
    EXPECT_FALSE(ConnectionOf(u"Data.ZAConnection1"_qs)->FIsInserted);
}

TEST_F(FollowingTheDesigner, MakesNoWrapperWithoutAProjectButTakesAFieldOfAKnownDataset)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    TZAQuery query;
    TStringField field;
    field.SetFieldName(u"Isbn"_qs);
    field.SetDataSet(dynamic_cast<TDataSet*>(Component(u"Data.Books"_qs)));
    BorlandIDEServices = nullptr;
    EXPECT_FALSE(List->DoComponentInserted(nullptr, &query, u"Query"_qs, u"Unit.pas"_qs));
    List->DoComponentInserted(nullptr, &field, u"BooksIsbn"_qs, u"Unit.pas"_qs);
    EXPECT_NE(books->FieldByName(u"BooksIsbn"_qs, smName), nullptr);
    EXPECT_EQ(List->GetItemCount(), 2);
}

TEST_F(FollowingTheDesigner, TellsOfAddedFieldsOnceAfterTheBurst)
{
    OpenShop();
    auto* books = dynamic_cast<TDataSet*>(Component(u"Data.Books"_qs));
    for (const auto& name : { u"Isbn"_qs, u"Price"_qs }) {
        Data().CreateField(books, TStringField::Class(), u"Books"_qs + name, [&](TField* field) {
            field->SetFieldName(name);
            field->SetDataSet(books);
        });
        Clock.Advance(40);
    }
    Events->Take();
    Clock.Advance(9);
    EXPECT_EQ(Events->Take(), "");
    Clock.Advance(1);
    EXPECT_EQ(Events->Take(), "BeginUpdate\nOnRefershChildObject Data.Books 3\nEndUpdate True\n");
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, KeepsADeletedFieldUntilTheTickAndThenRemovesIt)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    Data().DeleteComponents({ Component(u"Data.BooksTitle"_qs) });
    ASSERT_EQ(books->GetFieldCount(), 2);
    EXPECT_TRUE(books->GetField(1)->IsDeleted());
    Events->Take();
    Clock.Advance(50);
    EXPECT_EQ(Events->Take(),
        "BeginUpdate\nOnRefershChildObject Data.Books 4\nBeginDelete\nOnRefreshFieldDefs Data.Books\nEndDelete\n"
        "EndUpdate False\n");
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, TellsOfARenamedFieldAtOnce)
{
    OpenShop();
    Data().RenameComponent(*Component(u"Data.BooksTitle"_qs), u"BooksName"_qs);
    EXPECT_EQ(Events->Take().substr(0, 44), "OnRefershChildObject Data.Books 1 BooksName\n");
    EXPECT_NE(Field(u"Data.Books"_qs, u"BooksName"_qs), nullptr);
}

TEST_F(FollowingTheDesigner, TellsOfARenamedDatasetWithTheNewNameInFull)
{
    OpenShop();
    Data().RenameComponent(*Component(u"Data.Books"_qs), u"Titles"_qs);
    const auto told = Events->Take();
    EXPECT_NE(told.find("OnComponentRename Books -> Data.Titles\n"), std::string::npos) << told;
    EXPECT_EQ(DataSet(u"Data.Titles"_qs)->ComponentName(), u"Titles"_qs);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, RenamesEvenToTheSameName)
{
    OpenShop();
    List->DoComponentRename(nullptr, Component(u"Data.Books"_qs), u"Books"_qs, u"Books"_qs);
    EXPECT_EQ(Events->Take(), "OnComponentRename Books -> Data.Books\n");
}

TEST_F(FollowingTheDesigner, TellsTheTreeOfADeletedDatasetBeforeItRemovesTheWrapper)
{
    OpenShop();
    Data().DeleteComponents({ Component(u"Data.Authors"_qs) });
    EXPECT_EQ(List->GetItemCount(), 2);
    Events->Take();
    int countWhenTold = 0;
    Events->OnLine = [&](const QString&) { countWhenTold = List->GetItemCount(); };
    Clock.Advance(99);
    EXPECT_EQ(Events->Take(), "");
    Clock.Advance(1);
    EXPECT_EQ(Events->Take(), "OnComponentDelete\n");
    EXPECT_EQ(countWhenTold, 2);
    Events->OnLine = {};
    EXPECT_EQ(List->GetItemCount(), 1);
}

TEST_F(FollowingTheDesigner, RegroupsTheDatasetsOfADeletedConnectionAlsoThoseOfOtherForms)
{
    Shop.DataModule(u"Data"_qs, u"object Shop: TZAConnection\nend\nobject Books: TZAQuery\nConnection = Shop\nend"_qs);
    Shop.Form(u"MainForm"_qs, u"object Orders: TZAQuery\nConnection = Data.Shop\nend"_qs);
    Open(Shop);
    Attach();
    Data().DeleteComponents({ Component(u"Data.Shop"_qs) });
    EXPECT_TRUE(DataSet(u"Data.Books"_qs)->IsSessionChanged());
    EXPECT_TRUE(DataSet(u"MainForm.Orders"_qs)->IsSessionChanged());
    Clock.Advance(200);
    EXPECT_EQ(Text(), "Data.Books: TZAQuery in {Unassigned}\nMainForm.Orders: TZAQuery in {Unassigned}\n");
}

TEST_F(FollowingTheDesigner, MutesTheSelectionWhileSeveralAreDeletedAndFreesItAtTheEnd)
{
    OpenShop();
    Select({ u"Data.BooksId"_qs, u"Data.BooksTitle"_qs });
    List->OnItemDeleted(nullptr, InterfacePtr<IDesigner>(&Data()), Component(u"Data.BooksId"_qs));
    EXPECT_FALSE(List->IsEventEnabled(deSelectionChanged));
    List->OnItemDeleted(nullptr, InterfacePtr<IDesigner>(&Data()), Component(u"Data.BooksId"_qs));
    Select({ u"Data.BooksTitle"_qs });
    List->OnItemDeleted(nullptr, InterfacePtr<IDesigner>(&Data()), Component(u"Data.BooksTitle"_qs));
    EXPECT_TRUE(List->IsEventEnabled(deSelectionChanged));
    EXPECT_FALSE(List->FNeedEndUpdate);
    EXPECT_EQ(Events->Take(), "EndUpdate False\n");
}

TEST_F(FollowingTheDesigner, LeavesTheTreeLiveAfterAnyMixedDeletion)
{
    for (const auto& order : { QStringList { u"Data.Authors"_qs, u"Data.S1"_qs, u"Data.S2"_qs },
             QStringList { u"Data.S1"_qs, u"Data.Authors"_qs, u"Data.S2"_qs },
             QStringList { u"Data.S1"_qs, u"Data.S2"_qs, u"Data.Authors"_qs } }) {
        ScriptedProject shop;
        shop.DataModule(
            u"Data"_qs, u"object Authors: TZAQuery\nend\nobject S1: TDataSource\nend\nobject S2: TDataSource\nend"_qs);
        Open(shop);
        Attach();
        Select(order);
        Data().DeleteSelection();
        EXPECT_TRUE(List->IsEventEnabled(deSelectionChanged));
        EXPECT_FALSE(List->FNeedEndUpdate);
        List.Clear();
    }
}

TEST_F(FollowingTheDesigner, ChangesNothingForAnInsertedItem)
{
    OpenShop();
    const auto before = Text();
    TZAQuery query;
    List->OnItemInserted(nullptr, InterfacePtr<IDesigner>(&Data()), &query);
    EXPECT_EQ(Text(), before);
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(FollowingTheDesigner, InsertsAModifiedDatasetThatTheModelMissed)
{
    OpenShop();
    List->DisableEvents(deComponentRenamed);
    List->DisableEvents(deOnItemModified);
    Data().CreateComponent(GetClass(u"TZAQuery"_qs), nullptr, 10, 10, 0, 0);
    List->EnableEvents(deComponentRenamed);
    List->EnableEvents(deOnItemModified);
    EXPECT_EQ(DataSet(u"Data.ZAQuery1"_qs), nullptr);
    Data().Modified();
    EXPECT_NE(DataSet(u"Data.ZAQuery1"_qs), nullptr);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, ComparesIndexAndNameOfAModifiedField)
{
    OpenShop();
    auto* title = dynamic_cast<TField*>(Component(u"Data.BooksTitle"_qs));
    Select({ u"Data.BooksTitle"_qs });
    title->SetIndex(0);
    Data().Modified();
    EXPECT_EQ(Events->Take(), "OnFieldIndexModified BooksTitle 1 -> 0\nOnFieldIndexModified BooksId 0 -> 1\n");
    title->SetFieldName(u"Name"_qs);
    Data().Modified();
    EXPECT_EQ(Events->Take(), "OnRefershChildObject Data.Books 1 BooksTitle\n");
    Data().Modified();
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(FollowingTheDesigner, RegroupsADatasetWhoseConnectionChanged)
{
    OpenShop();
    Select({ u"Data.Authors"_qs });
    SetObjectProp(Component(u"Data.Authors"_qs), u"Connection"_qs, Component(u"Data.Shop"_qs));
    Data().Modified();
    Clock.Advance(50);
    EXPECT_EQ(Events->Take(), "OnSessionChanged\n");
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, RenamesTheGroupOfARenamedConnectionAndNoOther)
{
    Shop.DataModule(u"Data"_qs, u"object Shop: TZAConnection\nend\nobject Books: TZAQuery\nConnection = Shop\nend"_qs);
    Shop.DataModule(u"Old"_qs, u"object Shop: TZAConnection\nend\nobject Bills: TZAQuery\nConnection = Shop\nend"_qs);
    Open(Shop);
    Attach();
    Select({ u"Data.Shop"_qs });
    Data().RenameComponent(*Component(u"Data.Shop"_qs), u"Store"_qs);
    const auto told = Events->Take();
    EXPECT_NE(told.find("OnSessionRenamed Shop {Data} -> Store {Data}\n"), std::string::npos) << told;
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, RenamesTheFormOfItsDatasetsAndConnections)
{
    OpenShop();
    Data().RenameComponent(*Component(u"Data"_qs), u"Store"_qs);
    DesignerOf(u"Store"_qs).SelectComponent(Component(u"Store"_qs));
    DesignerOf(u"Store"_qs).Modified();
    const auto told = Events->Take();
    EXPECT_NE(told.find("OnFormRenamed Data -> Store\n"), std::string::npos) << told;
    EXPECT_EQ(Text(), FreshText());
    List->BuildDataSetList(false);
    EXPECT_EQ(List->GetConnectionCount(), 1);
    EXPECT_EQ(List->FFormItem.Count(), 1);
}

TEST_F(FollowingTheDesigner, UpdatesTheDatasetsOfAConnectionThatConnects)
{
    OpenShop();
    Select({ u"Data.Shop"_qs });
    dynamic_cast<TCustomZAConnection*>(Component(u"Data.Shop"_qs))->SetStoredConnected(true);
    Events->Take();
    Data().Modified();
    EXPECT_EQ(Events->Take(), "BeginUpdate\nOnRefershChildObject Data.Books 0\nEndUpdate True\n");
    Data().Modified();
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(FollowingTheDesigner, MarksWhatIsSelectedAndUnmarksTheRest)
{
    OpenShop();
    Data().SelectComponent(Component(u"Data.Books"_qs));
    EXPECT_TRUE(DataSet(u"Data.Books"_qs)->GetSelected());
    Data().SelectComponent(Component(u"Data.BooksTitle"_qs));
    EXPECT_FALSE(DataSet(u"Data.Books"_qs)->GetSelected());
    EXPECT_TRUE(Field(u"Data.Books"_qs, u"BooksTitle"_qs)->GetSelected());
    Data().SelectComponent(Component(u"Data.Shop"_qs));
    EXPECT_TRUE(ConnectionOf(u"Data.Shop"_qs)->GetSelected());
    EXPECT_EQ(Events->Take(), "OnSelectionChanged\nOnSelectionChanged\nOnSelectionChanged\n");
}

TEST_F(FollowingTheDesigner, IgnoresTheDesignerWhileItSleepsButReadsOpenedFiles)
{
    OpenShop();
    List->GoDormant();
    Data().CreateComponent(GetClass(u"TZAQuery"_qs), nullptr, 10, 10, 0, 0);
    Data().RenameComponent(*Component(u"Data.Books"_qs), u"Titles"_qs);
    EXPECT_EQ(List->GetItemCount(), 2);
    EXPECT_EQ(DataSet(u"Data.Titles"_qs)->ComponentName(), u"Books"_qs);
    Events->Take();
    bool cancel = false;
    List->OnFileNotification(nullptr, ofnFileOpened, Shop.UnitOf(u"Data"_qs), cancel);
    EXPECT_EQ(Events->Take(), "OnRefreshDatasetList rmAdd DataUnit.pas\n");
    EXPECT_EQ(List->GetItemCount(), 4);
}

TEST_F(FollowingTheDesigner, AddsTheModuleThatIsOpenedAndRemovesTheOneThatIsClosed)
{
    OpenShop();
    const auto before = Text();
    TheHost->CloseModule(FormOf(u"Data"_qs));
    EXPECT_EQ(List->GetItemCount(), 0);
    EXPECT_NE(Events->Take().find("OnRefreshDatasetList rmRemove DataUnit.pas\n"), std::string::npos);
    TheHost->OpenModuleFile(Shop.UnitOf(u"Data"_qs));
    EXPECT_NE(Events->Take().find("OnRefreshDatasetList rmAdd DataUnit.pas\n"), std::string::npos);
    EXPECT_EQ(Text(), before);
    EXPECT_NE(ConnectionOf(u"Data.Shop"_qs), nullptr);
    EXPECT_EQ(List->FFormItem.Count(), 1);
}

TEST_F(FollowingTheDesigner, EmptiesWithTheProject)
{
    OpenShop();
    TheHost->CloseProject(*TheHost->ActiveProject());
    EXPECT_EQ(List->GetItemCount() + List->GetConnectionCount(), 0);
    EXPECT_NE(Events->Take().find("OnProjectClosed\n"), std::string::npos);
}

TEST_F(FollowingTheDesigner, GivesOnlyDatasetsTheNewNameOfTheirUnit)
{
    OpenShop();
    const auto old = Shop.UnitOf(u"Data"_qs);
    List->OnModuleRenamed(nullptr, old, u"/new.pas"_qs);
    QString unit;
    DataSet(u"Data.Books"_qs)->IntfUnitName(unit);
    EXPECT_EQ(unit, u"/new.pas"_qs);
    ConnectionOf(u"Data.Shop"_qs)->IntfUnitName(unit);
    EXPECT_EQ(unit, old);
    List->GetFormAttr(u"Data"_qs)->IntfUnitName(unit);
    EXPECT_EQ(unit, old);
}

TEST_F(FollowingTheDesigner, KnowsTheOldNameOfAUnitInAnyCase)
{
    OpenShop();
    List->OnModuleRenamed(nullptr, Shop.UnitOf(u"Data"_qs).toUpper(), u"/new.pas"_qs);
    QString unit;
    DataSet(u"Data.Books"_qs)->IntfUnitName(unit);
    EXPECT_EQ(unit, u"/new.pas"_qs);
}

TEST_F(FollowingTheDesigner, UpdatesTheDefinitionsOfAScratchTableOnlyWhenOneIsDeleted)
{
    const auto fieldDefs = u"FieldDefs = <\nitem\nName = 'Id'\nDataType = ftInteger\nend>\n"_qs;
    Shop.DataModule(u"Data"_qs,
        u"object Scratch: TZAScratchTable\n"_qs + fieldDefs + u"end\nobject Plain: TZATable\n"_qs + fieldDefs
            + u"end"_qs);
    Open(Shop);
    Attach();
    const auto deleteFirst = [this](const QString& name) {
        auto& defs = dynamic_cast<TDataSet*>(Component(name))->FieldDefs();
        Events->Take();
        List->OnItemDeleted(nullptr, InterfacePtr<IDesigner>(&Data()), defs.Items(0));
        return Events->Take();
    };
    EXPECT_EQ(deleteFirst(u"Data.Scratch"_qs), "OnRefershChildObject Data.Scratch 0\n");
    EXPECT_EQ(deleteFirst(u"Data.Plain"_qs), "");
}

TEST_F(FollowingTheDesigner, CarriesAConnectionToTheInheritingForm)
{
    OpenInherited();
    ASSERT_EQ(DataSet(u"Base.Books"_qs)->GetDescendant(), DataSet(u"Child.Books"_qs));
    DesignerOf(u"Base"_qs).SelectComponent(Component(u"Base.Books"_qs));
    SetObjectProp(Component(u"Base.Books"_qs), u"Connection"_qs, Component(u"Base.Other"_qs));
    DesignerOf(u"Base"_qs).Modified();
    EXPECT_EQ(GetObjectProp(Component(u"Child.Books"_qs), u"Connection"_qs), Component(u"Child.Other"_qs));
    Clock.Advance(50);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, AddsAFieldOfAParentFormOnceToTheInheritingForm)
{
    OpenInherited();
    auto* books = dynamic_cast<TDataSet*>(Component(u"Base.Books"_qs));
    DesignerOf(u"Base"_qs).CreateField(books, TStringField::Class(), u"BooksIsbn"_qs, [&](TField* field) {
        field->SetFieldName(u"Isbn"_qs);
        field->SetDataSet(books);
    });
    Clock.Advance(200);
    EXPECT_EQ(DataSet(u"Base.Books"_qs)->GetFieldCount(), 2);
    EXPECT_EQ(DataSet(u"Child.Books"_qs)->GetFieldCount(), 2);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, KeepsTheLinkOfInheritedDatasetsOverARefresh)
{
    OpenInherited();
    List->BuildDataSetList(false);
    EXPECT_EQ(DataSet(u"Base.Books"_qs)->GetDescendant(), DataSet(u"Child.Books"_qs));
}

TEST_F(FollowingTheDesigner, LinksInheritedDatasetsInWhateverOrderTheModulesCome)
{
    OpenInherited();
    const auto unit = Shop.UnitOf(u"Base"_qs);
    TheHost->CloseModule(FormOf(u"Base"_qs));
    TheHost->OpenModuleFile(unit);
    List->BuildDataSetList(true);
    ASSERT_NE(DataSet(u"Child.Books"_qs), nullptr);
    EXPECT_EQ(DataSet(u"Base.Books"_qs)->GetDescendant(), DataSet(u"Child.Books"_qs));
}

TEST_F(FollowingTheDesigner, LinksInheritedDatasetsAgainWhileTheOldOneIsStillAwaited)
{
    OpenInherited();
    const InterfacePtr<TDataSetAttr> old(DataSet(u"Base.Books"_qs));
    TheHost->Reload(FormOf(u"Base"_qs));
    ASSERT_NE(DataSet(u"Base.Books"_qs), old.get());
    EXPECT_EQ(DataSet(u"Base.Books"_qs)->GetDescendant(), DataSet(u"Child.Books"_qs));
}

TEST_F(FollowingTheDesigner, FindsAnUndoneDeletionAgain)
{
    OpenShop();
    const auto before = Text();
    Data().DeleteComponents({ Component(u"Data.Books"_qs) });
    TheHost->Undo().Undo();
    Clock.Advance(200);
    EXPECT_EQ(Text(), before);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, FindsTheFieldsOfAnInheritingFormAgainAfterAnUndo)
{
    OpenInherited();
    const auto before = Text();
    DesignerOf(u"Base"_qs).DeleteComponents({ Component(u"Base.Books"_qs) });
    TheHost->Undo().Undo();
    Clock.Advance(200);
    EXPECT_EQ(Text(), before);
}

TEST_F(FollowingTheDesigner, RemovesTheFieldsThatAnInheritingFormPutOnADatasetThatGoes)
{
    OpenInherited();
    auto* books = dynamic_cast<TDataSet*>(Component(u"Child.Books"_qs));
    DesignerOf(u"Child"_qs).CreateField(books, TStringField::Class(), u"BooksIsbn"_qs, [&](TField* field) {
        field->SetFieldName(u"Isbn"_qs);
        field->SetDataSet(books);
    });
    DesignerOf(u"Base"_qs).DeleteComponents({ Component(u"Base.Books"_qs) });
    Clock.Advance(200);
    EXPECT_EQ(Component(u"Child.BooksIsbn"_qs), nullptr);
    EXPECT_EQ(FormText(u"Child"_qs).indexOf("BooksIsbn"), -1);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, RenamesAConnectionThatFollowsItsParentForm)
{
    OpenInherited();
    DesignerOf(u"Base"_qs).RenameComponent(*Component(u"Base.Other"_qs), u"Store"_qs);
    TheHost->Reload(FormOf(u"Child"_qs));
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(FollowingTheDesigner, EndsTheBatchOfADeletionWithTheModificationThatFollowsIt)
{
    OpenShop();
    Select({ u"Data.BooksId"_qs, u"Data.BooksTitle"_qs });
    List->OnItemDeleted(nullptr, InterfacePtr<IDesigner>(&Data()), Component(u"Data.BooksId"_qs));
    EXPECT_FALSE(List->IsEventEnabled(deSelectionChanged));
    Data().Modified();
    EXPECT_TRUE(List->IsEventEnabled(deSelectionChanged));
    EXPECT_FALSE(List->FNeedEndUpdate);
}

TEST_F(FollowingTheDesigner, RegroupsADatasetWhoseConnectionComesBackByAnUndo)
{
    OpenShop();
    const auto before = Text();
    Data().DeleteComponents({ Component(u"Data.Shop"_qs) });
    Clock.Advance(200);
    Events->Take();
    TheHost->Undo().Undo();
    EXPECT_TRUE(DataSet(u"Data.Books"_qs)->IsSessionChanged());
    Clock.Advance(200);
    EXPECT_EQ(Text(), before);
}
