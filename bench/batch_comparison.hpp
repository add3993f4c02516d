#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "batch_family.hpp"
#include "transform_library.hpp"

namespace bench {

/**
 * Who transforms the same batch: our call, FFTW's plan for many, our single calls in a loop (of
 * columns with a copy in and out), and our call of a second build where one was given.
 */
enum BatchParty : size_t { kBatch, kPlanMany, kSingleCalls, kOtherBatch, kBatchParties };

/** What is to be measured. */
struct BatchCase {
    const BatchFamily* family = nullptr;
    BatchLayout layout = BatchLayout::kContiguous;
    int size = 0;  ///< length, or order of the Walsh-Hadamard transform
    int count = 0;
    bool has_plan = true;  ///< whether FFTW takes part

    std::string Name() const;  ///< dft_real/fwd/15/32f/columns/255
};

/** What was measured for one case, over all rounds. */
struct BatchComparison {
    BatchCase of;
    /** TSC cycles of a transform, the fastest batch of each; infinite where a party is missing. */
    std::array<double, kBatchParties> cycles = {
        std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    /** Of the best peers known, the time as a share of FFTW's; NaN where no figure is known. */
    double best_avx2_share = std::numeric_limits<double>::quiet_NaN();
    double best_any_share = std::numeric_limits<double>::quiet_NaN();

    /** Whether our call leaves upper halves of vector registers in use, which slows its caller. */
    bool leaves_upper_halves = false;

    /** A party's time over ours; NaN where it is missing. Above 1 where ours is faster. */
    double RatioOf(BatchParty party) const;
};

struct BatchLibraries {
    TransformLibrary ours;
    std::unique_ptr<TransformLibrary> other;
};

struct BatchRun {
    bool quick = false;    ///< fewer rounds, and plans that FFTW takes less time for
    std::string wisdom;    ///< folder of what FFTW has learnt, or empty
    int repetitions = 12;  ///< visits to each case, spread over the run
    int rounds = 25;       ///< of each visit
};

/**
 * All cases side by side in one run. Throws std::runtime_error where the parties' results differ:
 * FFTW's by more than rounding, ours at all.
 */
std::vector<BatchComparison> CompareBatches(const std::vector<BatchCase>& cases,
                                            const BatchLibraries& libraries, const BatchRun& run);

}  // namespace bench
