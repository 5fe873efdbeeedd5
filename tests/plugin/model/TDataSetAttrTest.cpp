#include "ModelFixture.h"

#include "data/TField.h"
#include "data/TFieldDef.h"
#include "data/ZADataSets.h"
#include "model/MrvPreviewForm.h"

namespace {

class DatasetWrappers : public ModelFixture {
protected:
    // A scratch table with these definitions, which its form file keeps.
    void OpenScratch(const QString& definitions)
    {
        Shop.DataModule(
            u"Data"_qs, u"object Scratch: TZAScratchTable\nFieldDefs = <\n"_qs + definitions + u">\nend"_qs);
        Shop.Form(u"MainForm"_qs);
        Open(Shop);
        Attach();
    }
    static QString Definition(const QString& name, const QString& type = u"ftString"_qs)
    {
        return u"item\nName = '%1'\nDataType = %2\nend\n"_qs.arg(name, type);
    }
    TDataSet* Rows(const QString& name) { return dynamic_cast<TDataSet*>(Component(name)); }
    QStringList Shown(TDataSetAttr* attr)
    {
        QStringList names;
        for (int i = 0; i < attr->GetFieldDefsCount(); ++i)
            names << attr->GetFieldDefs(i)->FDisplayName;
        return names;
    }
    static QStringList FieldNames(TDataSetAttr* attr)
    {
        QStringList names;
        for (int i = 0; i < attr->GetFieldCount(); ++i)
            names << attr->GetField(i)->ComponentName();
        return names;
    }
};

}

TEST_F(DatasetWrappers, NameTheirGroupByConnectionOrUnassignedOrOthers)
{
    Shop.DataModule(u"Data"_qs,
        u"object Shop: TZAConnection\nend\nobject Books: TZAQuery\nConnection = Shop\nend\n"
        "object Alone: TZAQuery\nend\nobject Plain: TDataSet\nend"_qs);
    Open(Shop);
    Attach();
    const auto group = [this](const QString& name) {
        QString text;
        DataSet(name)->IntfGetSessionName(text);
        return text;
    };
    EXPECT_EQ(group(u"Data.Books"_qs), u"Shop {Data}"_qs);
    EXPECT_EQ(group(u"Data.Alone"_qs), u"{Unassigned}"_qs);
    EXPECT_EQ(group(u"Data.Plain"_qs), u"Others"_qs);
    QString connection;
    ConnectionOf(u"Data.Shop"_qs)->GetSessionName(connection);
    EXPECT_EQ(connection, group(u"Data.Books"_qs));
}

TEST_F(DatasetWrappers, GiveTheirNameWithTheFormWhenItIsAskedForInFull)
{
    OpenShop();
    QString name;
    DataSet(u"Data.Books"_qs)->IntfComponentName(true, name);
    EXPECT_EQ(name, u"Data.Books"_qs);
    DataSet(u"Data.Books"_qs)->IntfComponentName(false, name);
    EXPECT_EQ(name, u"Books"_qs);
}

TEST_F(DatasetWrappers, BringTheWrappersOfFormAndConnectionIntoBeing)
{
    OpenShop();
    InterfacePtr<IMrvFormAttr> form;
    DataSet(u"Data.Books"_qs)->IntfGetFormAttr(form);
    EXPECT_EQ(form, InterfacePtr<IMrvFormAttr>(List->GetFormAttr(u"Data"_qs)));
    InterfacePtr<IMrvConnectionAttr> connection;
    DataSet(u"Data.Books"_qs)->IntfGetConnectionAttr(connection);
    EXPECT_EQ(connection, InterfacePtr<IMrvConnectionAttr>(ConnectionOf(u"Data.Shop"_qs)));
    DataSet(u"Data.Authors"_qs)->IntfGetConnectionAttr(connection);
    EXPECT_FALSE(connection);
    EXPECT_EQ(List->FFormItem.Count(), 1);
}

