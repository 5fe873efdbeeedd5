#include "ide/MrvSvcManager.h"
#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <QMouseEvent>
#include <QTest>
#include <QToolButton>

namespace {

// The model is gone and the tree still shows what it held: its list is not told of the project's end.
class WhatIsLeftOfAModel : public ToolWindowFixture, public testing::WithParamInterface<TGroupMode> {
protected:
    void SetUp() override
    {
        StartShown();
        Window().resize(600, 900);
        Shop.DataModule(u"Store"_qs,
            u"object Scratch: TZAScratchTable\nFieldDefs = <\nitem\nName = 'City'\nDataType = ftString\nSize = "
            u"20\nend>\nend"_qs);
        OpenShop();
        Group(GetParam());
        for (auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            node->Expand(false);
        const int count = Tree().Items().Count();
        List().DisableEvents(deProjectClose);
        Switch();
        EXPECT_EQ(Tree().Items().Count(), count);
        EXPECT_FALSE(MrvApiProxy->FMrvInteropServices);
        Exceptions.clear();
    }
    // To no project.
    static void Switch()
    {
        bool cancel = false;
        const auto ide = std::exchange(BorlandIDEServices, nullptr);
        MrvApiProxy->OnFileNotification(nullptr, ofnActiveProjectChanged, {}, cancel);
        BorlandIDEServices = ide;
    }
    template <class Do>
    static void AtEachNode(Do&& act)
    {
        QList<TTreeNode*> nodes;
        for (auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            nodes << node;
        for (auto* node : nodes)
            act(node);
    }
    static QPoint At(const TTreeNode* node)
    {
        const auto rect = node->DisplayRect(true);
        return { rect.left() + 8, rect.center().y() };
    }
};

std::string NameOf(const testing::TestParamInfo<TGroupMode>& info)
{
    static const char* const names[] = { "ByNothing", "ByForm", "ByConnection" };
    return names[info.param];
}

}

INSTANTIATE_TEST_SUITE_P(Grouped, WhatIsLeftOfAModel, testing::Values(gmNone, gmForm, gmSession), NameOf);

TEST_P(WhatIsLeftOfAModel, IsPainted)
{
    EXPECT_FALSE(Window().grab().isNull());
    EXPECT_EQ(Exceptions, QStringList());
}

TEST_P(WhatIsLeftOfAModel, IsClickedAndSelected)
{
    AtEachNode([](TTreeNode* node) {
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, At(node));
        EXPECT_TRUE(node->Selected()) << node->Text().toStdString();
        QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, At(node));
        QTest::keyClick(&Tree(), Qt::Key_Down);
        if (Tree().FSpeedButton->isVisible())
            QTest::mouseClick(Tree().FSpeedButton, Qt::LeftButton);
        delete Window().FItemMenu;
    });
    EXPECT_EQ(Exceptions, QStringList());
}

TEST_P(WhatIsLeftOfAModel, ShowsItsMenus)
{
    AtEachNode([](TTreeNode* node) {
        Tree().Select(node);
        bool handled = false;
        Tree().OnContextPopup({ 5, 5 }, handled);
        delete Window().FMenu;
    });
    EXPECT_EQ(Exceptions, QStringList());
}

TEST_P(WhatIsLeftOfAModel, TakesEveryActionInVain)
{
    const auto text = Text();
    AtEachNode([](TTreeNode* node) {
        for (auto* action : { Window().acCreateField, Window().acDeleteField, Window().acNewField,
                 Window().acAddAllField, Window().acShowForm, Window().acDataPreview }) {
            Tree().Select(node);
            action->Execute();
        }
    });
    EXPECT_EQ(Text(), text);
    EXPECT_EQ(Exceptions, QStringList());
    EXPECT_FALSE(Tree().Items().Updating());
    EXPECT_TRUE(Tree().FEnabledMoveButton);
}

TEST_P(WhatIsLeftOfAModel, IsDraggedInVain)
{
    const auto before = FormText(u"MainForm"_qs);
    AtEachNode([this](TTreeNode* node) {
        Tree().Select(node);
        TDragObject* object = nullptr;
        AtEventBorder([&] { object = Tree().StartDragObject(); });
        if (object)
            AtEventBorder([&] { TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), nullptr, *object, 20, 20); });
        AtEachNode([&](TTreeNode* target) {
            if (target != node && Tree().FOnAcceptDragging(&Tree(), node, target))
                AtEventBorder([&] { Tree().FOnItemMoved(&Tree(), node, target); });
        });
    });
    EXPECT_EQ(FormText(u"MainForm"_qs), before);
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_P(WhatIsLeftOfAModel, IsRefreshedRegroupedHiddenAndShown)
{
    Window().acRefresh->Execute();
    Window().acScanAll->Execute();
    for (int i = 0; i < 3; ++i)
        Window().tbGroupingClick(nullptr);
    Window().hide();
    Window().show();
    EXPECT_EQ(Exceptions, QStringList());
    EXPECT_EQ(Preference(u"ScanAllForms"_qs), u"False"_qs);
}

TEST_P(WhatIsLeftOfAModel, GoesWithTheNextProject)
{
    bool cancel = false;
    MrvApiProxy->OnFileNotification(nullptr, ofnActiveProjectChanged, Shop.ProjectFile(), cancel);
    EXPECT_EQ(Text(), FreshText());
    EXPECT_EQ(NodesOf(List().GetDataSetAttrByObj(Component(u"Data.Loose"_qs))).size(), 1);
}
