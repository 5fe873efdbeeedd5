#include "menus/TPopupMenuEx.h"

#include "menus/MenuItemPainters.h"
#include "menus/PopupMenuStyle.h"
#include "menus/SystemMetrics.h"
#include "menus/TPopupList.h"
#include "menus/TXPMenuItemPainter.h"
#include "rtl/Guard.h"
#include "visual/TAction.h"

#include <QApplication>
#include <QDataStream>
#include <QLocale>
#include <QPainter>
#include <QStyleOptionMenuItem>

TSysLocale SysLocale { QLocale::system().textDirection() == Qt::RightToLeft };

namespace {

// The window of a submenu of a menu that draws its items.
class SubMenu : public ItemMenu {
public:
    SubMenu(const TPopupMenuEx& menu, QWidget* parent)
        : ItemMenu(parent)
        , FMenu(menu)
    {
        connect(this, &QMenu::hovered, this, [this] { FMenu.UpdateFrame(*this); });
    }

protected:
    void leaveEvent(QEvent* event) override
    {
        ItemMenu::leaveEvent(event);
        FMenu.UpdateFrame(*this);
    }

    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override
    {
        ItemMenu::initStyleOption(option, action);
        if (FMenu.IsOwnerDrawMenu())
            option->styleObject = const_cast<QAction*>(action);
    }

private:
    const TPopupMenuEx& FMenu;
};

TMenuOwnerDrawState stateOf(const TMenuItem& item, const QStyleOptionMenuItem& option)
{
    TMenuOwnerDrawState state;
    state.setFlag(mdSelected, option.state.testFlag(QStyle::State_Selected));
    state.setFlag(mdGrayed, !option.state.testFlag(QStyle::State_Enabled));
    state.setFlag(mdDisabled, !option.state.testFlag(QStyle::State_Enabled));
    state.setFlag(mdChecked, option.checked);
    state.setFlag(mdFocused, option.state.testFlag(QStyle::State_HasFocus));
    state.setFlag(mdDefault, item.Default());
    state.setFlag(mdHotlight, option.state.testFlag(QStyle::State_MouseOver));
    return state;
}

void copyItem(const TMenuItem& source, TMenuItem& target)
{
    target.SetAction(source.Action());
    target.SetCaption(source.Caption());
    target.SetName(source.Name());
    target.SetHint(source.Hint());
    target.SetShortCut(source.ShortCut());
    target.SetGroupIndex(source.GroupIndex());
    target.SetRadioItem(source.RadioItem());
    target.SetChecked(source.Checked());
    target.SetEnabled(source.Enabled());
    target.SetVisible(source.Visible());
    target.SetDefault(source.Default());
    target.SetImageIndex(source.ImageIndex());
    target.SetHelpContext(source.HelpContext());
    target.SetTag(source.Tag());
    target.SetBitmap(source.Bitmap());
    target.OnClick = source.OnClick;
}

}

TPopupMenuEx::TPopupMenuEx(QWidget* owner)
    : TPopupMenu(owner)
{
    if (!PopupList)
        PopupList = std::make_unique<TPopupList>();
    CreateStylePainter();
    PopupList->Add(this);
    connect(this, &QMenu::hovered, this, [this] { UpdateFrame(*this); });
    for (auto* link : { &FImageChangeLink, &FDisabledImageChangeLink, &FHotImageChangeLink })
        link->OnChange = [this] { ImageListChange(); };
}

TPopupMenuEx::~TPopupMenuEx()
{
    for (auto* link : { &FImageChangeLink, &FDisabledImageChangeLink, &FHotImageChangeLink })
        link->OnChange = nullptr;
    setStyle(nullptr);
    FreeItems();
    if (PopupList)
        PopupList->Remove(this);
}

void TPopupMenuEx::CreateStylePainter()
{
    // An event of the item being painted may change the style; its painter then still has steps to go.
    if (FCanvas)
        FReplacedPainters.push_back(std::move(FStyleItemPainter));
    switch (FStyle) {
    case msOwnerDraw:
        FStyleItemPainter = std::make_unique<TOwnerDrawMenuItemPainter>();
        break;
    case msBtnLowered:
    case msBtnRaised:
        FStyleItemPainter = std::make_unique<TBtnMenuItemPainter>(FStyle == msBtnLowered);
        break;
    case msOffice:
        FStyleItemPainter = std::make_unique<TOfficeMenuItemPainter>();
        break;
    case msXP:
        FStyleItemPainter = std::make_unique<TXPMenuItemPainter>();
        break;
    case msStandard:
    case msItemPainter:
        FStyleItemPainter = std::make_unique<TStandardMenuItemPainter>();
        break;
    }
    FStyleItemPainter->SetMenu(this);
}

