// The steps of painting an item as they are without a style.
#include "menus/MrvDrawing.h"
#include "menus/SystemMetrics.h"
#include "menus/TCustomMenuItemPainter.h"
#include "menus/TPopupMenuEx.h"
#include "visual/TImageList.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

namespace {

constexpr TColor BandStart = 16711680;
constexpr std::uint8_t BandColors = 32;
// The edge beside the gradient of the band.
constexpr int BandEdge = 3;
constexpr int PatternSize = 8;

TColor quarterOf(TColor color)
{
    return RGB(GetRValue(color) >> 2, GetGValue(color) >> 2, GetBValue(color) >> 2);
}

// Pixels of two colours by turns.
QImage AllocPatternBitmap(QColor first, QColor second)
{
    QImage pattern(PatternSize, PatternSize, QImage::Format_RGB32);
    for (int y = 0; y < PatternSize; ++y) {
        for (int x = 0; x < PatternSize; ++x)
            pattern.setPixelColor(x, y, (x + y) % 2 == 0 ? first : second);
    }
    return pattern;
}

}

void TCustomMenuItemPainter::DrawItemBackground(const TRect& rect)
{
    Canvas().FillRect(rect);
}

void TCustomMenuItemPainter::DrawCheckMarkBackground(const TRect&) { }

void TCustomMenuItemPainter::DrawImageBackground(const TRect&) { }

void TCustomMenuItemPainter::DrawTextBackground(const TRect&) { }

void TCustomMenuItemPainter::DrawSelectedFrame(const TRect&) { }

void TCustomMenuItemPainter::DrawCheckedImageBack(const TRect&) { }

void TCustomMenuItemPainter::DrawNotCheckedImageBack(const TRect&) { }

void TCustomMenuItemPainter::DrawSeparator(const TRect& rect)
{
    auto& canvas = Canvas();
    const auto y = (rect.Top + rect.Bottom) / 2;
    if (!NewStyleControls) {
        canvas.Pen = { clWindowFrame, psSolid, 2 };
        canvas.Line(rect.Left, y, rect.Right, y);
        return;
    }
    canvas.Pen = { clBtnShadow, psSolid, 1 };
    canvas.Line(rect.Left - 1, y - 1, rect.Right, y - 1);
    canvas.Pen.Color = clBtnHighlight;
    canvas.Line(rect.Left, y, rect.Right, y);
}

void TCustomMenuItemPainter::DrawCheckImage(const TRect& rect)
{
    auto& canvas = Canvas();
    auto inner = rect;
    inner.Inflate(-1, -1);
    if (auto* painter = canvas.Handle(); painter != nullptr && !Selected())
        painter->fillRect(inner.ToQRect(),
            QBrush(
                AllocPatternBitmap(ToQColor(clBtnFace, canvas.Palette()), ToQColor(clBtnHighlight, canvas.Palette()))));
    Frame3D(canvas, inner, GetGrayColor(), clBtnHighlight, 1);
    DrawGlyphCheck(inner);
}

void TCustomMenuItemPainter::DrawGlyphCheck(const TRect& rect)
{
    auto& canvas = Canvas();
    auto* painter = canvas.Handle();
    if (painter == nullptr)
        return;
    const auto& style = FPopupMenu->SystemStyle();
    const QSize mark(GetSystemMetrics(SM_CXMENUCHECK, style, canvas.Font.Font),
        GetSystemMetrics(SM_CYMENUCHECK, style, canvas.Font.Font));
    QStyleOptionButton option;
    option.state = QStyle::State_On | QStyle::State_Enabled;
    option.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, mark, rect.ToQRect());
    option.palette = canvas.Palette();
    const auto color = ToQColor(Disabled() ? GetGrayColor() : canvas.Font.Color, canvas.Palette());
    for (const auto role : { QPalette::Text, QPalette::WindowText, QPalette::HighlightedText })
        option.palette.setColor(role, color);
    style.drawPrimitive(FItem->RadioItem() ? QStyle::PE_IndicatorRadioButton : QStyle::PE_IndicatorMenuCheckMark,
        &option, painter, nullptr);
}

