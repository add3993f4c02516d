#pragma once

#include <span>

#include "common/progress.hpp"

namespace convolve {

/** How far a filtered signal is from the definition of convolution. */
struct SelfCheck {
    double largest_difference = 0;  ///< infinite where a sample is no number
    double bound = 0;               ///< what the roundings of single precision can explain

    bool Passed() const { return largest_difference <= bound; }
};

/**
 * Holds filtered, of samples + taps - 1 samples, against the sum of products in double precision.
 *
 * The bound: u = 2^-24 is the relative error of a rounding. A stage of a transform rounds a value
 * twice at most, and log2(64) stages give a result whose error in the Euclidean norm is at most
 * e = 12 u of its norm. A block x of the signal and the response h then have
 *
 *     |error of the product's spectrum|  by the block's transform      e      |h|1 |x|2
 *                                        by the response's transform   e 8    |h|2 |x|2
 *                                        by the product itself         3 u    |h|1 |x|2
 *     and of its transform back                                        e      |h|1 |x|2
 *
 * with norms that count the spectrum's as the signal's. No sample is further off than the whole
 * block, and at most ceil(64 / block length) blocks, whose sum is rounded each time, meet in it.
 */
SelfCheck CheckConvolution(std::span<const float> samples, std::span<const float> response,
                           std::span<const float> filtered,
                           const example::ProgressCallback& progress);

}  // namespace convolve
