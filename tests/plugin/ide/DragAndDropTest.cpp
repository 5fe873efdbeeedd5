#include "classes/Controls.h"
#include "ide/MrvDragAndDropIntf.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvFieldAttr.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

class DroppingItems : public ToolWindowFixture {
protected:
    void SetUp() override
    {
        StartShown();
        OpenShop();
    }
    TDataSetAttr* DataSetAttr(const QString& name) { return List().GetDataSetAttrByObj(Component(name)); }
    TFieldAttr* FieldAttr(const QString& name) { return DataSetAttr(u"Data.Books"_qs)->FieldByName(name, smName); }
    static TMrvDragList Of(const QList<IMrvCustomComponentAttr*>& items)
    {
        TMrvDragList list;
        for (auto* item : items)
            list << InterfacePtr<IMrvCustomComponentAttr>(item);
        return list;
    }
    static bool Accepted(const QList<IMrvCustomComponentAttr*>& items)
    {
        return MrvDragAndDropIntf::GetDragAndDropAccepted(Of(items));
    }
    bool Drop(const QList<IMrvCustomComponentAttr*>& items, int x, int y, TPersistent* target = nullptr)
    {
        TMrvDragDBControl drag(nullptr, Of(items));
        return TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), target, drag, x, y);
    }
    // "DBEdit1 10,20" for each control of the form, in name order.
    QStringList Controls()
    {
        QStringList lines;
        for (auto* component : DesignerOf(u"MainForm"_qs).Root()->Components())
            if (const auto* control = dynamic_cast<TControl*>(component))
                lines << u"%1 %2,%3"_qs.arg(control->Name()).arg(control->Left()).arg(control->Top());
        lines.sort();
        return lines;
    }
};

}

TEST_F(DroppingItems, AcceptsNothingForNothingAndAnythingForSeveral)
{
    EXPECT_FALSE(Accepted({}));
    auto* none = DataSetAttr(u"Data.Loose"_qs);
    none->IntfSetCtrlCreationMode(ccmNone);
    EXPECT_FALSE(Accepted({ none }));
    EXPECT_TRUE(Accepted({ none, none }));
}

TEST_F(DroppingItems, AcceptsADatasetByItsModeAndWhatItHolds)
{
    auto* books = DataSetAttr(u"Data.Books"_qs);
    auto* empty = DataSetAttr(u"Data.Loose"_qs);
    EXPECT_TRUE(Accepted({ books }));
    EXPECT_TRUE(Accepted({ empty }));
    books->IntfSetCtrlCreationMode(ccmDetails);
    empty->IntfSetCtrlCreationMode(ccmDetails);
    EXPECT_TRUE(Accepted({ books }));
    EXPECT_FALSE(Accepted({ empty }));
    books->FDeleted = true;
    EXPECT_FALSE(Accepted({ books }));
}

TEST_F(DroppingItems, AcceptsAFieldUnlessItsModeIsNone)
{
    auto* title = FieldAttr(u"BooksTitle"_qs);
    EXPECT_TRUE(Accepted({ title }));
    title->IntfSetCtrlCreationMode(ccmNone);
    EXPECT_FALSE(Accepted({ title }));
}

TEST_F(DroppingItems, TakesNoDropOnTheSurfaceOfADataModule)
{
    TMrvDragDBControl drag(nullptr, Of({ DataSetAttr(u"Data.Books"_qs) }));
    EXPECT_FALSE(TheHost->AcceptsDrop(DesignerOf(u"Data"_qs), nullptr, drag, 1, 1));
    EXPECT_TRUE(TheHost->AcceptsDrop(DesignerOf(u"MainForm"_qs), nullptr, drag, 1, 1));
    TDBControlTarget target(InterfacePtr<IDesigner>(&DesignerOf(u"MainForm"_qs)));
    class Other : public TDragObject {
        QString ClassName() const override { return u"TOther"_qs; }
    } other;
    EXPECT_THROW(target.DragOver(DesignerOf(u"MainForm"_qs).Root(), &other, 1, 1, dsDragMove), EInvalidCast);
}

TEST_F(DroppingItems, StacksTheControlsOfSeveralDownwards)
{
    ASSERT_TRUE(Drop({ FieldAttr(u"BooksId"_qs), FieldAttr(u"BooksTitle"_qs) }, 40, 30));
    const auto controls = Controls();
    EXPECT_EQ(controls.size(), 4) << controls.join(u'\n').toStdString();
    auto* first = dynamic_cast<TControl*>(Component(u"MainForm.DBEdit1"_qs));
    auto* second = dynamic_cast<TControl*>(Component(u"MainForm.DBEdit2"_qs));
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->Left(), second->Left());
    EXPECT_GE(second->Top(), first->Top() + first->Height() + 5);
    // The data source on the dataset's own form serves both.
    EXPECT_EQ(GetObjectProp(first, u"DataSource"_qs), Component(u"Data.BooksSource"_qs));
    EXPECT_EQ(GetObjectProp(second, u"DataSource"_qs), Component(u"Data.BooksSource"_qs));
    EXPECT_EQ(Component(u"MainForm.DataSource1"_qs), nullptr);
}

TEST_F(DroppingItems, MakesTheControlThatIsChosen)
{
    FieldAttr(u"BooksTitle"_qs)->IntfSetCtrlIndex(1);
    ASSERT_TRUE(Drop({ FieldAttr(u"BooksTitle"_qs) }, 40, 30));
    EXPECT_NE(Component(u"MainForm.DBMemo1"_qs), nullptr);
    ASSERT_TRUE(Drop({ DataSetAttr(u"Data.Books"_qs) }, 40, 200));
    EXPECT_NE(Component(u"MainForm.DBGrid1"_qs), nullptr);
}

TEST_F(DroppingItems, ADragOfAServedProjectHasTheOrdinaryCursor)
{
    TMrvDragDBControl drag(nullptr, Of({ DataSetAttr(u"Data.Books"_qs) }));
    class Ordinary : public TDragControlObject {
    public:
        Ordinary()
            : TDragControlObject(nullptr)
        {
        }
        QString ClassName() const override { return u"TOrdinary"_qs; }
    } ordinary;
    drag.FAccepted = true;
    EXPECT_EQ(drag.GetDragCursor(true, 1, 2), ordinary.GetDragCursor(true, 1, 2));
    EXPECT_EQ(drag.GetDragCursor(false, 1, 2), ordinary.GetDragCursor(false, 1, 2));
    EXPECT_FALSE(drag.FAccepted);
    EXPECT_EQ(drag.FCursorPoint, QPoint());
}

TEST_F(DroppingItems, TheListIsThatOfTheActiveModel)
{
    EXPECT_EQ(MrvDragAndDropIntf::GetDataSetList().get(), static_cast<IMrvDataSetList*>(&List()));
    TheHost->CloseAll();
    EXPECT_FALSE(MrvDragAndDropIntf::GetDataSetList());
}
