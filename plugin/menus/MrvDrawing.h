#pragma once

#include "menus/MenuTypes.h"
#include "visual/TBitmap.h"

class TImageList;

// What the painters draw with. The rules are those of a raster device: the same pixels on every surface.

// Paints the brush where the source is white and leaves the rest.
inline constexpr std::uint32_t ROP_DSPDxax = 14812998;

inline int RectWidth(const TRect& rect)
{
    return rect.Right - rect.Left;
}
inline int RectHeight(const TRect& rect)
{
    return rect.Bottom - rect.Top;
}

// The colour as red, green and blue, marked as one to be looked up in the palette of the device.
TColor PaletteColor(TColor color);

// Fills the rectangle with solid bands that lead from one colour to the other: at most `colors` of them, at least 2 and
// no more than it has pixels in the direction. What the division leaves over is a last strip in the end colour. With
// fewer than 2 colours the whole is filled in the start colour, which in the two backward directions is `endColor`.
void GradientFillRect(TCanvas& canvas, const TRect& rect, TColor startColor, TColor endColor, TFillDirection direction,
    std::uint8_t colors);

// Draws the bitmap but for its pixels of `transparentColor`.
void DrawBitmapTransparent(TCanvas& canvas, int x, int y, const TBitmap& bitmap, TColor transparentColor);

// The same for a part of it, scaled to `width` by `height` by repeating and leaving out pixels.
void StretchBitmapTransparent(TCanvas& canvas, const TBitmap& bitmap, TColor transparentColor, int x, int y, int width,
    int height, int srcX, int srcY, int srcWidth, int srcHeight);

// The same between a painter and an image. A source with a palette is drawn with the colours of `palette`, if given.
void StretchBltTransparent(QPainter& target, int dstX, int dstY, int dstW, int dstH, const QImage& source, int srcX,
    int srcY, int srcW, int srcH, const QList<QRgb>& palette, TColor transparentColor);

// Cuts cell `index` out of a picture of `cols` by `rows` equal cells, counted row by row. The cell has the transparent
// colour of the whole. A cell that there is not leaves `dest` empty.
void AssignBitmapCell(const TGraphic& source, TBitmap& dest, int cols, int rows, int index);

// A black and white copy: white where the bitmap has `maskColor` or, with an alpha channel, is see-through.
TBitmap MonochromeMask(const TBitmap& bitmap, TColor maskColor);

// Combines a black and white source, which shows black as `textColor` and white as `backColor`, with the canvas's brush
// by ROP_DSPDxax. The two colours are black or white.
void BitBltMono(TCanvas& canvas, int x, int y, const TBitmap& mono, TColor textColor, TColor backColor);

// The disabled look of a bitmap on `backColor`: all that is not `maskColor` in `shadowColor`, and with `drawHighlight`
// before that, one pixel to the right and down, in `highlightColor`.
TBitmap CreateDisabledBitmapEx(const TBitmap& bitmap, TColor maskColor, TColor backColor, TColor highlightColor,
    TColor shadowColor, bool drawHighlight);

// Draws the disabled look of a picture of the list. A number out of range draws nothing.
void ImageListDrawDisabled(const TImageList& images, TCanvas& canvas, int x, int y, int index, TColor highlightColor,
    TColor grayColor, bool drawHighlight);
