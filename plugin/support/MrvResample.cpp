#include "support/MrvResample.h"

#include "support/ResamplePass.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <numbers>

namespace {

double sinc(double t)
{
    const auto angle = std::numbers::pi * t;
    return t == 0 ? 1 : std::sin(angle) / angle;
}

float box(float distance)
{
    return distance > -0.5F && distance <= 0.5F ? 1 : 0;
}

float triangle(float distance)
{
    const double x = std::abs(distance);
    return static_cast<float>(x < 1 ? 1 - x : 0);
}

float hermite(float distance)
{
    const double x = std::abs(distance);
    return static_cast<float>(x < 1 ? (2 * x - 3) * x * x + 1 : 0);
}

float bell(float distance)
{
    const double x = std::abs(distance);
    if (x < 0.5)
        return static_cast<float>(0.75 - x * x);
    return static_cast<float>(x < 1.5 ? 0.5 * (x - 1.5) * (x - 1.5) : 0);
}

float spline(float distance)
{
    const double x = std::abs(distance);
    if (x < 1)
        return static_cast<float>(0.5 * x * x * x - x * x + 2.0 / 3.0);
    return static_cast<float>(x < 2 ? (2 - x) * (2 - x) * (2 - x) / 6 : 0);
}

float lanczos3(float distance)
{
    const double x = std::abs(distance);
    return static_cast<float>(x < 3 ? sinc(x) * sinc(x / 3) : 0);
}

float mitchell(float distance)
{
    const double x = std::abs(distance);
    if (x < 1)
        return static_cast<float>((7 * x * x * x - 12 * x * x + 16.0 / 3.0) / 6);
    return static_cast<float>(x < 2 ? (-(7.0 / 3.0) * x * x * x + 12 * x * x - 20 * x + 32.0 / 3.0) / 6 : 0);
}

constexpr std::array<TBitmapFilterFunction, 7> Filters { box, triangle, hermite, bell, spline, lanczos3, mitchell };

// No filter has a value other than 0 this far away or farther.
constexpr double Reach = 3;

// A pixel beyond an edge is the one as far inside of it. A radius larger than the source takes more than one turn.
int reflected(int pixel, int size)
{
    while (pixel < 0 || pixel >= size)
        pixel = pixel < 0 ? -pixel : size - pixel + size - 1;
    return pixel;
}

// The scale as a 32-bit float, as the weights need it.
float scaleOf(int sourceSize, int targetSize)
{
    const double scale = sourceSize == 1 ? targetSize : static_cast<double>(targetSize - 1) / (sourceSize - 1);
    return static_cast<float>(scale);
}

int toInt(double value)
{
    return static_cast<int>(std::clamp<double>(value, INT_MIN / 2, INT_MAX / 2));
}

TContributorEntry entryFor(TBitmapFilterFunction filter, float radius, double center, float scale, int sourceSize)
{
    const auto shrink = std::min(scale, 1.0F);
    const auto width = static_cast<double>(radius) / shrink;
    // Pixels out of the filter's reach weigh nothing: a huge radius costs no time.
    const auto reach = Reach / shrink + 1;
    const auto left = toInt(std::max(std::floor(center - reach), std::floor(center - width)));
    const auto right = toInt(std::min(std::ceil(center + reach), std::ceil(center + width)));
    TContributorEntry entry;
    entry.Contributors.reserve(right < left ? 0 : right - left + 1);
    for (int j = left; j <= right; ++j) {
        const auto value = filter(static_cast<float>((center - j) * shrink));
        const auto weight = static_cast<int>(std::nearbyint(static_cast<double>(value) * shrink * 256));
        if (weight != 0)
            entry.Contributors.push_back({ weight, reflected(j, sourceSize) });
    }
    entry.N = static_cast<int>(entry.Contributors.size());
    return entry;
}

// One target pixel has no distance to the next to scale by: it is made of the whole source in equal shares.
TContributorList wholeSource(int sourceSize)
{
    TContributorEntry entry { sourceSize, {} };
    for (int pixel = 0; pixel < sourceSize; ++pixel)
        entry.Contributors.push_back({ 1, pixel });
    return { entry };
}

void scale(const QImage& source, QImage& target, TBitmapFilterFunction filter, float radius)
{
    QImage work(Resample::roomyWidth(target.width()), source.height(), QImage::Format_RGB32);
    if (work.isNull()) {
        target = QImage();
        return;
    }
    const auto columns = MakeContributors(filter, radius, source.width(), target.width());
    Resample::acrossColumns(source, work, columns);
    const auto square = source.width() == source.height() && target.width() == target.height();
    Resample::acrossRows(
        work, target, square ? columns : MakeContributors(filter, radius, source.height(), target.height()));
}

}

TBitmapFilterFunction FilterFunction(TResamplingFilter filter)
{
    const auto index = static_cast<std::size_t>(filter);
    return index < Filters.size() ? Filters.at(index) : nullptr;
}

TContributorList MakeContributors(TBitmapFilterFunction filter, float radius, int sourceSize, int targetSize)
{
    if (targetSize == 1 && sourceSize > 1)
        return wholeSource(sourceSize);
    const auto scale = scaleOf(sourceSize, targetSize);
    TContributorList list(targetSize);
    for (int i = 0; i < targetSize; ++i)
        list[i] = entryFor(filter, radius, static_cast<double>(i) / scale, scale, sourceSize);
    return list;
}

void Stretch(unsigned newWidth, unsigned newHeight, TResamplingFilter filter, float radius, TBitmap& source)
{
    Stretch(newWidth, newHeight, filter, radius, source, source);
}

void Stretch(unsigned newWidth, unsigned newHeight, TResamplingFilter filter, float radius, const TGraphic& source,
    TBitmap& target)
{
    const auto function = FilterFunction(filter);
    if (source.Empty() || function == nullptr)
        return;
    if (radius == 0)
        radius = DefaultFilterRadius.at(filter);
    TBitmap temporary(source.ToImage().convertToFormat(QImage::Format_RGB32));
    temporary.SetTransparent(true);
    temporary.SetTransparentMode(tmAuto);

    target.FreeImage();
    target.SetPixelFormat(pf32bit);
    if (newWidth <= INT_MAX && newHeight <= INT_MAX)
        target.SetSize(static_cast<int>(newWidth), static_cast<int>(newHeight));
    target.SetTransparent(true);
    target.SetTransparentMode(tmAuto);
    if (!target.Empty())
        scale(temporary.Image(), target.Image(), function, radius);
    target.SetModified(true);
}
