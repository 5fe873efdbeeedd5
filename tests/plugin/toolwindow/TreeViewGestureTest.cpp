#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <QTest>
#include <QToolButton>

namespace {

class HandlingTheTree : public ToolWindowFixture {
protected:
    void SetUp() override
    {
        StartShown();
        Window().resize(600, 700);
        OpenShop();
        Group(gmForm);
        for (auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            node->Expand(false);
        QCoreApplication::processEvents();
    }
    static QPoint At(const QString& path)
    {
        const auto rect = Node(path)->DisplayRect(true);
        return { rect.left() + 8, rect.center().y() };
    }
    static QPoint Beside(const QString& path)
    {
        return { Tree().viewport()->width() - 30, Node(path)->DisplayRect(true).center().y() };
    }
    static void Click(QPoint at, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(Tree().viewport(), button, modifiers, at);
        QCoreApplication::processEvents();
    }
    static QToolButton& Button() { return *Tree().FSpeedButton; }
    static QStringList Selected()
    {
        QStringList names;
        for (int i = 0; i < Tree().SelectionCount(); ++i)
            names << Tree().Selections(i)->Text();
        return names;
    }
    QStringList DesignerSelection(const QString& form)
    {
        QStringList names;
        for (auto* item : DesignerOf(form).Selection())
            names << static_cast<TComponent*>(item)->Name();
        return names;
    }
    const QString Id = u"Data/Books/Fields/0 - Id{BooksId}"_qs;
    const QString Title = u"Data/Books/Fields/1 - Title{BooksTitle}"_qs;
    const QString Books = u"Data/Books"_qs;
};

}

TEST_F(HandlingTheTree, AClickSelectsHereAndInTheDesigner)
{
    Click(At(Books));
    EXPECT_EQ(Selected(), QStringList(u"Books"_qs));
    EXPECT_EQ(DesignerSelection(u"Data"_qs), QStringList(u"Books"_qs));
    Click(At(Title));
    EXPECT_EQ(DesignerSelection(u"Data"_qs), QStringList(u"BooksTitle"_qs));
    // A group has no component: the designer keeps what it has.
    Click(At(u"Data"_qs));
    EXPECT_EQ(DesignerSelection(u"Data"_qs), QStringList(u"BooksTitle"_qs));
}

TEST_F(HandlingTheTree, APlainClickOnAFieldKeepsASelectionOfSeveral)
{
    Click(At(Id));
    Click(At(Title), Qt::ControlModifier);
    EXPECT_EQ(Tree().SelectionCount(), 2);
    Click(At(Id));
    EXPECT_EQ(Tree().SelectionCount(), 2);
    Click(At(Books));
    EXPECT_EQ(Selected(), QStringList(u"Books"_qs));
}

TEST_F(HandlingTheTree, ShiftSelectsARange)
{
    Click(At(u"Data/Books/Fields"_qs));
    Click(At(Title), Qt::ShiftModifier);
    EXPECT_EQ(Tree().SelectionCount(), 3);
    EXPECT_FALSE(Button().isVisible());
}

TEST_F(HandlingTheTree, TheButtonRidesOnTheOneSelectedNode)
{
    Click(At(Books));
    EXPECT_TRUE(Button().isVisible());
    const auto text = Node(Books)->DisplayRect(true);
    EXPECT_EQ(Button().pos(), QPoint(text.right() + 1, text.top() - 1));
    EXPECT_EQ(Button().size(), QSize(16, 17));
    Click(At(Title));
    EXPECT_EQ(Button().y(), Node(Title)->DisplayRect(true).top() - 1);
    Click(At(Id), Qt::ControlModifier);
    EXPECT_FALSE(Button().isVisible());
}

TEST_F(HandlingTheTree, TheButtonShowsOnNothingThatTakesNoControl)
{
    for (const auto& path : { u""_qs, u"Data"_qs, u"Data/Books/Fields"_qs, u"Data/Authors/Master DataSet"_qs }) {
        Click(At(path));
        EXPECT_FALSE(Button().isVisible()) << path.toStdString();
    }
    Group(gmSession);
    Tree().Items().GetFirstNode()->Expand(false);
    QCoreApplication::processEvents();
    Click(At(u"Shop {Data}"_qs));
    EXPECT_FALSE(Button().isVisible());
}

TEST_F(HandlingTheTree, AClickOnEmptyRowSpaceMovesTheButtonAway)
{
    Click(At(Books));
    Click(Beside(Title));
    EXPECT_FALSE(Button().isVisible() && Button().y() == Node(Books)->DisplayRect(true).top() - 1);
}

TEST_F(HandlingTheTree, TheButtonStaysAtTheEdgeAndOffASqueezedLabel)
{
    Click(At(Books));
    Node(Books)->SetText(QString(200, u'W'));
    Tree().ButtonMoveTo(nullptr);
    Tree().ButtonMoveTo(Node(u"Data/"_qs + QString(200, u'W')));
    EXPECT_TRUE(Button().isVisible());
    EXPECT_EQ(Button().geometry().right() + 1, Tree().viewport()->width());
}

TEST_F(HandlingTheTree, TheButtonIsHeldBackWhileItIsDisabled)
{
    Click(At(Books));
    Tree().FEnabledMoveButton = false;
    Tree().ButtonMoveTo(Node(Books));
    EXPECT_FALSE(Button().isVisible());
    Tree().FEnabledMoveButton = true;
    Tree().ButtonMoveTo(Node(Books));
    EXPECT_TRUE(Button().isVisible());
    Tree().ButtonMoveTo(nullptr);
    EXPECT_FALSE(Button().isVisible());
}

TEST_F(HandlingTheTree, AClickOnTheButtonOpensTheControlsOfTheNode)
{
    Click(At(Title));
    QTest::mouseClick(&Button(), Qt::LeftButton);
    ASSERT_TRUE(Window().FItemMenu);
    QStringList items;
    for (int i = 0; i < Window().FItemMenu->Items().Count(); ++i) {
        auto* item = Window().FItemMenu->Items().Items(i);
        items << item->Caption() + (item->Checked() ? u"*"_qs : u""_qs);
    }
    Window().FItemMenu->close();
    EXPECT_EQ(items.first(2), QStringList({ u"TDBEdit*"_qs, u"TDBMemo"_qs }));
}

TEST_F(HandlingTheTree, ARightClickSelectsTheNodeAlone)
{
    Click(At(Id));
    Click(At(Title), Qt::ControlModifier);
    QTest::mousePress(Tree().viewport(), Qt::RightButton, {}, At(Id));
    EXPECT_EQ(Selected(), QStringList(u"0 - Id{BooksId}"_qs));
}

TEST_F(HandlingTheTree, ADoubleClickEditsTheComponentAndExpandsNothing)
{
    const bool expanded = Node(Books)->Expanded();
    int asked = 0;
    Tree().FOnDblClickEvent = [&asked](QObject*) { ++asked; };
    QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, At(Books));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Node(Books)->Expanded(), expanded);
    EXPECT_FALSE(Tree().FBeginDrag);
}

