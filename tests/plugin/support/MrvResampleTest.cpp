#include "support/MrvResample.h"

#include "support/ResampleRuns.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

constexpr std::array AllFilters { rfBox, rfTriangle, rfHermite, rfBell, rfSpline, rfLanczos3, rfMitchell };

float value(TResamplingFilter filter, float distance)
{
    return FilterFunction(filter)(distance);
}

TContributorList contributors(TResamplingFilter filter, int sourceSize, int targetSize, float radius = 0)
{
    return MakeContributors(
        FilterFunction(filter), radius == 0 ? DefaultFilterRadius.at(filter) : radius, sourceSize, targetSize);
}

// "weight*pixel" of each contributor.
std::string text(const TContributorEntry& entry)
{
    std::string list;
    for (int n = 0; n < entry.N; ++n)
        list += (n == 0 ? "" : " ") + std::to_string(entry.Contributors[n].Weight) + '*'
            + std::to_string(entry.Contributors[n].Pixel);
    return list;
}

QImage noise(int width, int height, unsigned seed = 1)
{
    std::mt19937 random(seed);
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, 0xFF000000U | random());
    }
    return image;
}

TBitmap row(std::initializer_list<int> grays)
{
    TBitmap bitmap(static_cast<int>(grays.size()), 1);
    int x = 0;
    for (const auto gray : grays)
        bitmap.SetPixel(x++, 0, RGB(gray, gray, gray));
    return bitmap;
}

std::vector<int> grays(const TBitmap& bitmap)
{
    std::vector<int> list;
    for (int y = 0; y < bitmap.Height(); ++y) {
        for (int x = 0; x < bitmap.Width(); ++x)
            list.push_back(GetRValue(bitmap.Pixel(x, y)));
    }
    return list;
}

// The two passes as they are told: one pixel after the other, each from its contributors.
QImage slowly(const QImage& source, int width, int height, TResamplingFilter filter)
{
    QImage work(width, source.height(), QImage::Format_RGB32);
    const auto columns = contributors(filter, source.width(), width);
    for (int k = 0; k < source.height(); ++k) {
        for (int i = 0; i < width; ++i)
            reinterpret_cast<TBGRA*>(work.scanLine(k))[i]
                = ComputePixel(columns[i], reinterpret_cast<const TBGRA*>(source.constScanLine(k)));
    }
    QImage target(width, height, QImage::Format_RGB32);
    const auto rows = contributors(filter, source.height(), height);
    for (int k = 0; k < width; ++k) {
        std::vector<TBGRA> line;
        for (int j = 0; j < source.height(); ++j)
            line.push_back(reinterpret_cast<const TBGRA*>(work.constScanLine(j))[k]);
        for (int i = 0; i < height; ++i)
            reinterpret_cast<TBGRA*>(target.scanLine(i))[k] = ComputePixel(rows[i], line.data());
    }
    return target;
}

}

TEST(ResamplingFilter, EachHasItsOwnRadius)
{
    EXPECT_EQ(DefaultFilterRadius, (std::array<float, 7> { 0.5F, 1.0F, 1.0F, 1.5F, 2.0F, 3.0F, 2.0F }));
}

TEST(ResamplingFilter, TheBoxTakesItsRightEdgeAndNotItsLeft)
{
    EXPECT_EQ(value(rfBox, -0.5F), 0);
    EXPECT_EQ(value(rfBox, -0.499F), 1);
    EXPECT_EQ(value(rfBox, 0), 1);
    EXPECT_EQ(value(rfBox, 0.5F), 1);
    EXPECT_EQ(value(rfBox, 0.501F), 0);
}

TEST(ResamplingFilter, TheTriangleFallsEvenlyToZeroAtOne)
{
    EXPECT_EQ(value(rfTriangle, 0), 1);
    EXPECT_EQ(value(rfTriangle, 0.25F), 0.75F);
    EXPECT_EQ(value(rfTriangle, -0.25F), 0.75F);
    EXPECT_EQ(value(rfTriangle, 1), 0);
    EXPECT_EQ(value(rfTriangle, 1.5F), 0);
}

TEST(ResamplingFilter, TheHermiteFallsWithoutACorner)
{
    EXPECT_EQ(value(rfHermite, 0), 1);
    EXPECT_EQ(value(rfHermite, 0.5F), 0.5F);
    EXPECT_EQ(value(rfHermite, -0.25F), 0.84375F);
    EXPECT_EQ(value(rfHermite, 1), 0);
}

