#pragma once

#include "menus/MrvMenus.h"
#include "support/PrintQt.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOptionMenuItem>

// A menu in a known style, font and palette, whose items are measured and painted as an open menu would have it.
class MenuStage {
public:
    explicit MenuStage(TMenuStyle style = msStandard)
    {
        QApplication::setStyle(QStringLiteral("Fusion"));
        QApplication::setPalette(palette());
        menu.setPalette(palette());
        menu.SetStyle(style);
    }

    // Every role in a colour of its own.
    static QPalette palette()
    {
        QPalette palette(QColor(236, 233, 230));
        palette.setColor(QPalette::Base, QColor(255, 255, 255));
        palette.setColor(QPalette::Button, QColor(230, 230, 220));
        palette.setColor(QPalette::Light, QColor(250, 250, 255));
        palette.setColor(QPalette::Dark, QColor(120, 120, 110));
        palette.setColor(QPalette::Highlight, QColor(49, 106, 197));
        palette.setColor(QPalette::HighlightedText, QColor(255, 255, 254));
        palette.setColor(QPalette::WindowText, QColor(1, 1, 1));
        palette.setColor(QPalette::Disabled, QPalette::Text, QColor(130, 131, 132));
        return palette;
    }

    static QFont font()
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(12);
        // Every pixel of a text has the text's colour.
        font.setStyleStrategy(QFont::NoAntialias);
        return font;
    }

    static QFontMetrics metrics() { return QFontMetrics(font()); }
    static int width(const QString& text) { return metrics().size(Qt::TextSingleLine, text).width(); }

    TMenuItem* add(const QString& caption, TShortCut shortCut = scNone, TMenuItem* parent = nullptr)
    {
        auto* item = new TMenuItem;
        item->SetCaption(caption);
        item->SetShortCut(shortCut);
        (parent == nullptr ? menu.Items() : *parent).Add(item);
        return item;
    }

    QStyleOptionMenuItem option(const TMenuItem& item, TMenuOwnerDrawState state = {}) const
    {
        QStyleOptionMenuItem option;
        option.font = font();
        option.fontMetrics = metrics();
        option.palette = palette();
        option.checked = item.Checked();
        option.state.setFlag(QStyle::State_Enabled, !state.testFlag(mdDisabled));
        option.state.setFlag(QStyle::State_Selected, state.testFlag(mdSelected));
        option.state.setFlag(QStyle::State_MouseOver, state.testFlag(mdHotlight));
        return option;
    }

    QSize measure(TMenuItem* item) { return menu.WMMeasureItem(*item, option(*item)); }

    // The item painted at (0, 0) in this size, on a ground of magenta.
    QImage paint(TMenuItem* item, QSize size, TMenuOwnerDrawState state = {})
    {
        return paintInto(item, QRect(QPoint(0, 0), size), size, state);
    }

    QImage paintInto(TMenuItem* item, QRect rect, QSize size, TMenuOwnerDrawState state = {})
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        auto how = option(*item, state);
        how.rect = rect;
        menu.WMDrawItem(painter, *item, how);
        return image;
    }

    TPopupMenuEx menu;
};

// A painter of any class that writes down the steps of Paint, each with what it was given.
template <class Painter>
class Logging : public Painter {
public:
    using Painter::Painter;
    QStringList steps;

    QString take()
    {
        const auto all = steps.join(u'\n');
        steps.clear();
        return all;
    }

protected:
    static QString text(const TRect& r)
    {
        return QStringLiteral("(%1,%2,%3,%4)").arg(r.Left).arg(r.Top).arg(r.Right).arg(r.Bottom);
    }
    static QString text(int x, int y) { return QStringLiteral("(%1,%2)").arg(x).arg(y); }

    void PreparePaint(TMenuItem* item, const TRect& rect, TMenuOwnerDrawState state, bool measuring) override
    {
        steps << QStringLiteral("PreparePaint") + text(rect) + (measuring ? u" measuring"_qs : u""_qs);
        Painter::PreparePaint(item, rect, state, measuring);
    }
    void DrawItemBackground(const TRect& rect) override
    {
        steps << QStringLiteral("DrawItemBackground") + text(rect);
        Painter::DrawItemBackground(rect);
    }
    void DrawLeftMargin(const TRect& rect) override
    {
        steps << QStringLiteral("DrawLeftMargin") + text(rect);
        Painter::DrawLeftMargin(rect);
    }
    void DrawCheckMarkBackground(const TRect& rect) override
    {
        steps << QStringLiteral("DrawCheckMarkBackground") + text(rect);
        Painter::DrawCheckMarkBackground(rect);
    }
    void DrawImageBackground(const TRect& rect) override
    {
        steps << QStringLiteral("DrawImageBackground") + text(rect);
        Painter::DrawImageBackground(rect);
    }
    void DrawTextBackground(const TRect& rect) override
    {
        steps << QStringLiteral("DrawTextBackground") + text(rect);
        Painter::DrawTextBackground(rect);
    }
    void DrawSelectedFrame(const TRect& rect) override
    {
        steps << QStringLiteral("DrawSelectedFrame") + text(rect);
        Painter::DrawSelectedFrame(rect);
    }
    void DrawCheckImage(const TRect& rect) override
    {
        steps << QStringLiteral("DrawCheckImage") + text(rect);
        Painter::DrawCheckImage(rect);
    }
    void DrawGlyphCheck(const TRect& rect) override
    {
        steps << QStringLiteral("DrawGlyphCheck") + text(rect);
        Painter::DrawGlyphCheck(rect);
    }
    void DrawCheckedImageBack(const TRect& rect) override
    {
        steps << QStringLiteral("DrawCheckedImageBack") + text(rect);
        Painter::DrawCheckedImageBack(rect);
    }
    void DrawNotCheckedImageBack(const TRect& rect) override
    {
        steps << QStringLiteral("DrawNotCheckedImageBack") + text(rect);
        Painter::DrawNotCheckedImageBack(rect);
    }
    void DrawEnabledImage(int x, int y) override
    {
        steps << QStringLiteral("DrawEnabledImage") + text(x, y);
        Painter::DrawEnabledImage(x, y);
    }
    void DrawDisabledImage(int x, int y) override
    {
        steps << QStringLiteral("DrawDisabledImage") + text(x, y);
        Painter::DrawDisabledImage(x, y);
    }
    void DrawMenuBitmap(int x, int y, const TBitmap& bitmap) override
    {
        steps << QStringLiteral("DrawMenuBitmap") + text(x, y)
                + QStringLiteral(" %1x%2").arg(bitmap.Width()).arg(bitmap.Height());
        Painter::DrawMenuBitmap(x, y, bitmap);
    }
    void DrawDisabledBitmap(int x, int y, const TBitmap& bitmap) override
    {
        steps << QStringLiteral("DrawDisabledBitmap") + text(x, y);
        Painter::DrawDisabledBitmap(x, y, bitmap);
    }
    void DrawSeparator(const TRect& rect) override
    {
        steps << QStringLiteral("DrawSeparator") + text(rect);
        Painter::DrawSeparator(rect);
    }
    void DrawItemText(const TRect& rect, const QString& caption, unsigned flags) override
    {
        steps << QStringLiteral("DrawItemText") + text(rect) + u' ' + caption + u' ' + QString::number(flags);
        Painter::DrawItemText(rect, caption, flags);
    }
};
