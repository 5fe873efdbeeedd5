#include "classes/Controls.h"
#include "ide/MrvDragAndDropIntf.h"
#include "plugin/config/FakeWrappers.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

// An item that writes down what a drop asks of it, and reports the place below its control.
class Item : public FakeComponent {
public:
    Item(QStringList& told, bool accepts)
        : FakeComponent(QStringList(u"TField"_qs))
        , Told(told)
        , Accepts(accepts)
    {
    }
    void IntfGetCtrlCreationMode(TCtrlCreationMode& mode) override { mode = ccmDataGridView; }
    int IntfCreateControl(const QString& parent, const QString& owner, int x, int y, WordBool withLabel) override
    {
        Told << u"%1|%2 %3,%4 label %5"_qs.arg(parent, owner).arg(x).arg(y).arg(bool(withLabel));
        return y + 20;
    }
    WordBool IntfDotNetAcceptedDragAndDrop(QObject*) override
    {
        Told << u"asked"_qs;
        return Accepts;
    }
    int IntfDotNetCreateControl(QObject*, int x, int y, WordBool withLabel) override
    {
        Told << u"made %1,%2 label %3"_qs.arg(x).arg(y).arg(bool(withLabel));
        return y + 20;
    }
    QStringList& Told;
    bool Accepts;
};

class TheDropTarget : public ToolWindowFixture {
protected:
    void SetUp() override { StartPlugin(); }
    TMrvDragList Items(const QList<bool>& accepting)
    {
        TMrvDragList items;
        for (const bool accepts : accepting)
            items << New<Item>(Told, accepts);
        return items;
    }
    QStringList DropOn(TPersistent* target, const TMrvDragList& items)
    {
        TMrvDragDBControl drag(nullptr, items);
        TDBControlTarget dropTarget { InterfacePtr<IDesigner>() };
        dropTarget.DragDrop(target, &drag, 30, 40);
        return std::exchange(Told, {});
    }
    QStringList Told;
};

}

TEST_F(TheDropTarget, NamesTheTargetAndItsOwnerAndStacksDownwards)
{
    TForm form(nullptr);
    form.SetName(u"MainForm"_qs);
    TWinControl panel(&form);
    panel.SetName(u"Panel"_qs);
    EXPECT_EQ(DropOn(&panel, Items({ true, true, true })),
        QStringList({ u"Panel|MainForm 30,45 label 1"_qs, u"Panel|MainForm 30,70 label 1"_qs,
            u"Panel|MainForm 30,95 label 1"_qs }));
}

TEST_F(TheDropTarget, NamesNoOwnerWhereThereIsNone)
{
    TForm form(nullptr);
    form.SetName(u"MainForm"_qs);
    EXPECT_EQ(DropOn(&form, Items({ true })), QStringList(u"MainForm| 30,45 label 1"_qs));
}

TEST_F(TheDropTarget, TakesTheParentOfARecordPanelAndTheOwnerOfItsOwner)
{
    TForm form(nullptr);
    form.SetName(u"MainForm"_qs);
    TWinControl grid(&form);
    grid.SetName(u"Grid"_qs);
    TDBCtrlPanel panel(&grid);
    panel.SetName(u"Inner"_qs);
    panel.SetParent(&grid);
    EXPECT_EQ(DropOn(&panel, Items({ true })), QStringList(u"Grid|MainForm 30,45 label 1"_qs));
}

TEST_F(TheDropTarget, ADragOfAnotherPersonalityAsksEachItemUpToTheFirstThatRefuses)
{
    MrvApiProxy->FProjectPersonality = u"CSharp.Personality"_qs;
    TMrvDragDBControl refused(nullptr, Items({ true, false, true }));
    refused.GetDragCursor(true, 7, 8);
    EXPECT_FALSE(refused.FAccepted);
    EXPECT_EQ(Told, QStringList({ u"asked"_qs, u"asked"_qs }));
    TMrvDragDBControl taken(nullptr, Items({ true, true }));
    EXPECT_EQ(taken.GetDragCursor(false, 7, 8), -12);
    EXPECT_TRUE(taken.FAccepted);
    EXPECT_EQ(taken.FCursorPoint, QPoint(7, 8));
    TMrvDragDBControl none(nullptr, {});
    EXPECT_NE(none.GetDragCursor(false, 7, 8), -12);
    EXPECT_FALSE(none.FAccepted);
}

TEST_F(TheDropTarget, ADragOfAnotherPersonalityMakesItsControlsWhenItEnds)
{
    MrvApiProxy->FProjectPersonality = u"CSharp.Personality"_qs;
    TMrvDragDBControl drag(nullptr, Items({ true, true }));
    drag.Finished(nullptr, 0, 0, true);
    EXPECT_EQ(Told, QStringList());
    drag.FAccepted = true;
    drag.FCursorPoint = { 100, 200 };
    drag.Finished(nullptr, 0, 0, false);
    EXPECT_EQ(Told, QStringList({ u"made 100,205 label 1"_qs, u"made 100,230 label 1"_qs }));
}

// The cursor counts C++Builder among those that are served, the end of the drag does not: its controls come from the
// drop alone.
TEST_F(TheDropTarget, ADragOfACppProjectHasTheOrdinaryCursorAndEndsWithNothing)
{
    MrvApiProxy->FProjectPersonality = u"cplusplusbuilder.PERSONALITY"_qs;
    TMrvDragDBControl drag(nullptr, Items({ true, true }));
    drag.GetDragCursor(true, 7, 8);
    drag.Finished(nullptr, 0, 0, true);
    EXPECT_EQ(Told, QStringList());
    EXPECT_FALSE(drag.FAccepted);
}
