#pragma once

/** @file @brief Frames of a recording and their transforms. */

#include <qsvgen_batch.h>

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace spectrogram {

constexpr size_t kFrameLength = 64;
constexpr size_t kHop = kFrameLength / 2;
constexpr size_t kBins = kFrameLength / 2 + 1;  ///< from 0 Hz to half the sample rate

/** A transform as the library lays it out: real part, imaginary part, bin by bin. */
using Transform = std::array<Real32, 2 * kBins>;

/** Frames that overlap, in the recording's own order, so that nothing is stored twice. */
class Frames {
  public:
    /** The last frame is filled up with zeros. */
    explicit Frames(std::span<const float> recording);

    size_t count() const { return count_; }

    /** All of them by one call, which reads the frames where they overlap. The transforms, as many
     * as frames, are not scaled. */
    void TransformAtOnce(std::span<Transform> transforms) const;

    /** The same, with a call for each frame. */
    void TransformOneByOne(std::span<Transform> transforms) const;

  private:
    size_t count_;
    std::vector<Real32> samples_;
};

}  // namespace spectrogram