TEST(ResamplingFilter, TheBellIsTwoPiecesThatMeetAtOneHalf)
{
    EXPECT_EQ(value(rfBell, 0), 0.75F);
    EXPECT_EQ(value(rfBell, 0.25F), 0.6875F);
    EXPECT_EQ(value(rfBell, 0.5F), 0.5F);
    EXPECT_EQ(value(rfBell, -1), 0.125F);
    EXPECT_EQ(value(rfBell, 1.5F), 0);
}

TEST(ResamplingFilter, TheSplineIsTwoPiecesThatMeetAtOne)
{
    EXPECT_EQ(value(rfSpline, 0), static_cast<float>(2.0 / 3.0));
    EXPECT_EQ(value(rfSpline, 0.5F), static_cast<float>(0.0625 - 0.25 + 2.0 / 3.0));
    EXPECT_EQ(value(rfSpline, 1), static_cast<float>(1.0 / 6.0));
    EXPECT_EQ(value(rfSpline, -1.5F), static_cast<float>(0.125 / 6.0));
    EXPECT_EQ(value(rfSpline, 2), 0);
}

TEST(ResamplingFilter, TheLanczosIsNegativeBetweenOneAndTwo)
{
    EXPECT_EQ(value(rfLanczos3, 0), 1);
    EXPECT_FLOAT_EQ(value(rfLanczos3, 0.5F), 0.60792708F);
    EXPECT_NEAR(value(rfLanczos3, 1), 0, 1e-7);
    EXPECT_FLOAT_EQ(value(rfLanczos3, -1.5F), -0.13509491F);
    EXPECT_FLOAT_EQ(value(rfLanczos3, 2.5F), 0.024317082F);
    EXPECT_EQ(value(rfLanczos3, 3), 0);
}

TEST(ResamplingFilter, TheMitchellIsNegativeBetweenOneAndTwo)
{
    EXPECT_EQ(value(rfMitchell, 0), static_cast<float>(16.0 / 18.0));
    EXPECT_EQ(value(rfMitchell, 0.5F), static_cast<float>((0.875 - 3 + 16.0 / 3.0) / 6));
    EXPECT_FLOAT_EQ(value(rfMitchell, 1), static_cast<float>(1.0 / 18.0));
    EXPECT_FLOAT_EQ(value(rfMitchell, -1.5F), -0.034722222F);
    EXPECT_EQ(value(rfMitchell, 2), 0);
}

TEST(ResamplingFilter, ThereIsNoFunctionOutsideTheTable)
{
    EXPECT_EQ(FilterFunction(static_cast<TResamplingFilter>(7)), nullptr);
    EXPECT_EQ(FilterFunction(static_cast<TResamplingFilter>(-1)), nullptr);
}

TEST(Contributors, OfEqualSizeTheBoxTakesEachPixelAlone)
{
    const auto list = contributors(rfBox, 4, 4);
    ASSERT_EQ(list.size(), 4U);
    EXPECT_EQ(text(list[0]), "256*0");
    EXPECT_EQ(text(list[3]), "256*3");
}

TEST(Contributors, WhenGrowingTheWeightsAreThoseOfTheDistancesInSourcePixels)
{
    // Three columns become five: every second falls between two of the source.
    const auto list = contributors(rfTriangle, 3, 5);
    EXPECT_EQ(text(list[0]), "256*0");
    EXPECT_EQ(text(list[1]), "128*0 128*1");
    EXPECT_EQ(text(list[4]), "256*2");
}

TEST(Contributors, WhenShrinkingTheWeightsAreScaledDown)
{
    // Five columns become three: the filter is twice as wide and half as high.
    const auto list = contributors(rfTriangle, 5, 3);
    EXPECT_EQ(text(list[0]), "64*1 128*0 64*1");
    EXPECT_EQ(text(list[1]), "64*1 128*2 64*3");
    EXPECT_EQ(text(list[2]), "64*3 128*4 64*4");
}

TEST(Contributors, PixelsBeyondTheLeftEdgeLeaveOutTheBorderAndThoseBeyondTheRightRepeatIt)
{
    const auto list = contributors(rfBell, 3, 3);
    EXPECT_EQ(text(list[0]), "32*1 192*0 32*1");
    EXPECT_EQ(text(list[2]), "32*1 192*2 32*2");
}

TEST(Contributors, ARadiusLargerThanTheSourceIsReflectedUntilItIsInside)
{
    for (const auto filter : AllFilters) {
        for (const auto& entry : contributors(filter, 2, 9)) {
            for (int n = 0; n < entry.N; ++n) {
                EXPECT_GE(entry.Contributors[n].Pixel, 0);
                EXPECT_LT(entry.Contributors[n].Pixel, 2);
            }
        }
    }
    // -3 is reflected to 3, to 0.
    EXPECT_EQ(text(contributors(rfSpline, 2, 2)[0]), "43*1 171*0 43*1");
}

