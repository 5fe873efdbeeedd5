#pragma once

#include "visual/TBitmap.h"

#include <array>
#include <cstdint>
#include <vector>

// A two-pass separable image scaler on 32-bit pixels with seven filters and fixed-point weights.
//
// To add a filter: a value at the end of TResamplingFilter, its radius in DefaultFilterRadius, its function in the
// table of FilterFunction, and its rows in the tests and in the benchmark.

enum TResamplingFilter { rfBox, rfTriangle, rfHermite, rfBell, rfSpline, rfLanczos3, rfMitchell };

inline constexpr std::array<float, 7> DefaultFilterRadius { 0.5F, 1.0F, 1.0F, 1.5F, 2.0F, 3.0F, 2.0F };

// The weight of a pixel by its distance, in pixels, from the place asked for.
using TBitmapFilterFunction = float (*)(float distance);

// A pixel as it lies in memory.
struct TBGRA {
    std::uint8_t B;
    std::uint8_t G;
    std::uint8_t R;
    std::uint8_t A;

    friend bool operator==(const TBGRA&, const TBGRA&) = default;
};

struct TRGBInt {
    int R = 0;
    int G = 0;
    int B = 0;
};

// One source pixel's share of one target pixel.
struct TContributor {
    int Weight = 0;
    int Pixel = 0;

    friend bool operator==(const TContributor&, const TContributor&) = default;
};

using TContributors = std::vector<TContributor>;

// What one target column or row is made of: the first N contributors.
struct TContributorEntry {
    int N = 0;
    TContributors Contributors;
};

// One entry for each target column or row.
using TContributorList = std::vector<TContributorEntry>;

// nil for a value outside the table.
TBitmapFilterFunction FilterFunction(TResamplingFilter filter);

// The contributors of every column (or row) when `sourceSize` of them become `targetSize`. Both sizes are at least 1.
TContributorList MakeContributors(TBitmapFilterFunction filter, float radius, int sourceSize, int targetSize);

// A pixel from its contributors in one line of pixels. Its A is 255.
TBGRA ComputePixel(const TContributorEntry& entry, const TBGRA* line);

// Scales `source` in place.
void Stretch(unsigned newWidth, unsigned newHeight, TResamplingFilter filter, float radius, TBitmap& source);

// Scales `source` into `target`, which becomes a transparent 32-bit bitmap of the new size and loses what it had; the
// two may be the same. A radius of 0 is the filter's own. Nothing happens with an empty source or a filter outside the
// table; a new width or height of 0 empties the target.
void Stretch(unsigned newWidth, unsigned newHeight, TResamplingFilter filter, float radius, const TGraphic& source,
    TBitmap& target);
