#include "menus/TCustomMenuItemPainter.h"

#include "menus/MrvDrawing.h"
#include "menus/SystemMetrics.h"
#include "menus/TPopupMenuEx.h"
#include "rtl/Dialogs.h"
#include "visual/TImageList.h"
#include "visual/TMainMenu.h"

#include <QTimer>

#include <algorithm>

namespace {

// A separator is at least this high.
constexpr int LeastSeparatorHeight = 9;
// An item's picture is taken for this wide and high when nobody says how large it is.
constexpr int UsualGlyphSize = 16;

// The items that an open menu shows: without those that are not visible, and without leading, trailing and doubled
// lines.
QList<TMenuItem*> shownItems(const TMenuItem& menu)
{
    QList<TMenuItem*> shown;
    for (int i = 0; i < menu.Count(); ++i) {
        auto* item = menu.Items(i);
        const auto superfluous = item->IsLine() && (shown.isEmpty() || shown.last()->IsLine());
        if (item->Visible() && !superfluous)
            shown << item;
    }
    while (!shown.isEmpty() && shown.last()->IsLine())
        shown.removeLast();
    return shown;
}

bool isFirstShown(const TMenuItem& item)
{
    for (int i = item.MenuIndex() - 1; i >= 0; --i) {
        const auto* before = item.Parent()->Items(i);
        if (before->Visible() && !before->IsLine())
            return false;
    }
    return true;
}

bool holds(const TImageList* images, int index)
{
    return images != nullptr && index >= 0 && index < images->Count();
}

}

TCustomMenuItemPainter::TCustomMenuItemPainter(QObject* owner)
    : QObject(owner)
    , FOnDrawItem(EmptyDrawItem)
{
}

TCustomMenuItemPainter::~TCustomMenuItemPainter() = default;

void TCustomMenuItemPainter::SetMenu(TMenu* menu)
{
    FParentMenu = menu;
    FPopupMenu = dynamic_cast<TPopupMenuEx*>(menu);
}

TPopupMenuEx* TCustomMenuItemPainter::PopupMenu() const
{
    return FPopupMenu;
}

void TCustomMenuItemPainter::SetImageBackgroundColor(TColor color)
{
    FImageBackgroundColor = color;
    if (FPopupMenu)
        FPopupMenu->Refresh();
}

void TCustomMenuItemPainter::SetLeftMargin(unsigned width)
{
    FLeftMargin = width;
    if (FPopupMenu)
        FPopupMenu->Refresh();
}

void TCustomMenuItemPainter::SetOnDrawItem(TDrawMenuItemEvent event)
{
    FOnDrawItem = event ? std::move(event) : EmptyDrawItem;
}

void TCustomMenuItemPainter::EmptyDrawItem(QObject*, TCanvas&, const TRect&, TMenuOwnerDrawState) { }

bool TCustomMenuItemPainter::HasCanvas() const
{
    return FPopupMenu && FPopupMenu->HasCanvas();
}

TCanvas& TCustomMenuItemPainter::Canvas() const
{
    return FPopupMenu->Canvas();
}

bool TCustomMenuItemPainter::GetIsPopup() const
{
    if (FItem == nullptr || FItem->Parent() == nullptr)
        return true;
    const auto* bar = dynamic_cast<TMainMenu*>(FItem->GetParentMenu());
    return bar == nullptr || FItem->Parent() != &bar->Items();
}

bool TCustomMenuItemPainter::GetIsRightToLeft() const
{
    return FPopupMenu && FPopupMenu->UseRightToLeftAlignment();
}

int TCustomMenuItemPainter::GetCheckMarkHeight()
{
    return FPopupMenu->ShowCheckMarks()
        ? GetSystemMetrics(SM_CYMENUCHECK, FPopupMenu->SystemStyle(), Canvas().Font.Font)
        : 0;
}

int TCustomMenuItemPainter::GetCheckMarkWidth()
{
    return FPopupMenu->ShowCheckMarks()
        ? GetSystemMetrics(SM_CXMENUCHECK, FPopupMenu->SystemStyle(), Canvas().Font.Font)
        : 0;
}

bool TCustomMenuItemPainter::GetDrawHighlight()
{
    if (!NewStyleControls)
        return false;
    return !Selected() || Canvas().ToRGB(clGrayText) == Canvas().ToRGB(clHighlight);
}

TColor TCustomMenuItemPainter::GetGrayColor()
{
    return Selected() ? clGrayText : clBtnShadow;
}

