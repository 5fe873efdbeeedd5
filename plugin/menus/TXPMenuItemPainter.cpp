#include "menus/TXPMenuItemPainter.h"

#include "menus/MrvDrawing.h"
#include "menus/SystemMetrics.h"
#include "menus/TDesktopCanvas.h"
#include "menus/TPopupMenuEx.h"
#include "visual/TImageList.h"

#include <QPainter>

namespace {

constexpr int SeparatorHeight = 3;
constexpr int ImageShift = 3;
constexpr TColor DefaultImageColumn = 13752536;

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

}

TXPMenuItemPainter::TXPMenuItemPainter(QObject* owner)
    : TCustomMenuItemPainter(owner)
    , FSelectionFrameBrush { 13811126, bsSolid }
    , FSelectionFramePen { 6956042, psSolid }
    , FShadowColor(10325384)
    , FSeparatorColor(10921638)
    , FCheckedImageBackColorSelected(11899525)
    , FCheckedImageBackColor(14210516)
{
    FImageBackgroundColor = DefaultImageColumn;
}

TColor TXPMenuItemPainter::Shade(TColor color) const
{
    const auto& palette = HasCanvas() ? Canvas().Palette() : FPopupMenu->palette();
    if (!isDark(palette))
        return color;
    const auto light = ToQColor(color, palette).toHsl();
    return ToTColor(QColor::fromHsl(light.hslHue(), light.hslSaturation(), 255 - light.lightness()));
}

// A colour that the program has set is drawn as it is.
TColor TXPMenuItemPainter::ImageColumnColor() const
{
    return FImageBackgroundColor == DefaultImageColumn ? Shade(FImageBackgroundColor) : FImageBackgroundColor;
}

void TXPMenuItemPainter::UpdateFieldsFromMenu()
{
    TCustomMenuItemPainter::UpdateFieldsFromMenu();
    FImageMargin.FLeft += 6;
    FImageMargin.FTop += 4;
    FImageMargin.FRight += 4;
    FImageMargin.FBottom += 4;
}

int TXPMenuItemPainter::GetTextMargin()
{
    return TCustomMenuItemPainter::GetTextMargin() + 2;
}

bool TXPMenuItemPainter::GetDrawHighlight()
{
    return TCustomMenuItemPainter::GetDrawHighlight() || !GetIsPopup();
}

void TXPMenuItemPainter::PreparePaint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state, bool measuring)
{
    Canvas().Brush.Color = clNone;
    FRightEdge = rect.Right;
    TCustomMenuItemPainter::PreparePaint(item, rect, state, measuring);
}

void TXPMenuItemPainter::Measure(TMenuItem* item, int& width, int& height)
{
    TCustomMenuItemPainter::Measure(item, width, height);
    if (HasCanvas() && item != nullptr && item->IsLine())
        height = SeparatorHeight;
}

void TXPMenuItemPainter::DrawItemBackground(const TRect& rect)
{
    auto& canvas = Canvas();
    if (GetIsPopup()) {
        canvas.Brush = { clWindow, bsSolid };
        canvas.FillRect(rect);
        return;
    }
    if (FState.testFlag(mdHotlight)) {
        canvas.Brush = SelectionBrush();
        canvas.Pen = SelectionPen();
    } else {
        const auto color = FPopupMenu->UseFlatMenubars() ? clMenuBar : clBtnFace;
        canvas.Brush = { color, bsSolid };
        canvas.Pen = { color, psSolid, 1 };
    }
    canvas.Rectangle(rect);
}

void TXPMenuItemPainter::DrawImageBackground(const TRect& rect)
{
    auto& canvas = Canvas();
    canvas.Brush = { ImageColumnColor(), bsSolid };
    canvas.Pen.Style = psClear;
    canvas.Rectangle({ rect.Left, rect.Top, rect.Right, rect.Bottom + 1 });
    // The rectangle leaves out its last pixel, which from right to left would show between column and border.
    if (GetIsRightToLeft() && rect.Right == FRightEdge)
        canvas.FillRect({ rect.Right - 1, rect.Top, rect.Right, rect.Bottom });
    FColumnEdge = GetIsRightToLeft() ? rect.Left : rect.Right - 1;
}