TEST(Contributors, OfASourceOneWideEveryColumnIsItsOnlyPixel)
{
    for (const auto& entry : contributors(rfMitchell, 1, 7)) {
        ASSERT_GT(entry.N, 0);
        for (int n = 0; n < entry.N; ++n)
            EXPECT_EQ(entry.Contributors[n].Pixel, 0);
    }
}

TEST(Contributors, ATargetOneWideIsMadeOfTheWholeSourceInEqualShares)
{
    const auto list = contributors(rfLanczos3, 4, 1);
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(text(list[0]), "1*0 1*1 1*2 1*3");
}

TEST(Contributors, OneBecomesOneByTheRuleForEqualSizes)
{
    EXPECT_EQ(text(contributors(rfBox, 1, 1)[0]), "256*0");
}

TEST(Contributors, AWeightOfOneHalfIsRoundedToEven)
{
    // 1/512 of the height, where the box gives exactly 0.5, and 3/512, where it gives 1.5.
    EXPECT_EQ(text(contributors(rfBox, 513, 2)[0]), "");
    const auto list = contributors(rfBox, 1025, 7);
    EXPECT_EQ(list[3].Contributors[0].Weight, 2);
}

TEST(Contributors, TheScaleIsA32BitFloat)
{
    // With a scale of 53/59 in double precision the first of the two would be 172.
    EXPECT_EQ(text(contributors(rfTriangle, 60, 54)[29]), "171*32 82*33");
}

TEST(Contributors, OneThatWeighsNothingIsLeftOut)
{
    // At whole distances the Lanczos filter has its zeros.
    EXPECT_EQ(text(contributors(rfLanczos3, 9, 9)[4]), "256*4");
}

TEST(Contributors, ALargerRadiusThanTheFilterReachesChangesNothing)
{
    for (const auto filter : AllFilters) {
        const auto usual = contributors(filter, 40, 9, 3.0F);
        const auto huge = contributors(filter, 40, 9, std::numeric_limits<float>::max());
        for (std::size_t i = 0; i < usual.size(); ++i)
            EXPECT_EQ(text(huge[i]), text(usual[i]));
    }
}

TEST(Contributors, ANegativeRadiusTakesWhatLiesBetweenItsSwappedEdges)
{
    EXPECT_EQ(text(contributors(rfTriangle, 4, 4, -0.25F)[2]), "256*2");
    EXPECT_EQ(text(contributors(rfTriangle, 3, 5, -0.25F)[1]), "128*0 128*1");
    EXPECT_EQ(text(contributors(rfTriangle, 4, 4, -10)[2]), "");
}

TEST(ComputePixel, DividesByTheTotalAndCutsTowardsZero)
{
    const TBGRA line[] { { 10, 20, 30, 1 }, { 11, 21, 32, 2 } };
    const TContributorEntry entry { 2, { { 1, 0 }, { 2, 1 } } };
    // 32/3, 62/3 and 94/3.
    EXPECT_EQ(ComputePixel(entry, line), (TBGRA { 10, 20, 31, 255 }));
}

TEST(ComputePixel, ClampsWhatOvershoots)
{
    const TBGRA line[] { { 0, 255, 100, 0 }, { 255, 0, 100, 0 } };
    const TContributorEntry entry { 2, { { 3, 0 }, { -1, 1 } } };
    EXPECT_EQ(ComputePixel(entry, line), (TBGRA { 0, 255, 100, 255 }));
}

TEST(ComputePixel, ATotalOfZeroShiftsTheSumByEight)
{
    const TBGRA line[] { { 200, 10, 0, 0 }, { 100, 11, 0, 0 } };
    const TContributorEntry entry { 2, { { 64, 0 }, { -64, 1 } } };
    EXPECT_EQ(ComputePixel(entry, line), (TBGRA { 25, 0, 0, 255 }));
}

TEST(ComputePixel, WithoutContributorsIsBlack)
{
    EXPECT_EQ(ComputePixel({}, nullptr), (TBGRA { 0, 0, 0, 255 }));
}

TEST(ComputePixel, CountsOnlyTheEntriesInUse)
{
    const TBGRA line[] { { 10, 10, 10, 0 }, { 90, 90, 90, 0 } };
    const TContributorEntry entry { 1, { { 1, 0 }, { 1, 1 } } };
    EXPECT_EQ(ComputePixel(entry, line), (TBGRA { 10, 10, 10, 255 }));
}

