#pragma once

#include "menus/TCustomMenuItemPainter.h"

// Paints flat items on a column of pictures, the selected one in a frame and its picture raised above its shadow. It
// also paints the inner border of the popup, so that the column and the frames run through to the edge.
//
// Its colours are made for a light desktop. On a dark one each is drawn as light as it is dark and the other way round,
// so that texts stay readable.
class TXPMenuItemPainter : public TCustomMenuItemPainter {
    Q_OBJECT
public:
    explicit TXPMenuItemPainter(QObject* owner = nullptr);

    void Measure(TMenuItem* item, int& width, int& height) override;
    void Paint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state) override;

    // The inner border of a popup, `width` pixels wide, along the inside of `window`, which is given in the coordinates
    // that its items were painted in before.
    void DrawPopupBorder(QPainter& painter, const TRect& window, int width);

    // The last item painted as selected, empty if there is none, and the corner of the last one painted as checked.
    const TRect& SelRect() const { return FSelRect; }
    TPoint CheckedPoint() const { return FCheckedPoint; }

protected:
    void UpdateFieldsFromMenu() override;
    int GetTextMargin() override;
    bool GetDrawHighlight() override;
    void PreparePaint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state, bool measuring) override;
    void DrawItemBackground(const TRect& rect) override;
    void DrawImageBackground(const TRect& rect) override;
    void DrawCheckMarkBackground(const TRect& rect) override;
    void DrawSelectedFrame(const TRect& rect) override;
    void DrawCheckedImageBack(const TRect& rect) override;
    void DrawSeparator(const TRect& rect) override;
    void DrawEnabledImage(int x, int y) override;
    void DrawDisabledImage(int x, int y) override;
    void DrawMenuBitmap(int x, int y, const TBitmap& bitmap) override;
    void DrawItemText(const TRect& rect, const QString& text, unsigned flags) override;
    void DrawCheckImage(const TRect& rect) override;

private:
    void DrawBitmapShadow(int x, int y, const TBitmap& bitmap);
    TColor Shade(TColor color) const;
    TBrush SelectionBrush() const { return { Shade(FSelectionFrameBrush.Color), FSelectionFrameBrush.Style }; }
    TPen SelectionPen() const { return { Shade(FSelectionFramePen.Color), FSelectionFramePen.Style }; }
    TColor ImageColumnColor() const;
    int ShiftedX(int x) const;
    TBitmap ImageOnBrush() const;
    void RememberFrames(const TRect& rect);

    TBrush FSelectionFrameBrush;
    TPen FSelectionFramePen;
    TColor FShadowColor;
    TColor FSeparatorColor;
    TColor FCheckedImageBackColorSelected;
    TColor FCheckedImageBackColor;
    // The right edge of the item.
    int FRightEdge = 0;
    // Where the columns of check marks and pictures end.
    int FColumnEdge = 0;
    // The menu that FSelRect belongs to.
    const TMenuItem* FFrameMenu = nullptr;
    TRect FSelRect;
    TPoint FCheckedPoint;
};
