#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "common/progress.hpp"

namespace spectrogram {

constexpr size_t kFrameLength = 64;
constexpr size_t kHop = kFrameLength / 2;
constexpr size_t kBins = kFrameLength / 2 + 1;  ///< from 0 Hz to half the sample rate

/** Power of each bin of one frame: 1 for a sine of full scale that stands on the bin. */
using PowerSpectrum = std::array<double, kBins>;

/** Spectra of Hann-windowed frames; the last frame is filled up with zeros. */
std::vector<PowerSpectrum> ShortTimeSpectrum(std::span<const float> samples,
                                             const example::ProgressCallback& progress);

/** Mean of several frames, bin by bin. */
PowerSpectrum MeanPower(std::span<const PowerSpectrum> frames);

double Decibels(double power);

}  // namespace spectrogram