TEST_F(DatasetWrappers, FindFieldsByComponentDisplayAndFieldName)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    auto* title = Field(u"Data.Books"_qs, u"BooksTitle"_qs);
    EXPECT_EQ(books->FieldByName(u"bookstitle"_qs, smName), title);
    EXPECT_EQ(books->FieldByName(u"1 - Title{BooksTitle}"_qs, smDisplayName), title);
    EXPECT_EQ(books->FieldByName(u"TITLE"_qs, smFieldName), title);
    EXPECT_EQ(books->FieldByName(u"Nobody"_qs, smName), nullptr);
    EXPECT_EQ(books->GetFieldAttrByFieldName(u"title"_qs), title);
    try {
        books->FieldByName(u"Title"_qs, TSearchMode(7));
        FAIL();
    } catch (const EAssertionFailed& failure) {
        EXPECT_EQ(failure.Message(), u"Unknown search mode"_qs);
    }
}

TEST_F(DatasetWrappers, FindADeletedFieldByTheSentenceOnly)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    auto* title = Field(u"Data.Books"_qs, u"BooksTitle"_qs);
    title->FDeleted = true;
    for (const auto mode : { smName, smDisplayName, smFieldName })
        EXPECT_EQ(books->FieldByName(u"Object was deleted!"_qs, mode), title);
    EXPECT_EQ(books->FieldByName(u"BooksTitle"_qs, smName), nullptr);
    EXPECT_EQ(books->FieldByName(u"Title"_qs, smFieldName), nullptr);
}

TEST_F(DatasetWrappers, RaiseForAFieldIndexOutsideButLetTheCountThrough)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    EXPECT_EQ(books->GetFieldByIndex(1), Field(u"Data.Books"_qs, u"BooksTitle"_qs));
    EXPECT_EQ(books->GetFieldByIndex(2), nullptr);
    EXPECT_THROW(books->GetFieldByIndex(3), EMorvaneException);
    EXPECT_THROW(books->GetFieldByIndex(-1), EMorvaneException);
    EXPECT_THROW(books->SetField(-1, nullptr), EMorvaneException);
}

TEST_F(DatasetWrappers, KeepChildFieldsAmongTheOthers)
{
    Shop.DataModule(u"Data"_qs,
        u"object People: TDataSet\nobject PeopleAddress: TADTField\nFieldName = 'Address'\n"
        "object PeopleCity: TStringField\nFieldName = 'City'\nend\nend\n"
        "object PeopleName: TStringField\nFieldName = 'Name'\nend\nend"_qs);
    Open(Shop);
    Attach();
    auto* people = DataSet(u"Data.People"_qs);
    EXPECT_EQ(FieldNames(people), QStringList({ u"PeopleAddress"_qs, u"PeopleCity"_qs, u"PeopleName"_qs }));
    EXPECT_EQ(people->FFields.Count(), 3);
    auto* city = dynamic_cast<TField*>(Component(u"Data.PeopleCity"_qs));
    EXPECT_EQ(people->GetParentFieldAttr(city), Field(u"Data.People"_qs, u"PeopleAddress"_qs));
    EXPECT_EQ(people->FieldByName(u"Address.City"_qs, smFieldName), Field(u"Data.People"_qs, u"PeopleCity"_qs));
}

TEST_F(DatasetWrappers, RemoveAFieldFromBothLists)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    books->DeleteField(dynamic_cast<TField*>(Component(u"Data.BooksId"_qs)));
    EXPECT_EQ(FieldNames(books), QStringList({ u"BooksTitle"_qs }));
    EXPECT_EQ(books->FFields.Count(), 1);
    books->DeleteField(0);
    EXPECT_EQ(books->FFields.Count() + books->FFieldsList.Count(), 0);
}

TEST_F(DatasetWrappers, MirrorTheDefinitionsOfTheFormFile)
{
    OpenScratch(Definition(u"Id"_qs, u"ftInteger"_qs) + Definition(u"Title"_qs));
    auto* scratch = DataSet(u"Data.Scratch"_qs);
    EXPECT_EQ(Shown(scratch), QStringList({ u"Id"_qs, u"Title"_qs }));
    EXPECT_FALSE(scratch->UpdateFieldDefs(false));
    auto* title = scratch->FieldDefsByName(u"Title"_qs);
    EXPECT_EQ(title->GetFieldType(), ftString);
    EXPECT_EQ(scratch->GetFieldDefAttrByFieldName(u"TITLE"_qs), title);
    EXPECT_EQ(title->IntfGetControlType(), ctField);
}

