// Scaling pictures with each filter, beside the same work of Qt and of ImageMagick in the same process.
#include "support/MrvResample.h"

#include <QImage>

#include <benchmark/benchmark.h>

#ifdef MORVANE_HAS_MAGICK
#include <magick/MagickCore.h>
#endif

namespace {

struct Job {
    const char* name;
    int fromWidth, fromHeight, toWidth, toHeight;
};

constexpr std::array<Job, 3> Jobs { { { "24to16", 24, 24, 16, 16 }, { "256to16", 256, 256, 16, 16 },
    { "4000x3000to800x600", 4000, 3000, 800, 600 } } };

struct Filter {
    const char* name;
    TResamplingFilter ours;
    const char* theirs;
};

// The bell is the quadratic B-spline, and is filed under that name by others.
constexpr std::array<Filter, 7> FilterNames { { { "Box", rfBox, "Box" }, { "Triangle", rfTriangle, "Triangle" },
    { "Hermite", rfHermite, "Hermite" }, { "Bell", rfBell, "Quadratic" }, { "Spline", rfSpline, "Spline" },
    { "Lanczos3", rfLanczos3, "Lanczos" }, { "Mitchell", rfMitchell, "Mitchell" } } };

// A picture with an edge or a slope everywhere, so that no scaler can take a short way.
QImage picture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            row[x] = qRgb((x * 7) ^ (y * 3), (x * y) >> 4, (x ^ y) * 5);
    }
    return image;
}

void stretch(benchmark::State& state, const Job& job, TResamplingFilter filter)
{
    const TBitmap source(picture(job.fromWidth, job.fromHeight));
    for (auto _ : state) {
        TBitmap target;
        Stretch(job.toWidth, job.toHeight, filter, 0, source, target);
        benchmark::DoNotOptimize(target.Image().constBits());
    }
}

void smooth(benchmark::State& state, const Job& job)
{
    const auto source = picture(job.fromWidth, job.fromHeight);
    for (auto _ : state) {
        const auto target = source.scaled(job.toWidth, job.toHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        benchmark::DoNotOptimize(target.constBits());
    }
}

#ifdef MORVANE_HAS_MAGICK

void magick(benchmark::State& state, const Job& job, const char* filter)
{
    auto pixels = picture(job.fromWidth, job.fromHeight);
    auto* failure = AcquireExceptionInfo();
    auto* source = ConstituteImage(job.fromWidth, job.fromHeight, "BGRP", CharPixel, pixels.constBits(), failure);
    const auto kind = static_cast<FilterTypes>(ParseCommandOption(MagickFilterOptions, MagickFalse, filter));
    for (auto _ : state) {
        auto* target = ResizeImage(source, job.toWidth, job.toHeight, kind, 1.0, failure);
        benchmark::DoNotOptimize(target);
        DestroyImage(target);
    }
    DestroyImage(source);
    DestroyExceptionInfo(failure);
}

#endif

benchmark::internal::Benchmark* add(const std::string& name, auto run)
{
    return benchmark::RegisterBenchmark(name.c_str(), run)->UseRealTime()->Unit(benchmark::kMicrosecond);
}

void registerAll()
{
    for (const auto& job : Jobs) {
        const auto size = std::string(job.name);
        add("Qt/smooth/" + size, [job](benchmark::State& state) { smooth(state, job); });
        for (const auto& filter : FilterNames) {
            const auto name = std::string(filter.name) + '/' + size;
            add("Stretch/" + name, [=](benchmark::State& state) { stretch(state, job, filter.ours); });
#ifdef MORVANE_HAS_MAGICK
            add("Magick/" + name, [=](benchmark::State& state) { magick(state, job, filter.theirs); });
#endif
        }
    }
}

}

int main(int argc, char** argv)
{
#ifdef MORVANE_HAS_MAGICK
    MagickCoreGenesis(*argv, MagickFalse);
#endif
    registerAll();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
#ifdef MORVANE_HAS_MAGICK
    MagickCoreTerminus();
#endif
    return 0;
}
