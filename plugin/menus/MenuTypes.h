#pragma once

#include "visual/TCanvas.h"

#include <QFlags>
#include <QObject>

#include <functional>

class TGraphic;
class TMenuItem;

enum TFillDirection { fdTopToBottom, fdBottomToTop, fdLeftToRight, fdRightToLeft };
enum TVerticalAlignment { vaTop, vaMiddle, vaBottom };
enum TMenuStyle { msStandard, msOwnerDraw, msBtnLowered, msBtnRaised, msOffice, msXP, msItemPainter };

// The state an item is drawn in. The bits are those a window manager hands out with a request to draw.
enum TMenuOwnerDrawFlag {
    mdSelected = 1,
    mdGrayed = 2,
    mdDisabled = 4,
    mdChecked = 8,
    mdFocused = 16,
    mdDefault = 32,
    mdHotlight = 64,
    mdInactive = 128,
};
Q_DECLARE_FLAGS(TMenuOwnerDrawState, TMenuOwnerDrawFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(TMenuOwnerDrawState)

// The size of the picture of an item in a menu without an image list. 0 leaves it to the picture.
struct TMenuImageSize {
    int FHeight = 0;
    int FWidth = 0;

    void Assign(const TMenuImageSize& source) { *this = source; }
    friend bool operator==(const TMenuImageSize&, const TMenuImageSize&) = default;
};

// The free space around the picture of an item.
struct TImageMargin {
    int FTop = 0;
    int FLeft = 0;
    int FRight = 0;
    int FBottom = 0;

    void Assign(const TImageMargin& source) { *this = source; }
    friend bool operator==(const TImageMargin&, const TImageMargin&) = default;
};

// Events of the menus; the sender is the menu, or the item where there is no item of its own. What comes by reference
// may be changed.
using TDrawMenuItemEvent
    = std::function<void(QObject* sender, TCanvas& canvas, const TRect& rect, TMenuOwnerDrawState state)>;
using TMeasureMenuItemEvent = std::function<void(QObject* sender, TMenuItem* item, int& width, int& height)>;
// `graphic` is the item's picture, nil for none; it must live until the item is painted. It holds `numGlyphs` pictures
// side by side: enabled, disabled.
using TItemParamsEvent = std::function<void(QObject* sender, TMenuItem* item, TMenuOwnerDrawState state, TFont& font,
    TColor& color, const TGraphic*& graphic, int& numGlyphs)>;
using TItemImageEvent
    = std::function<void(QObject* sender, TMenuItem* item, TMenuOwnerDrawState state, int& imageIndex)>;
using TDrawLeftMarginEvent = std::function<void(QObject* sender, const TRect& rect)>;