TEST_F(DatasetWrappers, DropTheDefinitionsOfADatasetThatIsNotUpToDateAndSaySo)
{
    OpenScratch(Definition(u"Id"_qs));
    auto* scratch = DataSet(u"Data.Scratch"_qs);
    Rows(u"Data.Scratch"_qs)->FieldDefs().SetUpdated(false);
    EXPECT_TRUE(scratch->UpdateFieldDefs(false));
    EXPECT_EQ(scratch->GetFieldDefsCount(), 0);
    EXPECT_FALSE(scratch->UpdateFieldDefs(false));
}

TEST_F(DatasetWrappers, KeepTheWrapperOfADefinitionThatGoesAndComesBack)
{
    OpenScratch(Definition(u"Id"_qs) + Definition(u"Title"_qs));
    auto* scratch = DataSet(u"Data.Scratch"_qs);
    auto& defs = Rows(u"Data.Scratch"_qs)->FieldDefs();
    auto* title = scratch->FieldDefsByName(u"Title"_qs);
    defs.Delete(1);
    EXPECT_TRUE(scratch->UpdateFieldDefs(false));
    EXPECT_EQ(Shown(scratch), QStringList({ u"Id"_qs }));
    defs.AddFieldDef(u"Title"_qs, ftString);
    EXPECT_TRUE(scratch->UpdateFieldDefs(false));
    EXPECT_EQ(Shown(scratch), QStringList({ u"Id"_qs, u"Title"_qs }));
    EXPECT_EQ(scratch->FieldDefsByName(u"Title"_qs), title);
}

TEST_F(DatasetWrappers, ShowOnlyWhatComesAfterTheLastDefinitionWithChildren)
{
    OpenScratch(Definition(u"A"_qs) + Definition(u"B"_qs, u"ftADT"_qs) + Definition(u"C"_qs));
    auto* scratch = DataSet(u"Data.Scratch"_qs);
    auto* object = Rows(u"Data.Scratch"_qs)->FieldDefs().Find(u"B"_qs);
    object->AddChild()->SetName(u"b1"_qs);
    object->AddChild()->SetName(u"b2"_qs);
    for (int i = 0; i < 3; ++i) {
        scratch->UpdateFieldDefs(false);
        EXPECT_EQ(Shown(scratch), QStringList({ u"C"_qs }));
        EXPECT_EQ(scratch->FFieldDefs.Count(), 5);
    }
}

TEST_F(DatasetWrappers, ShowTheElementsOfAnArrayByPosition)
{
    OpenScratch(Definition(u"Phones"_qs, u"ftArray"_qs));
    auto* scratch = DataSet(u"Data.Scratch"_qs);
    auto* phones = Rows(u"Data.Scratch"_qs)->FieldDefs().Find(u"Phones"_qs);
    phones->SetSize(2);
    for (int i = 0; i < 2; ++i)
        phones->AddChild()->SetDataType(ftString);
    scratch->UpdateFieldDefs(false);
    EXPECT_EQ(Shown(scratch), QStringList({ u"Phones"_qs, u"Phones[0]"_qs, u"Phones[1]"_qs }));
    auto* element = scratch->FieldDefsByName(u"Phones[1]"_qs);
    EXPECT_EQ(scratch->GetParentFieldDefAttr(element->GetFieldDefComponent())->FDisplayName, u"Phones"_qs);
    EXPECT_TRUE(scratch->FieldDefsByName(u"Phones"_qs)->HasChild());
}

