#pragma once

#include <QProxyStyle>

class TMenuItem;
class TPopupMenuEx;

// The widget style of a menu that draws its items: it hands them to the menu to measure and to draw, and has the
// frame of the popup painted. All else is the style of the application.
//
// The item comes with the option, as the object that is styled.
class PopupMenuStyle : public QProxyStyle {
    Q_OBJECT
public:
    explicit PopupMenuStyle(TPopupMenuEx& menu);

    QSize sizeFromContents(
        ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const override;
    void drawControl(
        ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;
    void drawPrimitive(
        PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

private:
    void drawSubMenuArrow(const QStyleOption& option, QPainter& painter) const;

    TPopupMenuEx& FMenu;
};
