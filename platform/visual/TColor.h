#pragma once

#include <QColor>
#include <QPalette>

#include <cstdint>

// A colour of the window library: blue, green and red from the third byte down ($00BBGGRR), or, with the highest byte
// set, the number of a system colour, whose value is asked of a palette when it is used.
using TColor = std::uint32_t;

constexpr TColor SystemColor(std::uint8_t index)
{
    return 0xFF000000U | index;
}

inline constexpr TColor clScrollBar = SystemColor(0);
inline constexpr TColor clBackground = SystemColor(1);
inline constexpr TColor clActiveCaption = SystemColor(2);
inline constexpr TColor clInactiveCaption = SystemColor(3);
inline constexpr TColor clMenu = SystemColor(4);
inline constexpr TColor clWindow = SystemColor(5);
inline constexpr TColor clWindowFrame = SystemColor(6);
inline constexpr TColor clMenuText = SystemColor(7);
inline constexpr TColor clWindowText = SystemColor(8);
inline constexpr TColor clHighlight = SystemColor(13);
inline constexpr TColor clHighlightText = SystemColor(14);
inline constexpr TColor clBtnFace = SystemColor(15);
inline constexpr TColor clBtnShadow = SystemColor(16);
inline constexpr TColor clGrayText = SystemColor(17);
inline constexpr TColor clBtnText = SystemColor(18);
inline constexpr TColor clBtnHighlight = SystemColor(20);
inline constexpr TColor cl3DDkShadow = SystemColor(21);
inline constexpr TColor cl3DLight = SystemColor(22);
inline constexpr TColor clInfoText = SystemColor(23);
inline constexpr TColor clInfoBk = SystemColor(24);
inline constexpr TColor clHotLight = SystemColor(26);
inline constexpr TColor clMenuHighlight = SystemColor(29);
inline constexpr TColor clMenuBar = SystemColor(30);

inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clGray = 0x808080;
inline constexpr TColor clSilver = 0xC0C0C0;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clLime = 0x00FF00;
inline constexpr TColor clBlue = 0xFF0000;
inline constexpr TColor clFuchsia = 0xFF00FF;
inline constexpr TColor clWhite = 0xFFFFFF;

// No colour at all; what is drawn in it is not drawn.
inline constexpr TColor clNone = 0x1FFFFFFF;
inline constexpr TColor clDefault = 0x20000000;

constexpr std::uint8_t GetRValue(TColor color)
{
    return static_cast<std::uint8_t>(color);
}
constexpr std::uint8_t GetGValue(TColor color)
{
    return static_cast<std::uint8_t>(color >> 8U);
}
constexpr std::uint8_t GetBValue(TColor color)
{
    return static_cast<std::uint8_t>(color >> 16U);
}
constexpr TColor RGB(int red, int green, int blue)
{
    return static_cast<TColor>(red & 0xFF) | static_cast<TColor>(green & 0xFF) << 8U
        | static_cast<TColor>(blue & 0xFF) << 16U;
}

// The colour as red, green and blue: a system colour is looked up in the palette, of any other the highest byte is
// dropped. Without a palette the application's is asked.
TColor ColorToRGB(TColor color, const QPalette& palette);
TColor ColorToRGB(TColor color);

QColor ToQColor(TColor color, const QPalette& palette);
QColor ToQColor(TColor color);
TColor ToTColor(const QColor& color);
TColor ToTColor(QRgb color);
