#include "classes/Controls.h"
#include "data/TDataSetDesigner.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "design/DataControls.h"
#include "support/HostFixture.h"

namespace {

class TestDrag : public TDragObject {
public:
    QString ClassName() const override { return QStringLiteral("TTestDrag"); }
};

// A target that does what the test says.
class TestTarget : public TDragTarget {
public:
    using Drop = std::function<void(const InterfacePtr<IDesigner>&, TPersistent*, int, int)>;
    TestTarget(const InterfacePtr<IDesigner>& designer, Drop drop)
        : TDragTarget(designer)
        , FDrop(std::move(drop))
    {
    }
    bool DragOver(TPersistent* target, TDragObject*, int, int, TDragState) override
    {
        return target->ClassName() != QLatin1String("TComponentContainer");
    }
    void DragDrop(TPersistent* target, TDragObject*, int x, int y) override { FDrop(Designer(), target, x, y); }

private:
    Drop FDrop;
};

class Drops : public PackagedHostFixture {
protected:
    HostRecorder Recorder { *TheHost };
    ScriptedProject Shop;
    TestDrag Drag;

    void SetUp() override
    {
        Shop.Form(u"MainForm"_qs,
            u"object Strange: TNobodyKnows\nDepth = 3\nend\nobject Panel: TPanel\nLeft = 0\nTop = 0\nWidth = 300\n"
            "Height = 40\nend"_qs);
        Shop.DataModule(u"Data"_qs,
            u"object Books: TZAQuery\nLeft = 8\nTop = 64\nobject BooksTitle: TStringField\nFieldName = 'Title'\n"
            "Size = 80\nend\nobject BooksPrice: TCurrencyField\nFieldName = 'Price'\nend\nend"_qs);
        Shop.Uses(u"MainForm"_qs, u"DataUnit"_qs);
        Open(Shop);
        Recorder.Take();
    }
    void TearDown() override { UnregisterDragTarget(u"TTestDrag"_qs); }

    void OnDrop(TestTarget::Drop drop)
    {
        RegisterDragTarget(u"TTestDrag"_qs,
            [drop](const InterfacePtr<IDesigner>& designer) { return std::make_unique<TestTarget>(designer, drop); });
    }
    TField* Title() { return dynamic_cast<TField*>(Component(u"Data.BooksTitle"_qs)); }
};

}

TEST_F(Drops, NobodyTakesADragThatIsNotRegistered)
{
    EXPECT_FALSE(TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), nullptr, Drag, 1, 1));
}

TEST_F(Drops, ADataModuleShowsASurfaceOfItsOwn)
{
    OnDrop([](const InterfacePtr<IDesigner>&, TPersistent*, int, int) { ADD_FAILURE() << "dropped"; });
    EXPECT_FALSE(TheHost->AcceptsDrop(DesignerOf(u"Data"_qs), nullptr, Drag, 1, 1));
    EXPECT_FALSE(TheHost->DropOnDesigner(DesignerOf(u"Data"_qs), nullptr, Drag, 1, 1));
    EXPECT_TRUE(TheHost->AcceptsDrop(DesignerOf(u"MainForm"_qs), nullptr, Drag, 1, 1));
}

