#include "menus/MrvDrawing.h"

#include "menus/SystemMetrics.h"
#include "menus/TDesktopCanvas.h"
#include "visual/TImageList.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyle>
#include <QStyleOptionMenuItem>

#include <gtest/gtest.h>

#include <thread>

namespace {

// A picture as rows of letters and back: "." white, "R" red, "B" blue, "G" green, "k" black, "m" magenta.
const QList<std::pair<char, QColor>> Letters { { '.', Qt::white }, { 'R', Qt::red }, { 'B', Qt::blue },
    { 'G', Qt::green }, { 'k', Qt::black }, { 'm', Qt::magenta } };

std::string text(const QImage& image)
{
    std::string rows;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            char found = '?';
            for (const auto& [letter, color] : Letters)
                found = image.pixelColor(x, y) == color ? letter : found;
            rows += found;
        }
        rows += '\n';
    }
    return rows;
}

TBitmap picture(const QList<std::string>& rows)
{
    QImage image(static_cast<int>(rows.first().size()), static_cast<int>(rows.size()), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            for (const auto& [letter, color] : Letters) {
                if (rows.at(y).at(x) == letter)
                    image.setPixelColor(x, y, color);
            }
        }
    }
    return TBitmap(image);
}

class Surface {
public:
    Surface(int width, int height)
        : image(width, height, QImage::Format_RGB32)
    {
        image.fill(Qt::magenta);
        painter.begin(&image);
        canvas.SetHandle(&painter);
    }

    QImage image;
    QPainter painter;
    TCanvas canvas;
};

// The runs of equal pixels down the first column: "count*red".
std::string bands(const QImage& image)
{
    std::string list;
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        ++count;
        if (y + 1 == image.height() || image.pixel(0, y + 1) != image.pixel(0, y)) {
            list += std::to_string(count) + '*' + std::to_string(qRed(image.pixel(0, y))) + ' ';
            count = 0;
        }
    }
    return list;
}

QImage gradient(QSize size, TFillDirection direction, std::uint8_t colors, TColor start = RGB(0, 0, 0),
    TColor end = RGB(31, 62, 93))
{
    Surface surface(size.width(), size.height());
    GradientFillRect(surface.canvas, { 0, 0, size.width(), size.height() }, start, end, direction, colors);
    return surface.image;
}

}

TEST(Drawing, WidthAndHeightOfARectangleAreDifferences)
{
    EXPECT_EQ(RectWidth({ 3, 5, 10, 25 }), 7);
    EXPECT_EQ(RectHeight({ 3, 5, 10, 25 }), 20);
}

TEST(Drawing, APaletteColourIsMarkedInItsHighestByte)
{
    EXPECT_EQ(PaletteColor(RGB(1, 2, 3)), 33554432U + RGB(1, 2, 3));
    EXPECT_EQ(PaletteColor(clBtnFace), 33554432U + ColorToRGB(clBtnFace));
}

TEST(GradientFillRect, AHeightOf100In32ColoursHasBandsOf3AndTheLast4PixelsInTheEndColour)
{
    std::string expected;
    for (int i = 0; i < 31; ++i)
        expected += "3*" + std::to_string(i) + ' ';
    // The last band has the end colour as well as the strip behind it.
    expected += "7*31 ";
    EXPECT_EQ(bands(gradient({ 5, 100 }, fdTopToBottom, 32)), expected);
}

TEST(GradientFillRect, AHeightOf10In32ColoursHasTenBandsOf1)
{
    EXPECT_EQ(bands(gradient({ 5, 10 }, fdTopToBottom, 32)), "1*0 1*3 1*7 1*10 1*14 1*17 1*21 1*24 1*28 1*31 ");
}

