#pragma once

#include "menus/MrvMenus.h"

#include <QImage>
#include <QPalette>

// Pictures of every menu style: open menus with icons, checks, disabled and selected items, in a light and a dark
// palette and in both directions. The same menus stand in the documentation and in the tests.
namespace Gallery {

struct Look {
    const char* name;
    TMenuStyle style;
};

// All styles in the order of TMenuStyle; msItemPainter is shown with a painter that is a subclass of this program.
extern const std::array<Look, 7> Looks;

QPalette lightPalette();
QPalette darkPalette();

// One open menu of the look. The item under the mouse is "Open", the second.
QImage picture(const Look& look, const QPalette& palette, Qt::LayoutDirection direction, const QFont& font);

// The four pictures of a look side by side: light, light from right to left, dark, dark from right to left.
QImage sheet(const Look& look, const QFont& font);

}