void TXPMenuItemPainter::DrawCheckMarkBackground(const TRect& rect)
{
    DrawImageBackground(rect);
}

void TXPMenuItemPainter::DrawSelectedFrame(const TRect& rect)
{
    auto& canvas = Canvas();
    canvas.Font.Color = clMenuText;
    if (!GetIsPopup()) {
        canvas.Brush = { Shade(clSilver), bsSolid };
        canvas.Pen = { Shade(clGray), psSolid, 1 };
        canvas.Rectangle(rect);
        return;
    }
    // The frame begins at the edge of the window, wherever the item begins.
    constexpr int edge = 0;
    canvas.Brush = SelectionBrush();
    canvas.Pen.Style = psClear;
    canvas.Rectangle({ edge, rect.Top, rect.Right + 2, rect.Bottom + 4 });
    canvas.Pen = SelectionPen();
    canvas.Brush.Style = bsClear;
    canvas.Line(edge, rect.Top, rect.Right, rect.Top);
    canvas.Line(edge, rect.Bottom - 2, rect.Right, rect.Bottom - 2);
    canvas.Line(rect.Left, rect.Top, rect.Left, rect.Bottom - 1);
    canvas.Line(rect.Right - 1, rect.Top, rect.Right - 1, rect.Bottom - 1);
}

void TXPMenuItemPainter::DrawCheckedImageBack(const TRect& rect)
{
    auto& canvas = Canvas();
    canvas.Pen = SelectionPen();
    canvas.Brush = { Shade(Selected() ? FCheckedImageBackColorSelected : FCheckedImageBackColor), bsSolid };
    canvas.Rectangle({ rect.Left, rect.Top + 1, rect.Right - 3, rect.Bottom - 2 });
}

void TXPMenuItemPainter::DrawSeparator(const TRect& rect)
{
    auto& canvas = Canvas();
    canvas.Pen = { Shade(FSeparatorColor), psSolid, 1 };
    const auto inset
        = GetCheckMarkWidth() + FImageMargin.FLeft + GetImageWidth() + FImageMargin.FRight + GetTextMargin();
    const auto y = rect.Top + 1;
    if (GetIsRightToLeft())
        canvas.Line(rect.Left, y, rect.Right - inset, y);
    else
        canvas.Line(rect.Left + inset, y, rect.Right, y);
}

void TXPMenuItemPainter::DrawBitmapShadow(int x, int y, const TBitmap& bitmap)
{
    auto& canvas = Canvas();
    const auto transparent = bitmap.Pixel(0, bitmap.Height() - 1);
    QImage shadow(bitmap.Width(), bitmap.Height(), QImage::Format_ARGB32);
    const auto color = ToQColor(Shade(FShadowColor)).rgba();
    for (int row = 0; row < bitmap.Height(); ++row) {
        for (int column = 0; column < bitmap.Width(); ++column)
            shadow.setPixel(column, row, bitmap.Pixel(column, row) == transparent ? 0 : color);
    }
    canvas.Draw(x, y, shadow);
}

int TXPMenuItemPainter::ShiftedX(int x) const
{
    return GetIsRightToLeft() ? x + ImageShift : x - ImageShift;
}

TBitmap TXPMenuItemPainter::ImageOnBrush() const
{
    const auto* images = UseHotImages() ? FPopupMenu->HotImages() : FPopupMenu->Images();
    TBitmap bitmap(images->Width(), images->Height());
    bitmap.Image().fill(ToQColor(Canvas().Brush.Color, Canvas().Palette()));
    QPainter painter(&bitmap.Image());
    painter.drawImage(0, 0, images->Image(FImageIndex));
    return bitmap;
}

