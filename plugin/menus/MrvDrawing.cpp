#include "menus/MrvDrawing.h"

#include "visual/TImageList.h"

#include <QPainter>

#include <algorithm>
#include <mutex>

namespace {

constexpr TColor PaletteMark = 33554432;

// Multiplies, then divides with the quotient rounded to the nearest, halves away from zero.
int MulDiv(int number, int numerator, int denominator)
{
    const auto product = number * numerator;
    return (product + (product < 0 ? -denominator : denominator) / 2) / denominator;
}

int channelOf(int start, int end, int band, int steps)
{
    return start + MulDiv(band, end - start, steps - 1);
}

TColor colorOfBand(TColor start, TColor end, int band, int steps)
{
    return RGB(channelOf(GetRValue(start), GetRValue(end), band, steps),
        channelOf(GetGValue(start), GetGValue(end), band, steps),
        channelOf(GetBValue(start), GetBValue(end), band, steps));
}

// The part of the rectangle from `from` pixels behind its near edge on.
TRect strip(const TRect& rect, bool vertical, int from, int size)
{
    if (vertical)
        return { rect.Left, rect.Top + from, rect.Right, rect.Top + from + size };
    return { rect.Left + from, rect.Top, rect.Left + from + size, rect.Bottom };
}

void fill(TCanvas& canvas, const TRect& rect, TColor color)
{
    canvas.Brush = { color, bsSolid };
    canvas.FillRect(rect);
}

// A colour that neither the picture nor the caller has, to stand for nothing.
TColor unusedColor(const QImage& picture, TColor other, TColor another)
{
    const auto used = [&](TColor color) {
        if (color == other || color == another)
            return true;
        const auto rgb = ToQColor(color).rgb();
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if ((picture.pixel(x, y) | 0xFF000000U) == rgb)
                    return true;
            }
        }
        return false;
    };
    auto color = clFuchsia;
    while (used(color))
        --color;
    return color;
}

}

TColor PaletteColor(TColor color)
{
    return ColorToRGB(color) | PaletteMark;
}

void GradientFillRect(TCanvas& canvas, const TRect& rect, TColor startColor, TColor endColor, TFillDirection direction,
    std::uint8_t colors)
{
    canvas.Lock();
    const std::unique_ptr<TCanvas, void (*)(TCanvas*)> unlock(&canvas, [](TCanvas* locked) { locked->Unlock(); });
    if (startColor == clNone && endColor == clNone)
        return;
    if (rect.IsEmpty() && canvas.MapMode() == MM_TEXT)
        return;
    startColor = canvas.ToRGB(startColor);
    endColor = canvas.ToRGB(endColor);
    if (direction == fdBottomToTop || direction == fdRightToLeft)
        std::swap(startColor, endColor);
    if (colors < 2 || startColor == endColor) {
        fill(canvas, rect, startColor);
        return;
    }
    canvas.Pen.Style = psSolid;
    const bool vertical = direction == fdTopToBottom || direction == fdBottomToTop;
    const auto extent = vertical ? RectHeight(rect) : RectWidth(rect);
    const auto steps = static_cast<std::uint8_t>(std::max(2, std::min<int>(colors, extent)));
    const auto band = extent / steps;
    if (band > 0) {
        for (int i = 0; i < steps; ++i)
            fill(canvas, strip(rect, vertical, i * band, band), colorOfBand(startColor, endColor, i, steps));
    }
    if (const auto rest = extent % steps; rest > 0)
        fill(canvas, strip(rect, vertical, extent - rest, rest), endColor);
}

void DrawBitmapTransparent(TCanvas& canvas, int x, int y, const TBitmap& bitmap, TColor transparentColor)
{
    StretchBitmapTransparent(
        canvas, bitmap, transparentColor, x, y, bitmap.Width(), bitmap.Height(), 0, 0, bitmap.Width(), bitmap.Height());
}

void StretchBitmapTransparent(TCanvas& canvas, const TBitmap& bitmap, TColor transparentColor, int x, int y, int width,
    int height, int srcX, int srcY, int srcWidth, int srcHeight)
{
    if (auto* painter = canvas.Handle(); painter != nullptr)
        StretchBltTransparent(*painter, x, y, width, height, bitmap.Image(), srcX, srcY, srcWidth, srcHeight, {},
            transparentColor == clNone ? clNone : canvas.ToRGB(transparentColor));
}

