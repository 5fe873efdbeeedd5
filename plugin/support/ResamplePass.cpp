#include "support/ResamplePass.h"

#include "support/ResampleRuns.h"

#include <algorithm>
#include <cstring>

#ifdef __SSE2__
#include <immintrin.h>
#endif

namespace {

int channel(int sum, int total)
{
    return std::clamp(total != 0 ? sum / total : sum >> 8, 0, 255);
}

TBGRA pixelOf(const TRGBInt& sum, int total)
{
    const auto byte = [total](int s) { return static_cast<std::uint8_t>(channel(s, total)); };
    return { byte(sum.B), byte(sum.G), byte(sum.R), 255 };
}

const TBGRA* rowOf(const QImage& image, int row)
{
    return reinterpret_cast<const TBGRA*>(image.constScanLine(row));
}

TBGRA* rowOf(QImage& image, int row)
{
    return reinterpret_cast<TBGRA*>(image.scanLine(row));
}

void pixelByPixelAcrossColumns(const QImage& source, QImage& target, const TContributorList& columns)
{
    for (int k = 0; k < source.height(); ++k) {
        auto* to = rowOf(target, k);
        for (std::size_t i = 0; i < columns.size(); ++i)
            to[i] = ComputePixel(columns[i], rowOf(source, k));
    }
}

void pixelByPixelAcrossRows(const QImage& source, QImage& target, const TContributorList& rows)
{
    std::vector<TBGRA> line(source.height());
    for (int k = 0; k < target.width(); ++k) {
        for (int row = 0; row < source.height(); ++row)
            line[row] = rowOf(source, row)[k];
        for (std::size_t i = 0; i < rows.size(); ++i)
            rowOf(target, static_cast<int>(i))[k] = ComputePixel(rows[i], line.data());
    }
}

#ifdef __SSE2__

constexpr int Step = ResampleRuns::Step;

// Two bytes of one channel side by side, times the two weights, summed up: four channels at once.
__m128i weighted(__m128i pairs, __m128i weights)
{
    return _mm_madd_epi16(_mm_unpacklo_epi8(pairs, _mm_setzero_si128()), weights);
}

__m128i load(const TBGRA* pixels)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels));
}

// The four channels of a pixel from their sums, as integers not yet clamped.
__m128i divided(__m128i sums, int total)
{
    if (total == 0)
        return _mm_srai_epi32(sums, 8);
    return _mm_cvttps_epi32(_mm_div_ps(_mm_cvtepi32_ps(sums), _mm_set1_ps(static_cast<float>(total))));
}

__m128i opaque(__m128i pixels)
{
    return _mm_or_si128(pixels, _mm_set1_epi32(static_cast<int>(0xFF000000U)));
}

// `pixels` may be read up to the next multiple of Step.
__m128i sumOf(const TBGRA* pixels, const std::int16_t* weights, int count)
{
    auto sum = _mm_setzero_si128();
    for (int n = 0; n < count; n += Step) {
        const auto four = load(pixels + n);
        const auto next = _mm_srli_si128(four, sizeof(TBGRA));
        const auto weight = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(weights + n));
        sum = _mm_add_epi32(sum, weighted(_mm_unpacklo_epi8(four, next), _mm_shuffle_epi32(weight, 0x00)));
        sum = _mm_add_epi32(sum, weighted(_mm_unpackhi_epi8(four, next), _mm_shuffle_epi32(weight, 0x55)));
    }
    return sum;
}

// A row with room behind it, so that steps may read past its end.
void copyRow(const QImage& source, int row, TBGRA* line)
{
    std::copy_n(rowOf(source, row), source.width(), line);
}

void oneRow(const TBGRA* line, TBGRA* to, const ResampleRuns& columns)
{
    for (const auto& run : columns.Runs()) {
        const auto sums = sumOf(line + run.first, columns.Weights(run), run.count);
        const auto channels = _mm_packs_epi32(divided(sums, run.total), _mm_setzero_si128());
        const auto pixel = _mm_cvtsi128_si32(opaque(_mm_packus_epi16(channels, channels)));
        std::memcpy(to++, &pixel, sizeof(TBGRA));
    }
}

// The same for two rows at once, one in each half of the wider registers.
__attribute__((target("avx2"))) __m256i sumOfTwo(
    const TBGRA* upper, const TBGRA* lower, const std::int16_t* weights, int count)
{
    auto sum = _mm256_setzero_si256();
    const auto zero = sum;
    for (int n = 0; n < count; n += Step) {
        const auto four = _mm256_inserti128_si256(_mm256_castsi128_si256(load(upper + n)), load(lower + n), 1);
        const auto next = _mm256_srli_si256(four, sizeof(TBGRA));
        const auto weight = _mm256_broadcastq_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(weights + n)));
        const auto left = _mm256_unpacklo_epi8(_mm256_unpacklo_epi8(four, next), zero);
        const auto right = _mm256_unpacklo_epi8(_mm256_unpackhi_epi8(four, next), zero);
        sum = _mm256_add_epi32(sum, _mm256_madd_epi16(left, _mm256_shuffle_epi32(weight, 0x00)));
        sum = _mm256_add_epi32(sum, _mm256_madd_epi16(right, _mm256_shuffle_epi32(weight, 0x55)));
    }
    return sum;
}

