#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace spectrogram {

constexpr size_t kFrameLength = 64;
constexpr size_t kHop = kFrameLength / 2;
constexpr size_t kBins = kFrameLength / 2 + 1;  ///< from 0 Hz to half the sample rate

/** Power of each bin of one frame: 1 for a sine of full scale that stands on the bin. */
using PowerSpectrum = std::array<double, kBins>;

/** Told how many frames out of how many are done. */
using ProgressCallback = std::function<void(size_t done, size_t all)>;

/** Spectra of Hann-windowed frames; the last frame is filled up with zeros. */
std::vector<PowerSpectrum> ShortTimeSpectrum(std::span<const float> samples,
                                             const ProgressCallback& progress);

/** Mean of several frames, bin by bin. */
PowerSpectrum MeanPower(std::span<const PowerSpectrum> frames);

double Decibels(double power);

}  // namespace spectrogram