TEST(GradientFillRect, TheThreeChannelsRunByThemselves)
{
    const auto image = gradient({ 1, 4 }, fdTopToBottom, 4, RGB(90, 0, 10), RGB(0, 200, 10));
    QStringList rows;
    for (int y = 0; y < 4; ++y)
        rows << image.pixelColor(0, y).name();
    EXPECT_EQ(rows, QStringList({ u"#5a000a"_qs, u"#3c430a"_qs, u"#1e850a"_qs, u"#00c80a"_qs }));
}

TEST(GradientFillRect, TheBackwardDirectionsSwapTheColours)
{
    EXPECT_EQ(gradient({ 5, 10 }, fdBottomToTop, 32), gradient({ 5, 10 }, fdTopToBottom, 32, RGB(31, 62, 93), 0));
    EXPECT_EQ(gradient({ 10, 5 }, fdRightToLeft, 32), gradient({ 10, 5 }, fdLeftToRight, 32, RGB(31, 62, 93), 0));
}

TEST(GradientFillRect, SidewaysABandIsAsHighAsTheRectangle)
{
    const auto sideways = gradient({ 100, 5 }, fdLeftToRight, 32);
    const auto upright = gradient({ 5, 100 }, fdTopToBottom, 32);
    for (int i = 0; i < 500; ++i)
        EXPECT_EQ(sideways.pixel(i / 5, i % 5), upright.pixel(i % 5, i / 5));
}

TEST(GradientFillRect, OneColourOrNoneIsAFlatFillInTheStartColour)
{
    for (const int colors : { 0, 1 }) {
        EXPECT_EQ(text(gradient({ 2, 2 }, fdTopToBottom, colors, clRed, clBlue)), "RR\nRR\n");
        EXPECT_EQ(text(gradient({ 2, 2 }, fdLeftToRight, colors, clRed, clBlue)), "RR\nRR\n");
    }
}

TEST(GradientFillRect, BackwardsTheFlatFillTakesTheEndColour)
{
    EXPECT_EQ(text(gradient({ 2, 2 }, fdRightToLeft, 1, clRed, clBlue)), "BB\nBB\n");
    EXPECT_EQ(text(gradient({ 2, 2 }, fdBottomToTop, 0, clRed, clBlue)), "BB\nBB\n");
}

TEST(GradientFillRect, EqualColoursAreAFlatFill)
{
    EXPECT_EQ(text(gradient({ 2, 2 }, fdTopToBottom, 32, clRed, clRed)), "RR\nRR\n");
}

TEST(GradientFillRect, TwoColoursAreTheStartAndTheEnd)
{
    EXPECT_EQ(text(gradient({ 1, 4 }, fdTopToBottom, 2, clRed, clBlue)), "R\nR\nB\nB\n");
}

TEST(GradientFillRect, AHeightOf1IsAStripInTheEndColour)
{
    EXPECT_EQ(text(gradient({ 2, 1 }, fdTopToBottom, 32, clRed, clBlue)), "BB\n");
}

TEST(GradientFillRect, MoreColoursThanAByteCountsAreNotAskedFor)
{
    EXPECT_EQ(
        bands(gradient({ 1, 600 }, fdTopToBottom, 255, RGB(0, 0, 0), RGB(254, 0, 0))).substr(0, 12), "2*0 2*1 2*2 ");
}

TEST(GradientFillRect, OneColourThatIsNoneIsNotBoth)
{
    EXPECT_NE(text(gradient({ 1, 2 }, fdTopToBottom, 2, clNone, clRed)), "m\nm\n");
}

TEST(GradientFillRect, TwoColoursThatAreNoneAndAnEmptyRectangleDrawNothing)
{
    EXPECT_EQ(text(gradient({ 1, 2 }, fdTopToBottom, 32, clNone, clNone)), "m\nm\n");
    Surface surface(2, 2);
    GradientFillRect(surface.canvas, { 1, 1, 1, 2 }, clRed, clBlue, fdTopToBottom, 32);
    EXPECT_EQ(text(surface.image), "mm\nmm\n");
}