__attribute__((target("avx2"))) void twoRows(
    const TBGRA* upper, const TBGRA* lower, TBGRA* toUpper, TBGRA* toLower, const ResampleRuns& columns)
{
    for (const auto& run : columns.Runs()) {
        const auto sums = sumOfTwo(upper + run.first, lower + run.first, columns.Weights(run), run.count);
        const auto quotients = run.total == 0 ? _mm256_srai_epi32(sums, 8)
                                              : _mm256_cvttps_epi32(_mm256_div_ps(_mm256_cvtepi32_ps(sums),
                                                  _mm256_set1_ps(static_cast<float>(run.total))));
        const auto channels = _mm256_packs_epi32(quotients, quotients);
        const auto bytes = _mm256_packus_epi16(channels, channels);
        const auto first = _mm_cvtsi128_si32(opaque(_mm256_castsi256_si128(bytes)));
        const auto second = _mm_cvtsi128_si32(opaque(_mm256_extracti128_si256(bytes, 1)));
        std::memcpy(toUpper++, &first, sizeof(TBGRA));
        std::memcpy(toLower++, &second, sizeof(TBGRA));
    }
}

void manyAcrossColumns(const QImage& source, QImage& target, const ResampleRuns& columns)
{
    std::vector<TBGRA> upper(source.width() + Step);
    std::vector<TBGRA> lower(source.width() + Step);
    const auto inPairs = __builtin_cpu_supports("avx2") ? source.height() / 2 * 2 : 0;
    for (int k = 0; k < inPairs; k += 2) {
        copyRow(source, k, upper.data());
        copyRow(source, k + 1, lower.data());
        twoRows(upper.data(), lower.data(), rowOf(target, k), rowOf(target, k + 1), columns);
    }
    for (int k = inPairs; k < source.height(); ++k) {
        copyRow(source, k, upper.data());
        oneRow(upper.data(), rowOf(target, k), columns);
    }
}

// Four pixels of one target row: `rows` are the source rows at these columns, `weights` one weight for each.
__m128i fourOf(const std::vector<const TBGRA*>& rows, int column, const std::int16_t* weights, int total)
{
    auto first = _mm_setzero_si128();
    auto second = first;
    auto third = first;
    auto fourth = first;
    for (std::size_t n = 0; n < rows.size(); n += 2) {
        const auto upper = load(rows[n] + column);
        const auto lower = load(rows[n + 1] + column);
        const auto weight = _mm_shuffle_epi32(
            _mm_cvtsi32_si128(static_cast<std::uint16_t>(weights[n]) | static_cast<int>(weights[n + 1]) * 65536), 0);
        const auto left = _mm_unpacklo_epi8(upper, lower);
        const auto right = _mm_unpackhi_epi8(upper, lower);
        first = _mm_add_epi32(first, weighted(left, weight));
        second = _mm_add_epi32(second, weighted(_mm_srli_si128(left, 8), weight));
        third = _mm_add_epi32(third, weighted(right, weight));
        fourth = _mm_add_epi32(fourth, weighted(_mm_srli_si128(right, 8), weight));
    }
    return opaque(_mm_packus_epi16(_mm_packs_epi32(divided(first, total), divided(second, total)),
        _mm_packs_epi32(divided(third, total), divided(fourth, total))));
}

void manyAcrossRows(const QImage& source, QImage& target, const ResampleRuns& rows)
{
    std::vector<const TBGRA*> used;
    int row = 0;
    for (const auto& run : rows.Runs()) {
        used.clear();
        for (int n = 0; n < run.count; ++n)
            used.push_back(rowOf(source, run.first + n));
        if (used.size() % 2 != 0)
            used.push_back(used.back());
        auto* to = rowOf(target, row++);
        for (int column = 0; column < target.width(); column += Step) {
            const auto four = fourOf(used, column, rows.Weights(run), run.total);
            const auto pixels = std::min(Step, target.width() - column);
            std::memcpy(to + column, &four, pixels * sizeof(TBGRA));
        }
    }
}

#endif

}

TBGRA ComputePixel(const TContributorEntry& entry, const TBGRA* line)
{
    TRGBInt sum;
    int total = 0;
    for (int n = 0; n < entry.N; ++n) {
        const auto [weight, pixel] = entry.Contributors[n];
        total += weight;
        sum.R += line[pixel].R * weight;
        sum.G += line[pixel].G * weight;
        sum.B += line[pixel].B * weight;
    }
    return pixelOf(sum, total);
}

namespace Resample {

int roomyWidth(int width)
{
    return (width + ResampleRuns::Step - 1) / ResampleRuns::Step * ResampleRuns::Step;
}

void acrossColumns(const QImage& source, QImage& target, const TContributorList& columns)
{
#ifdef __SSE2__
    if (const ResampleRuns runs(columns); runs.Fits()) {
        manyAcrossColumns(source, target, runs);
        return;
    }
#endif
    pixelByPixelAcrossColumns(source, target, columns);
}

void acrossRows(const QImage& source, QImage& target, const TContributorList& rows)
{
#ifdef __SSE2__
    if (const ResampleRuns runs(rows); runs.Fits()) {
        manyAcrossRows(source, target, runs);
        return;
    }
#endif
    pixelByPixelAcrossRows(source, target, rows);
}

}
