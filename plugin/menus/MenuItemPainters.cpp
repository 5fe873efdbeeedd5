#include "menus/MenuItemPainters.h"

#include "menus/SystemMetrics.h"
#include "menus/TPopupMenuEx.h"

#include <algorithm>

int TStandardMenuItemPainter::GetImageWidth()
{
    const auto width = TCustomMenuItemPainter::GetImageWidth();
    if (!AnySiblingChecked())
        return width;
    return std::max(width, GetSystemMetrics(SM_CXMENUCHECK, FPopupMenu->SystemStyle(), Canvas().Font.Font));
}

void TOwnerDrawMenuItemPainter::Measure(TMenuItem* item, int& width, int& height)
{
    if (FPopupMenu)
        FPopupMenu->MeasureItem(item, width, height);
}

void TOwnerDrawMenuItemPainter::Paint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state)
{
    if (HasCanvas() && FPopupMenu->OnDrawItem)
        FPopupMenu->OnDrawItem(item, Canvas(), rect, state);
}

TBtnMenuItemPainter::TBtnMenuItemPainter(bool lowered, QObject* owner)
    : TCustomMenuItemPainter(owner)
    , FLowered(lowered)
{
}

void TBtnMenuItemPainter::UpdateFieldsFromMenu()
{
    TCustomMenuItemPainter::UpdateFieldsFromMenu();
    FImageMargin.FTop += 1;
    FImageMargin.FBottom += 1;
}

TColor TBtnMenuItemPainter::GetGrayColor()
{
    return clBtnShadow;
}

bool TBtnMenuItemPainter::GetDrawHighlight()
{
    return NewStyleControls;
}

void TBtnMenuItemPainter::DrawSelectedFrame(const TRect& rect)
{
    auto frame = rect;
    if (FLowered)
        Frame3D(Canvas(), frame, clBtnShadow, clBtnHighlight, 1);
    else
        Frame3D(Canvas(), frame, clBtnHighlight, clBtnShadow, 1);
}

void TOfficeMenuItemPainter::UpdateFieldsFromMenu()
{
    TCustomMenuItemPainter::UpdateFieldsFromMenu();
    FImageMargin.FLeft += 2;
    FImageMargin.FTop += 2;
    FImageMargin.FRight += 3;
    FImageMargin.FBottom += 2;
}

int TOfficeMenuItemPainter::GetTextMargin()
{
    return TCustomMenuItemPainter::GetTextMargin() + 3;
}

bool TOfficeMenuItemPainter::GetDrawHighlight()
{
    return TCustomMenuItemPainter::GetDrawHighlight() || !GetIsPopup();
}

void TOfficeMenuItemPainter::DrawItemBackground(const TRect& rect)
{
    TCustomMenuItemPainter::DrawItemBackground(rect);
    if (!GetIsPopup() && FState.testFlag(mdHotlight))
        DrawFrame(rect);
}

void TOfficeMenuItemPainter::DrawSelectedFrame(const TRect& rect)
{
    if (GetIsPopup())
        return;
    CleanupGlyph(rect);
    auto frame = rect;
    Frame3D(Canvas(), frame, clBtnShadow, clBtnHighlight, 1);
}

void TOfficeMenuItemPainter::DrawCheckedImageBack(const TRect& rect)
{
    CleanupGlyph(rect);
    auto frame = rect;
    Frame3D(Canvas(), frame, clBtnShadow, clBtnHighlight, 1);
}

void TOfficeMenuItemPainter::DrawNotCheckedImageBack(const TRect& rect)
{
    if (Selected() && GetIsPopup())
        DrawFrame(rect);
}

void TOfficeMenuItemPainter::DrawItemText(const TRect& rect, const QString& text, unsigned flags)
{
    if (!GetIsPopup())
        Canvas().Font.Color = clMenuText;
    TCustomMenuItemPainter::DrawItemText({ rect.Left, rect.Top, rect.Right, rect.Bottom - 1 }, text, flags);
}

void TOfficeMenuItemPainter::DrawCheckImage(const TRect& rect)
{
    TCustomMenuItemPainter::DrawCheckImage({ rect.Left + 2, rect.Top, rect.Right, rect.Bottom - 1 });
}

// Gives the selection's colour around a picture back to the column of pictures.
void TOfficeMenuItemPainter::CleanupGlyph(const TRect& rect)
{
    auto& canvas = Canvas();
    const auto brush = canvas.Brush;
    canvas.Brush = { FImageBackgroundColor, bsSolid };
    canvas.FillRect({ rect.Left - 1, rect.Top, rect.Right + 1, rect.Bottom });
    canvas.Brush = brush;
}

void TOfficeMenuItemPainter::DrawFrame(const TRect& rect)
{
    CleanupGlyph(rect);
    auto frame = rect;
    Frame3D(Canvas(), frame, clBtnHighlight, clBtnShadow, 1);
}