TEST(ResampleRuns, PutsTheWeightsOfARunSideBySide)
{
    const ResampleRuns runs(TContributorList { { 3, { { 5, 7 }, { -2, 4 }, { 3, 7 } } }, {} });
    ASSERT_TRUE(runs.Fits());
    const auto& run = runs.Runs().at(0);
    EXPECT_EQ(run.first, 4);
    EXPECT_EQ(run.count, 4);
    EXPECT_EQ(run.total, 6);
    EXPECT_EQ(std::vector<int>(runs.Weights(run), runs.Weights(run) + 4), (std::vector<int> { -2, 0, 0, 8 }));
    EXPECT_EQ(runs.Runs().at(1).count, 0);
}

TEST(ResampleRuns, TellsWhenTheWeightsAreTooMany)
{
    EXPECT_TRUE(ResampleRuns(contributors(rfBox, 32767, 1)).Fits());
    EXPECT_FALSE(ResampleRuns(contributors(rfBox, 32768, 1)).Fits());
}

TEST(Stretch, ByTheBoxToTheSameSizeIsAnExactCopy)
{
    const TBitmap source(noise(37, 23));
    TBitmap target;
    Stretch(37, 23, rfBox, 0, source, target);
    EXPECT_EQ(target.Image(), source.Image());
}

TEST(Stretch, MakesATransparentBitmapOf32Bits)
{
    TBitmap source(5, 5, pf24bit);
    source.SetTransparentColor(clRed);
    Stretch(3, 2, rfTriangle, 0, source);
    EXPECT_EQ(source.Width(), 3);
    EXPECT_EQ(source.Height(), 2);
    EXPECT_EQ(source.PixelFormat(), pf32bit);
    EXPECT_TRUE(source.Transparent());
    EXPECT_EQ(source.TransparentMode(), tmAuto);
    EXPECT_TRUE(source.Modified());
}

TEST(Stretch, InPlaceGivesTheSameAsIntoAnother)
{
    TBitmap inPlace(noise(24, 24));
    const auto source = inPlace;
    TBitmap target;
    Stretch(16, 16, rfMitchell, 0, inPlace);
    Stretch(16, 16, rfMitchell, 0, source, target);
    EXPECT_EQ(inPlace.Image(), target.Image());
    EXPECT_EQ(source.Image(), noise(24, 24));
}

TEST(Stretch, ReadsPicturesWithAPalette)
{
    auto source = row({ 0, 255, 255 });
    source.SetPixelFormat(pf1bit);
    Stretch(3, 1, rfBox, 0, source);
    EXPECT_EQ(grays(source), (std::vector<int> { 0, 255, 255 }));
}

TEST(Stretch, GivesEachPixelWhatItsContributorsGiveOneByOne)
{
    struct Sizes {
        int fromWidth, fromHeight, toWidth, toHeight;
    };
    for (const auto& [fromWidth, fromHeight, toWidth, toHeight] :
        { Sizes { 24, 24, 16, 16 }, Sizes { 63, 41, 7, 90 }, Sizes { 5, 3, 11, 2 }, Sizes { 300, 2, 1, 1 },
            Sizes { 1, 9, 6, 5 }, Sizes { 2, 2, 2, 2 }, Sizes { 700, 1, 3, 4 }, Sizes { 13, 13, 13, 13 } }) {
        const auto picture = noise(fromWidth, fromHeight);
        for (const auto filter : AllFilters) {
            TBitmap target;
            Stretch(toWidth, toHeight, filter, 0, TBitmap(picture), target);
            EXPECT_EQ(target.Image(), slowly(picture, toWidth, toHeight, filter))
                << filter << ": " << fromWidth << 'x' << fromHeight << " to " << toWidth << 'x' << toHeight;
        }
    }
}

TEST(Stretch, MeansAnEvenGrayForEveryFilter)
{
    // The weights need not add up to 256: dividing by what they do add up to keeps an even colour even.
    for (const auto filter : AllFilters) {
        TBitmap bitmap(50, 40);
        bitmap.Image().fill(QColor(201, 100, 3));
        Stretch(16, 16, filter, 0, bitmap);
        TBitmap expected(16, 16);
        expected.Image().fill(QColor(201, 100, 3));
        EXPECT_EQ(bitmap.Image(), expected.Image()) << filter;
    }
}