void TPopupMenuEx::SetStyle(TMenuStyle style)
{
    if (style == FStyle)
        return;
    FStyle = style;
    if (style != msItemPainter)
        SetItemPainter(nullptr);
    // Also in the style msItemPainter: until a painter is assigned the menu is painted as a standard one, whatever it
    // was before.
    CreateStylePainter();
    Refresh();
}

TCustomMenuItemPainter* TPopupMenuEx::ItemPainter() const
{
    return FItemPainter;
}

void TPopupMenuEx::SetItemPainter(TCustomMenuItemPainter* painter)
{
    if (painter == FItemPainter)
        return;
    if (FItemPainter)
        disconnect(FItemPainter, nullptr, this, nullptr);
    FItemPainter = painter;
    if (painter != nullptr) {
        painter->SetMenu(this);
        connect(painter, &QObject::destroyed, this, [this](QObject* gone) { Notification(gone, true); });
    }
    Refresh();
}

TCustomMenuItemPainter& TPopupMenuEx::GetActiveItemPainter() const
{
    return FStyle == msItemPainter && FItemPainter ? *FItemPainter : *FStyleItemPainter;
}

bool TPopupMenuEx::IsOwnerDrawMenu() const
{
    return FStyle != msStandard || (Images() != nullptr && Images()->Count() > 0);
}

// Pictures

void TPopupMenuEx::SetImages(TImageList* images)
{
    const auto before = IsOwnerDrawMenu();
    TPopupMenu::SetImages(images);
    FImageChangeLink.Register(images);
    if (IsOwnerDrawMenu() != before)
        Refresh();
}

void TPopupMenuEx::ChangeImages(TChangeLink& link, TImageList* images)
{
    const auto before = IsOwnerDrawMenu();
    link.Register(images);
    if (IsOwnerDrawMenu() != before)
        Refresh();
}

void TPopupMenuEx::SetDisabledImages(TImageList* images)
{
    ChangeImages(FDisabledImageChangeLink, images);
}

void TPopupMenuEx::SetHotImages(TImageList* images)
{
    ChangeImages(FHotImageChangeLink, images);
}

void TPopupMenuEx::ImageListChange()
{
    if (FOwnerDraw || IsOwnerDrawMenu())
        Refresh();
}

void TPopupMenuEx::Notification(QObject* component, bool removing)
{
    if (!removing)
        return;
    if (component == Images())
        SetImages(nullptr);
    if (component == DisabledImages())
        SetDisabledImages(nullptr);
    if (component == HotImages())
        SetHotImages(nullptr);
    if (component == FItemPainter)
        FItemPainter = nullptr;
    Refresh();
}

// What a form keeps

void TPopupMenuEx::Assign(const TPopupMenuEx& source)
{
    FImageMargin.Assign(source.FImageMargin);
    FImageSize.Assign(source.FImageSize);
    FCursor = source.FCursor;
    FShowCheckMarks = source.FShowCheckMarks;
    FTextMargin = source.FTextMargin;
    FTextVAlignment = source.FTextVAlignment;
    FParentBiDiMode = source.FParentBiDiMode;
    OnDrawItem = source.OnDrawItem;
    OnMeasureItem = source.OnMeasureItem;
    OnGetItemParams = source.OnGetItemParams;
    OnGetImageIndex = source.OnGetImageIndex;
    OnGetDisabledImageIndex = source.OnGetDisabledImageIndex;
    OnGetHotImageIndex = source.OnGetHotImageIndex;
    OnPopup = source.OnPopup;
    SetAlignment(source.Alignment());
    SetTrackButton(source.TrackButton());
    SetAutoHotkeys(source.AutoHotkeys());
    SetImages(source.Images());
    SetDisabledImages(source.DisabledImages());
    SetHotImages(source.HotImages());
    SetStyle(source.FStyle);
    SetItemPainter(source.ItemPainter());
    AssignMenuItems(source.Items(), Items());
}

void TPopupMenuEx::Loaded()
{
    if (IsOwnerDrawMenu())
        RefreshMenu(true);
}

