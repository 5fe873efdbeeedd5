#include "ModelFixture.h"

#include "classes/Controls.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "data/TFieldDef.h"
#include "model/MrvDropDesigner.h"

namespace {

class CreatingControls : public ModelFixture {
protected:
    // A main form with a dataset, its fields, and one of definitions only.
    void OpenForm(const QString& more = {})
    {
        Shop.Form(u"MainForm"_qs,
            u"object Books: TZAQuery\nobject BooksId: TIntegerField\nFieldName = 'Id'\nend\n"
            "object BooksTitle: TStringField\nFieldName = 'Title'\nend\nend\n"
            "object Scratch: TZAScratchTable\nFieldDefs = <\nitem\nName = 'Code'\nDataType = ftInteger\nend\n"
            "item\nName = 'Name'\nDataType = ftString\nend>\nend\n"_qs
                + more);
        Open(Shop);
        Attach();
        DesignerOf(u"MainForm"_qs).Activate();
    }
    int Drop(TCustomComponentAttr* attr, int x, int y, bool withLabel = false)
    {
        return attr->IntfCreateControl(u"MainForm"_qs, u"MainForm"_qs, x, y, withLabel);
    }
    TControl* Control(const QString& name) { return dynamic_cast<TControl*>(Component(u"MainForm."_qs + name)); }
    static QString Place(const TControl* control)
    {
        return control
            ? u"%1,%2 %3x%4"_qs.arg(control->Left()).arg(control->Top()).arg(control->Width()).arg(control->Height())
            : u"none"_qs;
    }
    // How many of the form's components are of that class.
    int Count(const QString& className, const QString& form = u"MainForm"_qs)
    {
        int count = 0;
        for (const auto* component : Component(form)->Components())
            count += component->ClassName() == className;
        return count;
    }
    TFieldDefsAttr* Def(const QString& name) { return DataSet(u"MainForm.Scratch"_qs)->FieldDefsByName(name); }
};

}

TEST_F(CreatingControls, MakesAGridBoundToAnewDataSourceAndGivesItsHeight)
{
    OpenForm();
    EXPECT_EQ(Drop(DataSet(u"MainForm.Books"_qs), 40, 60), 120);
    EXPECT_EQ(Place(Control(u"DBGrid1"_qs)), u"40,60 320x120"_qs);
    auto* source = dynamic_cast<TDataSource*>(Component(u"MainForm.DataSource1"_qs));
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source->DataSet(), Component(u"MainForm.Books"_qs));
    EXPECT_EQ(GetObjectProp(Control(u"DBGrid1"_qs), u"DataSource"_qs), source);
    EXPECT_EQ(QPoint(source->DesignLeft(), source->DesignTop()), QPoint(58, 83));
}

TEST_F(CreatingControls, MakesOneDataSourceForTwoDropsOfADataset)
{
    OpenForm();
    Drop(DataSet(u"MainForm.Books"_qs), 10, 10);
    Drop(DataSet(u"MainForm.Books"_qs), 10, 200);
    EXPECT_EQ(Count(u"TDBGrid"_qs), 2);
    EXPECT_EQ(Count(u"TDataSource"_qs), 1);
}

TEST_F(CreatingControls, UsesTheDataSourceOfTheDataModule)
{
    Shop.DataModule(
        u"Data"_qs, u"object Books: TZAQuery\nend\nobject BooksSource: TDataSource\nDataSet = Books\nend"_qs);
    OpenForm();
    Drop(DataSet(u"Data.Books"_qs), 10, 10);
    EXPECT_EQ(Count(u"TDataSource"_qs), 0);
    EXPECT_EQ(GetObjectProp(Control(u"DBGrid1"_qs), u"DataSource"_qs), Component(u"Data.BooksSource"_qs));
}

TEST_F(CreatingControls, AsksForTheMissingUsesAndStopsWithoutAYes)
{
    Shop.DataModule(u"Data"_qs, u"object Books: TZAQuery\nend"_qs);
    OpenForm();
    Answer = mrNo;
    EXPECT_EQ(Drop(DataSet(u"Data.Books"_qs), 10, 10), 0);
    EXPECT_EQ(Questions.size(), 1);
    EXPECT_TRUE(Questions[0].contains(u"'MainForm'"_qs) && Questions[0].contains(u"'Data'"_qs));
    EXPECT_EQ(Count(u"TDBGrid"_qs), 0);
    Answer = mrYes;
    EXPECT_EQ(Drop(DataSet(u"Data.Books"_qs), 10, 10), 120);
    EXPECT_NE(UnitText(u"MainForm"_qs).indexOf("DataUnit"), -1);
    Drop(DataSet(u"Data.Books"_qs), 10, 10);
    EXPECT_EQ(Questions.size(), 2);
}

