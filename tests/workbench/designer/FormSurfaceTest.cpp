#include "workbench/designer/SurfaceFixture.h"

#include <QMimeData>
#include <QMouseEvent>

using FormSurfaceTest = SurfaceFixture;

TEST_F(FormSurfaceTest, AClickSelectsWhatIsInFront)
{
    Click("Button1");
    EXPECT_EQ(Selected(), "Button1");
    Click("Edit1");
    EXPECT_EQ(Selected(), "Edit1");
}

TEST_F(FormSurfaceTest, AClickOnTheFormSelectsTheForm)
{
    Click("Button1");
    QTest::mouseClick(&Surface(), Qt::LeftButton, {}, At(350, 250));
    EXPECT_EQ(Selected(), "MainForm");
}

TEST_F(FormSurfaceTest, AComponentWithoutAFaceIsSelectedByItsIcon)
{
    Click("DataSource1");
    EXPECT_EQ(Selected(), "DataSource1");
}

TEST_F(FormSurfaceTest, CtrlAndShiftClicksAddToTheSelectionAndTakeAway)
{
    Click("Button1");
    Click("Panel1", Qt::ControlModifier);
    Click("DataSource1", Qt::ShiftModifier);
    EXPECT_EQ(Selected(), "Button1, Panel1, DataSource1");
    Click("Panel1", Qt::ControlModifier);
    EXPECT_EQ(Selected(), "Button1, DataSource1");
}

TEST_F(FormSurfaceTest, ARubberBandSelectsWhatItTouches)
{
    Drag(At(4, 4), At(300, 60));
    EXPECT_EQ(Selected(), "Button1, DataSource1");
}

TEST_F(FormSurfaceTest, ARubberBandOverNothingSelectsTheForm)
{
    Drag(At(300, 200), At(380, 280));
    EXPECT_EQ(Selected(), "MainForm");
}

TEST_F(FormSurfaceTest, ADragMovesByStepsOfTheGridInOneStepOfUndo)
{
    Drag(CenterOf("Button1"), CenterOf("Button1") + QPoint(21, 10));
    EXPECT_EQ(Changes(), "-Left = 16\n-Top = 16\n+Left = 40\n+Top = 24\n");
    EXPECT_EQ(Undone(), "");
}

TEST_F(FormSurfaceTest, WithAltADragMovesFreely)
{
    Drag(CenterOf("Button1"), CenterOf("Button1") + QPoint(21, 0), Qt::AltModifier);
    EXPECT_EQ(Changes(), "-Left = 16\n+Left = 37\n");
}

TEST_F(FormSurfaceTest, ADragMovesEverythingThatIsSelectedOnce)
{
    Click("Panel1");
    Click("Edit1", Qt::ControlModifier);
    Drag(CenterOf("Edit1"), CenterOf("Edit1") + QPoint(16, 0));
    EXPECT_EQ(Changes(), "-Left = 16\n+Left = 32\n");
}

TEST_F(FormSurfaceTest, AnIconMovesAsWell)
{
    Drag(CenterOf("DataSource1"), CenterOf("DataSource1") + QPoint(8, 8));
    EXPECT_EQ(Changes(), "-Left = 240\n-Top = 16\n+Left = 248\n+Top = 24\n");
}

TEST_F(FormSurfaceTest, AHandleResizesTheOnlyOneSelected)
{
    Click("Button1");
    const auto corner = Surface().RectOf(Part("Button1")).bottomRight();
    Drag(corner, corner + QPoint(16, 8));
    EXPECT_EQ(Changes(), "-Width = 75\n-Height = 25\n+Width = 91\n+Height = 33\n");
    EXPECT_EQ(Undone(), "");
}

TEST_F(FormSurfaceTest, TheLeftHandleMovesTheLeftEdge)
{
    Click("Panel1");
    const auto rect = Surface().RectOf(Part("Panel1"));
    const QPoint edge(rect.left(), rect.center().y());
    Drag(edge, edge - QPoint(8, 0));
    EXPECT_EQ(Changes(), "-Left = 16\n+Left = 8\n-Width = 200\n+Width = 208\n");
}

TEST_F(FormSurfaceTest, DeleteTakesTheComponentsWithWhatStandsOnThem)
{
    Click("Panel1");
    QTest::keyClick(&Surface(), Qt::Key_Delete);
    EXPECT_EQ(Component(QStringLiteral("MainForm.Panel1")), nullptr);
    EXPECT_EQ(Component(QStringLiteral("MainForm.Edit1")), nullptr);
    EXPECT_FALSE(Surface().grab().isNull());
    EXPECT_EQ(Undone(), "");
    EXPECT_NE(Component(QStringLiteral("MainForm.Edit1")), nullptr);
}

