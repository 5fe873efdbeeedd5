#include "ModelFixture.h"

#include "design/IComponentEditor.h"
#include "services/ComponentEditors.h"
#include "support/MrvConst.h"

namespace {

class Wrappers : public ModelFixture {
protected:
    static QString ControlOf(TCustomComponentAttr* attr)
    {
        QString name;
        attr->IntfGetCurrentCtrlClassName(name);
        return name;
    }
    static TCtrlCreationMode ModeOf(TCustomComponentAttr* attr)
    {
        TCtrlCreationMode mode = ccmNone;
        attr->IntfGetCtrlCreationMode(mode);
        return mode;
    }
    static int IndexOf(TCustomComponentAttr* attr)
    {
        int index = -1;
        attr->IntfGetCtrlIndex(index);
        return index;
    }
    InterfacePtr<IMrvBindableControlInfoList> DataSetControls()
    {
        InterfacePtr<IMrvBindableControlInfoList> list;
        Personality()->GetDataSetBindCtrlInfoList(list);
        return list;
    }
};

}

TEST_F(Wrappers, AnswerToAllInterfacesOfTheirClassAsOneObject)
{
    OpenShop();
    const InterfacePtr<IMrvFieldAttr> field(Field(u"Data.Books"_qs, u"BooksTitle"_qs));
    const auto common = InterfaceCast<IMrvCommonFieldAttr>(field);
    const auto component = InterfaceCast<IMrvCustomComponentAttr>(common);
    ASSERT_TRUE(component);
    EXPECT_EQ(InterfaceCast<IMrvFieldAttr>(component), field);
    EXPECT_FALSE(InterfaceCast<IMrvDataSetAttr>(field));
    EXPECT_TRUE(InterfaceCast<IMrvFormAttr>(InterfacePtr<IMrvCustomComponentAttr>(List->GetFormAttr(u"Data"_qs))));
}

TEST_F(Wrappers, GetASessionUniqueValueEach)
{
    OpenShop();
    QSet<int> guids;
    for (int i = 0; i < List->GetItemCount(); ++i)
        guids << List->GetItem(i)->Guid();
    guids << ConnectionOf(u"Data.Shop"_qs)->Guid() << List->GetFormAttr(u"Data"_qs)->Guid();
    EXPECT_EQ(guids.size(), 4);
}

TEST_F(Wrappers, FindTheLiveComponentOfAFormThatWasClosedAndOpened)
{
    OpenShop();
    const InterfacePtr<TConnectionAttr> shop(ConnectionOf(u"Data.Shop"_qs));
    auto* old = shop->GetComponent();
    TheHost->CloseModule(FormOf(u"Data"_qs));
    EXPECT_EQ(shop->FComponent.get(), nullptr);
    auto* found = shop->GetComponent();
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found, Component(u"Data.Shop"_qs));
    EXPECT_EQ(shop->FComponent.Address(), found);
    Q_UNUSED(old)
}

TEST_F(Wrappers, KnowWithoutOpeningAModuleWhetherTheirComponentIsThere)
{
    OpenShop();
    const InterfacePtr<TConnectionAttr> shop(ConnectionOf(u"Data.Shop"_qs));
    EXPECT_TRUE(shop->IsValid());
    TheHost->CloseModule(FormOf(u"Data"_qs));
    EXPECT_FALSE(shop->IsValid());
    EXPECT_EQ(TheHost->FormModule(u"Data"_qs), nullptr);
}

TEST_F(Wrappers, ClassifyTheirComponent)
{
    OpenShop();
    EXPECT_EQ(DataSet(u"Data.Books"_qs)->IntfGetControlType(), ctDataSet);
    EXPECT_EQ(Field(u"Data.Books"_qs, u"BooksTitle"_qs)->IntfGetControlType(), ctField);
    EXPECT_EQ(ConnectionOf(u"Data.Shop"_qs)->IntfGetControlType(), ctOther);
    EXPECT_TRUE(DataSet(u"Data.Books"_qs)->IntfInheritsFrom(u"TDataSet"_qs));
    EXPECT_FALSE(DataSet(u"Data.Books"_qs)->IntfInheritsFrom(u"TNobodyKnows"_qs));
    const auto nothing = New<TCustomComponentAttr>(nullptr, TClass(), nullptr, nullptr);
    EXPECT_EQ(nothing->IntfGetControlType(), ctOther);
    EXPECT_FALSE(nothing->IntfInheritsFrom(u"TDataSet"_qs));
}

