#include "support/ResampleRuns.h"

#include <algorithm>
#include <cstdlib>

namespace {

// No weight then leaves 16 bits; and as a channel is at most 255, sums stay below 2^24, where a quotient of two floats
// is cut to the right integer.
constexpr int LargestSum = 32767;

int filledUp(int count)
{
    return (count + ResampleRuns::Step - 1) / ResampleRuns::Step * ResampleRuns::Step;
}

}

ResampleRuns::ResampleRuns(const TContributorList& list)
{
    FRuns.reserve(list.size());
    for (const auto& entry : list)
        Append(entry);
}

void ResampleRuns::Append(const TContributorEntry& entry)
{
    const auto begin = entry.Contributors.begin();
    const auto end = begin + entry.N;
    const auto [low, high] = std::minmax_element(
        begin, end, [](const TContributor& a, const TContributor& b) { return a.Pixel < b.Pixel; });
    Run run;
    run.weights = static_cast<int>(FWeights.size());
    if (low != end) {
        run.first = low->Pixel;
        run.count = high->Pixel - low->Pixel + 1;
    }
    FWeights.resize(run.weights + filledUp(run.count));
    int size = 0;
    for (auto contributor = begin; contributor != end; ++contributor) {
        FWeights[run.weights + contributor->Pixel - run.first] += static_cast<std::int16_t>(contributor->Weight);
        run.total += contributor->Weight;
        size += std::abs(contributor->Weight);
        FFits = FFits && std::abs(contributor->Weight) <= 256 && size <= LargestSum;
    }
    FRuns.push_back(run);
}
