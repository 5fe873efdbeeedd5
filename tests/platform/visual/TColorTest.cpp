#include "visual/TColor.h"

#include <gtest/gtest.h>

TEST(TColor, HoldsBlueAboveGreenAboveRed)
{
    EXPECT_EQ(RGB(0x0A, 0x24, 0x6A), 0x6A240AU);
    EXPECT_EQ(ToQColor(0x6A240A), QColor(0x0A, 0x24, 0x6A));
    EXPECT_EQ(ToTColor(QColor(0x0A, 0x24, 0x6A)), 0x6A240AU);
    EXPECT_EQ(GetRValue(0x6A240A), 0x0A);
    EXPECT_EQ(GetGValue(0x6A240A), 0x24);
    EXPECT_EQ(GetBValue(0x6A240A), 0x6A);
}

TEST(TColor, ASystemColourIsAskedOfThePalette)
{
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::Button, QColor(1, 2, 3));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(4, 5, 6));
    EXPECT_EQ(ColorToRGB(clBtnFace, palette), RGB(1, 2, 3));
    EXPECT_EQ(ColorToRGB(clGrayText, palette), RGB(4, 5, 6));
    EXPECT_EQ(ToQColor(clBtnFace, palette), QColor(1, 2, 3));
}

TEST(TColor, DropsTheHighestByteOfAnyOtherColour)
{
    EXPECT_EQ(ColorToRGB(0x02123456), 0x123456U);
}

TEST(TColor, ASystemColourThatIsNotKnownIsBlack)
{
    EXPECT_EQ(ColorToRGB(SystemColor(200)), clBlack);
}
