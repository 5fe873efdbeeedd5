#include "visual/TBitmap.h"

#include <QImageReader>

#include <algorithm>
#include <utility>

namespace {

QImage::Format formatOf(TPixelFormat format)
{
    switch (format) {
    case pf1bit:
        return QImage::Format_Mono;
    case pf8bit:
        return QImage::Format_Indexed8;
    case pf24bit:
        return QImage::Format_RGB888;
    case pf32bit:
        break;
    }
    return QImage::Format_RGB32;
}

QImage whiteImage(int width, int height, TPixelFormat format)
{
    if (width <= 0 || height <= 0)
        return {};
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    return format == pf32bit ? image : image.convertToFormat(formatOf(format));
}

}

TBitmap::TBitmap(const QImage& image)
    : FImage(image)
{
}

TBitmap::TBitmap(int width, int height, TPixelFormat format)
    : FImage(whiteImage(width, height, format))
{
}

void TBitmap::SetSize(int width, int height)
{
    FImage = whiteImage(width, height, PixelFormat());
}

TPixelFormat TBitmap::PixelFormat() const
{
    switch (FImage.depth()) {
    case 1:
        return pf1bit;
    case 8:
        return pf8bit;
    case 24:
        return pf24bit;
    default:
        return pf32bit;
    }
}

void TBitmap::SetPixelFormat(TPixelFormat format)
{
    if (!Empty() && PixelFormat() != format)
        FImage.convertTo(formatOf(format), Qt::ThresholdDither);
}

TColor TBitmap::TransparentColor() const
{
    return FTransparentMode == tmFixed ? FTransparentColor : Pixel(0, Height() - 1);
}

void TBitmap::SetTransparentColor(TColor color)
{
    FTransparentColor = color;
    FTransparentMode = color == clDefault ? tmAuto : tmFixed;
}

TColor TBitmap::Pixel(int x, int y) const
{
    return FImage.valid(x, y) ? ToTColor(FImage.pixel(x, y)) : clNone;
}

void TBitmap::SetPixel(int x, int y, TColor color)
{
    if (!FImage.valid(x, y))
        return;
    if (FImage.colorCount() == 0) {
        FImage.setPixelColor(x, y, ToQColor(color));
        return;
    }
    // A picture with a palette takes a new colour by becoming one without.
    const auto entry = FImage.colorTable().indexOf(ToQColor(color).rgb());
    if (entry >= 0) {
        FImage.setPixel(x, y, static_cast<uint>(entry));
        return;
    }
    FImage.convertTo(QImage::Format_RGB32);
    FImage.setPixelColor(x, y, ToQColor(color));
}

QImage TBitmap::Masked() const
{
    return Masked(FImage, FTransparent ? TransparentColor() : clNone);
}

QImage TBitmap::Masked(const QImage& image, TColor color)
{
    auto masked = image.convertToFormat(QImage::Format_ARGB32);
    if (color == clNone || image.hasAlphaChannel())
        return masked;
    const auto key = ToQColor(color).rgb();
    for (int y = 0; y < masked.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(masked.scanLine(y));
        std::replace(row, row + masked.width(), key, QRgb(0));
    }
    return masked;
}

bool TBitmap::LoadFromResourceName(const QString& module, const QString& name)
{
    QImageReader reader(module + u'/' + name);
    reader.setDecideFormatFromContent(true);
    const auto image = reader.read();
    if (image.isNull())
        return false;
    FImage = image;
    return true;
}

HBITMAP TBitmap::ReleaseHandle()
{
    return std::exchange(FImage, QImage());
}
