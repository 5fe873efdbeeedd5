#include "ui/TPopupMenu.h"

#include "ui/TMainMenuBar.h"
#include "visual/TMainMenu.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

TMenuItem* item(const QString& caption, TMenuItem* parent)
{
    auto* made = new TMenuItem;
    made->SetCaption(caption);
    parent->Add(made);
    return made;
}

QStringList texts(const QWidget& menu)
{
    QStringList list;
    for (const auto* action : menu.actions())
        list << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return list;
}

}

TEST(TPopupMenu, ShowsItsItemsInTheirOrder)
{
    TPopupMenu menu;
    item(QStringLiteral("b"), &menu.Items());
    item(QStringLiteral("-"), &menu.Items());
    auto* a = new TMenuItem;
    a->SetCaption(QStringLiteral("a"));
    menu.Items().Insert(0, a);
    EXPECT_EQ(texts(menu), QStringList({ u"a"_qs, u"b"_qs, u"-"_qs }));
    delete a;
    EXPECT_EQ(texts(menu), QStringList({ u"b"_qs, u"-"_qs }));
    menu.Items().Clear();
    EXPECT_EQ(texts(menu), QStringList());
}

TEST(TPopupMenu, AnItemWithEntriesHasASubmenuAsLongAsItHasThem)
{
    TPopupMenu menu;
    auto* group = item(QStringLiteral("Group by"), &menu.Items());
    EXPECT_EQ(group->menu(), nullptr);
    auto* form = item(QStringLiteral("Form"), group);
    item(QStringLiteral("deep"), form);
    ASSERT_NE(group->menu(), nullptr);
    EXPECT_EQ(texts(*group->menu()), QStringList(u"Form"_qs));
    EXPECT_EQ(texts(*form->menu()), QStringList(u"deep"_qs));
    group->Clear();
    EXPECT_EQ(group->menu(), nullptr);
}

TEST(TPopupMenu, OpensWhereItIsToldAfterItsHandlerHasRun)
{
    TPopupMenu menu;
    EXPECT_EQ(menu.PopupPoint(), QPoint(-1, -1));
    menu.OnPopup = [&menu](QObject*) { item(QStringLiteral("late"), &menu.Items()); };
    menu.Popup(30, 40);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.pos(), QPoint(30, 40));
    EXPECT_EQ(menu.PopupPoint(), QPoint(30, 40));
    EXPECT_EQ(texts(menu), QStringList(u"late"_qs));
    menu.close();
}

TEST(TPopupMenu, GoesByTheLeftButtonAloneOrByTheRightOneToo)
{
    TPopupMenu menu;
    auto* top = item(QStringLiteral("top"), &menu.Items());
    auto* below = item(QStringLiteral("below"), item(QStringLiteral("more"), &menu.Items()));
    QStringList chosen;
    for (auto* entry : { top, below })
        entry->OnClick = [&chosen, entry](QObject*) { chosen << entry->Caption(); };
    const auto clickedBy = [&](Qt::MouseButton button) {
        chosen.clear();
        menu.Popup(10, 10);
        QTest::mouseClick(&menu, button, {}, menu.actionGeometry(top).center());
        menu.close();
        auto* submenu = below->Parent()->menu();
        submenu->popup({ 10, 10 });
        QTest::mouseClick(submenu, button, {}, submenu->actionGeometry(below).center());
        submenu->close();
        return chosen;
    };
    const QStringList both { u"top"_qs, u"below"_qs };
    EXPECT_EQ(menu.TrackButton(), tbRightButton);
    EXPECT_EQ(clickedBy(Qt::LeftButton), both);
    EXPECT_EQ(clickedBy(Qt::RightButton), both);
    menu.SetTrackButton(tbLeftButton);
    EXPECT_EQ(clickedBy(Qt::LeftButton), both);
    EXPECT_EQ(clickedBy(Qt::RightButton), QStringList());
}

TEST(TPopupMenu, AnEmptyOneIsNotOpened)
{
    TPopupMenu menu;
    menu.Popup(1, 1);
    EXPECT_FALSE(menu.isVisible());
}

TEST(TPopupMenu, ItsAlignmentPutsTheOtherCornerAtThePointAndSwapsFromRightToLeft)
{
    TPopupMenu menu;
    item(QStringLiteral("entry"), &menu.Items());
    menu.SetAlignment(paRight);
    menu.Popup(300, 40);
    EXPECT_EQ(menu.x(), 300 - menu.sizeHint().width());
    menu.close();
    menu.setLayoutDirection(Qt::RightToLeft);
    menu.Popup(300, 40);
    EXPECT_EQ(menu.x(), 300);
    menu.close();
}

TEST(TPopupMenu, AMouseClickOnAnEntryRunsItsHandler)
{
    TPopupMenu menu;
    auto* first = item(QStringLiteral("first"), &menu.Items());
    auto* second = item(QStringLiteral("second"), &menu.Items());
    QStringList clicked;
    for (auto* entry : { first, second })
        entry->OnClick = [&clicked](QObject* sender) { clicked << qobject_cast<TMenuItem*>(sender)->Caption(); };
    menu.Popup(10, 10);
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(second).center());
    EXPECT_EQ(clicked, QStringList(u"second"_qs));
    EXPECT_FALSE(menu.isVisible());
}

TEST(TMainMenuBar, ShowsTheMainMenuAndFollowsIt)
{
    auto menu = std::make_unique<TMainMenu>();
    auto* tools = item(QStringLiteral("&Tools"), &menu->Items());
    TMainMenuBar bar(*menu);
    item(QStringLiteral("Morvane"), tools);
    item(QStringLiteral("Help"), &menu->Items());
    EXPECT_EQ(texts(bar), QStringList({ u"&Tools"_qs, u"Help"_qs }));
    EXPECT_EQ(texts(*tools->menu()), QStringList(u"Morvane"_qs));
    menu.reset();
    EXPECT_EQ(texts(bar), QStringList());
}

TEST(TMainMenuBar, MayGoBeforeTheMainMenu)
{
    TMainMenu menu;
    auto* tools = item(QStringLiteral("Tools"), &menu.Items());
    item(QStringLiteral("Morvane"), tools);
    {
        TMainMenuBar bar(menu);
    }
    EXPECT_EQ(tools->menu(), nullptr);
    item(QStringLiteral("More"), tools);
    EXPECT_EQ(tools->Count(), 2);
}
