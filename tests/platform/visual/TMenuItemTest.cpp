#include "visual/TMenuItem.h"

#include "visual/TAction.h"
#include "visual/TImageList.h"
#include "visual/TMainMenu.h"

#include <gtest/gtest.h>

namespace {

TMenuItem* item(const QString& caption, TMenuItem* parent = nullptr)
{
    auto* made = new TMenuItem;
    made->SetCaption(caption);
    if (parent != nullptr)
        parent->Add(made);
    return made;
}

QStringList captions(const TMenuItem& parent)
{
    QStringList list;
    for (int i = 0; i < parent.Count(); ++i)
        list << parent.Items(i)->Caption();
    return list;
}

}

TEST(TMenuItem, KeepsItsEntriesInOrder)
{
    TMenuItem root;
    auto* b = item(QStringLiteral("b"), &root);
    item(QStringLiteral("c"), &root);
    auto* a = item(QStringLiteral("a"));
    root.Insert(0, a);
    root.Insert(99, item(QStringLiteral("d")));
    EXPECT_EQ(captions(root), QStringList({ u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs }));
    EXPECT_EQ(b->MenuIndex(), 1);
    EXPECT_EQ(b->Parent(), &root);
    EXPECT_EQ(root.Items(4), nullptr);
    EXPECT_EQ(root.Items(-1), nullptr);
}

TEST(TMenuItem, RemoveLeavesTheEntryToTheCaller)
{
    TMenuItem root;
    const std::unique_ptr<TMenuItem> entry(item(QStringLiteral("a"), &root));
    root.Remove(entry.get());
    EXPECT_EQ(root.Count(), 0);
    EXPECT_EQ(entry->Parent(), nullptr);
    EXPECT_EQ(entry->MenuIndex(), -1);
}

TEST(TMenuItem, AddingAnEntryThatStandsElsewhereMovesIt)
{
    TMenuItem from;
    TMenuItem to;
    auto* entry = item(QStringLiteral("a"), &from);
    to.Add(entry);
    EXPECT_EQ(from.Count(), 0);
    EXPECT_EQ(entry->Parent(), &to);
}

TEST(TMenuItem, EntriesGoWithTheirParentAndOneDeletedEarlierTakesItselfOut)
{
    auto root = std::make_unique<TMenuItem>();
    const QPointer<TMenuItem> first = item(QStringLiteral("a"), root.get());
    const QPointer<TMenuItem> below = item(QStringLiteral("b"), first);
    auto* second = item(QStringLiteral("c"), root.get());
    delete second;
    EXPECT_EQ(captions(*root), QStringList(u"a"_qs));
    root.reset();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(below.isNull());
}

TEST(TMenuItem, AnOwnerThatGoesTakesItsItemsOutOfAnyMenu)
{
    TMenuItem root;
    {
        QObject owner;
        root.Add(new TMenuItem(&owner));
    }
    EXPECT_EQ(root.Count(), 0);
}

TEST(TMenuItem, FindsByCaptionWithoutHotKeysAndCase)
{
    TMenuItem root;
    auto* open = item(QStringLiteral("&Open"), &root);
    auto* both = item(QStringLiteral("Save && close"), &root);
    EXPECT_EQ(root.Find(QStringLiteral("OPEN")), open);
    EXPECT_EQ(root.Find(QStringLiteral("save && Close")), both);
    EXPECT_EQ(root.Find(QStringLiteral("other")), nullptr);
}

TEST(TMenuItem, FindsByNameWithoutCase)
{
    TMenuItem root;
    auto* tools = item(QStringLiteral("Tools"), &root);
    tools->SetName(QStringLiteral("ToolsMenu"));
    EXPECT_EQ(root.FindByName(QStringLiteral("toolsmenu")), tools);
    EXPECT_EQ(root.FindByName(QStringLiteral("Tools")), nullptr);
}

TEST(TMenuItem, TheCaptionOfOneHyphenIsALine)
{
    TMenuItem line;
    line.SetCaption(QStringLiteral("-"));
    EXPECT_TRUE(line.IsLine());
    EXPECT_TRUE(line.isSeparator());
    EXPECT_EQ(line.Caption(), QStringLiteral("-"));
    line.SetCaption(QStringLiteral("a"));
    EXPECT_FALSE(line.isSeparator());
    EXPECT_EQ(line.text(), QStringLiteral("a"));
}

TEST(TMenuItem, AClickRunsTheHandlerWithTheItemAsSender)
{
    TMenuItem entry;
    QObject* sender = nullptr;
    entry.OnClick = [&sender](QObject* from) { sender = from; };
    entry.trigger();
    EXPECT_EQ(sender, &entry);
    sender = nullptr;
    entry.SetEnabled(false);
    entry.Click();
    EXPECT_EQ(sender, nullptr);
}

TEST(TMenuItem, TheHandlerMayDeleteTheItem)
{
    QPointer<TMenuItem> entry = new TMenuItem;
    entry->OnClick = [](QObject* sender) { delete sender; };
    entry->Click();
    EXPECT_TRUE(entry.isNull());
}

TEST(TMenuItem, AClickDoesNotChangeTheTick)
{
    TMenuItem entry;
    entry.SetChecked(true);
    bool seen = false;
    entry.OnClick = [&](QObject*) { seen = entry.Checked() && entry.isChecked(); };
    entry.trigger();
    EXPECT_TRUE(seen);
    EXPECT_TRUE(entry.isChecked());
}

