#include "classes/Controls.h"
#include "data/TDataSet.h"
#include "data/TField.h"
#include "data/TextFields.h"
#include "support/HostFixture.h"

#include <gmock/gmock.h>

namespace {

class InheritedForms : public PackagedHostFixture {
protected:
    HostRecorder Recorder { *TheHost };
    ScriptedProject Shop;

    void OpenShop()
    {
        Shop.Form(u"BaseForm"_qs,
            u"object Panel: TPanel\nLeft = 0\nTop = 0\nWidth = 300\nHeight = 40\n"
            "object Caption: TLabel\nLeft = 8\nTop = 8\nWidth = 60\nHeight = 15\nCaption = 'Base'\nend\nend\n"
            "object Query: TZAQuery\nLeft = 8\nTop = 64\nSQL.Strings = (\n'select 1')\nend"_qs);
        Shop.InheritedForm(u"OrdersForm"_qs, u"BaseForm"_qs,
            u"inherited Panel: TPanel\nHeight = 60\nobject Close: TButton\nLeft = 200\nTop = 8\nWidth = 75\nHeight = "
            "25\nCaption = 'Close'\nend\nend"_qs);
        Open(Shop);
        Recorder.Take();
    }
};

}

TEST_F(InheritedForms, OpenTheirAncestorFirst)
{
    Shop.Form(u"MainForm"_qs).Form(u"BaseForm"_qs).InheritedForm(u"OrdersForm"_qs, u"BaseForm"_qs);
    Shop.KeepClosed(u"BaseForm"_qs).KeepClosed(u"OrdersForm"_qs);
    Open(Shop);
    Recorder.Take();
    TheHost->OpenModuleFile(Shop.UnitOf(u"OrdersForm"_qs));
    EXPECT_EQ(Recorder.Take(),
        "opened BaseForm\n"
        "file ofnFileOpened BaseFormUnit.pas\n"
        "opened OrdersForm\n"
        "file ofnFileOpened OrdersFormUnit.pas\n");
    EXPECT_EQ(DesignerOf(u"OrdersForm"_qs).GetAncestorDesigner()->GetRoot(), Component(u"BaseForm"_qs));
}

TEST_F(InheritedForms, HaveTheAncestorsComponentsWithTheirOwnValuesOverThem)
{
    OpenShop();
    auto* panel = dynamic_cast<TControl*>(Component(u"OrdersForm.Panel"_qs));
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->Height(), 60);
    EXPECT_EQ(panel->Width(), 300);
    EXPECT_EQ(panel->ComponentState(), csDesigning | csAncestor);
    EXPECT_EQ(GetStrProp(Component(u"OrdersForm.Caption"_qs), u"Caption"_qs), u"Base"_qs);
    EXPECT_EQ(dynamic_cast<TControl*>(Component(u"OrdersForm.Caption"_qs))->Parent(), panel);
    EXPECT_EQ(Component(u"OrdersForm.Close"_qs)->ComponentState(), TComponentState(csDesigning));
    EXPECT_EQ(dynamic_cast<TStrings*>(GetObjectProp(Component(u"OrdersForm.Query"_qs), u"SQL"_qs))->Lines(),
        QStringList({ u"select 1"_qs }));
    EXPECT_FALSE(TheHost->IsModified());
    EXPECT_EQ(Problems(), "");
}

TEST_F(InheritedForms, FollowAChangeOfTheAncestorUnlessTheySayOtherwise)
{
    OpenShop();
    const auto orders = FormText(u"OrdersForm"_qs);
    SetStrProp(Component(u"BaseForm.Caption"_qs), u"Caption"_qs, u"New"_qs);
    dynamic_cast<TControl*>(Component(u"BaseForm.Panel"_qs))->SetBounds({ 0, 0, 400, 50 });
    EXPECT_EQ(GetStrProp(Component(u"OrdersForm.Caption"_qs), u"Caption"_qs), u"New"_qs);
    EXPECT_EQ(dynamic_cast<TControl*>(Component(u"OrdersForm.Panel"_qs))->Bounds(), QRect(0, 0, 400, 60));
    EXPECT_EQ(FormText(u"OrdersForm"_qs), orders);
    TheHost->Undo().Undo();
    EXPECT_EQ(dynamic_cast<TControl*>(Component(u"OrdersForm.Panel"_qs))->Bounds(), QRect(0, 0, 300, 60));
}

