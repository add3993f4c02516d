#pragma once

#include <iosfwd>
#include <span>

#include "short_time_spectrum.hpp"
#include "wav_reader.hpp"

namespace spectrogram {

/** Prints what was analysed and the bins that are strongest on average over all frames. */
void PrintSummary(std::ostream& out, const Recording& recording,
                  std::span<const PowerSpectrum> spectra);

}  // namespace spectrogram
