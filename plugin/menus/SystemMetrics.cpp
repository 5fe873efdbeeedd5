#include "menus/SystemMetrics.h"

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionMenuItem>

bool NewStyleControls = true;

namespace {

int heightOfBar(const QStyle& style, const QFont& font)
{
    QStyleOptionMenuItem option;
    option.font = font;
    option.fontMetrics = QFontMetrics(font);
    option.text = QStringLiteral("X");
    const QSize text(option.fontMetrics.horizontalAdvance(option.text), option.fontMetrics.height());
    return style.sizeFromContents(QStyle::CT_MenuBarItem, &option, text, nullptr).height();
}

}

int GetSystemMetrics(int index, const QStyle& style, const QFont& menuFont)
{
    switch (index) {
    case SM_CYMENU:
        return heightOfBar(style, menuFont);
    case SM_CXMENUCHECK:
        return style.pixelMetric(QStyle::PM_IndicatorWidth);
    case SM_CYMENUCHECK:
        return style.pixelMetric(QStyle::PM_IndicatorHeight);
    default:
        return 0;
    }
}

bool SystemParametersInfo(int code, QFont& font)
{
    if (code != SPI_GETNONCLIENTMETRICS)
        return false;
    font = QApplication::font("QMenu");
    return true;
}

bool SystemParametersInfo(int code, const QStyle& style)
{
    return code == SPI_GETFLATMENU && style.pixelMetric(QStyle::PM_MenuBarPanelWidth) == 0;
}
