#pragma once

#include <iosfwd>
#include <span>

#include "common/wav_reader.hpp"
#include "short_time_spectrum.hpp"
#include "transform_times.hpp"

namespace spectrogram {

/** Prints what was analysed, what the transforms took, and the bins that are strongest on average
 * over all frames. */
void PrintSummary(std::ostream& out, const example::Recording& recording,
                  std::span<const PowerSpectrum> spectra, const TransformTimes& times);

}  // namespace spectrogram
