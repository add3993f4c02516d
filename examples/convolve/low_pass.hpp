#pragma once

#include <cstddef>
#include <vector>

namespace convolve {

/**
 * Impulse response of a low-pass: the ideal one's, sin(2 pi f t) / (pi t), under a Hamming window
 * of that many taps, symmetric about its middle, scaled so that it leaves a constant as it is.
 * @param cutoff      f in Hz, above 0 and below half the sample rate
 * @param sample_rate in Hz
 * @param taps        at least 1
 */
std::vector<float> LowPass(double cutoff, double sample_rate, size_t taps);

}  // namespace convolve
