#pragma once

#include <QFont>

class QStyle;

// Numbers of the system that menus are laid out by. They are asked of the widget style, which knows what the user's
// desktop looks like.
inline constexpr int SM_CYMENU = 15; // height of a menu bar of one line
inline constexpr int SM_CXMENUCHECK = 71; // width of a check mark
inline constexpr int SM_CYMENUCHECK = 72; // height of a check mark

inline constexpr int SPI_GETNONCLIENTMETRICS = 41; // the fonts of menus and title bars
inline constexpr int SPI_GETFLATMENU = 4130; // whether menu bars have no frame

// Whether the system draws controls with light and shadow. It does; a program may say otherwise.
extern bool NewStyleControls;

// One of the three sizes above for menus in this font; 0 for any other number.
int GetSystemMetrics(int index, const QStyle& style, const QFont& menuFont);

// The font of menus. False, and `font` left alone, for another number than SPI_GETNONCLIENTMETRICS.
bool SystemParametersInfo(int code, QFont& font);
// False for another number than SPI_GETFLATMENU.
bool SystemParametersInfo(int code, const QStyle& style);