TEST_F(InheritedForms, SayOnlyWhatDiffersFromTheAncestor)
{
    OpenShop();
    const auto orders = FormText(u"OrdersForm"_qs);
    SetStrProp(Component(u"OrdersForm.Caption"_qs), u"Hint"_qs, u"Orders"_qs);
    EXPECT_EQ(
        LineDifference(orders, FormText(u"OrdersForm"_qs)), "+inherited Caption: TLabel\n+Hint = 'Orders'\n+end\n");
    TheHost->Undo().Undo();
    EXPECT_EQ(FormText(u"OrdersForm"_qs), orders);
    EXPECT_EQ(GetStrProp(Component(u"OrdersForm.Caption"_qs), u"Hint"_qs), QString());
}

TEST_F(InheritedForms, GetWhatIsInsertedInTheAncestorAfterIt)
{
    OpenShop();
    DesignerOf(u"BaseForm"_qs).CreateComponent(GetClass(u"TZAQuery"_qs), nullptr, 8, 8, 0, 0);
    EXPECT_EQ(Recorder.Take(),
        "renamed BaseFormUnit.dfm '' -> ZAQuery1\n"
        "inserted BaseForm.ZAQuery1\n"
        "selection BaseForm: ZAQuery1\n"
        "modified BaseForm\n"
        "renamed OrdersFormUnit.dfm '' -> ZAQuery1\n"
        "inserted OrdersForm.ZAQuery1\n"
        "modified OrdersForm\n");
    EXPECT_EQ(Component(u"OrdersForm.ZAQuery1"_qs)->ComponentState(), csDesigning | csAncestor);
    EXPECT_FALSE(FormOf(u"OrdersForm"_qs).IsModified());
}

TEST_F(InheritedForms, LoseWhatIsDeletedInTheAncestor)
{
    OpenShop();
    const auto orders = FormText(u"OrdersForm"_qs);
    DesignerOf(u"BaseForm"_qs).DeleteComponents({ Component(u"BaseForm.Query"_qs) });
    EXPECT_EQ(Component(u"OrdersForm.Query"_qs), nullptr);
    TheHost->Undo().Undo();
    EXPECT_NE(Component(u"OrdersForm.Query"_qs), nullptr);
    EXPECT_EQ(FormText(u"OrdersForm"_qs), orders);
}

TEST_F(InheritedForms, TellWhatTheySayAgainWhenADeletionInTheAncestorIsUndone)
{
    OpenShop();
    SetStrProp(Component(u"OrdersForm.Caption"_qs), u"Hint"_qs, u"Orders"_qs);
    DesignerOf(u"BaseForm"_qs).DeleteComponents({ Component(u"BaseForm.Caption"_qs) });
    Recorder.Take();
    TheHost->Undo().Undo();
    EXPECT_EQ(GetStrProp(Component(u"OrdersForm.Caption"_qs), u"Hint"_qs), u"Orders"_qs);
    EXPECT_THAT(Recorder.Take(), testing::HasSubstr("selection OrdersForm: Caption\nmodified OrdersForm\n"));
}

