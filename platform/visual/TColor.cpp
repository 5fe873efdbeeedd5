#include "visual/TColor.h"

#include <QGuiApplication>

#include <array>

namespace {

struct Place {
    QPalette::ColorRole role;
    QPalette::ColorGroup group = QPalette::Active;
};

// The palette's place of each system colour, by its number.
constexpr std::array<Place, 31> Places { {
    { QPalette::Window }, // scroll bar
    { QPalette::Window }, // desktop
    { QPalette::Highlight }, // caption of the active window
    { QPalette::Window }, // caption of another window
    { QPalette::Window }, // menu
    { QPalette::Base }, // window
    { QPalette::Shadow }, // window frame
    { QPalette::WindowText }, // menu text
    { QPalette::Text }, // window text
    { QPalette::HighlightedText }, // caption text
    { QPalette::Window }, // active border
    { QPalette::Window }, // inactive border
    { QPalette::Dark }, // workspace
    { QPalette::Highlight }, // highlight
    { QPalette::HighlightedText }, // highlight text
    { QPalette::Button }, // button face
    { QPalette::Dark }, // button shadow
    { QPalette::Text, QPalette::Disabled }, // gray text
    { QPalette::ButtonText }, // button text
    { QPalette::WindowText, QPalette::Disabled }, // caption text of another window
    { QPalette::Light }, // button highlight
    { QPalette::Shadow }, // dark shadow
    { QPalette::Midlight }, // light edge
    { QPalette::ToolTipText }, // hint text
    { QPalette::ToolTipBase }, // hint background
    { QPalette::Window }, // not in use
    { QPalette::Link }, // hot light
    { QPalette::Highlight }, // gradient of the active caption
    { QPalette::Window }, // gradient of another caption
    { QPalette::Highlight }, // menu highlight
    { QPalette::Window }, // menu bar
} };

}

TColor ColorToRGB(TColor color, const QPalette& palette)
{
    if ((color >> 24U) != 0xFF)
        return color & 0xFFFFFF;
    const auto index = color & 0xFF;
    if (index >= Places.size())
        return 0;
    return ToTColor(palette.color(Places.at(index).group, Places.at(index).role));
}

TColor ColorToRGB(TColor color)
{
    return ColorToRGB(color, QGuiApplication::palette());
}

QColor ToQColor(TColor color, const QPalette& palette)
{
    const auto rgb = ColorToRGB(color, palette);
    return { GetRValue(rgb), GetGValue(rgb), GetBValue(rgb) };
}

QColor ToQColor(TColor color)
{
    return ToQColor(color, QGuiApplication::palette());
}

TColor ToTColor(const QColor& color)
{
    return RGB(color.red(), color.green(), color.blue());
}

TColor ToTColor(QRgb color)
{
    return RGB(qRed(color), qGreen(color), qBlue(color));
}