TEST_F(CreatingControls, LeavesPlaceAndSizeToTheDesignerOnlyWhereNeitherCoordinateIsGiven)
{
    OpenForm();
    Drop(DataSet(u"MainForm.Books"_qs), -1, -1);
    Drop(DataSet(u"MainForm.Books"_qs), 10, -1);
    EXPECT_EQ(Control(u"DBGrid2"_qs)->Left(), 10);
    EXPECT_EQ(Control(u"DBGrid2"_qs)->Width(), 320);
}

TEST_F(CreatingControls, MakesNothingInTheModeNone)
{
    OpenForm();
    DataSet(u"MainForm.Books"_qs)->IntfSetCtrlIndex(NoneCtrlIndex);
    EXPECT_EQ(Drop(DataSet(u"MainForm.Books"_qs), 10, 10), 0);
    Field(u"MainForm.Books"_qs, u"BooksTitle"_qs)->IntfSetCtrlIndex(NoneCtrlIndex);
    EXPECT_EQ(Drop(Field(u"MainForm.Books"_qs, u"BooksTitle"_qs), 10, 10), 0);
    Def(u"Name"_qs)->IntfSetCtrlIndex(NoneCtrlIndex);
    EXPECT_EQ(Drop(Def(u"Name"_qs), 10, 10), 0);
    EXPECT_EQ(Count(u"TDBGrid"_qs) + Count(u"TDBEdit"_qs) + Count(u"TDataSource"_qs), 0);
}

TEST_F(CreatingControls, MakesTheControlOfAFieldWithItsLabel)
{
    OpenForm();
    const int bottom = Drop(Field(u"MainForm.Books"_qs, u"BooksTitle"_qs), 20, 30, true);
    auto* label = Control(u"Label1"_qs);
    auto* edit = Control(u"DBEdit1"_qs);
    ASSERT_TRUE(label && edit);
    EXPECT_EQ(label->Caption(), u"Title"_qs);
    EXPECT_EQ(edit->Top(), 30 + label->Height() + 3);
    EXPECT_EQ(bottom, edit->Top() + edit->Height());
    EXPECT_EQ(GetStrProp(edit, u"DataField"_qs), u"Title"_qs);
    EXPECT_EQ(GetObjectProp(edit, u"DataSource"_qs), Component(u"MainForm.DataSource1"_qs));
    EXPECT_EQ(Count(u"TDataSource"_qs), 1);
}

TEST_F(CreatingControls, MakesNothingForAFieldThatNoControlIsConfiguredFor)
{
    OpenForm(u"object Other: TZAQuery\nobject OtherPhoto: TGraphicField\nFieldName = 'Photo'\nend\nend"_qs);
    EXPECT_EQ(Drop(Field(u"MainForm.Other"_qs, u"OtherPhoto"_qs), 10, 10), 0);
    EXPECT_EQ(Count(u"TDataSource"_qs), 0);
}

TEST_F(CreatingControls, MakesAControlForEachFieldOneBelowTheOther)
{
    OpenForm();
    DataSet(u"MainForm.Books"_qs)->IntfSetCtrlIndex(DetailsCtrlIndex);
    EXPECT_EQ(Drop(DataSet(u"MainForm.Books"_qs), 10, 20), 20 + 21 + 5 + 21);
    EXPECT_EQ(Place(Control(u"DBEdit1"_qs)), u"10,20 121x21"_qs);
    EXPECT_EQ(Place(Control(u"DBEdit2"_qs)), u"10,46 121x21"_qs);
    EXPECT_EQ(Count(u"TDataSource"_qs), 1);
}

TEST_F(CreatingControls, MakesAControlForEachDefinitionWhereThereAreNoFields)
{
    OpenForm();
    DataSet(u"MainForm.Scratch"_qs)->IntfSetCtrlIndex(DetailsCtrlIndex);
    EXPECT_EQ(Drop(DataSet(u"MainForm.Scratch"_qs), 10, 20, true), 0);
    const int offset = Control(u"Label1"_qs)->Height() + 3;
    EXPECT_EQ(Place(Control(u"Label1"_qs)).section(u' ', 0, 0), u"10,20"_qs);
    EXPECT_EQ(Control(u"DBEdit1"_qs)->Top(), 20 + offset);
    EXPECT_EQ(Control(u"Label2"_qs)->Top(), 20 + offset + 21 + 5);
    EXPECT_EQ(Control(u"DBEdit2"_qs)->Top(), 20 + offset + 21 + 5 + offset);
    EXPECT_EQ(GetStrProp(Control(u"DBEdit2"_qs), u"DataField"_qs), u"Name"_qs);
    EXPECT_EQ(Count(u"TDataSource"_qs), 1);
}

