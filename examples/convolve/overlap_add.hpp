#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "common/progress.hpp"

namespace convolve {

constexpr size_t kTransformLength = 64;
constexpr size_t kMaxTaps = kTransformLength - 1;  ///< leaves two samples of the signal to a block

/** Samples that are filtered by one transform: its cyclic convolution must not wrap. */
constexpr size_t BlockLength(size_t taps) {
    return kTransformLength - taps + 1;
}

/**
 * Convolves samples with an impulse response of 1 to kMaxTaps taps, both not empty: every block of
 * the signal is transformed, multiplied bin by bin by the response's spectrum, transformed back,
 * and added where its predecessors still ring. The result has samples + taps - 1 samples.
 */
std::vector<float> OverlapAdd(std::span<const float> samples, std::span<const float> response,
                              const example::ProgressCallback& progress);

}  // namespace convolve