TEST_F(InheritedForms, TakeARenameOfTheAncestorIntoTheirFile)
{
    OpenShop();
    const auto orders = FormText(u"OrdersForm"_qs);
    DesignerOf(u"BaseForm"_qs).RenameComponent(*Component(u"BaseForm.Panel"_qs), u"Header"_qs);
    EXPECT_EQ(Recorder.Take(),
        "renamed BaseFormUnit.dfm Panel -> Header\n"
        "selection BaseForm: Header\n"
        "modified BaseForm\n"
        "renamed OrdersFormUnit.dfm Panel -> Header\n"
        "modified OrdersForm\n");
    EXPECT_EQ(
        LineDifference(orders, FormText(u"OrdersForm"_qs)), "-inherited Panel: TPanel\n+inherited Header: TPanel\n");
    TheHost->Undo().Undo();
    EXPECT_EQ(FormText(u"OrdersForm"_qs), orders);
    EXPECT_NE(Component(u"OrdersForm.Panel"_qs), nullptr);
}

TEST_F(InheritedForms, DoNotDeleteOrRenameWhatComesFromTheAncestor)
{
    OpenShop();
    auto& orders = DesignerOf(u"OrdersForm"_qs);
    EXPECT_THROW(orders.DeleteComponents({ Component(u"OrdersForm.Query"_qs) }), EInvalidOperation);
    EXPECT_THROW(orders.RenameComponent(*Component(u"OrdersForm.Query"_qs), u"Other"_qs), EComponentError);
    EXPECT_EQ(Recorder.Take(), "");
}

TEST_F(InheritedForms, TellWhenTheAncestorIsNotInTheProject)
{
    Shop.Form(u"MainForm"_qs)
        .InheritedForm(u"OrdersForm"_qs, u"Missing"_qs, u"inherited Panel: TPanel\nLeft = 1\nend"_qs);
    Open(Shop);
    EXPECT_EQ(Problems(),
        "OrdersFormUnit.dfm:1:1: TMissing, which the form inherits from, is no form of the project\n"
        "OrdersFormUnit.dfm:2:3: Panel is inherited, but the ancestor has no such component\n");
    EXPECT_NE(Component(u"OrdersForm.Panel"_qs), nullptr);
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_F(InheritedForms, AFrameOwnsItsInnerComponents)
{
    Shop.Form(u"MainForm"_qs,
        u"inline Search1: TSearch\nLeft = 10\nTop = 20\nWidth = 200\nHeight = 50\n"
        "inherited Text: TEdit\nWidth = 150\nend\nend"_qs);
    Shop.Frame(u"Search"_qs,
        u"object Text: TEdit\nLeft = 4\nTop = 4\nWidth = 100\nHeight = 23\nend\n"
        "object Query: TZAQuery\nLeft = 4\nTop = 30\nend"_qs);
    Open(Shop);
    auto* frame = Component(u"MainForm.Search1"_qs);
    ASSERT_NE(frame, nullptr);
    EXPECT_TRUE(frame->HasState(csInline));
    EXPECT_EQ(Component(u"MainForm.Text"_qs), nullptr);
    auto* text = dynamic_cast<TControl*>(frame->FindComponent(u"Text"_qs));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->Bounds(), QRect(4, 4, 150, 23));
    EXPECT_EQ(frame->FindComponent(u"Query"_qs)->Owner(), frame);
    EXPECT_EQ(Problems(), "");
    EXPECT_THROW(
        DesignerOf(u"MainForm"_qs).CreateComponent(GetClass(u"TEdit"_qs), frame, 0, 0, 0, 0), EInvalidOperation);
    EXPECT_FALSE(TheHost->IsModified());
    const auto form = FormText(u"MainForm"_qs);
    text->SetLeft(40);
    EXPECT_EQ(LineDifference(form, FormText(u"MainForm"_qs)), "+Left = 40\n");
}

namespace {

class ReferencesOfInheritedForms : public InheritedForms {
protected:
    void OpenForms(const QString& more = {})
    {
        Shop.Form(u"Base"_qs,
            u"object Store: TZAConnection\nend\nobject Stock: TZAQuery\nConnection = Store\nend\n"_qs + more);
        Shop.InheritedForm(u"Heir"_qs, u"Base"_qs).InheritedForm(u"Twin"_qs, u"Base"_qs);
        Open(Shop);
    }
    void Connect(const QString& dataset, const QString& connection)
    {
        SetObjectProp(Component(dataset), u"Connection"_qs, Component(connection));
    }
    TPersistent* ConnectionOf(const QString& dataset) { return GetObjectProp(Component(dataset), u"Connection"_qs); }
};

}