TEST_F(Drops, AFieldBecomesALabelAndABoundControlInOneStep)
{
    OnDrop([this](const InterfacePtr<IDesigner>& designer, TPersistent* target, int x, int y) {
        CreateFieldControl(designer, Title(), u"TDBEdit"_qs, dynamic_cast<TComponent*>(target), x, y, true);
    });
    const auto form = FormText(u"MainForm"_qs);
    const auto unit = UnitText(u"MainForm"_qs);
    ASSERT_TRUE(TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), nullptr, Drag, 100, 80));
    EXPECT_EQ(LineDifference(form, FormText(u"MainForm"_qs)),
        "+object DataSource1: TDataSource\n+Left = 118\n+Top = 103\n+DataSet = Data.Books\n+end\n"
        "+object Label1: TLabel\n+Left = 100\n+Top = 80\n+Width = 30\n+Height = 13\n+Caption = 'Title'\n+end\n"
        "+object DBEdit1: TDBEdit\n+Left = 100\n+Top = 96\n+Width = 121\n+Height = 23\n+TabOrder = 0\n"
        "+DataSource = DataSource1\n+DataField = 'Title'\n+end\n");
    EXPECT_EQ(LineDifference(unit, UnitText(u"MainForm"_qs)),
        "-System.Classes, Vcl.Forms, DataUnit;\n"
        "+System.Classes, Vcl.Forms, DataUnit, Data.DB, Vcl.StdCtrls, Vcl.DBCtrls,\n+Vcl.Mask;\n"
        "+DataSource1: TDataSource;\n+Label1: TLabel;\n+DBEdit1: TDBEdit;\n");
    EXPECT_EQ(TheHost->Undo().UndoTitle(), u"Drop"_qs);
    TheHost->Undo().Undo();
    EXPECT_EQ(FormText(u"MainForm"_qs), form);
    EXPECT_EQ(UnitText(u"MainForm"_qs), unit);
    EXPECT_FALSE(TheHost->Undo().CanUndo());
}

TEST_F(Drops, ASecondDropFindsTheDataSource)
{
    OnDrop([this](const InterfacePtr<IDesigner>& designer, TPersistent* target, int x, int y) {
        CreateFieldControl(designer, Title(), u"TDBEdit"_qs, dynamic_cast<TComponent*>(target), x, y, false);
    });
    TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), nullptr, Drag, 10, 10);
    TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), nullptr, Drag, 10, 50);
    EXPECT_NE(Component(u"MainForm.DBEdit2"_qs), nullptr);
    EXPECT_EQ(Component(u"MainForm.DataSource2"_qs), nullptr);
    EXPECT_EQ(
        GetObjectProp(Component(u"MainForm.DBEdit2"_qs), u"DataSource"_qs), Component(u"MainForm.DataSource1"_qs));
}

TEST_F(Drops, ADropThatRaisesLeavesNothing)
{
    OnDrop([this](const InterfacePtr<IDesigner>& designer, TPersistent* target, int x, int y) {
        CreateFieldControl(designer, Title(), u"TDBEdit"_qs, dynamic_cast<TComponent*>(target), x, y, true);
        CreateFieldControl(designer, Title(), u"TNotThere"_qs, dynamic_cast<TComponent*>(target), x, y, true);
    });
    const auto form = FormText(u"MainForm"_qs);
    const auto unit = UnitText(u"MainForm"_qs);
    QString message;
    try {
        TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), nullptr, Drag, 100, 80);
    } catch (const EClassNotFound& error) {
        message = error.Message();
    }
    EXPECT_EQ(message, u"Visual control TNotThere is not installed in IDE"_qs);
    EXPECT_EQ(FormText(u"MainForm"_qs), form);
    EXPECT_EQ(UnitText(u"MainForm"_qs), unit);
    EXPECT_EQ(Component(u"MainForm.DBEdit1"_qs), nullptr);
    EXPECT_FALSE(TheHost->IsModified());
    EXPECT_FALSE(TheHost->Undo().CanUndo());
}

TEST_F(Drops, LinkingAddsTheUsesEntryOnce)
{
    ScriptedProject shop;
    shop.Form(u"MainForm"_qs).DataModule(u"Data"_qs, u"object Books: TZAQuery\nend"_qs);
    Open(shop);
    auto& designer = DesignerOf(u"MainForm"_qs);
    auto* books = Component(u"Data.Books"_qs);
    EXPECT_FALSE(designer.IsComponentLinkable(books));
    EXPECT_TRUE(designer.IsComponentLinkable(designer.GetRoot()));
    const auto unit = UnitText(u"MainForm"_qs);
    designer.MakeComponentLinkable(books);
    designer.MakeComponentLinkable(books);
    EXPECT_TRUE(designer.IsComponentLinkable(books));
    EXPECT_EQ(LineDifference(unit, UnitText(u"MainForm"_qs)), "+uses\n+DataUnit;\n+\n");
}

