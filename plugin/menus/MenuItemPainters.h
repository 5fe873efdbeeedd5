#pragma once

#include "menus/TCustomMenuItemPainter.h"

// Paints items as the system does.
class TStandardMenuItemPainter : public TCustomMenuItemPainter {
    Q_OBJECT
public:
    using TCustomMenuItemPainter::TCustomMenuItemPainter;

protected:
    // As wide as a check mark when an item of the menu is checked.
    int GetImageWidth() override;
};

// Leaves measuring and painting to the menu's events; without them an item has no size and nothing is painted.
class TOwnerDrawMenuItemPainter : public TCustomMenuItemPainter {
    Q_OBJECT
public:
    using TCustomMenuItemPainter::TCustomMenuItemPainter;

    void Measure(TMenuItem* item, int& width, int& height) override;
    void Paint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state) override;
};

// Frames the selected item like a button, pressed or not.
class TBtnMenuItemPainter : public TCustomMenuItemPainter {
    Q_OBJECT
public:
    explicit TBtnMenuItemPainter(bool lowered, QObject* owner = nullptr);

protected:
    void UpdateFieldsFromMenu() override;
    TColor GetGrayColor() override;
    bool GetDrawHighlight() override;
    void DrawSelectedFrame(const TRect& rect) override;

private:
    bool FLowered;
};

// Frames the picture of the selected item like a button, and the checked one like a pressed one.
class TOfficeMenuItemPainter : public TCustomMenuItemPainter {
    Q_OBJECT
public:
    using TCustomMenuItemPainter::TCustomMenuItemPainter;

protected:
    void UpdateFieldsFromMenu() override;
    int GetTextMargin() override;
    bool GetDrawHighlight() override;
    void DrawItemBackground(const TRect& rect) override;
    void DrawSelectedFrame(const TRect& rect) override;
    void DrawCheckedImageBack(const TRect& rect) override;
    void DrawNotCheckedImageBack(const TRect& rect) override;
    void DrawItemText(const TRect& rect, const QString& text, unsigned flags) override;
    void DrawCheckImage(const TRect& rect) override;

private:
    void CleanupGlyph(const TRect& rect);
    void DrawFrame(const TRect& rect);
};
