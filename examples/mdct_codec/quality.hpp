#pragma once

#include <span>

namespace mdct_codec {

/** How far a decoded recording is from the original. */
struct Quality {
    double largest_difference = 0;  ///< infinite where a sample is no number
    double signal_to_noise = 0;     ///< dB; infinite where nothing differs
    /**
     * What the roundings of single precision can explain: two transforms of a frame round each of
     * their log2(256) + 1 stages three times at most, constants included, window, folding and the
     * sum of two frames less than six times together; each by 2^-24 of a frame's Euclidean norm.
     */
    double rounding_bound = 0;

    bool IsRoundingAlone() const { return largest_difference <= rounding_bound; }
};

Quality Compare(std::span<const float> original, std::span<const float> decoded);

}  // namespace mdct_codec
