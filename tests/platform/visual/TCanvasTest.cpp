#include "visual/TCanvas.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace {

// A surface of a few pixels that reads as rows of letters: "." white, "R" red, "B" blue, "k" black, "?" any other.
class Surface {
public:
    explicit Surface(int width = 4, int height = 4)
        : FImage(width, height, QImage::Format_RGB32)
    {
        FImage.fill(Qt::white);
        FPainter.begin(&FImage);
        canvas.SetHandle(&FPainter);
        canvas.Brush = { clRed, bsSolid };
        canvas.Pen = { clBlue, psSolid, 1 };
    }

    std::string text() const
    {
        std::string rows;
        for (int y = 0; y < FImage.height(); ++y) {
            for (int x = 0; x < FImage.width(); ++x)
                rows += letter(FImage.pixelColor(x, y));
            rows += '\n';
        }
        return rows;
    }

    QPainter& painter() { return FPainter; }
    TCanvas canvas;

private:
    static char letter(const QColor& color)
    {
        if (color == Qt::white)
            return '.';
        if (color == Qt::red)
            return 'R';
        if (color == Qt::blue)
            return 'B';
        return color == Qt::black ? 'k' : '?';
    }

    QImage FImage;
    QPainter FPainter;
};

}

TEST(TCanvas, FillRectLeavesOutTheRightAndBottomEdge)
{
    Surface surface;
    surface.canvas.FillRect({ 1, 1, 3, 4 });
    EXPECT_EQ(surface.text(), "....\n.RR.\n.RR.\n.RR.\n");
}

TEST(TCanvas, RectangleLeavesOutTheRightAndBottomEdge)
{
    Surface surface;
    surface.canvas.Rectangle({ 0, 0, 4, 3 });
    EXPECT_EQ(surface.text(), "BBBB\nBRRB\nBBBB\n....\n");
}

TEST(TCanvas, RectangleWithAClearPenIsOnePixelNarrowerAndLower)
{
    Surface surface;
    surface.canvas.Pen.Style = psClear;
    surface.canvas.Rectangle({ 0, 0, 4, 3 });
    EXPECT_EQ(surface.text(), "RRR.\nRRR.\n....\n....\n");
}

TEST(TCanvas, RectangleWithAClearBrushIsItsOutline)
{
    Surface surface;
    surface.canvas.Brush.Style = bsClear;
    surface.canvas.Rectangle({ 0, 0, 4, 4 });
    EXPECT_EQ(surface.text(), "BBBB\nB..B\nB..B\nBBBB\n");
}

TEST(TCanvas, RectanglesWithoutAnExtentDrawNothing)
{
    Surface surface;
    surface.canvas.Rectangle({ 1, 1, 1, 4 });
    surface.canvas.Rectangle({ 3, 3, 1, 1 });
    surface.canvas.FillRect({ 3, 3, 1, 4 });
    EXPECT_EQ(surface.text(), "....\n....\n....\n....\n");
}

TEST(TCanvas, ALineLeavesOutItsEnd)
{
    Surface surface;
    surface.canvas.Line(0, 0, 3, 0);
    surface.canvas.Line(3, 1, 3, 3);
    EXPECT_EQ(surface.text(), "BBB.\n...B\n...B\n....\n");
}

TEST(TCanvas, ALineBackwardsLeavesOutItsEndToo)
{
    Surface surface;
    surface.canvas.Line(3, 0, 0, 0);
    surface.canvas.Line(0, 3, 0, 1);
    EXPECT_EQ(surface.text(), ".BBB\n....\nB...\nB...\n");
}

TEST(TCanvas, ASlantedLineLeavesOutItsEndToo)
{
    Surface surface;
    surface.canvas.Line(0, 0, 3, 3);
    EXPECT_EQ(surface.text(), "B...\n.B..\n..B.\n....\n");
}

TEST(TCanvas, TheNextLineBeginsWhereTheLastOneEnded)
{
    Surface surface;
    surface.canvas.MoveTo(0, 0);
    surface.canvas.LineTo(3, 0);
    surface.canvas.LineTo(3, 3);
    EXPECT_EQ(surface.text(), "BBBB\n...B\n...B\n....\n");
}

TEST(TCanvas, ALineTwoWideLiesAcrossItsPlace)
{
    Surface surface;
    surface.canvas.Pen.Width = 2;
    surface.canvas.Line(0, 2, 4, 2);
    EXPECT_EQ(surface.text(), "....\nBBBB\nBBBB\n....\n");
}

