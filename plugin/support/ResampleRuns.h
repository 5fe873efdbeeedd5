#pragma once

#include "support/MrvResample.h"

// The contributors of a whole pass, laid out for machine instructions that take several pixels at once: for each target
// pixel one run of neighbouring source pixels with a weight for each. A pixel that contributes twice, as those near an
// edge do, has the sum of its weights, and one inside the run that does not contribute has 0: integer sums are the same
// either way.
class ResampleRuns {
public:
    struct Run {
        int first = 0; // source pixel
        int count = 0; // source pixels, without the filling up to Step
        int weights = 0; // place of the first weight
        int total = 0; // sum of the weights
    };

    // Runs are filled up with weights of 0 to a multiple of this.
    static constexpr int Step = 4;

    explicit ResampleRuns(const TContributorList& list);

    // Whether 16-bit weights hold the list, and 32-bit floats each sum exactly. Otherwise the runs may not be used.
    bool Fits() const { return FFits; }
    const std::vector<Run>& Runs() const { return FRuns; }
    const std::int16_t* Weights(const Run& run) const { return FWeights.data() + run.weights; }

private:
    void Append(const TContributorEntry& entry);

    std::vector<Run> FRuns;
    std::vector<std::int16_t> FWeights;
    bool FFits = true;
};