TEST(Stretch, ClampsTheOvershootAtAnEdge)
{
    for (const auto filter : { rfLanczos3, rfMitchell }) {
        auto bitmap = row({ 0, 0, 0, 0, 255, 255, 255, 255 });
        Stretch(40, 1, filter, 0, bitmap);
        const auto list = grays(bitmap);
        EXPECT_EQ(*std::min_element(list.begin(), list.end()), 0);
        EXPECT_EQ(*std::max_element(list.begin(), list.end()), 255);
    }
    // By hand: 2*14, 137-9, 228, 137 and 14 of 256 parts of 255.
    auto bitmap = row({ 0, 255, 0 });
    Stretch(5, 1, rfMitchell, 0, bitmap);
    EXPECT_EQ(grays(bitmap), (std::vector<int> { 27, 127, 227, 136, 13 }));
}

TEST(Stretch, ARadiusOfZeroIsTheFiltersOwnAndAnyOtherIsUsed)
{
    const TBitmap source(noise(30, 30));
    TBitmap byZero;
    TBitmap byThree;
    TBitmap byOne;
    Stretch(80, 80, rfLanczos3, 0, source, byZero);
    Stretch(80, 80, rfLanczos3, 3.0F, source, byThree);
    Stretch(80, 80, rfLanczos3, 1.0F, source, byOne);
    EXPECT_EQ(byZero.Image(), byThree.Image());
    EXPECT_NE(byZero.Image(), byOne.Image());
}

TEST(Stretch, ANegativeRadiusFindsNoPixelsAndGivesBlack)
{
    auto bitmap = row({ 255, 255, 255, 255 });
    Stretch(4, 2, rfTriangle, -2, bitmap);
    EXPECT_EQ(grays(bitmap), std::vector<int>(8, 0));
}

TEST(Stretch, AnEmptySourceLeavesTheTargetAlone)
{
    TBitmap target = row({ 1, 2 });
    Stretch(4, 4, rfBox, 0, TBitmap(), target);
    EXPECT_EQ(target.Image(), row({ 1, 2 }).Image());
    TBitmap empty;
    Stretch(4, 4, rfBox, 0, empty);
    EXPECT_TRUE(empty.Empty());
    Stretch(4, 4, rfBox, 0, TBitmap(QImage(5, 0, QImage::Format_RGB32)), target);
    EXPECT_EQ(target.Width(), 2);
}

TEST(Stretch, AFilterOutsideTheTableLeavesTheTargetAlone)
{
    TBitmap target = row({ 1, 2 });
    Stretch(4, 4, static_cast<TResamplingFilter>(7), 0, row({ 3 }), target);
    EXPECT_EQ(target.Image(), row({ 1, 2 }).Image());
}

TEST(Stretch, ASizeOfZeroEmptiesTheTarget)
{
    TBitmap target = row({ 1, 2 });
    Stretch(0, 4, rfBox, 0, row({ 3 }), target);
    EXPECT_TRUE(target.Empty());
    target = row({ 1, 2 });
    Stretch(4, 0, rfBox, 0, row({ 3 }), target);
    EXPECT_TRUE(target.Empty());
}

TEST(Stretch, ASizeThatNoMemoryHoldsEmptiesTheTarget)
{
    TBitmap target = row({ 1, 2 });
    Stretch(0xFFFFFFFF, 0xFFFFFFFF, rfBox, 0, row({ 3 }), target);
    EXPECT_TRUE(target.Empty());
}

TEST(Stretch, ToOnePixelIsTheMeanOfAll)
{
    auto bitmap = row({ 10, 20, 30, 41 });
    Stretch(1, 1, rfSpline, 0, bitmap);
    EXPECT_EQ(grays(bitmap), std::vector<int> { 25 });
}

TEST(Stretch, OnePixelFillsAnySize)
{
    for (const auto filter : AllFilters) {
        auto bitmap = row({ 77 });
        Stretch(5, 3, filter, 0, bitmap);
        EXPECT_EQ(grays(bitmap), std::vector<int>(15, 77)) << filter;
    }
}

TEST(Stretch, ALineOf20000PixelsShrunkBeyond512TimesWeighsNothingAndIsBlack)
{
    TBitmap bitmap(20000, 1);
    Stretch(16, 16, rfBox, 0, bitmap);
    EXPECT_EQ(grays(bitmap), std::vector<int>(256, 0));
    TBitmap upright(1, 20000);
    Stretch(1, 1, rfBox, 0, upright);
    EXPECT_EQ(grays(upright), std::vector<int> { 255 });
}

TEST(Stretch, RadiiThatAreNoNumbersDoNoHarm)
{
    for (const auto radius : { std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
             -std::numeric_limits<float>::infinity(), std::numeric_limits<float>::lowest() }) {
        TBitmap bitmap(30, 20);
        Stretch(16, 16, rfLanczos3, radius, bitmap);
        EXPECT_EQ(bitmap.Width(), 16);
    }
}
