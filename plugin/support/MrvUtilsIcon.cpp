#include "rtl/TResourceStream.h"
#include "support/MrvUtils.h"
#include "visual/TIcon.h"

std::unique_ptr<TIcon> TMrvUtils::BitmapToIcon(const TBitmap& bitmap)
{
    const QSize size(GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON));
    TBitmap color(bitmap.Image().scaled(size).convertToFormat(QImage::Format_RGB32));
    const TColor key = bitmap.TransparentColor() & 0x00FFFFFFU;
    QImage mask(size, QImage::Format_RGB32);
    mask.fill(Qt::black);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            if (color.Pixel(x, y) == key) {
                mask.setPixel(x, y, qRgb(255, 255, 255));
                color.SetPixel(x, y, clBlack);
            }
    return std::make_unique<TIcon>(color.Image(), mask);
}

void TMrvUtils::SetIcon(TIcon& icon)
{
    TBitmap bitmap;
    bitmap.LoadFromResourceName(QStringLiteral(":/package/%1").arg(int(RT_BITMAP)), QStringLiteral("#106"));
    icon.Assign(*BitmapToIcon(bitmap));
}