TEST(GradientFillRect, HoldsTheCanvasLockedUntilItIsDone)
{
    class Canvas : public TCanvas {
    public:
        explicit Canvas(Surface& surface)
            : FSurface(surface)
        {
        }

        bool lockedForOthers()
        {
            bool locked = false;
            std::thread([&] {
                locked = !TryLock();
                if (!locked)
                    Unlock();
            }).join();
            return locked;
        }
        QList<bool> whileDrawing;

    protected:
        void CreateHandle() override
        {
            whileDrawing << lockedForOthers();
            SetHandle(&FSurface.painter);
        }

    private:
        Surface& FSurface;
    };
    Surface surface(2, 2);
    Canvas canvas(surface);
    GradientFillRect(canvas, { 0, 0, 2, 2 }, clNone, clNone, fdTopToBottom, 32);
    EXPECT_FALSE(canvas.lockedForOthers());
    GradientFillRect(canvas, { 0, 0, 2, 2 }, clRed, clBlue, fdTopToBottom, 32);
    EXPECT_FALSE(canvas.lockedForOthers());
    EXPECT_EQ(canvas.whileDrawing, QList<bool>({ true }));
    EXPECT_EQ(text(surface.image), "RR\nBB\n");
}

TEST(TransparentBitmap, PixelsOfTheTransparentColourLeaveTheGround)
{
    Surface surface(4, 4);
    DrawBitmapTransparent(surface.canvas, 1, 1, picture({ "RG", "GB" }), clLime);
    EXPECT_EQ(text(surface.image), "mmmm\nmRmm\nmmBm\nmmmm\n");
}

TEST(TransparentBitmap, NoTransparentColourDrawsAll)
{
    Surface surface(2, 2);
    DrawBitmapTransparent(surface.canvas, 0, 0, picture({ "RG", "GB" }), clNone);
    EXPECT_EQ(text(surface.image), "RG\nGB\n");
}

TEST(TransparentBitmap, APartIsScaledByRepeatingPixels)
{
    Surface surface(4, 4);
    StretchBitmapTransparent(surface.canvas, picture({ "RGk", "GBk" }), clLime, 0, 0, 4, 4, 0, 0, 2, 2);
    EXPECT_EQ(text(surface.image), "RRmm\nRRmm\nmmBB\nmmBB\n");
}

TEST(TransparentBitmap, ASourceWithAPaletteTakesTheColoursGiven)
{
    Surface surface(2, 1);
    QImage source(2, 1, QImage::Format_Mono);
    source.setColorTable({ QColor(Qt::red).rgb(), QColor(Qt::green).rgb() });
    source.setPixel(0, 0, 0);
    source.setPixel(1, 0, 1);
    StretchBltTransparent(
        surface.painter, 0, 0, 2, 1, source, 0, 0, 2, 1, { QColor(Qt::blue).rgb(), QColor(Qt::black).rgb() }, clBlack);
    EXPECT_EQ(text(surface.image), "Bm\n");
}

TEST(TransparentBitmap, AnEmptyOneDrawsNothing)
{
    Surface surface(1, 1);
    DrawBitmapTransparent(surface.canvas, 0, 0, TBitmap(), clLime);
    StretchBitmapTransparent(surface.canvas, picture({ "R" }), clNone, 0, 0, 0, -1, 0, 0, 1, 1);
    EXPECT_EQ(text(surface.image), "m\n");
}

TEST(BitmapCell, CellsAreCountedRowByRow)
{
    const auto cells = picture({ "RGB", "kR." });
    QStringList found;
    for (int i = 0; i < 6; ++i) {
        TBitmap cell;
        AssignBitmapCell(cells, cell, 3, 2, i);
        found << QString::fromStdString(text(cell.Image())).trimmed();
    }
    EXPECT_EQ(found.join(u' '), QStringLiteral("R G B k R ."));
}