TEST_F(ReferencesOfInheritedForms, LeadToTheirOwnCounterpart)
{
    OpenForms(u"object Other: TZAConnection\nend"_qs);
    const auto heir = FormText(u"Heir"_qs);
    EXPECT_EQ(ConnectionOf(u"Heir.Stock"_qs), Component(u"Heir.Store"_qs));
    Connect(u"Base.Stock"_qs, u"Base.Other"_qs);
    EXPECT_EQ(ConnectionOf(u"Heir.Stock"_qs), Component(u"Heir.Other"_qs));
    EXPECT_EQ(FormText(u"Heir"_qs), heir);
}

TEST_F(ReferencesOfInheritedForms, AreSaidWhereTheyLeadToTheAncestorsOwnComponent)
{
    OpenForms();
    const auto heir = FormText(u"Heir"_qs);
    Connect(u"Heir.Stock"_qs, u"Base.Store"_qs);
    EXPECT_EQ(
        LineDifference(heir, FormText(u"Heir"_qs)), "+inherited Stock: TZAQuery\n+Connection = Base.Store\n+end\n");
    Connect(u"Heir.Stock"_qs, u"Heir.Store"_qs);
    EXPECT_EQ(LineDifference(heir, FormText(u"Heir"_qs)), "+inherited Stock: TZAQuery\n+end\n");
}

TEST_F(ReferencesOfInheritedForms, AreTheSameWhenTheAncestorOpensAgain)
{
    OpenForms();
    Connect(u"Heir.Stock"_qs, u"Base.Store"_qs);
    Connect(u"Base.Stock"_qs, u"Twin.Store"_qs);
    TheHost->SaveAll();
    const auto unit = Shop.UnitOf(u"Base"_qs);
    TheHost->CloseModule(FormOf(u"Base"_qs));
    TheHost->OpenModuleFile(unit);
    EXPECT_EQ(ConnectionOf(u"Heir.Stock"_qs), Component(u"Base.Store"_qs));
    EXPECT_EQ(ConnectionOf(u"Twin.Stock"_qs), Component(u"Twin.Store"_qs));
    EXPECT_EQ(ConnectionOf(u"Base.Stock"_qs), Component(u"Twin.Store"_qs));
}

TEST_F(ReferencesOfInheritedForms, FollowTheAncestorToAComponentOfAnotherForm)
{
    OpenForms();
    const auto heir = FormText(u"Heir"_qs);
    Connect(u"Base.Stock"_qs, u"Twin.Store"_qs);
    EXPECT_EQ(ConnectionOf(u"Heir.Stock"_qs), Component(u"Twin.Store"_qs));
    EXPECT_EQ(ConnectionOf(u"Twin.Stock"_qs), Component(u"Twin.Store"_qs));
    EXPECT_EQ(FormText(u"Heir"_qs), heir);
    TheHost->Undo().Undo();
    EXPECT_EQ(ConnectionOf(u"Heir.Stock"_qs), Component(u"Heir.Store"_qs));
    EXPECT_EQ(ConnectionOf(u"Twin.Stock"_qs), Component(u"Twin.Store"_qs));
}

namespace {

class FieldsOfInheritedForms : public InheritedForms {
protected:
    void OpenForms(const QString& heirs = {})
    {
        Shop.Form(u"Base"_qs, u"object Stock: TZAQuery\n"_qs + Field(u"A"_qs) + Field(u"B"_qs) + u"end"_qs);
        Shop.InheritedForm(
            u"Heir"_qs, u"Base"_qs, u"inherited Stock: TZAQuery\n"_qs + heirs + Field(u"C"_qs) + u"end"_qs);
        Open(Shop);
    }
    static QString Field(const QString& name, const QString& place = {})
    {
        return u"object %1: TStringField%2\nFieldName = '%1'\nend\n"_qs.arg(name, place);
    }
    void MoveTo(const QString& field, int index) { SetPropValue(Component(field), u"Index"_qs, index); }
    std::string Order(const QString& form)
    {
        QStringList names;
        for (const auto* field : dynamic_cast<TDataSet*>(Component(form + u".Stock"_qs))->Fields())
            names << field->Name();
        return names.join(u' ').toStdString();
    }
    void OpenAgain(const QString& form)
    {
        TheHost->SaveAll();
        TheHost->Reload(FormOf(form));
    }
};

}

