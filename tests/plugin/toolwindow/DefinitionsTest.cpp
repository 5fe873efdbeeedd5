#include "classes/Controls.h"
#include "data/TField.h"
#include "ide/MrvDragAndDropIntf.h"
#include "model/MrvFieldDefsAttr.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

// Field definitions in the tree, of a table that keeps them in its form file: City and Zip.
class Definitions : public ToolWindowFixture {
protected:
    // With these fields, on a data module that the main form does not use.
    void OpenTown(const QString& fields = {})
    {
        StartShown();
        Town.DataModule(u"Data"_qs,
            u"object Scratch: TZAScratchTable\nFieldDefs = <\nitem\nName = 'City'\nDataType = ftString\n"
            "Size = 20\nend\nitem\nName = 'Zip'\nDataType = ftInteger\nend>\n"_qs
                + fields + u"end"_qs);
        Town.Form(u"MainForm"_qs);
        Open(Town);
        Settle();
    }
    TMrvDragList Dragged()
    {
        auto* object = static_cast<TMrvDragDBControl*>(Tree().StartDragObject());
        return object->FSelList;
    }
    bool Drop(int x, int y)
    {
        TMrvDragDBControl drag(nullptr, Dragged());
        return TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), nullptr, drag, x, y);
    }
    QStringList Components()
    {
        QStringList names;
        for (const auto* component : DesignerOf(u"MainForm"_qs).Root()->Components())
            names << component->Name();
        return names;
    }
    void SelectBoth() { Tree().Select({ Node(City), Node(Zip) }); }
    // Of the pixels of the node's text, with black text on white.
    static int Darkest(const QString& path)
    {
        QPalette colours(Qt::white);
        colours.setColor(QPalette::Text, Qt::black);
        colours.setColor(QPalette::Base, Qt::white);
        Tree().setPalette(colours);
        const auto picture = Tree().viewport()->grab(Node(path)->DisplayRect(true)).toImage();
        int darkest = 0xff;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                darkest = std::min(darkest, qGray(picture.pixel(x, y)));
        return darkest;
    }
    TFieldDefsAttr* Def(const QString& name)
    {
        return List().GetDataSetAttrByObj(Component(u"Data.Scratch"_qs))->FieldDefsByName(name);
    }

    ScriptedProject Town { u"Town"_qs };
    const QString Fields = u"Data.Scratch/Fields"_qs;
    const QString City = u"Data.Scratch/Fields/City"_qs;
    const QString Zip = u"Data.Scratch/Fields/Zip"_qs;
};

const auto Street = u"object ScratchStreet: TStringField\nFieldName = 'Street'\nend\n"_qs;

}

TEST_F(Definitions, StandBesideTheFieldsExceptWhereAFieldStandsForThem)
{
    OpenTown(u"object ScratchCity: TStringField\nFieldName = 'City'\nSize = 20\nend\n"_qs);
    EXPECT_EQ(Text(), "Town.dproj\n  Data.Scratch\n    Fields\n      0 - City{ScratchCity}\n      Zip\n");
    EXPECT_EQ(TMrvTreeView::NodeType(Node(Zip)), ndtFieldDef);
}

TEST_F(Definitions, AreDrawnInGreyAndNothingElseIs)
{
    OpenTown(Street);
    Window().resize(400, 400);
    for (const auto& path : { u"Data.Scratch"_qs, Fields })
        Node(path)->Expand(false);
    Tree().ClearSelection(false);
    EXPECT_EQ(Darkest(City), 0x80);
    EXPECT_EQ(Darkest(Zip), 0x80);
    for (const auto& path : { u""_qs, u"Data.Scratch"_qs, Fields, Fields + u"/0 - Street{ScratchStreet}"_qs })
        EXPECT_LT(Darkest(path), 0x40) << path.toStdString();
}