TEST_F(CreatingControls, LeavesNoRoomForADefinitionThatMakesNothing)
{
    OpenForm();
    DataSet(u"MainForm.Scratch"_qs)->IntfSetCtrlIndex(DetailsCtrlIndex);
    Def(u"Code"_qs)->IntfSetCtrlIndex(NoneCtrlIndex);
    Drop(DataSet(u"MainForm.Scratch"_qs), 10, 20);
    EXPECT_EQ(Place(Control(u"DBEdit1"_qs)), u"10,20 121x21"_qs);
}

TEST_F(CreatingControls, MakesTheControlOfADefinitionUnheardAndKeepsTheDatasetActive)
{
    OpenForm();
    auto* scratch = dynamic_cast<TDataSet*>(Component(u"MainForm.Scratch"_qs));
    scratch->SetStoredActive(true);
    Events->Take();
    EXPECT_EQ(Drop(Def(u"Name"_qs), 10, 20), 41);
    EXPECT_TRUE(scratch->Active());
    const auto told = Events->Take();
    EXPECT_EQ(told.substr(0, 16), "DisableEvents 2\n");
    EXPECT_NE(told.find("EnableEvents 2\n"), std::string::npos);
    EXPECT_TRUE(List->IsEventEnabled(deSelectionChanged));
}

TEST_F(CreatingControls, RestoresTheStateWhenAControlOfADefinitionFails)
{
    OpenForm();
    auto vcl = Personality();
    vcl->AddFieldInfo(vcl->GetFieldGroupIndex(u"ftString"_qs), u"Unbound"_qs, u"TUnbound"_qs);
    Def(u"Name"_qs)->IntfSetCtrlIndex(2);
    EXPECT_THROW(Drop(Def(u"Name"_qs), 10, 20), EPropertyError);
    EXPECT_TRUE(List->IsEventEnabled(deSelectionChanged));
    EXPECT_NE(Events->Take().find("EnableEvents 2\n"), std::string::npos);
}

TEST_F(CreatingControls, SaysWhichControlIsNotInstalled)
{
    OpenForm();
    auto vcl = Personality();
    vcl->AddDataSetInfo(u"Lost"_qs, u"TLostGrid"_qs);
    vcl->SetDefaultDataSetInfo(u"TLostGrid"_qs);
    List->IntfPreferencesWasChanged();
    try {
        Drop(DataSet(u"MainForm.Books"_qs), 10, 10);
        FAIL();
    } catch (const EClassNotFound& failure) {
        EXPECT_EQ(failure.Message(), u"Visual control TLostGrid is not installed in IDE"_qs);
    }
}

TEST_F(CreatingControls, BindsAGridsViewByItsController)
{
    OpenForm(u"object ViewGrid1DBTableView1: TGridView\nend"_qs);
    Personality()->AddDataSetInfo(u"ViewGrid"_qs, u"TViewGrid"_qs);
    Personality()->SetDefaultDataSetInfo(u"TViewGrid"_qs);
    List->IntfPreferencesWasChanged();
    Drop(DataSet(u"MainForm.Books"_qs), 10, 10);
    auto* source = Component(u"MainForm.DataSource1"_qs);
    auto* controller = GetObjectProp(Component(u"MainForm.ViewGrid1DBTableView1"_qs), u"DataController"_qs);
    EXPECT_EQ(GetObjectProp(controller, u"DataSource"_qs), source);
    EXPECT_EQ(GetObjectProp(Control(u"ViewGrid1"_qs), u"DataSource"_qs), source);
}

TEST_F(CreatingControls, BindsAGridWithoutAViewByItsOwnProperty)
{
    OpenForm();
    Personality()->AddDataSetInfo(u"ViewGrid"_qs, u"TViewGrid"_qs);
    Personality()->SetDefaultDataSetInfo(u"TViewGrid"_qs);
    List->IntfPreferencesWasChanged();
    Drop(DataSet(u"MainForm.Books"_qs), 10, 10);
    EXPECT_EQ(GetObjectProp(Control(u"ViewGrid1"_qs), u"DataSource"_qs), Component(u"MainForm.DataSource1"_qs));
}