void TCustomMenuItemPainter::DrawEnabledImage(int x, int y)
{
    const auto* images = UseHotImages() ? FPopupMenu->HotImages() : FPopupMenu->Images();
    if (auto* painter = Canvas().Handle(); painter != nullptr && images != nullptr)
        images->Draw(*painter, x, y, FImageIndex);
}

void TCustomMenuItemPainter::DrawDisabledImage(int x, int y)
{
    auto* painter = Canvas().Handle();
    if (painter != nullptr && UseDisabledImages())
        FPopupMenu->DisabledImages()->Draw(*painter, x, y, FImageIndex);
    else if (FPopupMenu->Images() != nullptr)
        ImageListDrawDisabled(
            *FPopupMenu->Images(), Canvas(), x, y, FImageIndex, clBtnHighlight, GetGrayColor(), GetDrawHighlight());
}

void TCustomMenuItemPainter::DrawMenuBitmap(int x, int y, const TBitmap& bitmap)
{
    const auto insteadOfCheck = FItem != nullptr && FItem->Checked() && !FPopupMenu->ShowCheckMarks();
    if (Disabled())
        DrawDisabledBitmap(x, y, bitmap);
    else if (bitmap.Monochrome() && !insteadOfCheck)
        Canvas().Draw(x, y, bitmap.Image());
    else
        DrawBitmapTransparent(Canvas(), x, y, bitmap, bitmap.TransparentColor());
}

void TCustomMenuItemPainter::DrawDisabledBitmap(int x, int y, const TBitmap& bitmap)
{
    auto& canvas = Canvas();
    const auto mask = MonochromeMask(bitmap, bitmap.TransparentColor());
    const auto brush = canvas.Brush;
    if (GetDrawHighlight()) {
        canvas.Brush.Color = clBtnHighlight;
        BitBltMono(canvas, x + 1, y + 1, mask, clWhite, clBlack);
    }
    canvas.Brush.Color = GetGrayColor();
    BitBltMono(canvas, x, y, mask, clWhite, clBlack);
    canvas.Brush = brush;
}

void TCustomMenuItemPainter::DrawItemText(const TRect& rect, const QString& text, unsigned flags)
{
    if (text.isEmpty())
        return;
    auto& canvas = Canvas();
    if (GetIsRightToLeft())
        flags |= DT_RIGHT | DT_RTLREADING;
    const auto size = canvas.CalcText(StripHotkey(text), flags | DT_CALCRECT | DT_NOPREFIX);
    auto place = rect;
    if (FPopupMenu->TextVAlignment() == vaMiddle)
        place.Top += (RectHeight(rect) - size.height() + 1) / 2;
    else if (FPopupMenu->TextVAlignment() == vaBottom)
        place.Top = rect.Bottom - size.height();
    if (!GetIsPopup())
        place.Left += (RectWidth(rect) - size.width()) / 2;
    if (Disabled()) {
        if (GetDrawHighlight()) {
            place.Offset(1, 1);
            canvas.Font.Color = clBtnHighlight;
            canvas.DrawText(text, place, flags);
            place.Offset(-1, -1);
        }
        canvas.Font.Color = GetGrayColor();
    }
    canvas.DrawText(text, place, flags);
}

void TCustomMenuItemPainter::DrawLeftMargin(const TRect& rect)
{
    if (FOnDrawLeftMargin)
        FOnDrawLeftMargin(this, rect);
    else
        DefaultDrawLeftMargin(rect, BandStart, quarterOf(BandStart));
}

void TCustomMenuItemPainter::DefaultDrawLeftMargin(const TRect& rect, TColor start, TColor end)
{
    auto& canvas = Canvas();
    GradientFillRect(
        canvas, { rect.Left, rect.Top, rect.Right - BandEdge, rect.Bottom }, start, end, fdTopToBottom, BandColors);
    int x = rect.Right - BandEdge;
    for (const auto color : { clBtnFace, clBtnShadow, clBtnHighlight }) {
        canvas.Pen = { color, psSolid, 1 };
        canvas.Line(x, rect.Top, x, rect.Bottom);
        ++x;
    }
}
