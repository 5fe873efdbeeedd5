#include "visual/TImageList.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace {

TBitmap filled(int width, int height, TColor color)
{
    TBitmap bitmap(width, height);
    bitmap.Image().fill(ToQColor(color));
    return bitmap;
}

QImage drawn(const TImageList& images, int index)
{
    QImage ground(4, 4, QImage::Format_RGB32);
    ground.fill(Qt::white);
    QPainter painter(&ground);
    images.Draw(painter, 1, 1, index);
    return ground;
}

}

TEST(TImageList, NumbersItsPicturesFromZero)
{
    TImageList images(2, 2);
    EXPECT_EQ(images.Add(filled(2, 2, clRed)), 0);
    EXPECT_EQ(images.Add(filled(2, 2, clBlue)), 1);
    EXPECT_EQ(images.Count(), 2);
    images.Delete(0);
    EXPECT_EQ(images.Count(), 1);
    EXPECT_EQ(drawn(images, 0).pixel(1, 1), QColor(Qt::blue).rgba());
}

TEST(TImageList, AnEmptyBitmapIsNotAdded)
{
    TImageList images;
    EXPECT_EQ(images.AddMasked(TBitmap(), clFuchsia), -1);
    EXPECT_EQ(images.Count(), 0);
}

TEST(TImageList, AWideBitmapIsSeveralPicturesAndASmallOneOne)
{
    TImageList images(2, 2);
    EXPECT_EQ(images.Add(filled(6, 2, clRed)), 0);
    EXPECT_EQ(images.Add(filled(1, 1, clRed)), 3);
    EXPECT_EQ(images.Count(), 4);
}

TEST(TImageList, PixelsOfTheMaskColourLeaveTheGroundVisible)
{
    TImageList images(2, 2);
    auto bitmap = filled(2, 2, clFuchsia);
    bitmap.SetPixel(1, 1, clRed);
    images.AddMasked(bitmap, clFuchsia);
    const auto ground = drawn(images, 0);
    EXPECT_EQ(ground.pixel(1, 1), QColor(Qt::white).rgba());
    EXPECT_EQ(ground.pixel(2, 2), QColor(Qt::red).rgba());
}

TEST(TImageList, AMaskIsBlackWhereThePictureShows)
{
    TImageList images(2, 1);
    auto mask = filled(2, 1, clWhite);
    mask.SetPixel(0, 0, clBlack);
    const auto bitmap = filled(2, 1, clRed);
    images.Add(bitmap, &mask);
    const auto ground = drawn(images, 0);
    EXPECT_EQ(ground.pixel(1, 1), QColor(Qt::red).rgba());
    EXPECT_EQ(ground.pixel(2, 1), QColor(Qt::white).rgba());
}

TEST(TImageList, TheBackgroundColourFillsWhatIsSeeThroughUnlessTheStyleIsTransparent)
{
    TImageList images(1, 1);
    images.AddMasked(filled(1, 1, clFuchsia), clFuchsia);
    images.SetBkColor(clBlue);
    EXPECT_EQ(drawn(images, 0).pixel(1, 1), QColor(Qt::blue).rgba());
    images.SetDrawingStyle(dsTransparent);
    EXPECT_EQ(drawn(images, 0).pixel(1, 1), QColor(Qt::white).rgba());
}

TEST(TImageList, ANumberOutOfRangeDrawsAndGivesNothing)
{
    const TImageList images(2, 2);
    EXPECT_EQ(drawn(images, 0), drawn(images, -1));
    TBitmap bitmap;
    EXPECT_FALSE(images.GetBitmap(0, bitmap));
    EXPECT_TRUE(bitmap.Empty());
    EXPECT_TRUE(images.Icon(7).isNull());
}

TEST(TImageList, GivesAPictureOnWhite)
{
    TImageList images(2, 1);
    auto bitmap = filled(2, 1, clFuchsia);
    bitmap.SetPixel(0, 0, clRed);
    images.AddMasked(bitmap, clFuchsia);
    TBitmap taken;
    ASSERT_TRUE(images.GetBitmap(0, taken));
    EXPECT_EQ(taken.Pixel(0, 0), clRed);
    EXPECT_EQ(taken.Pixel(1, 0), clWhite);
}

TEST(TImageList, AssignTakesSizeAndPictures)
{
    TImageList source(2, 2);
    source.Add(filled(2, 2, clRed));
    TImageList target;
    target.Assign(source);
    EXPECT_EQ(target.Width(), 2);
    EXPECT_EQ(target.Count(), 1);
    target.Clear();
    EXPECT_EQ(source.Count(), 1);
}

TEST(TImageList, TellsOfEachChange)
{
    TImageList images(1, 1);
    int changes = 0;
    QObject::connect(&images, &TImageList::Changed, &images, [&changes] { ++changes; });
    images.Add(filled(1, 1, clRed));
    images.Delete(0);
    images.Delete(0);
    images.Clear();
    EXPECT_EQ(changes, 3);
}