TEST(BitmapCell, HasTheTransparentColourOfTheWhole)
{
    auto cells = picture({ "RB", "GB" });
    TBitmap cell;
    AssignBitmapCell(cells, cell, 2, 1, 1);
    EXPECT_EQ(cell.TransparentColor(), clLime);
    cells.SetTransparentColor(clRed);
    AssignBitmapCell(cells, cell, 2, 1, 1);
    EXPECT_EQ(cell.TransparentColor(), clRed);
}

TEST(BitmapCell, ThereIsNoneOutsideTheWhole)
{
    for (const auto& [cols, rows, index] : { std::tuple(2, 1, 2), { 2, 1, -1 }, { 0, 1, 0 }, { 9, 1, 0 } }) {
        auto cell = picture({ "k" });
        AssignBitmapCell(picture({ "RB" }), cell, cols, rows, index);
        EXPECT_TRUE(cell.Empty());
    }
    auto cell = picture({ "k" });
    AssignBitmapCell(TBitmap(), cell, 1, 1, 0);
    EXPECT_TRUE(cell.Empty());
}

TEST(RasterOperation, WithWhiteTextOnBlackTheBrushIsPaintedWhereTheMaskIsBlack)
{
    Surface surface(4, 4);
    surface.canvas.Brush = { clRed, bsSolid };
    const auto mask = MonochromeMask(picture({ "GGG", "GkG", "kGk" }), clLime);
    EXPECT_EQ(text(mask.Image()), "...\n.k.\nk.k\n");
    BitBltMono(surface.canvas, 1, 1, mask, clWhite, clBlack);
    EXPECT_EQ(text(surface.image), "mmmm\nmmmm\nmmRm\nmRmR\n");
}

TEST(RasterOperation, WithBlackTextOnWhiteItIsPaintedWhereTheMaskIsWhite)
{
    Surface surface(2, 1);
    surface.canvas.Brush = { clRed, bsSolid };
    BitBltMono(surface.canvas, 0, 0, MonochromeMask(picture({ "Gk" }), clLime), clBlack, clWhite);
    EXPECT_EQ(text(surface.image), "Rm\n");
}

TEST(RasterOperation, PaintsTheBrushWhereTheSourceIsWhite)
{
    // The number's own formula, bit by bit: target ^ (source & (brush ^ target)).
    EXPECT_EQ(ROP_DSPDxax, 0xE20746U);
}

TEST(DisabledBitmap, IsTheShadowOfThePictureOnTheBackground)
{
    const auto result
        = CreateDisabledBitmapEx(picture({ "GGGG", "GkRG", "GGGG", "GGGG" }), clLime, clBlack, clWhite, clRed, false);
    EXPECT_EQ(text(result.Image()), "kkkk\nkRRk\nkkkk\nkkkk\n");
}

TEST(DisabledBitmap, HasAHighlightOnePixelToTheRightAndDownBelowTheShadow)
{
    const auto result
        = CreateDisabledBitmapEx(picture({ "GGGG", "GkRG", "GGGG", "GGGG" }), clLime, clBlack, clWhite, clRed, true);
    EXPECT_EQ(text(result.Image()), "kkkk\nkRRk\nkk..\nkkkk\n");
}

TEST(DisabledBitmap, OfNothingIsNothing)
{
    EXPECT_TRUE(CreateDisabledBitmapEx(TBitmap(), clLime, clBlack, clWhite, clRed, true).Empty());
}

TEST(DisabledImage, LeavesTheGroundWhereThePictureIsSeeThrough)
{
    TImageList images(2, 2);
    images.AddMasked(picture({ "kG", "GG" }), clLime);
    Surface surface(3, 3);
    ImageListDrawDisabled(images, surface.canvas, 0, 0, 0, clWhite, clRed, true);
    EXPECT_EQ(text(surface.image), "Rmm\nm.m\nmmm\n");
}

