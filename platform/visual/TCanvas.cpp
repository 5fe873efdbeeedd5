#include "visual/TCanvas.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace {

int textFlags(unsigned flags)
{
    int qt = Qt::TextSingleLine * ((flags & DT_SINGLELINE) != 0) | Qt::TextExpandTabs * ((flags & DT_EXPANDTABS) != 0);
    if ((flags & DT_NOPREFIX) == 0)
        qt |= Qt::TextShowMnemonic;
    if ((flags & DT_NOCLIP) != 0)
        qt |= Qt::TextDontClip;
    if ((flags & DT_RTLREADING) != 0)
        qt |= Qt::TextForceRightToLeft;
    return qt;
}

Qt::Alignment alignment(unsigned flags)
{
    if ((flags & DT_RIGHT) != 0)
        return Qt::AlignRight | Qt::AlignAbsolute;
    return (flags & DT_CENTER) != 0 ? Qt::AlignHCenter : Qt::AlignLeft | Qt::AlignAbsolute;
}

}

TCanvas::TCanvas(QPainter& painter)
    : FHandle(&painter)
{
}

QPalette TCanvas::DefaultPalette()
{
    return QGuiApplication::palette();
}

QPainter* TCanvas::Handle()
{
    if (FHandle == nullptr)
        CreateHandle();
    return FHandle;
}

void TCanvas::Fill(int x, int y, int width, int height, TColor color)
{
    if (width <= 0 || height <= 0 || color == clNone)
        return;
    if (auto* painter = Handle(); painter != nullptr)
        painter->fillRect(x, y, width, height, ToQColor(color, FPalette));
}

void TCanvas::FillRect(const TRect& rect)
{
    if (Brush.Style == bsSolid)
        Fill(rect.Left, rect.Top, rect.Right - rect.Left, rect.Bottom - rect.Top, Brush.Color);
}

void TCanvas::Rectangle(const TRect& rect)
{
    auto inside = rect;
    if (Pen.Style == psClear) {
        inside = TRect(rect.Left, rect.Top, rect.Right - 1, rect.Bottom - 1);
    } else if (!rect.IsEmpty()) {
        const auto right = rect.Right - 1;
        const auto bottom = rect.Bottom - 1;
        Fill(rect.Left, rect.Top, rect.Right - rect.Left, 1, Pen.Color);
        Fill(rect.Left, bottom, rect.Right - rect.Left, 1, Pen.Color);
        Fill(rect.Left, rect.Top, 1, rect.Bottom - rect.Top, Pen.Color);
        Fill(right, rect.Top, 1, rect.Bottom - rect.Top, Pen.Color);
        inside.Inflate(-1, -1);
    }
    FillRect(inside);
}

void TCanvas::LineTo(int x, int y)
{
    const auto from = FPenPos;
    MoveTo(x, y);
    if (Pen.Style == psClear)
        return;
    const auto dx = x - from.x();
    const auto dy = y - from.y();
    const auto half = Pen.Width / 2;
    // A line backwards begins at its right or lower end and leaves out the other one.
    if (dy == 0) {
        Fill(dx < 0 ? x + 1 : from.x(), y - half, std::abs(dx), Pen.Width, Pen.Color);
        return;
    }
    if (dx == 0) {
        Fill(x - half, dy < 0 ? y + 1 : from.y(), Pen.Width, std::abs(dy), Pen.Color);
        return;
    }
    const auto steps = std::max(std::abs(dx), std::abs(dy));
    for (int i = 0; i < steps; ++i)
        Fill(from.x() + qRound(double(dx) * i / steps) - half, from.y() + qRound(double(dy) * i / steps) - half,
            Pen.Width, Pen.Width, Pen.Color);
}

void TCanvas::Line(int fromX, int fromY, int toX, int toY)
{
    MoveTo(fromX, fromY);
    LineTo(toX, toY);
}

void TCanvas::SetPixel(int x, int y, TColor color)
{
    Fill(x, y, 1, 1, color);
}

void TCanvas::Draw(int x, int y, const QImage& image)
{
    if (auto* painter = Handle(); painter != nullptr && !image.isNull())
        painter->drawImage(x, y, image);
}

int TCanvas::TextHeight() const
{
    return QFontMetrics(Font.Font).height();
}

int TCanvas::TextWidth(const QString& text) const
{
    return CalcText(text, DT_SINGLELINE | DT_NOPREFIX).width();
}

QSize TCanvas::CalcText(const QString& text, unsigned flags) const
{
    return QFontMetrics(Font.Font).size(textFlags(flags), text);
}

void TCanvas::DrawText(const QString& text, const TRect& rect, unsigned flags)
{
    auto* painter = Handle();
    if (painter == nullptr)
        return;
    painter->setFont(Font.Font);
    painter->setPen(ToQColor(Font.Color, FPalette));
    if (Brush.Style == bsSolid)
        Fill(rect.Left, rect.Top, CalcText(text, flags).width(), TextHeight(), Brush.Color);
    painter->drawText(rect.ToQRect(), textFlags(flags) | static_cast<int>(alignment(flags)) | Qt::AlignTop, text);
}

int TCanvas::MapMode()
{
    const auto* painter = Handle();
    return painter != nullptr && painter->worldTransform().type() > QTransform::TxTranslate ? MM_ANISOTROPIC : MM_TEXT;
}

void Frame3D(TCanvas& canvas, TRect& rect, TColor top, TColor bottom, int width)
{
    canvas.Pen.Style = psSolid;
    canvas.Pen.Width = 1;
    for (; width > 0 && !rect.IsEmpty(); --width) {
        canvas.Pen.Color = top;
        canvas.Line(rect.Left, rect.Top, rect.Right - 1, rect.Top);
        canvas.Line(rect.Left, rect.Top, rect.Left, rect.Bottom - 1);
        canvas.Pen.Color = bottom;
        canvas.Line(rect.Right - 1, rect.Top, rect.Right - 1, rect.Bottom);
        canvas.Line(rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom - 1);
        rect.Inflate(-1, -1);
    }
}
