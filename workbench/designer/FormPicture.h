#pragma once

#include "designer/FormLayout.h"

#include <QImage>
#include <QPalette>

class Module;

// A whole form as a picture: its frame with the title, the client area, all that stands on it. The surface shows one;
// RenderForm makes one to keep. All points are those of the picture.
class FormPicture {
public:
    explicit FormPicture(const PackageList& packages)
        : Layout(packages)
        , FPackages(packages)
    {
    }

    static constexpr int Margin = 16;
    static constexpr int TitleHeight = 30;

    void Make(TComponent* root);
    QSize Size() const;
    // Where the client area of the root begins.
    QPoint ClientOrigin() const { return { Margin, Margin + FTitleHeight }; }
    QRect ClientRect() const { return { ClientOrigin(), Layout.ClientSize() }; }
    // Paints what meets the rectangle.
    void Paint(QPainter& painter, const QRect& visible, const QPalette& palette, bool withGrid) const;

    FormLayout Layout;

private:
    void PaintGrid(QPainter& painter, const QRect& visible, const QPalette& palette) const;

    const PackageList& FPackages;
    int FTitleHeight = 0;
};

// A picture of the module's form as its surface shows it, without selection; null for a module without a form.
QImage RenderForm(Module& module, const PackageList& packages, qreal scale = 1);
