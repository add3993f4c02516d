#pragma once

#include <qsvgen.h>

#include <array>
#include <span>
#include <vector>

#include "common/progress.hpp"

namespace mdct_codec {

/** Coefficients of a frame, and samples from one frame to the next. */
inline constexpr size_t kBands = 256;

using Coefficients = std::array<float, kBands>;

/**
 * The modified discrete cosine transform: frames of 2 kBands samples, of which neighbours share
 * half, give kBands coefficients each, and yet every sample comes back. What folding a frame to
 * half its length mixes up (its time-domain aliases), the next frame holds with the other sign; a
 * sine window, whose squares add up to 1, lets the sum cancel it.
 *
 * Princen, Johnson and Bradley, "Subband/transform coding using filter bank designs based on time
 * domain aliasing cancellation", 1987.
 */
class LappedTransform {
  public:
    /** Throws example::Error where there is no memory for the plan. */
    LappedTransform();
    ~LappedTransform();
    LappedTransform(const LappedTransform&) = delete;
    LappedTransform& operator=(const LappedTransform&) = delete;

    /** Frames that hold every sample twice, with silence around the recording. */
    std::vector<Coefficients> Analyse(std::span<const float> samples,
                                      const example::ProgressCallback& progress);

    /** The first `size` samples of what Analyse was given. */
    std::vector<float> Synthesise(std::span<const Coefficients> frames, size_t size,
                                  const example::ProgressCallback& progress);

  private:
    static constexpr size_t kFrame = 2 * kBands;

    /** The DCT-IV with an orthonormal matrix: its own inverse. */
    Coefficients Transform(const Coefficients& folded);

    QsvDCT4Plan_32f* plan_ = nullptr;
    std::array<float, kFrame> window_;
};

}  // namespace mdct_codec