TEST_F(Definitions, HaveThePictureOfTheirControlUntilTheDatasetHasFields)
{
    OpenTown();
    const int ofControl = Node(City)->ImageIndex();
    EXPECT_GE(ofControl, Window().FImageList->FDisp);
    EXPECT_EQ(Node(City)->SelectedIndex(), ofControl);
    AddField(u"Data.Scratch"_qs, u"Street"_qs);
    Settle();
    EXPECT_EQ(Node(City)->ImageIndex(), 5);
    EXPECT_EQ(Node(City)->SelectedIndex(), 5);
    Delete({ u"Data.ScratchStreet"_qs });
    Settle();
    EXPECT_EQ(Node(City)->ImageIndex(), ofControl);
    EXPECT_EQ(Node(City)->SelectedIndex(), ofControl);
}

TEST_F(Definitions, SayTheirTypeWhereThePreferenceAsksForIt)
{
    OpenTown();
    SetPreference(u"ShowDataFieldType"_qs, u"True"_qs);
    Window().acRefresh->Execute();
    EXPECT_EQ(Text(), "Town.dproj\n  Data.Scratch\n    Fields\n      City[String]\n      Zip[Integer]\n");
    AddField(u"Data.Scratch"_qs, u"City"_qs);
    Settle();
    EXPECT_EQ(Text(), "Town.dproj\n  Data.Scratch\n    Fields\n      0 - City{ScratchCity}\n      Zip[Integer]\n");
}

TEST_F(Definitions, ADragOfThoseThatAllRefuseAControlStartsWithNothingAndIsTakenNowhere)
{
    OpenTown(Street);
    SelectBoth();
    EXPECT_EQ(Dragged().size(), 0);
    TheHost->Undo().Clear();
    EXPECT_FALSE(Drop(20, 30));
    EXPECT_EQ(Components(), QStringList());
    EXPECT_FALSE(TheHost->Undo().CanUndo());
    Tree().Select(Node(City));
    EXPECT_THROW(Tree().StartDragObject(), EAbort);
}

TEST_F(Definitions, ADragOfAFieldTakesNoRefusingDefinitionAlong)
{
    OpenTown(Street);
    Tree().Select({ Node(City), Node(Fields + u"/0 - Street{ScratchStreet}"_qs) });
    ASSERT_EQ(Dragged().size(), 1);
    QString name;
    Dragged()[0]->IntfComponentName(false, name);
    EXPECT_EQ(name, u"ScratchStreet"_qs);
}

TEST_F(Definitions, ThatAreAllSetToNoneMakeNothingAndAskNothing)
{
    OpenTown();
    for (const auto& name : { u"City"_qs, u"Zip"_qs })
        Def(name)->IntfSetCtrlIndex(2025);
    const auto form = FormText(u"MainForm"_qs);
    const auto unit = UnitText(u"MainForm"_qs);
    SelectBoth();
    EXPECT_EQ(Dragged().size(), 2);
    Drop(20, 30);
    EXPECT_EQ(Questions, QStringList());
    EXPECT_EQ(LineDifference(form, FormText(u"MainForm"_qs)), "");
    EXPECT_EQ(LineDifference(unit, UnitText(u"MainForm"_qs)), "");
}

TEST_F(Definitions, ThatAreDroppedTogetherStandBelowOneAnotherWithOneDataSource)
{
    OpenTown();
    SelectBoth();
    ASSERT_TRUE(Drop(20, 30));
    EXPECT_EQ(Questions.size(), 1);
    EXPECT_EQ(
        Components(), QStringList({ u"Label1"_qs, u"DataSource1"_qs, u"DBEdit1"_qs, u"Label2"_qs, u"DBEdit2"_qs }));
    const auto* first = dynamic_cast<TControl*>(Component(u"MainForm.DBEdit1"_qs));
    const auto* second = dynamic_cast<TControl*>(Component(u"MainForm.Label2"_qs));
    EXPECT_EQ(second->Top(), first->Top() + first->Height() + 5);
    TheHost->Undo().Undo();
    EXPECT_EQ(Components(), QStringList());
}
