#include "visual/TBitmap.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

TBitmap redOnGreen()
{
    TBitmap bitmap(2, 2);
    bitmap.Image().fill(Qt::green);
    bitmap.SetPixel(1, 0, clRed);
    return bitmap;
}

}

TEST(TBitmap, AnEmptyOneHasNoSizeAndNoColours)
{
    const TBitmap bitmap;
    EXPECT_TRUE(bitmap.Empty());
    EXPECT_EQ(bitmap.Width(), 0);
    EXPECT_EQ(bitmap.Pixel(0, 0), clNone);
    EXPECT_EQ(bitmap.TransparentColor(), clNone);
    EXPECT_TRUE(TBitmap(0, 5).Empty());
    EXPECT_TRUE(TBitmap(5, -1).Empty());
}

TEST(TBitmap, TheLowestPixelOnTheLeftIsTheTransparentColour)
{
    auto bitmap = redOnGreen();
    EXPECT_EQ(bitmap.TransparentColor(), clLime);
    bitmap.SetPixel(0, 1, clBlue);
    EXPECT_EQ(bitmap.TransparentColor(), clBlue);
}

TEST(TBitmap, ATransparentColourThatIsSetStaysUntilTheDefaultIsSet)
{
    auto bitmap = redOnGreen();
    bitmap.SetTransparentColor(clRed);
    EXPECT_EQ(bitmap.TransparentMode(), tmFixed);
    EXPECT_EQ(bitmap.TransparentColor(), clRed);
    bitmap.SetTransparentColor(clDefault);
    EXPECT_EQ(bitmap.TransparentColor(), clLime);
}

TEST(TBitmap, ATransparentOneShowsTheGroundThroughItsTransparentColour)
{
    auto bitmap = redOnGreen();
    EXPECT_EQ(bitmap.Masked().pixel(0, 0), QColor(Qt::green).rgba());
    bitmap.SetTransparent(true);
    const auto masked = bitmap.Masked();
    EXPECT_EQ(qAlpha(masked.pixel(0, 0)), 0);
    EXPECT_EQ(masked.pixel(1, 0), QColor(Qt::red).rgba());
}

TEST(TBitmap, APictureWithAlphaKeepsIt)
{
    QImage picture(2, 1, QImage::Format_ARGB32);
    picture.setPixel(0, 0, qRgba(0, 0, 0, 0));
    picture.setPixel(1, 0, qRgba(0, 0, 0, 255));
    TBitmap bitmap(picture);
    bitmap.SetTransparent(true);
    EXPECT_EQ(bitmap.Masked(), picture);
}

TEST(TBitmap, CopiesGoTheirOwnWays)
{
    const auto first = redOnGreen();
    auto second = first;
    second.SetPixel(0, 0, clBlack);
    EXPECT_EQ(first.Pixel(0, 0), clLime);
    EXPECT_EQ(second.Pixel(0, 0), clBlack);
}

TEST(TBitmap, AMonochromeOneTakesBlackAndWhite)
{
    auto bitmap = redOnGreen();
    bitmap.SetSize(2, 1);
    bitmap.SetPixelFormat(pf1bit);
    EXPECT_TRUE(bitmap.Monochrome());
    bitmap.SetPixel(0, 0, clBlack);
    EXPECT_EQ(bitmap.Pixel(0, 0), clBlack);
    EXPECT_EQ(bitmap.Pixel(1, 0), clWhite);
    EXPECT_TRUE(bitmap.Monochrome());
}

TEST(TBitmap, ReleasingTheHandleGivesThePixelsAway)
{
    auto bitmap = redOnGreen();
    const auto before = bitmap.Image();
    EXPECT_EQ(bitmap.ReleaseHandle(), before);
    EXPECT_TRUE(bitmap.Empty());
    bitmap.SetHandle(before);
    EXPECT_EQ(bitmap.Image(), before);
}

TEST(TBitmap, LoadsAPictureByItsNameAloneFromAModulesFolder)
{
    const QTemporaryDir module;
    ASSERT_TRUE(redOnGreen().Image().save(module.filePath(QStringLiteral("#102.png"))));
    TBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadFromResourceName(module.path(), QStringLiteral("#102")));
    EXPECT_EQ(bitmap.Pixel(1, 0), clRed);
}

TEST(TBitmap, KeepsWhatItHadWhenThereIsNoSuchPicture)
{
    auto bitmap = redOnGreen();
    EXPECT_FALSE(bitmap.LoadFromResourceName(QStringLiteral(":/nowhere"), QStringLiteral("#102")));
    EXPECT_EQ(bitmap.Image(), redOnGreen().Image());
}
