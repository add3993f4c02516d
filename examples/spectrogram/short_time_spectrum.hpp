#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "common/progress.hpp"
#include "frames.hpp"

namespace spectrogram {

/** Power of each bin of one frame: 1 for a sine of full scale that stands on the bin. */
using PowerSpectrum = std::array<double, kBins>;

/** Spectra of Hann-windowed frames. */
std::vector<PowerSpectrum> ShortTimeSpectrum(const Frames& frames,
                                             const example::ProgressCallback& progress);

/** Mean of several frames, bin by bin. */
PowerSpectrum MeanPower(std::span<const PowerSpectrum> frames);

double Decibels(double power);

}  // namespace spectrogram
