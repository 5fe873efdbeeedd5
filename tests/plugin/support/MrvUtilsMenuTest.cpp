#include "support/MrvUtils.h"
#include "visual/TAction.h"
#include "visual/TMainMenu.h"

#include <gtest/gtest.h>

namespace {

TMenuItem* Item(const QString& caption, TMenuItem& parent)
{
    auto* item = new TMenuItem;
    item->SetCaption(caption);
    item->SetName(u"mi"_qs + caption);
    parent.Add(item);
    return item;
}

QString Text(const TMenuItem& item)
{
    QStringList texts;
    for (int i = 0; i < item.Count(); ++i)
        texts << item.Items(i)->Caption() + Text(*item.Items(i));
    return texts.isEmpty() ? QString() : u'(' + texts.join(u' ') + u')';
}

class TMrvUtilsMenu : public testing::Test {
protected:
    TMrvUtilsMenu()
    {
        auto* file = Item(u"File"_qs, Source.Items());
        Item(u"Open"_qs, *file);
        Item(u"Close"_qs, *file);
        Item(u"Help"_qs, Source.Items());
    }
    TMainMenu Source;
    TMainMenu Target;
};

}

TEST_F(TMrvUtilsMenu, CopiesAWholeMenuOverWhatTheTargetHad)
{
    Item(u"Old"_qs, Target.Items());
    TMrvUtils::AssignMenuItems(&Source, &Target, nullptr, nullptr);
    EXPECT_EQ(Text(Target.Items()), u"(File(Open Close) Help)"_qs);
    EXPECT_EQ(Target.Items().Items(0)->Items(0)->Name(), u"miOpen"_qs);
}

TEST_F(TMrvUtilsMenu, CopiesBelowTheItemsGivenBesideWhatIsThere)
{
    auto* mine = Item(u"Mine"_qs, Target.Items());
    Item(u"Own"_qs, *mine);
    TMrvUtils::AssignMenuItems(&Source, &Target, Source.Items().Items(0), mine);
    EXPECT_EQ(Text(Target.Items()), u"(Mine(Own Open Close))"_qs);
}

TEST_F(TMrvUtilsMenu, TakesTheActionWithTheItem)
{
    TAction action;
    int executed = 0;
    action.OnExecute = [&executed](QObject*) { ++executed; };
    Source.Items().Items(1)->SetAction(&action);
    TMrvUtils::AssignMenuItems(&Source, &Target, nullptr, nullptr);
    Target.Items().Items(1)->Click();
    EXPECT_EQ(executed, 1);
}

TEST_F(TMrvUtilsMenu, GivesTheTargetTheFirstLevelAndItsItemsTheRest)
{
    TMrvUtils::AssignMenuItems(&Source, &Target, nullptr, nullptr);
    EXPECT_EQ(Target.Items().Items(0)->parent(), Target.AsObject());
    EXPECT_EQ(Target.Items().Items(0)->Items(0)->parent(), nullptr);
}