TEST_F(Wrappers, StartWithTheDefaultControl)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    EXPECT_EQ(ControlOf(books), u"TDBGrid"_qs);
    EXPECT_EQ(ModeOf(books), ccmDataGridView);
    EXPECT_EQ(IndexOf(books), 0);
}

TEST_F(Wrappers, TakeAControlByItsIndexAndThePseudoControlsByTheirs)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    books->IntfSetCtrlIndex(1);
    EXPECT_EQ(ControlOf(books), u"TDBCtrlGrid"_qs);
    books->IntfSetCtrlIndex(2024);
    EXPECT_EQ(ControlOf(books), u"Details"_qs);
    EXPECT_EQ(ModeOf(books), ccmDetails);
    EXPECT_EQ(IndexOf(books), 2024);
    books->IntfSetCtrlIndex(2025);
    EXPECT_EQ(ControlOf(books), u"None"_qs);
    EXPECT_EQ(ModeOf(books), ccmNone);
    EXPECT_EQ(IndexOf(books), 2025);
}

TEST_F(Wrappers, OfStatementsStartWithTheirFamilysNameAndMakeNothing)
{
    Shop.DataModule(u"Data"_qs, u"object Update: TZASQL\nend\nobject Script: TZAScript\nend"_qs);
    Open(Shop);
    Attach();
    EXPECT_EQ(DataSet(u"Data.Update"_qs)->FCtrlClassName, u"TCustomZASQL"_qs);
    EXPECT_EQ(DataSet(u"Data.Script"_qs)->FCtrlClassName, u"TZAScript"_qs);
    EXPECT_EQ(ModeOf(DataSet(u"Data.Update"_qs)), ccmNone);
}

TEST_F(Wrappers, TakeDetailsInAnotherCaseForAControlInTheListAndForDetailsInTheMode)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    books->FCtrlClassName = u"details"_qs;
    books->NeedCtrlMenuItems();
    EXPECT_EQ(books->FCtrlClassName, u"details"_qs);
    EXPECT_EQ(ModeOf(books), ccmDetails);
    // With nothing to choose from it is no pseudo-control and goes.
    DataSetControls()->Clear();
    books->NeedCtrlMenuItems();
    EXPECT_EQ(books->FCtrlClassName, u"None"_qs);
    EXPECT_EQ(ModeOf(books), ccmNone);
}

TEST_F(Wrappers, TakeTheOnlyControlOfAList)
{
    OpenShop();
    auto* id = Field(u"Data.Books"_qs, u"BooksId"_qs);
    id->FCtrlClassName.clear();
    EXPECT_EQ(ControlOf(id), u"TDBEdit"_qs);
    EXPECT_EQ(IndexOf(id), 0);
}

TEST_F(Wrappers, WithoutAnyControlHaveTheIndexOfNoneUnlessTheyAreOnDetails)
{
    OpenShop();
    DataSetControls()->Clear();
    auto* books = DataSet(u"Data.Books"_qs);
    books->FCtrlIndex = 3;
    EXPECT_EQ(IndexOf(books), 2025);
    books->FCtrlIndex = 2024;
    EXPECT_EQ(IndexOf(books), 2024);
}

TEST_F(Wrappers, FallBackToNoneForAControlThatTheConfigurationLost)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    books->IntfSetCtrlIndex(1);
    Personality()->DeleteDataSetInfo(u"TDBCtrlGrid"_qs);
    InterfacePtr<IMrvBindableControlInfo> item;
    books->GetCurrentMenuItem(item);
    EXPECT_FALSE(item);
    EXPECT_EQ(books->FCtrlClassName, u"None"_qs);
    EXPECT_EQ(books->FCtrlIndex, 2025);
}

TEST_F(Wrappers, TakeTheNewDefaultWhenThePreferencesChange)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    books->IntfSetCtrlIndex(2025);
    auto* title = Field(u"Data.Books"_qs, u"BooksTitle"_qs);
    title->IntfSetCtrlIndex(1);
    Personality()->SetDefaultDataSetInfo(u"TDBCtrlGrid"_qs);
    List->IntfPreferencesWasChanged();
    EXPECT_EQ(ControlOf(books), u"TDBCtrlGrid"_qs);
    EXPECT_EQ(ModeOf(books), ccmDataGridView);
    EXPECT_EQ(ControlOf(title), u"TDBEdit"_qs);
}

