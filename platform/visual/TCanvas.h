#pragma once

#include "visual/TColor.h"
#include "visual/TRect.h"

#include <QFont>
#include <QPalette>
#include <QRecursiveMutex>
#include <QString>

class QPainter;
class TBitmap;

enum TBrushStyle { bsSolid, bsClear };
enum TPenStyle { psSolid = 0, psClear = 5 };

struct TBrush {
    TColor Color = clWhite;
    TBrushStyle Style = bsSolid;

    friend bool operator==(const TBrush&, const TBrush&) = default;
};

struct TPen {
    TColor Color = clBlack;
    TPenStyle Style = psSolid;
    int Width = 1;

    friend bool operator==(const TPen&, const TPen&) = default;
};

struct TFont {
    QFont Font;
    TColor Color = clWindowText;
};

// How a text is drawn or measured, as flags that add up.
inline constexpr unsigned DT_LEFT = 0x0;
inline constexpr unsigned DT_CENTER = 0x1;
inline constexpr unsigned DT_RIGHT = 0x2;
inline constexpr unsigned DT_SINGLELINE = 0x20;
inline constexpr unsigned DT_EXPANDTABS = 0x40;
inline constexpr unsigned DT_NOCLIP = 0x100;
inline constexpr unsigned DT_CALCRECT = 0x400;
inline constexpr unsigned DT_NOPREFIX = 0x800;
inline constexpr unsigned DT_RTLREADING = 0x20000;

// How coordinates become pixels: one to one, or by a transformation of the painter.
inline constexpr int MM_TEXT = 1;
inline constexpr int MM_ANISOTROPIC = 8;

// Draws with a brush, a pen and a font on whatever a QPainter paints on, to the pixel: a rectangle leaves out its right
// and bottom edge, a line leaves out its end, nothing is smoothed. Without a handle it measures texts and draws
// nothing.
//
// The painter belongs to the caller and must outlive its use here.
class TCanvas {
public:
    TCanvas() = default;
    explicit TCanvas(QPainter& painter);
    virtual ~TCanvas() = default;
    TCanvas(const TCanvas&) = delete;
    TCanvas& operator=(const TCanvas&) = delete;

    // The painter; asks CreateHandle for it when there is none. nil if there is none to be had.
    QPainter* Handle();
    bool HandleAllocated() const { return FHandle != nullptr; }
    // nil lets go of the painter.
    void SetHandle(QPainter* painter) { FHandle = painter; }

    // Where system colours are looked up; the application's palette unless another one is set.
    const QPalette& Palette() const { return FPalette; }
    void SetPalette(const QPalette& palette) { FPalette = palette; }
    TColor ToRGB(TColor color) const { return ColorToRGB(color, FPalette); }

    TBrush Brush;
    TPen Pen;
    TFont Font;

    // Fills with the brush, whatever the pen.
    void FillRect(const TRect& rect);
    // Fills with the brush and outlines with the pen. With a clear pen it is one pixel narrower and lower.
    void Rectangle(const TRect& rect);
    void MoveTo(int x, int y) { FPenPos = { x, y }; }
    // Draws from the last position, which is part of the line, to this one, which is not.
    void LineTo(int x, int y);
    void Line(int fromX, int fromY, int toX, int toY);
    void SetPixel(int x, int y, TColor color);
    // Draws a picture; nothing of it is see-through unless it has alpha.
    void Draw(int x, int y, const QImage& image);

    int TextHeight() const;
    // Size of a text as it stands, no mark in it taken for a hot key.
    int TextWidth(const QString& text) const;
    // The size the text takes with these flags.
    QSize CalcText(const QString& text, unsigned flags) const;
    // Draws the text in the font's colour, at the top of the rectangle.
    void DrawText(const QString& text, const TRect& rect, unsigned flags);

    int MapMode();

    // Holds other users of this canvas off between the two.
    void Lock() { FMutex.lock(); }
    void Unlock() { FMutex.unlock(); }
    // Locks unless another user holds it; false then.
    bool TryLock() { return FMutex.tryLock(); }

protected:
    // Called when something is drawn without a handle; a subclass that has a surface of its own sets the handle.
    virtual void CreateHandle() { }

private:
    void Fill(int x, int y, int width, int height, TColor color);

    QPainter* FHandle = nullptr;
    QPalette FPalette = DefaultPalette();
    QPoint FPenPos;
    QRecursiveMutex FMutex;

    static QPalette DefaultPalette();
};

// Draws an edge `width` pixels wide, its left and upper side in `top` and the others in `bottom`, and shrinks the
// rectangle to what is inside of it.
void Frame3D(TCanvas& canvas, TRect& rect, TColor top, TColor bottom, int width);