TEST_F(HandlingTheTree, ArrowKeysSelectInTheDesignerOnceTheyAreReleased)
{
    Click(At(u"Data/Books/Fields"_qs));
    QTest::keyPress(&Tree(), Qt::Key_Down);
    EXPECT_EQ(DesignerSelection(u"Data"_qs), QStringList());
    QTest::keyRelease(&Tree(), Qt::Key_Down);
    EXPECT_EQ(DesignerSelection(u"Data"_qs), QStringList(u"BooksId"_qs));
    QTest::keyClick(&Tree(), Qt::Key_Down);
    EXPECT_EQ(DesignerSelection(u"Data"_qs), QStringList(u"BooksTitle"_qs));
    QTest::keyPress(&Tree(), Qt::Key_Home);
    QTest::keyRelease(&Tree(), Qt::Key_Home);
    EXPECT_EQ(DesignerSelection(u"Data"_qs), QStringList(u"BooksTitle"_qs));
}

TEST_F(HandlingTheTree, AKeyWithoutShiftOrControlLeavesOneSelected)
{
    Click(At(Id));
    Click(At(Title), Qt::ControlModifier);
    QTest::keyClick(&Tree(), Qt::Key_F1);
    EXPECT_EQ(Tree().SelectionCount(), 2);
    QTest::keyClick(&Tree(), Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&Tree(), Qt::Key_F7);
    EXPECT_LE(Tree().SelectionCount(), 1);
}

TEST_F(HandlingTheTree, ADragTakesWhatCanBeDragged)
{
    const auto dragged = [this]() -> QString {
        TDragObject* object = nullptr;
        try {
            object = Tree().StartDragObject();
        } catch (const EAbort&) {
            return u"refused"_qs;
        }
        QStringList names;
        for (const auto& item : static_cast<TMrvDragDBControl*>(object)->FSelList) {
            QString name;
            item->IntfComponentName(false, name);
            names << name;
        }
        return names.join(u',');
    };
    Tree().ClearSelection(false);
    EXPECT_EQ(dragged(), u"refused"_qs);
    Select(Books);
    EXPECT_EQ(dragged(), u"Books"_qs);
    Select(Title);
    EXPECT_EQ(dragged(), u"BooksTitle"_qs);
    for (const auto& path : { u""_qs, u"Data"_qs, u"Data/Books/Fields"_qs }) {
        Select(path);
        EXPECT_EQ(dragged(), u"refused"_qs) << path.toStdString();
    }
    Tree().Select({ Node(Title), Node(Id) });
    EXPECT_EQ(dragged(), u"BooksId,BooksTitle"_qs);
    Tree().Select({ Node({}), Node(Title), Node(Id) });
    EXPECT_EQ(dragged(), u"BooksId,BooksTitle"_qs);
    Tree().Select({ Node(Books), Node(Title) });
    EXPECT_EQ(dragged(), u"refused"_qs);
}
