#include "ide/MrvDesignerMenuItem.h"
#include "support/PrintQt.h"
#include "visual/TAction.h"

#include <QPointer>

#include <gtest/gtest.h>

namespace {

class AFilledMenu : public testing::Test {
protected:
    static InterfacePtr<IMenuItem> Make() { return InterfacePtr<IMenuItem>(new TDesignerMenuItem); }
    InterfacePtr<IMenuItem> Menu = Make();
    // "Caption" of each, in order.
    std::string Captions()
    {
        std::string text;
        for (int i = 0; i < Menu->Count(); ++i)
            text += Menu->GetItem(i)->GetCaption().toStdString() + '\n';
        return text;
    }
    InterfacePtr<IMenuItem> Add(const QString& caption)
    {
        return Menu->AddItem(caption, {}, false, true, {}, 0, u"unused"_qs);
    }
};

}

TEST_F(AFilledMenu, KeepsItsItemsInOrder)
{
    Add(u"A"_qs);
    Add(u"B"_qs);
    Menu->InsertItem(1, u"C"_qs, {}, false, true, {}, 0, {});
    Menu->InsertItem(u"D"_qs, {}, false, true, {}, 0, {});
    EXPECT_EQ(Captions(), "A\nC\nB\nD\n");
    Menu->Clear();
    EXPECT_EQ(Menu->Count(), 0);
}

TEST_F(AFilledMenu, TakesLinesAtTheEndOrInBetween)
{
    Add(u"A"_qs);
    EXPECT_TRUE(Menu->AddLine({})->IsLine());
    EXPECT_EQ(Menu->Count(), 2);
    Menu->InsertLine({});
    Menu->InsertLine(0, {});
    EXPECT_EQ(Captions(), "-\nA\n-\n-\n");
}

TEST_F(AFilledMenu, GivesANewItemWhatItIsToldButItsName)
{
    int clicks = 0;
    const auto item = Menu->AddItem(
        u"Run"_qs, QKeySequence(u"Ctrl+R"_qs), true, false, [&clicks](QObject*) { ++clicks; }, 7, u"miRun"_qs);
    EXPECT_EQ(item->GetCaption(), u"Run"_qs);
    EXPECT_EQ(item->GetShortCut(), QKeySequence(u"Ctrl+R"_qs));
    EXPECT_TRUE(item->GetChecked());
    EXPECT_FALSE(item->GetEnabled());
    EXPECT_EQ(item->GetHelpContext(), 7);
    EXPECT_EQ(item->Name(), QString());
    EXPECT_EQ(clicks, 0);
}

TEST_F(AFilledMenu, ShowsTheCaptionOfItsAction)
{
    TAction action(nullptr);
    action.SetCaption(u"Of the action"_qs);
    QObject* sender = nullptr;
    action.OnExecute = [&sender](QObject* from) { sender = from; };
    const auto item = Menu->AddItem(&action, {});
    item->SetCaption(u"Of the item"_qs);
    EXPECT_EQ(item->GetCaption(), u"Of the action"_qs);
    InterfaceCast<IMrvMenuItem2>(item)->ClickItem();
    EXPECT_EQ(sender, dynamic_cast<QObject*>(item.get()));
    Menu->InsertItem(0, &action, {});
    Menu->InsertItem(&action, {});
    EXPECT_EQ(Menu->Count(), 3);
}

TEST_F(AFilledMenu, ClickingAnItemWithoutAnActionDoesNothing)
{
    int clicks = 0;
    const auto item = Menu->AddItem(u"A"_qs, {}, false, true, [&clicks](QObject*) { ++clicks; }, 0, {});
    InterfaceCast<IMrvMenuItem2>(item)->ClickItem();
    EXPECT_EQ(clicks, 0);
}

TEST_F(AFilledMenu, IsTheSameAsItselfAlone)
{
    const auto other = Make();
    EXPECT_TRUE(Menu->SameAs(Menu.get()));
    EXPECT_FALSE(Menu->SameAs(other.get()));
    EXPECT_FALSE(Menu->SameAs(nullptr));
}

TEST_F(AFilledMenu, KeepsItsItemsOutOfTheMenuItself)
{
    Add(u"A"_qs);
    EXPECT_EQ(dynamic_cast<TMenuItem*>(Menu.get())->Count(), 0);
    EXPECT_FALSE(Menu->Find(u"A"_qs));
    EXPECT_FALSE(Menu->GetItem(3));
}

TEST_F(AFilledMenu, ReadsAndWritesItsProperties)
{
    Menu->SetChecked(true);
    Menu->SetEnabled(false);
    Menu->SetGroupIndex(3);
    Menu->SetHelpContext(4);
    Menu->SetHint(u"hint"_qs);
    Menu->SetRadioItem(true);
    Menu->SetTag(5);
    Menu->SetVisible(false);
    EXPECT_TRUE(Menu->GetChecked());
    EXPECT_FALSE(Menu->GetEnabled());
    EXPECT_EQ(Menu->GetGroupIndex(), 3);
    EXPECT_EQ(Menu->GetHelpContext(), 4);
    EXPECT_EQ(Menu->GetHint(), u"hint"_qs);
    EXPECT_TRUE(Menu->GetRadioItem());
    EXPECT_EQ(Menu->GetTag(), 5);
    EXPECT_FALSE(Menu->GetVisible());
    EXPECT_FALSE(Menu->ParentItem());
}

TEST_F(AFilledMenu, LivesAsLongAsSomebodyRefersToIt)
{
    auto item = Make();
    const QPointer<QObject> watched(dynamic_cast<QObject*>(item.get()));
    auto second = item;
    item.Clear();
    EXPECT_FALSE(watched.isNull());
    second.Clear();
    EXPECT_TRUE(watched.isNull());
}