TEST_F(DatasetWrappers, DropDefinitionsThatAreGoneWhenTheyAreValidated)
{
    OpenScratch(Definition(u"Id"_qs) + Definition(u"Title"_qs));
    auto* scratch = DataSet(u"Data.Scratch"_qs);
    Rows(u"Data.Scratch"_qs)->FieldDefs().Delete(1);
    Events->Take();
    scratch->ValidateFieldDefs();
    EXPECT_EQ(Shown(scratch), QStringList({ u"Id"_qs }));
    EXPECT_EQ(scratch->FFieldDefs.Count(), 1);
    EXPECT_EQ(Events->Take(), "OnRefershChildObject Data.Scratch 0\n");
    scratch->ValidateFieldDefs();
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(DatasetWrappers, SaveAndRestoreTheChoicesOfTheDefinitions)
{
    OpenScratch(Definition(u"Title"_qs));
    auto* scratch = DataSet(u"Data.Scratch"_qs);
    scratch->FieldDefsByName(u"Title"_qs)->IntfSetCtrlIndex(1);
    scratch->SaveFieldDefsInfo();
    scratch->ClearFieldDefs();
    scratch->UpdateFieldDefs(false);
    Events->Take();
    scratch->RestoreFieldDefsInfo();
    QString name;
    scratch->FieldDefsByName(u"Title"_qs)->IntfGetCurrentCtrlClassName(name);
    EXPECT_EQ(name, u"TDBMemo"_qs);
    EXPECT_EQ(Events->Take(), "OnRefershChildObject Data.Scratch 0\n");
}

TEST_F(DatasetWrappers, TellOnceThatTheirMasterCameOrWent)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    books->SetIsMasterSourcePresent(true);
    books->SetIsMasterSourcePresent(true);
    books->SetIsMasterSourcePresent(false);
    EXPECT_EQ(Events->Take(), "OnRefreshDatasetList rmAdd DataUnit.pas\nOnRefreshDatasetList rmAdd DataUnit.pas\n");
}

TEST_F(DatasetWrappers, TakeAnotherConnection)
{
    OpenShop();
    auto* authors = DataSet(u"Data.Authors"_qs);
    authors->SetConnection(u"data"_qs, u"SHOP"_qs);
    EXPECT_EQ(GetObjectProp(Component(u"Data.Authors"_qs), u"Connection"_qs), Component(u"Data.Shop"_qs));
    EXPECT_TRUE(authors->IsSessionChanged());
    QString group;
    authors->IntfGetSessionName(group);
    EXPECT_EQ(group, u"Shop {Data}"_qs);
    EXPECT_NE(Events->Take().find("OnSessionChanged\n"), std::string::npos);
    authors->SetConnection(u"Data"_qs, u"Nobody"_qs);
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(DatasetWrappers, SelectTheirConnectionAndTheirOwner)
{
    OpenShop();
    DesignerOf(u"Data"_qs).Activate();
    DataSet(u"Data.Books"_qs)->IntfSelectConnection();
    EXPECT_EQ(DesignerOf(u"Data"_qs).Selection(), (QList<TPersistent*> { Component(u"Data.Shop"_qs) }));
    DataSet(u"Data.Books"_qs)->IntfSelectParent(true);
    EXPECT_EQ(DesignerOf(u"Data"_qs).Selection(), (QList<TPersistent*> { Component(u"Data"_qs) }));
    EXPECT_EQ(TheHost->CurrentModule()->FormName(), u"Data"_qs);
}

TEST_F(DatasetWrappers, ShowTheirFormWithTheirDatasetSelected)
{
    OpenShop();
    DesignerOf(u"MainForm"_qs).Activate();
    DataSet(u"Data.Books"_qs)->IntfShowForm();
    EXPECT_EQ(TheHost->CurrentModule()->FormName(), u"Data"_qs);
    EXPECT_EQ(DesignerOf(u"Data"_qs).Selection(), (QList<TPersistent*> { Component(u"Data.Books"_qs) }));
}

namespace {

class PreviewText : public TfmDataPreview {
public:
    explicit PreviewText(QStringList& log)
        : FLog(log)
    {
    }
    ~PreviewText() override { FLog << u"gone"_qs; }
    void SetDataSet(TDataSet* dataSet) override { FLog << dataSet->Name(); }
    void SetCaption(const QString& caption) override { FLog << caption; }
    void Show() override { FLog << u"shown"_qs; }

private:
    QStringList& FLog;
};

}

TEST_F(DatasetWrappers, ShowOnePreviewEachAndTakeItAlong)
{
    OpenShop();
    QStringList log;
    DataSet(u"Data.Books"_qs)->IntfPreviewData();
    SetDataPreviewMaker([&log] { return std::make_unique<PreviewText>(log); });
    DataSet(u"Data.Books"_qs)->IntfPreviewData();
    DataSet(u"Data.Books"_qs)->IntfPreviewData();
    const QStringList once { u"Books"_qs, u"Data Preview {Data.Books}"_qs, u"shown"_qs };
    EXPECT_EQ(log, once + once);
    List->Clear();
    EXPECT_EQ(log.last(), u"gone"_qs);
    SetDataPreviewMaker({});
}
