#include "rtl/SysUtils.h"
#include "support/PrintQt.h"
#include "toolwindow/MrvImageList.h"

#include <gtest/gtest.h>

namespace {

TBitmap Square(Qt::GlobalColor color = Qt::red)
{
    TBitmap bitmap;
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(color);
    bitmap.SetHandle(image);
    return bitmap;
}

class ClassImages : public testing::Test {
protected:
    ClassImages()
    {
        for (int i = 0; i < 15; ++i)
            Fixed.Add(Square());
    }
    TImageList Fixed { 16, 16 };
    TMrvImageList Images { 16, 16 };
};

}

TEST_F(ClassImages, AreAddedOncePerNameWhateverTheCase)
{
    EXPECT_EQ(Images.AddMasked(Square(), 0xFF, u"TDBEdit"_qs), 0);
    EXPECT_EQ(Images.AddMasked(Square(Qt::blue), 0xFF, u"TDBMemo"_qs), 1);
    EXPECT_EQ(Images.AddMasked(Square(Qt::green), 0xFF, u"tdbedit"_qs), 0);
    EXPECT_EQ(Images.Add(Square(Qt::green), nullptr, u"TDBMEMO"_qs), 1);
    EXPECT_EQ(Images.Count(), 2);
    EXPECT_EQ(Images.Add(Square(), nullptr, u"TDBGrid"_qs), 2);
    EXPECT_EQ(Images.ImgClassNames(2), u"TDBGrid"_qs);
}

TEST_F(ClassImages, StandBehindTheFixedBlock)
{
    Images.Assign(Fixed);
    EXPECT_EQ(Images.FDisp, 15);
    EXPECT_EQ(Images.AddMasked(Square(), 0xFF, u"TDBEdit"_qs), 15);
    EXPECT_EQ(Images.IndexByClassName(u"TDBEdit"_qs), 0);
    EXPECT_EQ(Images.AddMasked(Square(), 0xFF, u"TDBEdit"_qs), 15);
    EXPECT_EQ(Images.IndexByClassName(u"TDBMemo"_qs), -1);
}

TEST_F(ClassImages, KeepTheOffsetWhenTheyAreCleared)
{
    Images.Assign(Fixed);
    Images.Clear();
    EXPECT_EQ(Images.FDisp, 15);
    EXPECT_EQ(Images.Count(), 0);
    EXPECT_EQ(Images.AddMasked(Square(), 0xFF, u"TDBEdit"_qs), 0);
    EXPECT_EQ(Images.IndexByClassName(u"TDBEdit"_qs) + Images.FDisp, 15);
}

TEST_F(ClassImages, KeepTheirNamesWhenTheBlockIsAssigned)
{
    Images.AddMasked(Square(), 0xFF, u"TDBEdit"_qs);
    Images.Assign(Fixed);
    EXPECT_EQ(Images.IndexByClassName(u"TDBEdit"_qs), 0);
}

TEST_F(ClassImages, DeleteTheNameAndThePictureOfOneNumber)
{
    Images.Assign(Fixed);
    Images.AddMasked(Square(), 0xFF, u"TDBEdit"_qs);
    Images.AddMasked(Square(), 0xFF, u"TDBMemo"_qs);
    Images.Delete(0);
    EXPECT_EQ(Images.IndexByClassName(u"TDBEdit"_qs), -1);
    EXPECT_EQ(Images.IndexByClassName(u"TDBMemo"_qs), 0);
    EXPECT_EQ(Images.Count(), 16);
    EXPECT_THROW(Images.Delete(1), EListError);
    EXPECT_THROW(Images.Delete(-1), EListError);
    EXPECT_EQ(Images.Count(), 16);
}