void TXPMenuItemPainter::DrawEnabledImage(int x, int y)
{
    x = ShiftedX(x);
    if (Selected()) {
        DrawBitmapShadow(x + 1, y + 1, ImageOnBrush());
        --x;
        --y;
    }
    TCustomMenuItemPainter::DrawEnabledImage(x, y);
}

void TXPMenuItemPainter::DrawDisabledImage(int x, int y)
{
    TCustomMenuItemPainter::DrawDisabledImage(ShiftedX(x), y);
}

void TXPMenuItemPainter::DrawMenuBitmap(int x, int y, const TBitmap& bitmap)
{
    if (Disabled()) {
        DrawDisabledBitmap(x, y, bitmap);
        return;
    }
    if (Selected() && !FGlyph.Empty()) {
        DrawBitmapShadow(x + 1, y + 1, bitmap);
        --x;
        --y;
    }
    TCustomMenuItemPainter::DrawMenuBitmap(x, y, bitmap);
}

void TXPMenuItemPainter::DrawItemText(const TRect& rect, const QString& text, unsigned flags)
{
    TCustomMenuItemPainter::DrawItemText({ rect.Left, rect.Top, rect.Right, rect.Bottom - 1 }, text, flags);
}

void TXPMenuItemPainter::DrawCheckImage(const TRect& rect)
{
    TCustomMenuItemPainter::DrawCheckImage({ rect.Left - 2, rect.Top, rect.Right - 2, rect.Bottom - 1 });
}

void TXPMenuItemPainter::RememberFrames(const TRect& rect)
{
    const auto* menu = FItem == nullptr ? nullptr : FItem->Parent();
    if (Selected())
        FSelRect = rect;
    else if (FSelRect == rect || FFrameMenu != menu)
        FSelRect = {};
    FFrameMenu = menu;
    if (FItem != nullptr && FItem->Checked())
        FCheckedPoint = { rect.Left, rect.Top };
}

void TXPMenuItemPainter::Paint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state)
{
    TCustomMenuItemPainter::Paint(item, rect, state);
    if (HasCanvas() && GetIsPopup())
        RememberFrames(rect);
}

// The ground of the texts all round, the columns' colour above and below them and along their side, and at the selected
// item its brush between the lines of its pen.
void TXPMenuItemPainter::DrawPopupBorder(QPainter& painter, const TRect& window, int width)
{
    if (!FPopupMenu)
        return;
    TDesktopCanvas canvas(painter);
    canvas.SetPalette(FPopupMenu->palette());
    const auto fill = [&](TColor color, int left, int top, int right, int bottom) {
        canvas.Brush = { color, bsSolid };
        canvas.FillRect({ left, top, right, bottom });
    };
    fill(clWindow, window.Left, window.Top, window.Right, window.Top + width);
    fill(clWindow, window.Left, window.Bottom - width, window.Right, window.Bottom);
    fill(clWindow, window.Left, window.Top, window.Left + width, window.Bottom);
    fill(clWindow, window.Right - width, window.Top, window.Right, window.Bottom);

    const auto rightToLeft = GetIsRightToLeft();
    const auto left = rightToLeft ? FColumnEdge : window.Left;
    const auto right = rightToLeft ? window.Right : FColumnEdge;
    fill(ImageColumnColor(), left, window.Top, right, window.Top + width);
    fill(ImageColumnColor(), left, window.Bottom - width, right, window.Bottom);
    const auto edge = rightToLeft ? window.Right - width : window.Left;
    fill(ImageColumnColor(), edge, window.Top, edge + width, window.Bottom);
    if (FSelRect.IsEmpty())
        return;
    fill(SelectionBrush().Color, edge, FSelRect.Top, edge + width, FSelRect.Bottom);
    canvas.Pen = SelectionPen();
    canvas.Line(edge, FSelRect.Top, edge + width, FSelRect.Top);
    canvas.Line(edge, FSelRect.Bottom - 2, edge + width, FSelRect.Bottom - 2);
}
