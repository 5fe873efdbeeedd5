#include "support/MrvUtils.h"
#include "visual/TIcon.h"

#include <gtest/gtest.h>

TEST(TMrvUtilsIcon, GrowsABitmapToTheSystemsSizeWithItsTransparentPixelsBlack)
{
    TBitmap bitmap(16, 16);
    bitmap.Image().fill(QColor(255, 0, 255));
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 16; ++x)
            bitmap.SetPixel(x, y, clLime);
    const auto icon = TMrvUtils::BitmapToIcon(bitmap);
    EXPECT_EQ(QSize(icon->Width(), icon->Height()), QSize(32, 32));
    const auto image = icon->ToImage();
    EXPECT_EQ(image.pixel(4, 4), qRgba(0, 255, 0, 255));
    EXPECT_EQ(image.pixel(4, 28), qRgba(0, 0, 0, 0));
    EXPECT_EQ(icon->Color().pixel(4, 28), qRgb(0, 0, 0));
}

TEST(TMrvUtilsIcon, MakesAnIconOfNothingOutOfNothing)
{
    TIcon icon;
    EXPECT_TRUE(icon.Empty());
    EXPECT_TRUE(icon.ToImage().isNull());
}
