#include "visual/TShortCut.h"

#include <gtest/gtest.h>

TEST(TShortCut, NumbersStandForTheKeysOfQt)
{
    EXPECT_EQ(ToKeySequence(45), QKeySequence(Qt::Key_Insert));
    EXPECT_EQ(ToKeySequence(46), QKeySequence(Qt::Key_Delete));
    EXPECT_EQ(ToKeySequence(16429), QKeySequence(Qt::CTRL | Qt::Key_Insert));
    EXPECT_EQ(ToKeySequence(scCtrl | scShift | 'S'), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    EXPECT_EQ(ToKeySequence(0x73 | scAlt), QKeySequence(Qt::ALT | Qt::Key_F4));
    EXPECT_EQ(ToKeySequence(0x28), QKeySequence(Qt::Key_Down));
    EXPECT_TRUE(ToKeySequence(scNone).isEmpty());
    EXPECT_TRUE(ToKeySequence(0xFF).isEmpty());
}

TEST(TShortCut, EveryKeyThatIsKnownComesBack)
{
    int known = 0;
    for (int code = 1; code <= 0xFF; ++code) {
        const auto keys = ToKeySequence(static_cast<TShortCut>(scCtrl | code));
        known += keys.isEmpty() ? 0 : 1;
        EXPECT_EQ(ToKeySequence(ToShortCut(keys)), keys) << code;
    }
    EXPECT_EQ(known, 88);
    EXPECT_EQ(ToShortCut({}), scNone);
}

TEST(TShortCut, TheTextIsThatOfTheMenus)
{
    EXPECT_EQ(ShortCutToText(16429), QStringLiteral("Ctrl+Ins"));
    EXPECT_EQ(ShortCutToText(scNone), QString());
}