int TCustomMenuItemPainter::GetImageHeight()
{
    if (const auto* images = FPopupMenu->Images(); images != nullptr)
        return images->Height();
    return FImageSize.FHeight == 0 && !FGlyph.Empty() ? UsualGlyphSize : FImageSize.FHeight;
}

int TCustomMenuItemPainter::GetImageWidth()
{
    if (const auto* images = FPopupMenu->Images(); images != nullptr)
        return images->Width();
    return FImageSize.FWidth == 0 && !FGlyph.Empty() ? UsualGlyphSize : FImageSize.FWidth;
}

int TCustomMenuItemPainter::GetTextMargin()
{
    return FPopupMenu->TextMargin();
}

bool TCustomMenuItemPainter::UseImages() const
{
    return holds(FPopupMenu->Images(), FImageIndex);
}

bool TCustomMenuItemPainter::UseHotImages() const
{
    return Selected() && holds(FPopupMenu->HotImages(), FImageIndex);
}

bool TCustomMenuItemPainter::UseDisabledImages() const
{
    return holds(FPopupMenu->DisabledImages(), FImageIndex);
}

void TCustomMenuItemPainter::UpdateFieldsFromMenu()
{
    FImageMargin.Assign(FPopupMenu->ImageMargin());
    FImageSize.Assign(FPopupMenu->ImageSize());
}

void TCustomMenuItemPainter::PreparePaint(TMenuItem* item, const TRect&, TMenuOwnerDrawState state, bool)
{
    FItem = item;
    FState = state;
    FParentMenu = item == nullptr ? nullptr : item->GetParentMenu();
    TakeGlyph();
    TakeImageIndex();
    UpdateFieldsFromMenu();
}

void TCustomMenuItemPainter::TakeImageIndex()
{
    FImageIndex = FItem == nullptr ? -1 : FItem->ImageIndex();
    FPopupMenu->GetImageIndex(FItem, FState, FImageIndex);
    if (FItem == nullptr || FItem->IsLine())
        return;
    auto* menu = FPopupMenu.data();
    if (Disabled() && menu->DisabledImages() != nullptr && menu->OnGetDisabledImageIndex)
        menu->OnGetDisabledImageIndex(menu, FItem, FState, FImageIndex);
    if (Selected() && menu->HotImages() != nullptr && menu->OnGetHotImageIndex)
        menu->OnGetHotImageIndex(menu, FItem, FState, FImageIndex);
}

void TCustomMenuItemPainter::TakeGlyph()
{
    const TGraphic* graphic = nullptr;
    FNumGlyphs = 1;
    auto& canvas = Canvas();
    if (FItem != nullptr && !FItem->IsLine())
        graphic = &FItem->Bitmap();
    FPopupMenu->GetItemParams(FItem, FState, canvas.Font, canvas.Brush.Color, graphic, FNumGlyphs);
    const auto* bitmap = dynamic_cast<const TBitmap*>(graphic);
    if (bitmap != nullptr)
        FGlyph = *bitmap;
    else
        FGlyph = graphic == nullptr ? TBitmap() : TBitmap(graphic->ToImage());
}

// Measuring

const TCustomMenuItemPainter::TSiblings& TCustomMenuItemPainter::Siblings(const TMenuItem& item)
{
    const auto* parent = item.Parent();
    const auto& font = Canvas().Font.Font;
    if (parent != nullptr && FSiblings.parent == parent && FSiblings.revision == parent->Revision()
        && FSiblings.font == font)
        return FSiblings;
    FSiblings = { parent, parent == nullptr ? 0 : parent->Revision(), font };
    if (parent == nullptr)
        MeasureSibling(item, FSiblings);
    for (int i = 0; parent != nullptr && i < parent->Count(); ++i)
        MeasureSibling(*parent->Items(i), FSiblings);
    return FSiblings;
}

void TCustomMenuItemPainter::MeasureSibling(const TMenuItem& item, TSiblings& siblings) const
{
    const auto& canvas = Canvas();
    constexpr auto flags = DT_CALCRECT | DT_SINGLELINE | DT_EXPANDTABS;
    siblings.captionWidth = std::max(siblings.captionWidth, canvas.CalcText(item.Caption(), flags).width());
    siblings.subMenus = siblings.subMenus || item.Count() > 0;
    siblings.checked = siblings.checked || item.Checked();
    if (item.Visible() && item.ShortCut() != scNone)
        siblings.shortCutWidth = std::max(siblings.shortCutWidth, canvas.TextWidth(ShortCutToText(item.ShortCut())));
}