void TPopupMenuEx::WriteState(QDataStream& writer) const
{
    writer << int(FStyle) << FCursor << FShowCheckMarks << FTextMargin << int(FTextVAlignment) << FParentBiDiMode;
    writer << FImageMargin.FTop << FImageMargin.FLeft << FImageMargin.FRight << FImageMargin.FBottom;
    writer << FImageSize.FHeight << FImageSize.FWidth;
}

void TPopupMenuEx::ReadState(QDataStream& reader)
{
    int style = 0;
    int alignment = 0;
    reader >> style >> FCursor >> FShowCheckMarks >> FTextMargin >> alignment >> FParentBiDiMode;
    reader >> FImageMargin.FTop >> FImageMargin.FLeft >> FImageMargin.FRight >> FImageMargin.FBottom;
    reader >> FImageSize.FHeight >> FImageSize.FWidth;
    FTextVAlignment = static_cast<TVerticalAlignment>(alignment);
    SetStyle(static_cast<TMenuStyle>(style));
    Loaded();
}

void TPopupMenuEx::AssignMenuItems(const TMenuItem& source, TMenuItem& target)
{
    if (&source == &target)
        return;
    target.Clear();
    for (int i = 0; i < source.Count(); ++i) {
        auto* item = new TMenuItem;
        copyItem(*source.Items(i), *item);
        target.Add(item);
        AssignMenuItems(*source.Items(i), *item);
    }
}

void TPopupMenuEx::SetImageMargin(const TImageMargin& margin)
{
    FImageMargin = margin;
    Refresh();
}

void TPopupMenuEx::SetImageSize(const TMenuImageSize& size)
{
    FImageSize = size;
    Refresh();
}

void TPopupMenuEx::SetShowCheckMarks(bool show)
{
    FShowCheckMarks = show;
    Refresh();
}

void TPopupMenuEx::SetTextMargin(int margin)
{
    FTextMargin = margin;
    Refresh();
}

void TPopupMenuEx::SetTextVAlignment(TVerticalAlignment alignment)
{
    FTextVAlignment = alignment;
    Refresh();
}

// Opening

void TPopupMenuEx::Popup(int x, int y)
{
    SetPopupPoint({ x, y });
    SetBiDiModeFromPopupControl();
    DoPopup();
    if (IsOwnerDrawMenu())
        RefreshMenu(true);
    if (AutoHotkeys() == maAutomatic)
        Items().RethinkHotkeys();
    // Leading, trailing and doubled lines do not show.
    setSeparatorsCollapsible(true);
    Track();
}

void TPopupMenuEx::SetBiDiModeFromPopupControl()
{
    if (!SysLocale.MiddleEast || !FParentBiDiMode)
        return;
    const auto* control = QApplication::widgetAt(PopupPoint());
    setLayoutDirection(control != nullptr ? control->layoutDirection() : QGuiApplication::layoutDirection());
}

void TPopupMenuEx::RefreshMenu(bool ownerDraw)
{
    FOwnerDraw = ownerDraw;
    if (ownerDraw && !FWidgetStyle)
        FWidgetStyle = std::make_unique<PopupMenuStyle>(*this);
    if (FWidgetStyle)
        RefreshItems(*this);
}

void TPopupMenuEx::RefreshItems(QMenu& menu)
{
    for (auto* action : menu.actions()) {
        // The painter draws the short cuts; room for them that Qt adds would be there twice.
        action->setShortcutVisibleInContextMenu(!FOwnerDraw);
        if (action->menu() != nullptr)
            RefreshItems(*action->menu());
    }
    if (FOwnerDraw == (menu.style() == FWidgetStyle.get())) {
        // The same style, but other sizes.
        QEvent changed(QEvent::StyleChange);
        QCoreApplication::sendEvent(&menu, &changed);
        return;
    }
    menu.setStyle(FOwnerDraw ? FWidgetStyle.get() : nullptr);
}

QMenu* TPopupMenuEx::CreateSubMenu(QWidget* parent)
{
    auto* menu = new SubMenu(*this, parent);
    if (FOwnerDraw)
        menu->setStyle(FWidgetStyle.get());
    if (PopupList)
        PopupList->Watch(menu);
    return menu;
}

void TPopupMenuEx::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    TPopupMenu::initStyleOption(option, action);
    if (FOwnerDraw)
        option->styleObject = const_cast<QAction*>(action);
}

void TPopupMenuEx::leaveEvent(QEvent* event)
{
    TPopupMenu::leaveEvent(event);
    UpdateFrame(*this);
}

