#include "visual/TIcon.h"

int GetSystemMetrics(int index)
{
    return index == SM_CXICON || index == SM_CYICON ? 32 : 0;
}

TIcon::TIcon(const QImage& color, const QImage& mask)
    : FColor(color)
    , FMask(mask)
{
}

QImage TIcon::ToImage() const
{
    QImage image = FColor.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (FMask.valid(x, y) && qGray(FMask.pixel(x, y)) != 0)
                image.setPixel(x, y, image.pixel(x, y) & 0x00FFFFFFU);
    return image;
}