bool TCustomMenuItemPainter::AnySiblingChecked()
{
    return FItem != nullptr && Siblings(*FItem).checked;
}

int TCustomMenuItemPainter::GetTextWidth(const TMenuItem& item)
{
    const auto& canvas = Canvas();
    if (!GetIsPopup())
        return canvas.TextWidth(StripHotkey(item.Caption()));
    const auto& siblings = Siblings(item);
    if (siblings.shortCutWidth > 0)
        return siblings.captionWidth + siblings.shortCutWidth + canvas.TextWidth(QString(8, u' '));
    if (siblings.subMenus)
        return siblings.captionWidth + canvas.TextWidth(QString(2, u' '));
    return siblings.captionWidth;
}

int TCustomMenuItemPainter::MeasuredWidth(const TMenuItem& item)
{
    if (!GetIsPopup())
        return GetTextMargin() + GetTextWidth(item);
    return GetCheckMarkWidth() + FImageMargin.FLeft + GetImageWidth() + FImageMargin.FRight + GetTextMargin()
        + GetTextWidth(item) + static_cast<int>(FLeftMargin);
}

int TCustomMenuItemPainter::MeasuredHeight(const TMenuItem& item)
{
    const auto& canvas = Canvas();
    const auto line = canvas.TextHeight();
    if (GetIsPopup() && item.IsLine())
        return std::max(line / 2, LeastSeparatorHeight);
    const auto text = std::max(GetSystemMetrics(SM_CYMENU, FPopupMenu->SystemStyle(), canvas.Font.Font), line);
    if (!GetIsPopup())
        return text;
    return std::max({ text, GetCheckMarkHeight(), GetImageHeight() + FImageMargin.FTop + FImageMargin.FBottom });
}

void TCustomMenuItemPainter::Measure(TMenuItem* item, int& width, int& height)
{
    if (!HasCanvas() || item == nullptr)
        return;
    PreparePaint(item, {}, {}, true);
    width = MeasuredWidth(*item);
    height = MeasuredHeight(*item);
}

// Painting

void TCustomMenuItemPainter::Paint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state)
{
    if (!HasCanvas())
        return;
    PreparePaint(item, rect, state, false);
    MeasureMenu();
    const auto columns = SplitColumns(rect);
    DrawItemBackground(rect);
    if (FLeftMargin > 0 && GetIsPopup()) {
        const auto top = rect.Top - FItemTops.value(FItem);
        DrawLeftMargin({ columns.Band.Left, top, columns.Band.Right, top + FMenuHeight });
    }
    DrawGrounds(columns);
    // What belongs to the item alone stays beside the band, which belongs to the menu.
    auto beside = rect;
    (GetIsRightToLeft() ? beside.Right : beside.Left)
        += GetIsRightToLeft() ? -RectWidth(columns.Band) : RectWidth(columns.Band);
    if (Selected())
        DrawSelectedFrame(beside);
    if (item == nullptr) {
        // A box may not be opened in the middle of painting.
        QTimer::singleShot(
            0, [] { ShowMessage(QStringLiteral("!!! asked to draw nil item !!!\r\nerror in menu painter")); });
        return;
    }
    DrawPicture(columns);
    if (item->IsLine()) {
        DrawSeparator(beside);
        return;
    }
    DrawTexts(columns.Text);
}

// The band is drawn over the height of the whole menu, which is the sum of what its items measure. Measuring uses the
// fields of the item being painted, so they are put back.
void TCustomMenuItemPainter::MeasureMenu()
{
    if (FLeftMargin == 0 || FItem == nullptr || FItem->Parent() == nullptr || !GetIsPopup())
        return;
    if (!isFirstShown(*FItem) && FItemTops.contains(FItem))
        return;
    const auto item = FItem;
    const auto state = FState;
    const auto imageIndex = FImageIndex;
    const auto glyph = FGlyph;
    const auto numGlyphs = FNumGlyphs;
    const auto font = Canvas().Font;
    const auto brush = Canvas().Brush;
    FItemTops.clear();
    FMenuHeight = 0;
    for (auto* sibling : shownItems(*item->Parent())) {
        FItemTops[sibling] = FMenuHeight;
        int width = 0;
        int height = 0;
        Canvas().Font = font;
        Measure(sibling, width, height);
        FMenuHeight += height;
    }
    FItem = item;
    FState = state;
    FParentMenu = item->GetParentMenu();
    FImageIndex = imageIndex;
    FGlyph = glyph;
    FNumGlyphs = numGlyphs;
    Canvas().Font = font;
    Canvas().Brush = brush;
}