TEST_F(CreatingControls, BindsControlsThatHoldTheirBindingInAnObject)
{
    OpenForm();
    auto vcl = Personality();
    vcl->AddFieldInfo(vcl->GetFieldGroupIndex(u"ftString"_qs), u"BoundEdit"_qs, u"TBoundEdit"_qs);
    Field(u"MainForm.Books"_qs, u"BooksTitle"_qs)->IntfSetCtrlIndex(2);
    Drop(Field(u"MainForm.Books"_qs, u"BooksTitle"_qs), 10, 10);
    auto* binding = GetObjectProp(Control(u"BoundEdit1"_qs), u"DataBinding"_qs);
    EXPECT_EQ(GetStrProp(binding, u"DataField"_qs), u"Title"_qs);
    EXPECT_EQ(GetObjectProp(binding, u"DataSource"_qs), Component(u"MainForm.DataSource1"_qs));
}

TEST_F(CreatingControls, FallsBackToTheActiveFormForATargetThatNobodyHas)
{
    OpenForm();
    EXPECT_EQ(DataSet(u"MainForm.Books"_qs)->GetTargetComponent(u"Nobody"_qs, u"NoForm"_qs), Component(u"MainForm"_qs));
}

TEST_F(CreatingControls, TakesTheTargetOnTheNamedForm)
{
    Shop.Form(u"OtherForm"_qs, u"object Panel: TWinControl\nend"_qs);
    OpenForm(u"object Panel: TWinControl\nend"_qs);
    auto* books = DataSet(u"MainForm.Books"_qs);
    EXPECT_EQ(books->GetTargetComponent(u"Panel"_qs, u"OtherForm"_qs), Component(u"OtherForm.Panel"_qs));
    EXPECT_EQ(books->GetTargetComponent(u"Panel"_qs, u"MainForm"_qs), Component(u"MainForm.Panel"_qs));
    EXPECT_EQ(books->GetTargetComponent(u"OtherForm"_qs, QString()), Component(u"OtherForm"_qs));
}

TEST_F(CreatingControls, BringsTheTargetFormToTheFront)
{
    Shop.Form(u"OtherForm"_qs);
    OpenForm();
    DataSet(u"MainForm.Books"_qs)->IntfSetCtrlIndex(NoneCtrlIndex);
    DataSet(u"MainForm.Books"_qs)->IntfCreateControl(u"OtherForm"_qs, u"OtherForm"_qs, 1, 1, false);
    EXPECT_EQ(TheHost->CurrentModule()->FormName(), u"OtherForm"_qs);
}

TEST_F(CreatingControls, MakesTheDefaultControlForTheDesignersMenu)
{
    OpenForm();
    List->CreateDefaultControl(u"MainForm"_qs, u"Books"_qs);
    EXPECT_EQ(Count(u"TDBGrid"_qs), 1);
    List->CreateDefaultControl(u"MainForm"_qs, u"Nobody"_qs);
    EXPECT_EQ(Count(u"TDBGrid"_qs), 1);
    Personality()->AddDataSetInfo(u"Lost"_qs, u"TLostGrid"_qs);
    Personality()->SetDefaultDataSetInfo(u"TLostGrid"_qs);
    List->IntfPreferencesWasChanged();
    EXPECT_NO_THROW(List->CreateDefaultControl(u"MainForm"_qs, u"Books"_qs));
}

TEST_F(CreatingControls, PrefersTheFormOfTheDropWhereTwoBearOneName)
{
    ScriptedProject first(u"First"_qs);
    first.Form(u"MainForm"_qs, u"object Books: TZAQuery\nend"_qs);
    ScriptedProject second(u"Second"_qs);
    second.Form(u"MainForm"_qs);
    ASSERT_TRUE(TheHost->Open(ScriptedProject::WriteGroup({ &first, &second })));
    TheHost->OpenModuleFile(second.UnitOf(u"MainForm"_qs));
    Attach();
    auto* other = TheHost->FindOpenModule(second.UnitOf(u"MainForm"_qs));
    ASSERT_NE(other, nullptr);
    const TDropDesigner drop(InterfacePtr<IDesigner>(&other->TheDesigner()));
    EXPECT_EQ(List->GetItem(0)->GetTargetComponent(u"MainForm"_qs, QString()), other->TheDesigner().GetRoot());
}
