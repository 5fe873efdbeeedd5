#include "visual/TImageList.h"

#include <QPainter>
#include <QPixmap>

TImageList::TImageList(QObject* owner)
    : QObject(owner)
{
}

TImageList::TImageList(int width, int height, QObject* owner)
    : QObject(owner)
    , FWidth(qMax(1, width))
    , FHeight(qMax(1, height))
{
}

void TImageList::SetSize(int width, int height)
{
    if (width == FWidth && height == FHeight)
        return;
    FWidth = qMax(1, width);
    FHeight = qMax(1, height);
    Clear();
}

void TImageList::SetBkColor(TColor color)
{
    FBkColor = color;
    Q_EMIT Changed();
}

void TImageList::SetDrawingStyle(TDrawingStyle style)
{
    FDrawingStyle = style;
    Q_EMIT Changed();
}

int TImageList::Add(const TBitmap& image, const TBitmap* mask)
{
    auto picture = TBitmap::Masked(image.Image(), clNone);
    if (mask != nullptr && !mask->Empty()) {
        auto alpha = mask->Image().convertToFormat(QImage::Format_Grayscale8).copy(picture.rect());
        alpha.invertPixels();
        picture.setAlphaChannel(alpha);
    }
    return Append(picture);
}

int TImageList::AddMasked(const TBitmap& image, TColor maskColor)
{
    return Append(TBitmap::Masked(image.Image(), maskColor == clDefault ? image.TransparentColor() : maskColor));
}

int TImageList::Append(const QImage& picture)
{
    if (picture.isNull())
        return -1;
    const auto first = Count();
    const auto pictures = qMax(1, picture.width() / FWidth);
    for (int i = 0; i < pictures; ++i)
        FImages << picture.copy(i * FWidth, 0, FWidth, FHeight);
    Q_EMIT Changed();
    return first;
}

void TImageList::Delete(int index)
{
    if (index < 0 || index >= Count())
        return;
    FImages.removeAt(index);
    Q_EMIT Changed();
}

void TImageList::Clear()
{
    FImages.clear();
    Q_EMIT Changed();
}

void TImageList::Assign(const TImageList& source)
{
    FWidth = source.FWidth;
    FHeight = source.FHeight;
    FImages = source.FImages;
    Q_EMIT Changed();
}

void TImageList::Draw(QPainter& painter, int x, int y, int index) const
{
    if (index < 0 || index >= Count())
        return;
    if (FBkColor != clNone && FDrawingStyle != dsTransparent)
        painter.fillRect(x, y, FWidth, FHeight, ToQColor(FBkColor));
    painter.drawImage(x, y, FImages.at(index));
}

bool TImageList::GetBitmap(int index, TBitmap& image) const
{
    if (index < 0 || index >= Count())
        return false;
    image = TBitmap(FWidth, FHeight);
    QPainter painter(&image.Image());
    Draw(painter, 0, 0, index);
    return true;
}

QIcon TImageList::Icon(int index) const
{
    const auto picture = Image(index);
    return picture.isNull() ? QIcon() : QIcon(QPixmap::fromImage(picture));
}