void TPopupMenuEx::UpdateFrame(QMenu& window) const
{
    if (FOwnerDraw && qobject_cast<TXPMenuItemPainter*>(&GetActiveItemPainter()) != nullptr)
        window.update();
}

// Measuring and drawing

void TPopupMenuEx::WithCanvas(
    const QStyleOptionMenuItem& option, const TMenuItem& item, const std::function<void()>& work)
{
    // An event that draws may have the menu measured.
    auto outer = std::exchange(FCanvas, std::make_unique<TControlCanvas>());
    const Finally restore([&] {
        FCanvas = std::move(outer);
        if (!FCanvas)
            FReplacedPainters.clear();
    });
    FCanvas->SetPalette(option.palette);
    SetDefaultMenuFont(FCanvas->Font);
    // Measured and drawn in one font, so that what is measured is what is drawn.
    FCanvas->Font.Font = option.font;
    if (item.Default())
        FCanvas->Font.Font.setBold(true);
    work();
}

QSize TPopupMenuEx::WMMeasureItem(TMenuItem& item, const QStyleOptionMenuItem& option)
{
    int width = 0;
    int height = 0;
    WithCanvas(option, item, [&] {
        GetActiveItemPainter().SetMenu(this);
        GetActiveItemPainter().Measure(&item, width, height);
    });
    return { width, height };
}

void TPopupMenuEx::WMDrawItem(QPainter& painter, TMenuItem& item, const QStyleOptionMenuItem& option)
{
    const auto state = stateOf(item, option);
    WithCanvas(option, item, [&] {
        FCanvas->SetHandle(&painter);
        FCanvas->Brush.Color = clMenu;
        if (state.testFlag(mdSelected) && FStyle != msBtnLowered && FStyle != msBtnRaised) {
            FCanvas->Brush.Color = clHighlight;
            FCanvas->Font.Color = clHighlightText;
        }
        painter.save();
        const Finally restore([&] { painter.restore(); });
        painter.setClipRect(option.rect, Qt::IntersectClip);
        DrawItem(&item, TRect(option.rect), state);
    });
}

void TPopupMenuEx::DrawItem(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state)
{
    if (!FCanvas || !FCanvas->HandleAllocated())
        return;
    GetActiveItemPainter().SetMenu(this);
    GetActiveItemPainter().Paint(item, rect, state);
}

void TPopupMenuEx::DefaultDrawItem(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state)
{
    if (!FCanvas || !FCanvas->HandleAllocated())
        return;
    if (&GetActiveItemPainter() != FStyleItemPainter.get() || FStyle != msOwnerDraw) {
        GetActiveItemPainter().Paint(item, rect, state);
        return;
    }
    // The painter of this style would only raise the event again.
    TStandardMenuItemPainter painter;
    painter.SetMenu(this);
    painter.Paint(item, rect, state);
}

void TPopupMenuEx::MeasureItem(TMenuItem* item, int& width, int& height)
{
    if (OnMeasureItem)
        OnMeasureItem(this, item, width, height);
}

void TPopupMenuEx::GetItemParams(
    TMenuItem* item, TMenuOwnerDrawState state, TFont& font, TColor& color, const TGraphic*& graphic, int& numGlyphs)
{
    if (OnGetItemParams)
        OnGetItemParams(this, item, state, font, color, graphic, numGlyphs);
    if (item != nullptr && item->IsLine())
        graphic = nullptr;
}

void TPopupMenuEx::GetImageIndex(TMenuItem* item, TMenuOwnerDrawState state, int& imageIndex)
{
    if (Images() == nullptr || item == nullptr || item->IsLine())
        return;
    if (OnGetImageIndex)
        OnGetImageIndex(this, item, state, imageIndex);
}

bool TPopupMenuEx::UseFlatMenubars() const
{
    return SystemParametersInfo(SPI_GETFLATMENU, SystemStyle());
}

const QStyle& TPopupMenuEx::SystemStyle() const
{
    return *QApplication::style();
}

void TPopupMenuEx::SetDefaultMenuFont(TFont& font)
{
    font.Color = clMenuText;
    if (NewStyleControls && SystemParametersInfo(SPI_GETNONCLIENTMETRICS, font.Font))
        return;
    font.Font = QFont(NewStyleControls ? QStringLiteral("MS Sans Serif") : QStringLiteral("System"), 8);
}
