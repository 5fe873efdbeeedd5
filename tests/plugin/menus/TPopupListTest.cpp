#include "menus/TPopupList.h"

#include "menus/MrvMenus.h"
#include "plugin/support/LogFixture.h"
#include "visual/TApplication.h"

#include <QApplication>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

namespace {

TMenuItem* add(TMenuItem& parent, const QString& hint, int helpContext = 0)
{
    auto* item = new TMenuItem;
    item->SetCaption(hint);
    item->SetHint(hint);
    item->SetHelpContext(helpContext);
    parent.Add(item);
    return item;
}

QString hint()
{
    return TApplication::Instance().Hint();
}

// What help was asked for: "command context".
class HelpRecorder {
public:
    HelpRecorder()
    {
        TApplication::Instance().OnHelp = [this](int command, std::intptr_t context) {
            asked << QStringLiteral("%1 %2").arg(command).arg(context);
            return true;
        };
    }
    ~HelpRecorder() { TApplication::Instance().OnHelp = nullptr; }

    QStringList asked;
};

class MenusUnit : public LogFixture { };

}

TEST(PopupList, HoldsEveryMenuAndOneWindowWhileThereIsOne)
{
    QPointer<QObject> window;
    {
        const TPopupMenuEx first;
        window = PopupList->Window();
        EXPECT_FALSE(window.isNull());
        {
            const TPopupMenuEx second;
            EXPECT_EQ(PopupList->Count(), 2);
            EXPECT_EQ(PopupList->Items(1), &second);
            EXPECT_EQ(PopupList->Window(), window);
        }
        EXPECT_EQ(PopupList->Items(0), &first);
    }
    EXPECT_EQ(PopupList->Count(), 0);
    EXPECT_TRUE(window.isNull());
    EXPECT_EQ(PopupList->Window(), nullptr);
    const TPopupMenuEx next;
    EXPECT_NE(PopupList->Window(), nullptr);
}

TEST(PopupList, FindsTheMenuOfAnItemAtAnyDepth)
{
    TPopupMenuEx first;
    TPopupMenuEx second;
    auto* deep = add(*add(second.Items(), QStringLiteral("top")), QStringLiteral("below"));
    EXPECT_EQ(PopupList->FindMenu(deep), &second);
    EXPECT_EQ(PopupList->FindMenu(nullptr), nullptr);
    const TMenuItem nowhere;
    EXPECT_EQ(PopupList->FindMenu(&nowhere), nullptr);
}

TEST(PopupList, ShowsTheHintOfTheItemPointedAt)
{
    TPopupMenuEx menu;
    auto* first = add(menu.Items(), QStringLiteral("first"));
    auto* below = add(*add(menu.Items(), QStringLiteral("second")), QStringLiteral("below"));
    menu.Popup(10, 10);
    menu.setActiveAction(first);
    EXPECT_EQ(hint(), QStringLiteral("first"));
    PopupList->MenuSelect(below, true);
    EXPECT_EQ(hint(), QStringLiteral("below"));
    menu.close();
    EXPECT_EQ(hint(), QString());
}

TEST(PopupList, ClearsTheHintWhenTheMouseLeavesTheMenuOrPointsAtNothing)
{
    TPopupMenuEx menu;
    auto* item = add(menu.Items(), QStringLiteral("item"));
    PopupList->MenuSelect(item, true);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&menu, &leave);
    EXPECT_EQ(hint(), QString());
    PopupList->MenuSelect(item, true);
    PopupList->MenuSelect(nullptr, false);
    EXPECT_EQ(hint(), QString());
}

TEST(PopupList, AMenuWithACursorShowsItOverItsItems)
{
    TPopupMenuEx menu;
    auto* item = add(menu.Items(), QStringLiteral("item"));
    auto* below = add(*item, QStringLiteral("below"));
    PopupList->MenuSelect(item, true);
    EXPECT_EQ(menu.cursor().shape(), Qt::ArrowCursor);
    menu.SetCursor(crHandPoint);
    PopupList->MenuSelect(item, true);
    EXPECT_EQ(menu.cursor().shape(), Qt::PointingHandCursor);
    PopupList->MenuSelect(item, false);
    EXPECT_EQ(menu.cursor().shape(), Qt::ArrowCursor);
    PopupList->MenuSelect(below, true);
    EXPECT_EQ(item->menu()->cursor().shape(), Qt::PointingHandCursor);
}

TEST(PopupList, TheHelpKeyAsksForHelpOnTheItemPointedAtOrTheOneItHangsOn)
{
    HelpRecorder help;
    TPopupMenuEx menu;
    auto* first = add(menu.Items(), QStringLiteral("first"), 11);
    auto* second = add(menu.Items(), QStringLiteral("second"), 12);
    auto* below = add(*second, QStringLiteral("below"));
    menu.Popup(10, 10);
    QTest::keyClick(&menu, Qt::Key_F1);
    menu.setActiveAction(first);
    QTest::keyClick(&menu, Qt::Key_F1);
    menu.close();
    PopupList->Help(*below);
    const TMenuItem nowhere;
    PopupList->Help(nowhere);
    EXPECT_EQ(help.asked, QStringList({ u"1 11"_qs, u"1 12"_qs }));
}

TEST(PopupList, AFormWithAHelpButtonHasTheHelpInASmallWindow)
{
    HelpRecorder help;
    QWidget form;
    form.setWindowFlag(Qt::WindowContextHelpButtonHint);
    form.show();
    QApplication::setActiveWindow(&form);
    TPopupMenuEx menu;
    PopupList->Help(*add(menu.Items(), QStringLiteral("first"), 11));
    EXPECT_EQ(help.asked, QStringList(u"8 11"_qs));
}

TEST_F(MenusUnit, ItsEndFreesTheListAndLogsThatItDoes)
{
    {
        const TPopupMenuEx menu;
    }
    EXPECT_NE(PopupList, nullptr);
    MrvMenus::Finalization();
    EXPECT_EQ(PopupList, nullptr);
    EXPECT_TRUE(LogHolds({ u"MrvMenus.finalization: Try free popup list"_qs, u"MrvMenus.finalization: success"_qs }));
}

TEST_F(MenusUnit, AMenuMayOutliveItsEnd)
{
    TPopupMenuEx menu;
    MrvMenus::Finalization();
    auto* item = add(menu.Items(), QStringLiteral("item"));
    add(*item, QStringLiteral("below"));
    menu.Popup(10, 10);
    menu.close();
    const TPopupMenuEx next;
    EXPECT_EQ(PopupList->Count(), 1);
}