TCustomMenuItemPainter::TColumns TCustomMenuItemPainter::SplitColumns(const TRect& rect)
{
    if (!GetIsPopup())
        return { {}, rect, rect, rect };
    auto left = rect.Left;
    const auto next = [&](int width) {
        const TRect column(left, rect.Top, left + width, rect.Bottom);
        left += width;
        return column;
    };
    TColumns columns;
    columns.Band = next(static_cast<int>(FLeftMargin));
    columns.Check = next(GetCheckMarkWidth());
    columns.Image = next(FImageMargin.FLeft + GetImageWidth() + FImageMargin.FRight);
    columns.Text = TRect(left, rect.Top, rect.Right, rect.Bottom);
    if (GetIsRightToLeft()) {
        for (auto* column : { &columns.Band, &columns.Check, &columns.Image, &columns.Text })
            column->Offset(rect.Left + rect.Right - column->Left - column->Right, 0);
    }
    return columns;
}

void TCustomMenuItemPainter::DrawGrounds(const TColumns& columns)
{
    if (!GetIsPopup())
        return;
    if (FPopupMenu->ShowCheckMarks())
        DrawCheckMarkBackground(columns.Check);
    DrawImageBackground(columns.Image);
    DrawTextBackground(columns.Text);
}

void TCustomMenuItemPainter::DrawPicture(const TColumns& columns)
{
    const auto popup = GetIsPopup();
    const auto marked = FItem->Checked() && FPopupMenu->ShowCheckMarks();
    if (marked && popup)
        DrawCheckImage(columns.Check);
    if (popup && UseImages()) {
        DrawImage(columns.Image);
    } else if (!FGlyph.Empty()) {
        DrawBitmap(columns.Image);
    } else if (FItem->Checked() && !marked && popup) {
        DrawCheckedImageBack(columns.Image);
        DrawCheckImage(columns.Image);
    }
}

void TCustomMenuItemPainter::DrawBackOfImage(const TRect& rect)
{
    if (FItem->Checked() && !FPopupMenu->ShowCheckMarks())
        DrawCheckedImageBack(rect);
    else
        DrawNotCheckedImageBack(rect);
}

void TCustomMenuItemPainter::DrawImage(const TRect& column)
{
    DrawBackOfImage(column);
    const auto x
        = GetIsRightToLeft() ? column.Right - FImageMargin.FLeft - GetImageWidth() : column.Left + FImageMargin.FLeft;
    const auto y = column.Top + (RectHeight(column) - GetImageHeight()) / 2;
    if (Disabled())
        DrawDisabledImage(x, y);
    else
        DrawEnabledImage(x, y);
}

void TCustomMenuItemPainter::DrawBitmap(const TRect& column)
{
    DrawBackOfImage(column);
    auto bitmap = FGlyph;
    if (FNumGlyphs > 1)
        AssignBitmapCell(FGlyph, bitmap, FNumGlyphs, 1, Disabled() ? 1 : 0);
    DrawMenuBitmap(column.Left + (RectWidth(column) - bitmap.Width()) / 2,
        column.Top + (RectHeight(column) - bitmap.Height()) / 2, bitmap);
}

void TCustomMenuItemPainter::DrawTexts(const TRect& column)
{
    constexpr auto flags = DT_SINGLELINE | DT_EXPANDTABS | DT_NOCLIP;
    const auto shortCutWidth = GetIsPopup() ? Siblings(*FItem).shortCutWidth : 0;
    auto rect = column;
    if (GetIsPopup())
        (GetIsRightToLeft() ? rect.Right : rect.Left) += GetIsRightToLeft() ? -GetTextMargin() : GetTextMargin();
    Canvas().Brush.Style = bsClear;
    DrawItemText(rect, FItem->Caption(), flags);
    if (FItem->ShortCut() == scNone || FItem->Count() > 0 || !GetIsPopup())
        return;
    // Of the eight blanks that a menu with short cuts is wider by, two stay behind them: there submenus have their
    // arrow.
    const auto behind = Canvas().TextWidth(QString(2, u' '));
    if (GetIsRightToLeft())
        rect = { rect.Left + behind, rect.Top, rect.Left + behind + shortCutWidth, rect.Bottom };
    else
        rect = { rect.Right - behind - shortCutWidth, rect.Top, rect.Right - behind, rect.Bottom };
    DrawItemText(rect, ShortCutToText(FItem->ShortCut()), flags | DT_RIGHT);
}