TEST(TCanvas, AClearPenDrawsNoLineButMoves)
{
    Surface surface;
    surface.canvas.Pen.Style = psClear;
    surface.canvas.Line(0, 0, 3, 0);
    surface.canvas.Pen.Style = psSolid;
    surface.canvas.LineTo(3, 2);
    EXPECT_EQ(surface.text(), "...B\n...B\n....\n....\n");
}

TEST(TCanvas, NoColourDrawsNothing)
{
    Surface surface;
    surface.canvas.Brush.Color = clNone;
    surface.canvas.FillRect({ 0, 0, 4, 4 });
    surface.canvas.SetPixel(1, 1, clNone);
    EXPECT_EQ(surface.text(), "....\n....\n....\n....\n");
}

TEST(TCanvas, Frame3DDrawsTheCornersBetweenTheTwoSidesInTheLowerColourAndShrinksTheRectangle)
{
    Surface surface;
    TRect rect(0, 0, 4, 4);
    Frame3D(surface.canvas, rect, clRed, clBlue, 1);
    EXPECT_EQ(surface.text(), "RRRB\nR..B\nR..B\nBBBB\n");
    EXPECT_EQ(rect, TRect(1, 1, 3, 3));
    Frame3D(surface.canvas, rect, clBlack, clRed, 1);
    EXPECT_EQ(surface.text(), "RRRB\nRkRB\nRRRB\nBBBB\n");
    EXPECT_EQ(rect, TRect(2, 2, 2, 2));
}

TEST(TCanvas, Frame3DTakesItsWidthAsOftenAsThereIsRoom)
{
    Surface surface(3, 3);
    TRect rect(0, 0, 3, 3);
    Frame3D(surface.canvas, rect, clRed, clBlue, 9);
    EXPECT_EQ(surface.text(), "RRB\nRBB\nBBB\n");
    EXPECT_TRUE(rect.IsEmpty());
}

TEST(TCanvas, SystemColoursAreThoseOfItsPalette)
{
    Surface surface;
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::Button, Qt::black);
    surface.canvas.SetPalette(palette);
    surface.canvas.SetPixel(2, 1, clBtnFace);
    EXPECT_EQ(surface.text(), "....\n..k.\n....\n....\n");
}

TEST(TCanvas, WithoutAHandleItMeasuresAndDrawsNothing)
{
    TCanvas canvas;
    canvas.FillRect({ 0, 0, 4, 4 });
    canvas.DrawText(QStringLiteral("x"), { 0, 0, 4, 4 }, 0);
    EXPECT_EQ(canvas.Handle(), nullptr);
    EXPECT_GT(canvas.TextHeight(), 0);
    EXPECT_EQ(canvas.MapMode(), MM_TEXT);
}

TEST(TCanvas, AScaledPainterIsNoLongerMappedOneToOne)
{
    Surface surface;
    surface.painter().translate(3, 3);
    EXPECT_EQ(surface.canvas.MapMode(), MM_TEXT);
    surface.painter().scale(2, 2);
    EXPECT_EQ(surface.canvas.MapMode(), MM_ANISOTROPIC);
}

TEST(TCanvas, TheFormatsOfTextsHaveTheNumbersOfASystem)
{
    EXPECT_EQ(DT_CALCRECT | DT_SINGLELINE | DT_EXPANDTABS, 1120U);
    EXPECT_EQ(DT_RIGHT, 2U);
    EXPECT_EQ(DT_RTLREADING, 0x20000U);
}

TEST(TCanvas, ATabIsWiderThanABlankOnlyWhereTabsAreExpanded)
{
    const TCanvas canvas;
    const auto text = QStringLiteral("a\tb");
    EXPECT_GT(
        canvas.CalcText(text, DT_SINGLELINE | DT_EXPANDTABS).width(), canvas.CalcText(text, DT_SINGLELINE).width());
}

TEST(TCanvas, AHotKeyMarkHasNoWidthUnlessItIsNoMark)
{
    const TCanvas canvas;
    const auto marked = QStringLiteral("&Open");
    const auto plain = QStringLiteral("Open");
    EXPECT_EQ(canvas.CalcText(marked, DT_SINGLELINE).width(), canvas.TextWidth(plain));
    EXPECT_EQ(canvas.CalcText(marked, DT_SINGLELINE | DT_NOPREFIX).width(), canvas.TextWidth(marked));
    EXPECT_GT(canvas.TextWidth(marked), canvas.TextWidth(plain));
}