void StretchBltTransparent(QPainter& target, int dstX, int dstY, int dstW, int dstH, const QImage& source, int srcX,
    int srcY, int srcW, int srcH, const QList<QRgb>& palette, TColor transparentColor)
{
    if (source.isNull() || dstW <= 0 || dstH <= 0)
        return;
    auto colored = source;
    if (!palette.isEmpty() && source.colorCount() > 0)
        colored.setColorTable(palette);
    target.drawImage(
        QRect(dstX, dstY, dstW, dstH), TBitmap::Masked(colored, transparentColor), QRect(srcX, srcY, srcW, srcH));
}

void AssignBitmapCell(const TGraphic& source, TBitmap& dest, int cols, int rows, int index)
{
    const auto picture = source.ToImage();
    const auto* bitmap = dynamic_cast<const TBitmap*>(&source);
    const auto transparentColor = bitmap == nullptr ? TBitmap(picture).TransparentColor() : bitmap->TransparentColor();
    dest.FreeImage();
    if (picture.isNull() || cols <= 0 || rows <= 0 || index < 0 || index >= cols * rows)
        return;
    const QSize cell(picture.width() / cols, picture.height() / rows);
    if (!cell.isEmpty())
        dest.SetImage(picture.copy(QRect(QPoint(index % cols * cell.width(), index / cols * cell.height()), cell)));
    dest.SetTransparentColor(transparentColor);
}

TBitmap MonochromeMask(const TBitmap& bitmap, TColor maskColor)
{
    const auto picture = TBitmap::Masked(bitmap.Image(), maskColor);
    TBitmap mask(bitmap.Width(), bitmap.Height(), pf1bit);
    for (int y = 0; y < bitmap.Height(); ++y) {
        for (int x = 0; x < bitmap.Width(); ++x)
            mask.SetPixel(x, y, qAlpha(picture.pixel(x, y)) == 0 ? clWhite : clBlack);
    }
    return mask;
}

void BitBltMono(TCanvas& canvas, int x, int y, const TBitmap& mono, TColor textColor, TColor backColor)
{
    const auto brush = ToQColor(canvas.Brush.Color, canvas.Palette()).rgba();
    QImage painted(mono.Width(), mono.Height(), QImage::Format_ARGB32);
    for (int row = 0; row < mono.Height(); ++row) {
        for (int column = 0; column < mono.Width(); ++column) {
            const auto source = mono.Pixel(column, row) == clWhite ? backColor : textColor;
            painted.setPixel(column, row, source == clWhite ? brush : 0);
        }
    }
    canvas.Draw(x, y, painted);
}

TBitmap CreateDisabledBitmapEx(const TBitmap& bitmap, TColor maskColor, TColor backColor, TColor highlightColor,
    TColor shadowColor, bool drawHighlight)
{
    TBitmap result(bitmap.Width(), bitmap.Height());
    if (result.Empty())
        return result;
    const auto mask = MonochromeMask(bitmap, maskColor);
    QPainter painter(&result.Image());
    TCanvas canvas(painter);
    fill(canvas, TRect(result.Image().rect()), backColor);
    if (drawHighlight) {
        canvas.Brush.Color = highlightColor;
        BitBltMono(canvas, 1, 1, mask, clWhite, clBlack);
    }
    canvas.Brush.Color = shadowColor;
    BitBltMono(canvas, 0, 0, mask, clWhite, clBlack);
    return result;
}

void ImageListDrawDisabled(const TImageList& images, TCanvas& canvas, int x, int y, int index, TColor highlightColor,
    TColor grayColor, bool drawHighlight)
{
    const auto picture = images.Image(index);
    if (picture.isNull())
        return;
    highlightColor = canvas.ToRGB(highlightColor);
    grayColor = canvas.ToRGB(grayColor);
    const auto ground
        = images.BkColor() == clNone ? unusedColor(picture, highlightColor, grayColor) : ColorToRGB(images.BkColor());
    TBitmap drawn(images.Width(), images.Height());
    drawn.Image().fill(ToQColor(ground));
    QPainter painter(&drawn.Image());
    painter.drawImage(0, 0, picture);
    painter.end();
    const auto disabled = CreateDisabledBitmapEx(drawn, ground, ground, highlightColor, grayColor, drawHighlight);
    DrawBitmapTransparent(canvas, x, y, disabled, ground);
}
