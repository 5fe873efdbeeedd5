#include "visual/TApplication.h"

#include "visual/TChangeLink.h"
#include "visual/TCursor.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

TEST(TApplication, TellsOfEachNewHint)
{
    auto& application = TApplication::Instance();
    application.SetHint({});
    const QSignalSpy hints(&application, &TApplication::HintChanged);
    application.SetHint(QStringLiteral("a"));
    application.SetHint(QStringLiteral("a"));
    EXPECT_EQ(application.Hint(), QStringLiteral("a"));
    application.SetHint({});
    EXPECT_EQ(hints.count(), 2);
}

TEST(TApplication, PassesHelpOnToWhoeverGivesIt)
{
    auto& application = TApplication::Instance();
    EXPECT_FALSE(application.HelpContext(5));
    QStringList asked;
    application.OnHelp = [&asked](int command, std::intptr_t data) {
        asked << QStringLiteral("%1 %2").arg(command).arg(data);
        return true;
    };
    EXPECT_TRUE(application.HelpContext(5));
    EXPECT_TRUE(application.HelpCommand(HELP_CONTEXTPOPUP, 6));
    application.OnHelp = nullptr;
    EXPECT_EQ(asked, QStringList({ u"1 5"_qs, u"8 6"_qs }));
}

TEST(TScreen, FindsACursorByItsNumber)
{
    EXPECT_EQ(TScreen::Cursors(crHandPoint).shape(), Qt::PointingHandCursor);
    EXPECT_EQ(TScreen::Cursors(crHourGlass).shape(), Qt::WaitCursor);
    EXPECT_EQ(TScreen::Cursors(999).shape(), Qt::ArrowCursor);
}

TEST(TChangeLink, RunsWhenTheListChangesAndOnceWhenItGoes)
{
    TChangeLink link;
    int changes = 0;
    link.OnChange = [&changes] { ++changes; };
    {
        TImageList images;
        link.Register(&images);
        images.Add(TBitmap(16, 16));
        EXPECT_EQ(changes, 1);
        EXPECT_EQ(link.Images(), &images);
    }
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(link.Images(), nullptr);
}

TEST(TChangeLink, ForgetsTheListItIsTakenOff)
{
    TChangeLink link;
    TImageList first;
    TImageList second;
    int changes = 0;
    link.OnChange = [&changes] { ++changes; };
    link.Register(&first);
    link.Register(&second);
    first.Add(TBitmap(16, 16));
    EXPECT_EQ(changes, 0);
    second.Add(TBitmap(16, 16));
    EXPECT_EQ(changes, 1);
    link.Unregister();
    second.Clear();
    EXPECT_EQ(changes, 1);
}