TEST_F(FormSurfaceTest, ArrowsMoveByAPixelAndResizeWithShift)
{
    Click("Button1");
    QTest::keyClick(&Surface(), Qt::Key_Right);
    QTest::keyClick(&Surface(), Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(&Surface(), Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(Changes(), "-Left = 16\n-Top = 16\n-Width = 75\n+Left = 17\n+Top = 24\n+Width = 76\n");
}

TEST_F(FormSurfaceTest, EscapeSelectsTheParent)
{
    Click("Edit1");
    QTest::keyClick(&Surface(), Qt::Key_Escape);
    EXPECT_EQ(Selected(), "Panel1");
    QTest::keyClick(&Surface(), Qt::Key_Escape);
    EXPECT_EQ(Selected(), "MainForm");
}

TEST_F(FormSurfaceTest, TabGoesToTheNextComponent)
{
    Click("Button1");
    QTest::keyClick(&Surface(), Qt::Key_Tab);
    EXPECT_EQ(Selected(), "Panel1");
    QTest::keyClick(&Surface(), Qt::Key_Backtab);
    EXPECT_EQ(Selected(), "Button1");
}

TEST_F(FormSurfaceTest, WhatTheDesignerSelectsIsMarked)
{
    const auto plain = Surface().grab().toImage();
    DesignerOf(QStringLiteral("MainForm")).SelectComponent(&Part("Button1"));
    EXPECT_NE(Surface().grab().toImage(), plain);
}

TEST_F(FormSurfaceTest, AClosedModuleShowsNothing)
{
    Surface();
    TheHost->CloseAll();
    EXPECT_FALSE(Surface().grab().isNull());
    QTest::mouseClick(&Surface(), Qt::LeftButton, {}, { 40, 60 });
}

namespace {

// Something to drag, and a target that takes it and writes down where it was dropped.
class Parcel : public TDragObject {
public:
    QString ClassName() const override { return QStringLiteral("TParcel"); }
};

class ParcelTarget : public TDragTarget {
public:
    using TDragTarget::TDragTarget;
    bool DragOver(TPersistent*, TDragObject*, int x, int, TDragState) override { return x < 150; }
    void DragDrop(TPersistent* target, TDragObject*, int x, int y) override
    {
        Where = QStringLiteral("%1 %2,%3").arg(target->ClassName()).arg(x).arg(y);
        Designer()->CreateComponent(FindClass(QStringLiteral("TButton")), nullptr, x, y, 0, 0);
        if (Breaks)
            throw Exception(QStringLiteral("It broke"));
    }
    static inline QString Where;
    static inline bool Breaks = false;
};

}

class FormSurfaceDropTest : public SurfaceFixture {
protected:
    FormSurfaceDropTest()
    {
        ParcelTarget::Where.clear();
        ParcelTarget::Breaks = false;
        RegisterDragTarget(QStringLiteral("TParcel"),
            [](const InterfacePtr<IDesigner>& designer) { return std::make_unique<ParcelTarget>(designer); });
    }
    ~FormSurfaceDropTest() override { UnregisterDragTarget(QStringLiteral("TParcel")); }

    // Whether the surface takes the parcel there.
    bool Drop(QPoint at)
    {
        TDragObjectData data(&FParcel);
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&Surface(), &enter);
        QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&Surface(), &move);
        if (!move.isAccepted())
            return false;
        QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&Surface(), &drop);
        return drop.isAccepted();
    }

private:
    Parcel FParcel;
};

TEST_F(FormSurfaceDropTest, ADropLandsOnTheControlUnderTheMouseInItsCoordinates)
{
    EXPECT_TRUE(Drop(At(16 + 150 - 20, 64 + 90)));
    EXPECT_EQ(ParcelTarget::Where.toStdString(), "TPanel 130,90");
    EXPECT_NE(Component(QStringLiteral("MainForm.Button2")), nullptr);
    EXPECT_EQ(Undone(), "");
}

TEST_F(FormSurfaceDropTest, WhereTheTargetTakesNothingNothingIsDropped)
{
    EXPECT_FALSE(Drop(At(300, 200)));
    EXPECT_EQ(ParcelTarget::Where, QString());
}

TEST_F(FormSurfaceDropTest, ADropThatBreaksIsTakenBackAndShown)
{
    Surface();
    ParcelTarget::Breaks = true;
    EXPECT_FALSE(Drop(At(20, 250)));
    EXPECT_EQ(Changes(), "");
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(Exceptions, QStringList(QStringLiteral("It broke")));
}
