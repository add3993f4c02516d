#pragma once

#include <span>
#include <string>

#include "common/gnuplot.hpp"
#include "short_time_spectrum.hpp"

namespace spectrogram {

/** Draws level over time and frequency. Throws example::Error where a file or gnuplot fails. */
void Plot(const example::PlotFiles& files, const std::string& title,
          std::span<const PowerSpectrum> spectra, int sample_rate);

}  // namespace spectrogram
