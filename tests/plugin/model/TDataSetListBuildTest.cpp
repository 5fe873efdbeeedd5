#include "ModelFixture.h"

namespace {

class BuildingTheList : public ModelFixture {
protected:
    // What the list holds of one form, without fields.
    QStringList Names()
    {
        QStringList names;
        for (int i = 0; i < List->GetItemCount(); ++i) {
            QString name;
            List->GetItem(i)->IntfComponentName(true, name);
            names << name;
        }
        names.sort();
        return names;
    }
};

}

TEST_F(BuildingTheList, ShowsDatasetsStatementsAndScriptsWithTheirFieldsAndConnections)
{
    Shop.DataModule(u"Data"_qs,
        u"object Shop: TZAConnection\nend\n"
        "object Books: TZAQuery\nConnection = Shop\n"
        "object BooksTitle: TStringField\nFieldName = 'Title'\nend\nend\n"
        "object Rows: TDataSet\nend\nobject Update: TZASQL\nConnection = Shop\nend\n"
        "object Script: TZAScript\nend\nobject Source: TDataSource\nend"_qs);
    Open(Shop);
    Attach();
    EXPECT_EQ(Text(),
        "Data.Books: TZAQuery in Shop {Data}; 0 - Title{BooksTitle}\n"
        "Data.Rows: TDataSet in Others\n"
        "Data.Script: TZAScript in {Unassigned}\n"
        "Data.Update: TZASQL in Shop {Data}\n"
        "connection Shop {Data}\n");
    EXPECT_EQ(List->FFormItem.Count(), 1);
}

