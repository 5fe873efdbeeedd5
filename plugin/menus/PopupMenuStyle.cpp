#include "menus/PopupMenuStyle.h"

#include "menus/TPopupMenuEx.h"
#include "menus/TXPMenuItemPainter.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOptionMenuItem>

namespace {

// The outline of the popup, and what is left inside of it for the painter to fill.
constexpr int OutlineWidth = 1;
constexpr int BorderWidth = 2;

TMenuItem* itemOf(const QStyleOption* option)
{
    return option == nullptr ? nullptr : qobject_cast<TMenuItem*>(option->styleObject);
}

TXPMenuItemPainter* borderPainter(const TPopupMenuEx& menu)
{
    return qobject_cast<TXPMenuItemPainter*>(&menu.GetActiveItemPainter());
}

}

PopupMenuStyle::PopupMenuStyle(TPopupMenuEx& menu)
    : QProxyStyle(QApplication::style()->name())
    , FMenu(menu)
{
}

QSize PopupMenuStyle::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const
{
    auto* item = itemOf(option);
    if (type != CT_MenuItem || item == nullptr)
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    return FMenu.WMMeasureItem(*item, *qstyleoption_cast<const QStyleOptionMenuItem*>(option));
}

void PopupMenuStyle::drawControl(
    ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    auto* item = itemOf(option);
    if (element != CE_MenuItem || item == nullptr) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    FMenu.WMDrawItem(*painter, *item, *qstyleoption_cast<const QStyleOptionMenuItem*>(option));
    if (item->Count() > 0 && FMenu.Style() != msOwnerDraw)
        drawSubMenuArrow(*option, *painter);
}

// In the place of the two blanks that a menu with submenus is wider by.
void PopupMenuStyle::drawSubMenuArrow(const QStyleOption& option, QPainter& painter) const
{
    QStyleOption arrow = option;
    const auto side = option.fontMetrics.horizontalAdvance(QStringLiteral("  "));
    arrow.rect = alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter, QSize(side, side), option.rect);
    const auto rightToLeft = option.direction == Qt::RightToLeft;
    baseStyle()->drawPrimitive(rightToLeft ? PE_IndicatorArrowLeft : PE_IndicatorArrowRight, &arrow, &painter);
}

void PopupMenuStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    auto* border = borderPainter(FMenu);
    if (element != PE_FrameMenu || border == nullptr)
        return;
    TRect inside(option->rect);
    inside.Inflate(-OutlineWidth, -OutlineWidth);
    border->DrawPopupBorder(*painter, inside, BorderWidth);
}

int PopupMenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return 0;
    case PM_MenuPanelWidth:
        if (borderPainter(FMenu) != nullptr)
            return OutlineWidth + BorderWidth;
        break;
    default:
        break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}