TEST_F(FieldsOfInheritedForms, StandWhereTheFilesSay)
{
    OpenForms(Field(u"First"_qs, u" [0]"_qs) + u"inherited B: TStringField [1]\nend\n"_qs);
    EXPECT_EQ(Order(u"Heir"_qs), "First B A C");
}

TEST_F(FieldsOfInheritedForms, HaveTheirPlaceAmongTheAncestorsFieldsInTheFile)
{
    OpenForms();
    const auto heir = FormText(u"Heir"_qs);
    MoveTo(u"Heir.C"_qs, 1);
    EXPECT_EQ(LineDifference(heir, FormText(u"Heir"_qs)), "-object C: TStringField\n+object C: TStringField [1]\n");
    OpenAgain(u"Heir"_qs);
    EXPECT_EQ(Order(u"Heir"_qs), "A C B");
    MoveTo(u"Heir.C"_qs, 2);
    EXPECT_EQ(FormText(u"Heir"_qs), heir);
}

TEST_F(FieldsOfInheritedForms, HaveTheirPlaceInTheFileWhereItIsNotTheAncestors)
{
    OpenForms();
    const auto heir = FormText(u"Heir"_qs);
    for (int i = 0; i < 2; ++i) {
        MoveTo(u"Heir.B"_qs, 0);
        EXPECT_THAT(LineDifference(heir, FormText(u"Heir"_qs)), testing::HasSubstr("+inherited B: TStringField [0]\n"));
        EXPECT_EQ(Order(u"Heir"_qs), "B A C");
        TheHost->Undo().Undo();
        EXPECT_EQ(FormText(u"Heir"_qs), heir);
        EXPECT_EQ(Order(u"Heir"_qs), "A B C");
    }
    TheHost->Undo().Redo();
    EXPECT_EQ(Order(u"Heir"_qs), "B A C");
    OpenAgain(u"Heir"_qs);
    EXPECT_EQ(Order(u"Heir"_qs), "B A C");
}

TEST_F(FieldsOfInheritedForms, FollowTheOrderOfTheAncestorAroundThoseThatHaveTheirPlace)
{
    OpenForms();
    MoveTo(u"Heir.C"_qs, 1);
    MoveTo(u"Base.B"_qs, 0);
    EXPECT_EQ(Order(u"Heir"_qs), "B C A");
    auto& base = DesignerOf(u"Base"_qs);
    auto* stock = dynamic_cast<TDataSet*>(Component(u"Base.Stock"_qs));
    base.CreateField(stock, TStringField::Class(), u"D"_qs, [stock](TField* field) { field->SetDataSet(stock); });
    EXPECT_EQ(Order(u"Heir"_qs), "B C A D");
    base.DeleteComponents({ Component(u"Base.B"_qs) });
    const auto live = Order(u"Heir"_qs);
    EXPECT_EQ(live, "A C D");
    OpenAgain(u"Heir"_qs);
    EXPECT_EQ(Order(u"Heir"_qs), live);
}

TEST_F(FieldsOfInheritedForms, KeepTheirOrderWhenARenameOfTheAncestorsFieldIsUndone)
{
    OpenForms();
    DesignerOf(u"Base"_qs).RenameComponent(*Component(u"Base.A"_qs), u"Other"_qs);
    TheHost->Undo().Undo();
    EXPECT_EQ(Order(u"Heir"_qs), "A B C");
}