TEST_F(BuildingTheList, EmptiesAListWithoutAProjectAndSendsNothing)
{
    OpenShop();
    TheHost->CloseAll();
    Events->Take();
    List->BuildDataSetList(false);
    EXPECT_EQ(Events->Take(), "");
    List->BuildDataSetList(true);
    EXPECT_EQ(List->GetItemCount(), 0);
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(BuildingTheList, SendsThatTheProjectIsOpenUnlessThatIsSwitchedOff)
{
    OpenShop();
    List->BuildDataSetList(true);
    EXPECT_EQ(Events->Take(), "OnProjectOpened\n");
    List->DisableEvents(deDataSetListLoad);
    List->BuildDataSetList(true);
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(BuildingTheList, ReadsOnlyOpenModulesUnlessAllFormsAreScanned)
{
    Shop.Form(u"MainForm"_qs, u"object First: TZAQuery\nend"_qs);
    Shop.DataModule(u"Data"_qs, u"object Second: TZAQuery\nend"_qs).KeepClosed(u"Data"_qs);
    Open(Shop);
    SetPreference(u"ScanAllForms"_qs, QString());
    Attach();
    EXPECT_EQ(Names(), QStringList({ u"MainForm.First"_qs }));
    SetPreference(u"ScanAllForms"_qs, u"True"_qs);
    List->BuildDataSetList(true);
    EXPECT_EQ(Names(), QStringList({ u"Data.Second"_qs, u"MainForm.First"_qs }));
}

TEST_F(BuildingTheList, RaisesForAPreferenceThatIsNoBoolean)
{
    OpenShop();
    SetPreference(u"ScanAllForms"_qs, u"perhaps"_qs);
    EXPECT_THROW(List->BuildDataSetList(true), EConvertError);
    EXPECT_FALSE(List->FBuildInProgress);
}

TEST_F(BuildingTheList, StopsWithoutAConfiguration)
{
    Open(Shop.Form(u"MainForm"_qs));
    const auto list = New<TDataSetList>();
    try {
        list->BuildDataSetList(true);
        FAIL();
    } catch (const EAssertionFailed& failure) {
        EXPECT_EQ(failure.Message(), u"Configuration services is not registered"_qs);
    }
}

TEST_F(BuildingTheList, KeepsItsWrappersWithTheirChoicesAndAddsWhatIsNew)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    books->IntfSetCtrlIndex(1);
    const int guid = books->Guid();
    List->DisableEvents(deComponentRenamed);
    DesignerOf(u"Data"_qs).CreateComponent(GetClass(u"TZATable"_qs), nullptr, 10, 10, 0, 0);
    List->EnableEvents(deComponentRenamed);
    List->BuildDataSetList(false);
    EXPECT_EQ(DataSet(u"Data.Books"_qs), books);
    EXPECT_EQ(books->Guid(), guid);
    EXPECT_EQ(books->FCtrlClassName, u"TDBCtrlGrid"_qs);
    EXPECT_EQ(Names(), QStringList({ u"Data.Authors"_qs, u"Data.Books"_qs, u"Data.ZATable1"_qs }));
    EXPECT_EQ(List->GetConnectionCount(), 1);
}

TEST_F(BuildingTheList, ResurrectsADormantForm)
{
    OpenShop();
    DesignerOf(u"Data"_qs).GoDormant();
    List->BuildDataSetList(true);
    EXPECT_EQ(Names(), QStringList({ u"Data.Authors"_qs, u"Data.Books"_qs }));
    EXPECT_NE(DesignerOf(u"Data"_qs).GetRoot(), nullptr);
}

TEST_F(BuildingTheList, TellsComponentsOfOneNameApartByTheirForms)
{
    Shop.Form(u"MainForm"_qs, u"object Books: TZAQuery\nend"_qs);
    Shop.Form(u"OtherForm"_qs, u"object Books: TZAQuery\nend"_qs);
    Open(Shop);
    Attach();
    EXPECT_EQ(Names(), QStringList({ u"MainForm.Books"_qs, u"OtherForm.Books"_qs }));
    EXPECT_NE(DataSet(u"MainForm.Books"_qs), DataSet(u"OtherForm.Books"_qs));
}

TEST_F(BuildingTheList, NamesTheUnitByThePersonality)
{
    OpenShop();
    QString unit;
    DataSet(u"Data.Books"_qs)->IntfUnitName(unit);
    EXPECT_EQ(unit, Shop.UnitOf(u"Data"_qs));
    List.Clear();
    ScriptedProject cpp(u"CppShop"_qs, ScriptedProject::Kind::CppBuilder);
    cpp.DataModule(u"CppData"_qs, u"object Books: TZAQuery\nend"_qs);
    Open(cpp);
    Attach();
    List->GetItem(0)->IntfUnitName(unit);
    EXPECT_TRUE(unit.endsWith(u".CPP"_qs)) << unit.toStdString();
}

TEST_F(BuildingTheList, DoesNothingWhileItSleepsAndBuildsWhenItWakes)
{
    OpenShop();
    List->GoDormant();
    List->BuildDataSetList(true);
    EXPECT_EQ(List->GetItemCount(), 2);
    EXPECT_EQ(Events->Take(), "");
    List->Resurrect();
    EXPECT_EQ(Events->Take(), "OnProjectOpened\nOnRefreshDatasetList rmFullRefresh\n");
    List->Resurrect();
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(BuildingTheList, GivesAHandlerBackAfterTwoDisablesAndOneEnable)
{
    List = New<TDataSetList>();
    List->DisableEvents(deSelectionChanged);
    List->DisableEvents(deSelectionChanged);
    EXPECT_FALSE(List->IsEventEnabled(deSelectionChanged));
    List->EnableEvents(deSelectionChanged);
    EXPECT_TRUE(List->IsEventEnabled(deSelectionChanged));
}

TEST_F(BuildingTheList, NeverGatesAnEventAbove31)
{
    List = New<TDataSetList>();
    const auto event = TDsListDisabledEvent(40);
    List->DisableEvents(event);
    EXPECT_TRUE(List->FDisabledEvents.IsEmpty());
    EXPECT_TRUE(List->IsEventEnabled(event));
}

TEST_F(BuildingTheList, CutsTheWayBackOfWrappersThatOutliveIt)
{
    OpenShop();
    const InterfacePtr<TDataSetAttr> books(DataSet(u"Data.Books"_qs));
    const InterfacePtr<TFieldAttr> title(Field(u"Data.Books"_qs, u"BooksTitle"_qs));
    List.Clear();
    EXPECT_EQ(books->DataSetList(), nullptr);
    EXPECT_EQ(books->SvcManager(), nullptr);
    TheHost->CloseAll();
    const auto menu = New<MenuText>();
    QString text;
    int index = 0;
    TPersistent* persistent = books->FComponent.get();
    books->IntfGetPersistent(persistent);
    books->IntfGetMenu(menu);
    books->IntfGetCtrlMenu(menu);
    books->IntfGetCtrlIndex(index);
    books->IntfSelect(false);
    books->IntfGetSessionName(text);
    books->SetConnection(u"Data"_qs, u"Shop"_qs);
    books->IntfPreviewData();
    title->IntfGetDisplayName(text);
    EXPECT_EQ(persistent, nullptr);
    EXPECT_EQ(text, u"1 - Title{BooksTitle}"_qs);
    EXPECT_EQ(books->IntfCreateControl(u"MainForm"_qs, u"MainForm"_qs, 1, 1, true), 0);
}

TEST_F(BuildingTheList, CutsTheWayFromAFieldToADatasetThatGoesFirst)
{
    OpenShop();
    const InterfacePtr<TFieldAttr> title(Field(u"Data.Books"_qs, u"BooksTitle"_qs));
    List->Clear();
    InterfacePtr<IMrvDataSetAttr> dataSet;
    title->GetDataSet(dataSet);
    EXPECT_FALSE(dataSet);
    InterfacePtr<IMrvCustomComponentAttr> owner;
    title->IntfGetOwner(owner);
    EXPECT_FALSE(owner);
}

TEST_F(BuildingTheList, SendsNothingAnyMoreOnceAnotherListHasTheSink)
{
    OpenShop();
    const auto old = List;
    Attach();
    old->BuildDataSetList(true);
    TheHost->CloseProject(*TheHost->ActiveProject());
    EXPECT_EQ(old->FEvents, nullptr);
    EXPECT_EQ(Events->Take().find("OnProjectOpened"), std::string::npos);
}