TEST_F(Drops, ALinkToAnotherFormIsThereAgainAfterThatFormWasClosedAndOpened)
{
    OnDrop([this](const InterfacePtr<IDesigner>& designer, TPersistent* target, int x, int y) {
        CreateFieldControl(designer, Title(), u"TDBEdit"_qs, dynamic_cast<TComponent*>(target), x, y, false);
    });
    TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), nullptr, Drag, 10, 10);
    const auto form = FormText(u"MainForm"_qs);
    auto* source = dynamic_cast<TDataSource*>(Component(u"MainForm.DataSource1"_qs));
    TheHost->CloseModule(FormOf(u"Data"_qs));
    EXPECT_EQ(source->DataSet(), nullptr);
    EXPECT_EQ(FormText(u"MainForm"_qs), form);
    TheHost->OpenModuleFile(Shop.UnitOf(u"Data"_qs));
    EXPECT_EQ(source->DataSet(), Component(u"Data.Books"_qs));
    EXPECT_EQ(FormText(u"MainForm"_qs), form);
}

TEST_F(Drops, RenamingADatasetReachesTheFormsThatReferToIt)
{
    OnDrop([this](const InterfacePtr<IDesigner>& designer, TPersistent* target, int x, int y) {
        CreateFieldControl(designer, Title(), u"TDBEdit"_qs, dynamic_cast<TComponent*>(target), x, y, false);
    });
    TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), nullptr, Drag, 10, 10);
    const auto form = FormText(u"MainForm"_qs);
    DesignerOf(u"Data"_qs).RenameComponent(*Component(u"Data.Books"_qs), u"Titles"_qs);
    EXPECT_EQ(LineDifference(form, FormText(u"MainForm"_qs)), "-DataSet = Data.Books\n+DataSet = Data.Titles\n");
    TheHost->Undo().Undo();
    EXPECT_EQ(FormText(u"MainForm"_qs), form);
}

TEST_F(Drops, MovingAFieldChangesTheOrderInTheFile)
{
    const auto form = FormText(u"Data"_qs);
    Title()->SetIndex(1);
    const auto moved = FormText(u"Data"_qs);
    EXPECT_LT(moved.indexOf("BooksPrice"), moved.indexOf("BooksTitle"));
    EXPECT_EQ(moved.size(), form.size());
    TheHost->Undo().Undo();
    EXPECT_EQ(FormText(u"Data"_qs), form);
    EXPECT_EQ(Title()->Index(), 0);
}

TEST_F(Drops, AFieldsEditorMakesAFieldThatTheDesignerTellsOf)
{
    auto* books = dynamic_cast<TDataSet*>(Component(u"Data.Books"_qs));
    books->FieldDefs().Describe({ TDataColumn { u"Year"_qs, ftInteger } });
    const auto form = FormText(u"Data"_qs);
    const auto unit = UnitText(u"Data"_qs);
    TDSDesigner fields(books);
    fields.BeginDesign();
    auto* year = fields.DoCreateField(u"Year"_qs, {});
    fields.EndDesign();
    EXPECT_EQ(Recorder.Take(),
        "renamed DataUnit.dfm '' -> BooksYear\n"
        "inserted Data.BooksYear\n"
        "selection Data: BooksYear\n"
        "modified Data\n");
    EXPECT_EQ(
        LineDifference(form, FormText(u"Data"_qs)), "+object BooksYear: TIntegerField\n+FieldName = 'Year'\n+end\n");
    EXPECT_EQ(LineDifference(unit, UnitText(u"Data"_qs)),
        "-System.Classes, Vcl.Forms;\n+System.Classes, Vcl.Forms, Data.DB;\n+BooksYear: TIntegerField;\n");
    fields.DeleteField(year);
    EXPECT_EQ(FormText(u"Data"_qs), form);
    EXPECT_EQ(Recorder.Take(),
        "renamed DataUnit.dfm BooksYear -> ''\n"
        "deleted Data.BooksYear\n"
        "selection Data:\n"
        "modified Data\n");
}
