#pragma once

#include "menus/MenuTypes.h"
#include "ui/TPopupMenu.h"
#include "visual/TChangeLink.h"
#include "visual/TCursor.h"

#include <memory>
#include <vector>

class PopupMenuStyle;
class QStyle;
class QStyleOptionMenuItem;
class TCustomMenuItemPainter;

// The canvas of a menu. It exists only while an item is measured or drawn; while it is measured it has no handle.
class TControlCanvas : public TCanvas {
public:
    using TCanvas::TCanvas;
};

// A popup menu that draws its own items in one of several styles and has pictures for items that are enabled, disabled
// and pointed at. A standard menu without pictures is drawn by the system.
//
// A painter, chosen by the style, measures and paints each item. The widget style of the menu and of its submenus hands
// the items to it. To add a style, see TCustomMenuItemPainter.
class TPopupMenuEx : public TPopupMenu {
    Q_OBJECT
public:
    explicit TPopupMenuEx(QWidget* owner = nullptr);
    ~TPopupMenuEx() override;

    // Takes over style, pictures, margins, events and the items of another menu.
    virtual void Assign(const TPopupMenuEx& source);
    // Called when the menu was read from a form.
    virtual void Loaded();
    // A component that the menu refers to comes or goes; what goes is let go of.
    virtual void Notification(QObject* component, bool removing);
    // Reads and writes style, margins and the other values that a form keeps of the menu.
    virtual void ReadState(QDataStream& reader);
    virtual void WriteState(QDataStream& writer) const;

    void Popup(int x, int y) override;
    // Paints the item with the canvas, if that has a handle.
    virtual void DrawItem(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state);
    // Makes the items ready to be drawn by the painter, or by the system.
    virtual void RefreshMenu(bool ownerDraw);
    void Refresh() { RefreshMenu(IsOwnerDrawMenu()); }
    // What an event that draws items calls for the usual look: that of the style, and in a menu whose items are all
    // drawn by the event that of the standard style.
    void DefaultDrawItem(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state);

    // Whether the menu draws its items: any style but the standard one, or any picture.
    bool IsOwnerDrawMenu() const;

    TMenuStyle Style() const { return FStyle; }
    void SetStyle(TMenuStyle style);
    // The program's own painter, used in the style msItemPainter. Not owned.
    TCustomMenuItemPainter* ItemPainter() const;
    void SetItemPainter(TCustomMenuItemPainter* painter);
    TCustomMenuItemPainter& GetActiveItemPainter() const;

    void SetImages(TImageList* images) override;
    TImageList* DisabledImages() const { return FDisabledImageChangeLink.Images(); }
    void SetDisabledImages(TImageList* images);
    TImageList* HotImages() const { return FHotImageChangeLink.Images(); }
    void SetHotImages(TImageList* images);

    TCursor Cursor() const { return FCursor; }
    void SetCursor(TCursor cursor) { FCursor = cursor; }
    const TImageMargin& ImageMargin() const { return FImageMargin; }
    void SetImageMargin(const TImageMargin& margin);
    const TMenuImageSize& ImageSize() const { return FImageSize; }
    void SetImageSize(const TMenuImageSize& size);
    bool ShowCheckMarks() const { return FShowCheckMarks; }
    void SetShowCheckMarks(bool show);
    int TextMargin() const { return FTextMargin; }
    void SetTextMargin(int margin);
    TVerticalAlignment TextVAlignment() const { return FTextVAlignment; }
    void SetTextVAlignment(TVerticalAlignment alignment);
    // Whether the menu runs in the direction of the control it is opened over.
    bool ParentBiDiMode() const { return FParentBiDiMode; }
    void SetParentBiDiMode(bool parent) { FParentBiDiMode = parent; }

    TDrawMenuItemEvent OnDrawItem;
    TMeasureMenuItemEvent OnMeasureItem;
    TItemParamsEvent OnGetItemParams;
    TItemImageEvent OnGetImageIndex;
    TItemImageEvent OnGetDisabledImageIndex;
    TItemImageEvent OnGetHotImageIndex;

    // Asked by the painter.
    void MeasureItem(TMenuItem* item, int& width, int& height);
    void GetItemParams(TMenuItem* item, TMenuOwnerDrawState state, TFont& font, TColor& color, const TGraphic*& graphic,
        int& numGlyphs);
    void GetImageIndex(TMenuItem* item, TMenuOwnerDrawState state, int& imageIndex);
    bool UseRightToLeftAlignment() const { return isRightToLeft(); }
    bool UseFlatMenubars() const;
    // The style that the system draws menus with.
    const QStyle& SystemStyle() const;
    // The canvas of the item being measured or drawn; there is none at any other time.
    bool HasCanvas() const { return FCanvas != nullptr; }
    TCanvas& Canvas() { return *FCanvas; }

    // Measures and draws an item for the widget style; `option` tells its font, palette, place and state.
    QSize WMMeasureItem(TMenuItem& item, const QStyleOptionMenuItem& option);
    void WMDrawItem(QPainter& painter, TMenuItem& item, const QStyleOptionMenuItem& option);

    // Has a window of the menu drawn anew in which another item is selected, if its frame shows which.
    void UpdateFrame(QMenu& window) const;

    // Makes the entries of `target` a copy of those of `source`, as deep as they go.
    static void AssignMenuItems(const TMenuItem& source, TMenuItem& target);
    // The system's menu font.
    static void SetDefaultMenuFont(TFont& font);

protected:
    QMenu* CreateSubMenu(QWidget* parent) override;
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
    void leaveEvent(QEvent* event) override;

private:
    void CreateStylePainter();
    void ChangeImages(TChangeLink& link, TImageList* images);
    void ImageListChange();
    void SetBiDiModeFromPopupControl();
    // Runs work with a canvas for the item.
    void WithCanvas(const QStyleOptionMenuItem& option, const TMenuItem& item, const std::function<void()>& work);
    void RefreshItems(QMenu& menu);

    TCursor FCursor = crDefault;
    TImageMargin FImageMargin;
    TMenuImageSize FImageSize;
    bool FShowCheckMarks = false;
    TMenuStyle FStyle = msStandard;
    int FTextMargin = 0;
    TVerticalAlignment FTextVAlignment = vaMiddle;
    TChangeLink FImageChangeLink;
    TChangeLink FDisabledImageChangeLink;
    TChangeLink FHotImageChangeLink;
    bool FParentBiDiMode = true;
    std::unique_ptr<TControlCanvas> FCanvas;
    std::unique_ptr<TCustomMenuItemPainter> FStyleItemPainter;
    // Those of styles left while an item was painted, until it is.
    std::vector<std::unique_ptr<TCustomMenuItemPainter>> FReplacedPainters;
    QPointer<TCustomMenuItemPainter> FItemPainter;
    bool FOwnerDraw = false;
    std::unique_ptr<PopupMenuStyle> FWidgetStyle;
};

// What belongs to the system and not to one user's taste: whether it is made for scripts from right to left.
struct TSysLocale {
    bool MiddleEast;
};
extern TSysLocale SysLocale;