TEST_F(Wrappers, ListTheirControlsWithTheIndexesOfThePseudoControls)
{
    OpenShop();
    const auto menu = New<MenuText>();
    DataSet(u"Data.Books"_qs)->IntfGetCtrlMenu(menu);
    EXPECT_EQ(menu->Lines,
        (QStringList { u"0 DBGrid TDBGrid"_qs, u"1 DBCtrlGrid TDBCtrlGrid"_qs, u"2024 Details Details"_qs,
            u"2025 None None"_qs }));
}

TEST_F(Wrappers, ListTheVerbsOfTheirEditorWithoutThePlugInsOwn)
{
    OpenShop();
    QStringList done;
    for (const auto& caption : { u"Edit SQL"_qs, u"Show in Morvane"_qs, u"Create default control"_qs, u"Run"_qs }) {
        ComponentVerb verb;
        verb.Caption = caption;
        verb.Execute = [&done, caption](TComponent&, const InterfacePtr<IDesigner>&) { done << caption; };
        TheHost->Editors().Register(u"TZAQuery"_qs, verb);
    }
    const auto menu = New<MenuText>();
    auto* books = DataSet(u"Data.Books"_qs);
    books->IntfGetMenu(menu);
    QStringList captions;
    for (const auto& line : menu->Lines)
        captions << line.section(u' ', 1);
    EXPECT_TRUE(captions.contains(u"Edit SQL"_qs));
    EXPECT_TRUE(captions.contains(u"Run"_qs));
    EXPECT_FALSE(captions.contains(u"Show in Morvane"_qs));
    EXPECT_FALSE(captions.contains(u"Create default control"_qs));
    const auto run = menu->Lines[captions.indexOf(u"Run"_qs)].section(u' ', 0, 0).toInt();
    books->IntfExecuteVerb(run, 0);
    EXPECT_EQ(done, QStringList({ u"Run"_qs }));
}

TEST_F(Wrappers, SelectTheirComponentUnheard)
{
    OpenShop();
    DesignerOf(u"Data"_qs).Activate();
    Events->Take();
    DataSet(u"Data.Books"_qs)->IntfSelect(false);
    Field(u"Data.Books"_qs, u"BooksTitle"_qs)->IntfSelect(true);
    EXPECT_EQ(DesignerOf(u"Data"_qs).Selection(),
        (QList<TPersistent*> { Component(u"Data.Books"_qs), Component(u"Data.BooksTitle"_qs) }));
    EXPECT_EQ(Events->Take(), "");
    EXPECT_TRUE(List->IsEventEnabled(deSelectionChanged));
}

TEST_F(Wrappers, ServeNoOtherRoadThanTheDesigners)
{
    OpenShop();
    auto* books = DataSet(u"Data.Books"_qs);
    EXPECT_FALSE(books->IntfDotNetAcceptedDragAndDrop(nullptr));
    EXPECT_EQ(books->IntfDotNetCreateControl(nullptr, 1, 1, true), 0);
    TComponent* component = Component(u"Data"_qs);
    EXPECT_FALSE(books->GetComponentFromWindowHandle(nullptr, component));
    EXPECT_EQ(component, nullptr);
}

TEST_F(Wrappers, OfAFormBringItUpByItsFile)
{
    OpenShop();
    DesignerOf(u"MainForm"_qs).Activate();
    List->GetFormAttr(u"Data"_qs)->IntfEdit();
    EXPECT_EQ(TheHost->CurrentModule()->FormName(), u"Data"_qs);
    const InterfacePtr<TFormAttr> form(List->GetFormAttr(u"Data"_qs));
    TheHost->CloseModule(FormOf(u"Data"_qs));
    form->IntfEdit();
    EXPECT_EQ(TheHost->FormModule(u"Data"_qs), nullptr);
}

TEST_F(Wrappers, OfAConnectionThatHasGoneNameTheirGroupByTheStoredNames)
{
    OpenShop();
    const InterfacePtr<TConnectionAttr> shop(ConnectionOf(u"Data.Shop"_qs));
    DesignerOf(u"Data"_qs).DeleteComponents({ Component(u"Data.Shop"_qs) });
    Clock.Advance(200);
    QString name;
    shop->GetSessionName(name);
    EXPECT_EQ(name, u"Shop {Data}"_qs);
    EXPECT_EQ(List->GetConnectionCount(), 0);
}