TEST(TMenuItem, OfRadioItemsOfOneGroupOneIsChecked)
{
    TMenuItem root;
    QList<TMenuItem*> entries;
    for (const int group : { 1, 1, 2 }) {
        entries << item(QStringLiteral("x"), &root);
        entries.last()->SetGroupIndex(group);
        entries.last()->SetRadioItem(true);
        entries.last()->SetChecked(true);
    }
    EXPECT_FALSE(entries.at(0)->Checked());
    EXPECT_TRUE(entries.at(1)->Checked());
    EXPECT_TRUE(entries.at(2)->Checked());
}

TEST(TMenuItem, TakesOverThePropertiesOfItsAction)
{
    TAction action;
    action.SetCaption(QStringLiteral("Refresh"));
    action.SetHint(QStringLiteral("Reads all anew"));
    action.SetShortCut(116);
    action.SetImageIndex(2);
    action.SetHelpContext(9);
    action.SetChecked(true);
    TMenuItem entry;
    entry.SetAction(&action);
    EXPECT_EQ(entry.Action(), &action);
    EXPECT_EQ(entry.Caption(), QStringLiteral("Refresh"));
    EXPECT_EQ(entry.Hint(), QStringLiteral("Reads all anew"));
    EXPECT_EQ(entry.ShortCut(), 116);
    EXPECT_EQ(entry.ImageIndex(), 2);
    EXPECT_EQ(entry.HelpContext(), 9);
    EXPECT_TRUE(entry.Checked());
    EXPECT_TRUE(entry.Enabled());
}

TEST(TMenuItem, FollowsWhatChangesInTheActionAndKeepsWhatIsItsOwn)
{
    TAction action;
    action.SetCaption(QStringLiteral("Create field"));
    TMenuItem entry;
    entry.SetAction(&action);
    entry.SetShortCut(45);
    action.SetVisible(false);
    action.SetEnabled(false);
    EXPECT_FALSE(entry.Visible());
    EXPECT_FALSE(entry.Enabled());
    EXPECT_EQ(entry.ShortCut(), 45);
    entry.SetAction(nullptr);
    action.SetVisible(true);
    EXPECT_FALSE(entry.Visible());
}

TEST(TMenuItem, WithoutAHandlerAClickExecutesTheActionWithTheItemAsSender)
{
    TAction action;
    QObject* sender = nullptr;
    action.OnExecute = [&sender](QObject* from) { sender = from; };
    TMenuItem entry;
    entry.SetAction(&action);
    entry.trigger();
    EXPECT_EQ(sender, &entry);
    action.trigger();
    EXPECT_EQ(sender, &action);
}

TEST(TMenuItem, OutlivesItsAction)
{
    auto action = std::make_unique<TAction>();
    TMenuItem entry;
    entry.SetAction(action.get());
    action.reset();
    entry.Click();
    EXPECT_EQ(entry.Action(), nullptr);
}

TEST(TMenuItem, TheMenuOfAnItemIsTheOneWhoseRootItStandsUnder)
{
    TMainMenu menu;
    auto* top = item(QStringLiteral("File"), &menu.Items());
    auto* below = item(QStringLiteral("Open"), top);
    EXPECT_EQ(below->GetParentMenu(), &menu);
    EXPECT_EQ(TMenuItem().GetParentMenu(), nullptr);
}

TEST(TMenuItem, HasThePictureOfItsMenusList)
{
    TMainMenu menu;
    auto* below = item(QStringLiteral("Open"), item(QStringLiteral("File"), &menu.Items()));
    below->SetImageIndex(0);
    EXPECT_TRUE(below->icon().isNull());
    {
        TImageList images;
        menu.SetImages(&images);
        images.Add(TBitmap(16, 16));
        EXPECT_FALSE(below->icon().isNull());
        below->SetImageIndex(-1);
        EXPECT_TRUE(below->icon().isNull());
        below->SetImageIndex(0);
        EXPECT_FALSE(below->icon().isNull());
    }
    EXPECT_EQ(menu.Images(), nullptr);
    EXPECT_TRUE(below->icon().isNull());
}

TEST(TAction, TheUpdateHandlerDecidesBeforeItIsExecuted)
{
    TAction action;
    int runs = 0;
    action.OnExecute = [&runs](QObject*) { ++runs; };
    action.OnUpdate = [](QObject* sender) { qobject_cast<TAction*>(sender)->SetEnabled(false); };
    EXPECT_FALSE(action.Execute());
    EXPECT_EQ(runs, 0);
    action.OnUpdate = nullptr;
    action.SetEnabled(true);
    EXPECT_TRUE(action.Execute());
    EXPECT_EQ(runs, 1);
}

TEST(TMenuItem, ItsRevisionChangesWithEveryEntry)
{
    TMenuItem root;
    auto* entry = item(QStringLiteral("a"), &root);
    auto before = root.Revision();
    const auto changed = [&] { return std::exchange(before, root.Revision()) != root.Revision(); };
    entry->SetCaption(QStringLiteral("b"));
    EXPECT_TRUE(changed());
    entry->SetShortCut(45);
    EXPECT_TRUE(changed());
    entry->SetChecked(true);
    EXPECT_TRUE(changed());
    entry->SetVisible(false);
    EXPECT_TRUE(changed());
    item(QStringLiteral("below"), entry);
    EXPECT_TRUE(changed());
    delete entry;
    EXPECT_TRUE(changed());
    EXPECT_FALSE(changed());
}

TEST(TMenuItem, GivesHotKeysToEntriesWithoutOne)
{
    TMenuItem root;
    item(QStringLiteral("&Save"), &root);
    item(QStringLiteral("Select"), &root);
    item(QStringLiteral("-"), &root);
    item(QStringLiteral("Es"), &root);
    root.RethinkHotkeys();
    EXPECT_EQ(captions(root), QStringList({ u"&Save"_qs, u"S&elect"_qs, u"-"_qs, u"Es"_qs }));
}
