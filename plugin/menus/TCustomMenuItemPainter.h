#pragma once

#include "menus/MenuTypes.h"
#include "visual/TBitmap.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class TMenu;
class TPopupMenuEx;

// Measures and paints one menu item at a time. Paint is a fixed row of steps, each of them virtual, and a style is a
// set of overrides. The bound menu gives the canvas, the pictures, the margins and the events; what the fields say of
// an item is valid during one Measure or Paint.
//
// A menu owns the painter of its style. A painter of the program's own belongs to the program and may serve several
// menus; a menu lets go of one that is deleted.
//
// To add a style: subclass this (or the painter nearest to it), override the steps that differ, and give an instance to
// TPopupMenuEx::SetItemPainter. A style of the library also gets a value in TMenuStyle, a line in
// TPopupMenuEx::CreateStylePainter, its pictures in the gallery and in the tests.
class TCustomMenuItemPainter : public QObject {
    Q_OBJECT
public:
    explicit TCustomMenuItemPainter(QObject* owner = nullptr);
    ~TCustomMenuItemPainter() override;

    // Binds the painter. A menu that is no TPopupMenuEx has no canvas, and nothing is painted for it.
    void SetMenu(TMenu* menu);
    TPopupMenuEx* PopupMenu() const;

    // What the columns of check marks and pictures are filled with by the painters that fill them.
    TColor ImageBackgroundColor() const { return FImageBackgroundColor; }
    void SetImageBackgroundColor(TColor color);
    // Width of the band along the left edge of a popup; 0 is none.
    unsigned LeftMargin() const { return FLeftMargin; }
    void SetLeftMargin(unsigned width);
    // Draws the band instead of DefaultDrawLeftMargin.
    void SetOnDrawLeftMargin(TDrawLeftMarginEvent event) { FOnDrawLeftMargin = std::move(event); }
    // A slot for a painter of the program's own to call; EmptyDrawItem unless set.
    const TDrawMenuItemEvent& OnDrawItem() const { return FOnDrawItem; }
    void SetOnDrawItem(TDrawMenuItemEvent event);
    static void EmptyDrawItem(QObject* sender, TCanvas& canvas, const TRect& rect, TMenuOwnerDrawState state);

    // The size the item takes in its menu.
    virtual void Measure(TMenuItem* item, int& width, int& height);
    // Paints the item into the rectangle. nil paints the grounds and tells the user, once the painting is over.
    virtual void Paint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state);

    // Draws the usual band: from `start` at the top to `end`, with an edge on the right.
    void DefaultDrawLeftMargin(const TRect& rect, TColor start, TColor end);

protected:
    // The columns of an item. They follow one another from the side the text begins on.
    struct TColumns {
        TRect Band, Check, Image, Text;
    };

    virtual int GetCheckMarkHeight();
    virtual int GetCheckMarkWidth();
    // Whether what is disabled has a light shadow.
    virtual bool GetDrawHighlight();
    // What is disabled is drawn in this.
    virtual TColor GetGrayColor();
    virtual int GetImageHeight();
    virtual int GetImageWidth();
    virtual int GetTextMargin();
    virtual void UpdateFieldsFromMenu();
    virtual void DrawGlyphCheck(const TRect& rect);
    virtual void PreparePaint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state, bool measuring);
    virtual void DrawItemBackground(const TRect& rect);
    virtual void DrawCheckMarkBackground(const TRect& rect);
    virtual void DrawImageBackground(const TRect& rect);
    virtual void DrawTextBackground(const TRect& rect);
    virtual void DrawSelectedFrame(const TRect& rect);
    virtual void DrawDisabledBitmap(int x, int y, const TBitmap& bitmap);
    virtual void DrawMenuBitmap(int x, int y, const TBitmap& bitmap);
    virtual void DrawDisabledImage(int x, int y);
    virtual void DrawEnabledImage(int x, int y);
    virtual void DrawCheckImage(const TRect& rect);
    virtual void DrawCheckedImageBack(const TRect& rect);
    virtual void DrawNotCheckedImageBack(const TRect& rect);
    virtual void DrawSeparator(const TRect& rect);
    virtual void DrawItemText(const TRect& rect, const QString& text, unsigned flags);
    virtual void DrawLeftMargin(const TRect& rect);

    // The bound menu's canvas, which is there while the menu measures or draws an item. At any other time nothing is
    // measured and nothing is painted.
    bool HasCanvas() const;
    TCanvas& Canvas() const;
    // False for an item of a menu bar.
    bool GetIsPopup() const;
    bool GetIsRightToLeft() const;
    bool UseImages() const;
    bool UseHotImages() const;
    bool UseDisabledImages() const;
    int GetTextWidth(const TMenuItem& item);
    bool Selected() const { return FState.testFlag(mdSelected); }
    bool Disabled() const { return FState.testFlag(mdDisabled); }
    // Whether any item of the same menu is checked.
    bool AnySiblingChecked();

    TColor FImageBackgroundColor = clBtnFace;
    unsigned FLeftMargin = 0;
    TDrawLeftMarginEvent FOnDrawLeftMargin;
    QPointer<TPopupMenuEx> FPopupMenu;
    TDrawMenuItemEvent FOnDrawItem;
    TImageMargin FImageMargin;
    TMenuImageSize FImageSize;
    int FMenuHeight = 0;
    TMenuItem* FItem = nullptr;
    TMenuOwnerDrawState FState;
    int FImageIndex = -1;
    TBitmap FGlyph;
    int FNumGlyphs = 1;
    TMenu* FParentMenu = nullptr;

private:
    // What all items of one menu have in common, measured once as long as none of them changes.
    struct TSiblings {
        const TMenuItem* parent = nullptr;
        unsigned revision = 0;
        QFont font;
        int captionWidth = 0;
        int shortCutWidth = 0;
        bool subMenus = false;
        bool checked = false;
    };
    const TSiblings& Siblings(const TMenuItem& item);
    void MeasureSibling(const TMenuItem& item, TSiblings& siblings) const;

    int MeasuredWidth(const TMenuItem& item);
    int MeasuredHeight(const TMenuItem& item);
    void TakeGlyph();
    void TakeImageIndex();
    void MeasureMenu();
    TColumns SplitColumns(const TRect& rect);
    void DrawGrounds(const TColumns& columns);
    void DrawPicture(const TColumns& columns);
    void DrawBackOfImage(const TRect& rect);
    void DrawImage(const TRect& column);
    void DrawBitmap(const TRect& column);
    void DrawTexts(const TRect& column);

    TSiblings FSiblings;
    // The top of each item of the menu that FMenuHeight belongs to.
    QHash<const TMenuItem*, int> FItemTops;
};
