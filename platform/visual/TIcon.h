#pragma once

#include "visual/TBitmap.h"

// Numbers of system metrics: width and height of an icon.
constexpr int SM_CXICON = 11;
constexpr int SM_CYICON = 12;
// In pixels; 0 for a number that has no meaning here.
int GetSystemMetrics(int index);

// An icon: its colours, and a mask that says which pixels are seen. A value.
class TIcon : public TGraphic {
public:
    TIcon() = default;
    // Pixels that are white in the mask are not seen; both have one size.
    TIcon(const QImage& color, const QImage& mask);

    bool Empty() const override { return FColor.isNull(); }
    int Width() const override { return FColor.width(); }
    int Height() const override { return FColor.height(); }
    // The colours with what is not seen made see-through.
    QImage ToImage() const override;

    const QImage& Color() const { return FColor; }
    const QImage& Mask() const { return FMask; }
    void Assign(const TIcon& icon) { *this = icon; }

private:
    QImage FColor;
    QImage FMask;
};