TEST(DisabledImage, APictureInTheColoursOfItsShadowIsDrawnWhole)
{
    TImageList images(2, 1);
    images.Add(picture({ "mR" }));
    Surface surface(2, 1);
    ImageListDrawDisabled(images, surface.canvas, 0, 0, 0, clFuchsia, clRed, false);
    EXPECT_EQ(text(surface.image), "RR\n");
}

TEST(DisabledImage, ANumberOutOfRangeDrawsNothing)
{
    const TImageList images(1, 1);
    Surface surface(1, 1);
    ImageListDrawDisabled(images, surface.canvas, 0, 0, 0, clWhite, clRed, true);
    EXPECT_EQ(text(surface.image), "m\n");
}

TEST(TDesktopCanvas, TakesThePainterWhenSomethingIsDrawnAndGivesItBackAsItWas)
{
    Surface surface(4, 1);
    {
        TDesktopCanvas desktop(surface.painter);
        EXPECT_FALSE(desktop.HandleAllocated());
        desktop.SetOrigin(2, 0);
        EXPECT_TRUE(desktop.HandleAllocated());
        desktop.SetPixel(0, 0, clRed);
        desktop.FreeHandle();
        EXPECT_FALSE(desktop.HandleAllocated());
        desktop.FreeHandle();
    }
    surface.canvas.SetPixel(0, 0, clBlue);
    EXPECT_EQ(text(surface.image), "BmRm\n");
}

TEST(SystemMetrics, AreThoseOfWhateverStyleIsAsked)
{
    class Odd : public QProxyStyle {
    public:
        Odd()
            : QProxyStyle(QStringLiteral("Fusion"))
        {
        }
        int pixelMetric(PixelMetric metric, const QStyleOption*, const QWidget*) const override
        {
            switch (metric) {
            case PM_IndicatorWidth:
                return 37;
            case PM_IndicatorHeight:
                return 41;
            case PM_MenuBarPanelWidth:
                return FFrame;
            default:
                return 1;
            }
        }
        QSize sizeFromContents(ContentsType type, const QStyleOption*, const QSize&, const QWidget*) const override
        {
            return type == CT_MenuBarItem ? QSize(5, 43) : QSize(1, 1);
        }
        int FFrame = 0;
    };
    Odd style;
    EXPECT_EQ(GetSystemMetrics(15, style, QFont()), 43);
    EXPECT_EQ(GetSystemMetrics(71, style, QFont()), 37);
    EXPECT_EQ(GetSystemMetrics(72, style, QFont()), 41);
    EXPECT_TRUE(SystemParametersInfo(4130, style));
    style.FFrame = 2;
    EXPECT_FALSE(SystemParametersInfo(4130, style));
}

TEST(SystemMetrics, AreAskedOfTheStyleByTheirNumbers)
{
    const auto& style = *QApplication::style();
    const QFont font;
    QStyleOptionMenuItem option;
    option.font = font;
    option.text = QStringLiteral("X");
    const QFontMetrics metrics(font);
    const QSize text(metrics.horizontalAdvance(u'X'), metrics.height());
    EXPECT_EQ(GetSystemMetrics(15, style, font),
        style.sizeFromContents(QStyle::CT_MenuBarItem, &option, text, nullptr).height());
    EXPECT_EQ(GetSystemMetrics(71, style, font), style.pixelMetric(QStyle::PM_IndicatorWidth));
    EXPECT_EQ(GetSystemMetrics(72, style, font), style.pixelMetric(QStyle::PM_IndicatorHeight));
    EXPECT_EQ(GetSystemMetrics(9999, style, font), 0);
    QFont menuFont;
    EXPECT_TRUE(SystemParametersInfo(41, menuFont));
    EXPECT_EQ(menuFont, QApplication::font("QMenu"));
    EXPECT_FALSE(SystemParametersInfo(42, menuFont));
    EXPECT_EQ(SystemParametersInfo(4130, style), style.pixelMetric(QStyle::PM_MenuBarPanelWidth) == 0);
    EXPECT_FALSE(SystemParametersInfo(4131, style));
}
