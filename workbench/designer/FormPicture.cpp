#include "designer/FormPicture.h"

#include "classes/Forms.h"
#include "designer/ControlPainter.h"
#include "services/Module.h"

#include <QApplication>

#include <cmath>

namespace {

constexpr int GridStep = 8;
// An icon's name stands below it and may be wider than the icon.
constexpr QMargins IconSurroundings { 80, 2, 80, 20 };
constexpr QMargins LabelSurroundings { 0, 2, 200, 2 };

QRect PaintedRect(const LaidOut& item)
{
    if (item.IsIcon)
        return item.Rect.marginsAdded(IconSurroundings);
    return item.Draw == u"label" ? item.Rect.marginsAdded(LabelSurroundings) : item.Visible;
}

}

void FormPicture::Make(TComponent* root)
{
    Layout.Make(root);
    FTitleHeight = dynamic_cast<TCustomForm*>(root) ? TitleHeight : 0;
}

QSize FormPicture::Size() const
{
    auto size = ClientRect().marginsAdded({ Margin, 0, Margin, Margin }).size();
    for (const auto& item : Layout.Items())
        if (item.IsIcon) {
            const auto corner = ClientOrigin() + item.Rect.bottomRight() + QPoint(40, 24);
            size = size.expandedTo({ corner.x(), corner.y() });
        }
    return { size.width(), std::max(size.height(), ClientRect().bottom() + Margin) };
}

void FormPicture::PaintGrid(QPainter& painter, const QRect& visible, const QPalette& palette) const
{
    const auto area = visible & QRect({ 0, 0 }, Layout.ClientSize());
    auto color = palette.color(QPalette::WindowText);
    color.setAlpha(60);
    painter.setPen(color);
    QList<QPoint> dots;
    for (int y = area.y() - area.y() % GridStep; y <= area.bottom(); y += GridStep)
        for (int x = area.x() - area.x() % GridStep; x <= area.right(); x += GridStep)
            dots << QPoint(x, y);
    painter.drawPoints(dots.constData(), int(dots.size()));
}

void FormPicture::Paint(QPainter& painter, const QRect& visible, const QPalette& palette, bool withGrid) const
{
    if (!Layout.Root())
        return;
    painter.save();
    painter.translate(ClientOrigin());
    const auto seen = visible.translated(-ClientOrigin());
    ControlPainter controls(painter, Layout, palette, FPackages);
    controls.PaintRoot({ { 0, 0 }, Layout.ClientSize() }, FTitleHeight);
    if (withGrid && !Layout.IsContainer())
        PaintGrid(painter, seen, palette);
    for (const auto& item : Layout.Items())
        if (PaintedRect(item).intersects(seen))
            controls.Paint(item);
    painter.restore();
}

QImage RenderForm(Module& module, const PackageList& packages, qreal scale)
{
    if (!module.HasDesigner() || !module.TheDesigner().Root())
        return {};
    FormPicture picture(packages);
    picture.Make(module.TheDesigner().Root());
    const auto size = QSizeF(picture.Size()) * scale;
    QImage image(int(std::ceil(size.width())), int(std::ceil(size.height())), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    const auto palette = QApplication::palette();
    image.fill(palette.color(QPalette::Window).darker(105));
    QPainter painter(&image);
    picture.Paint(painter, { { 0, 0 }, picture.Size() }, palette, false);
    return image;
}
