#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "short_time_spectrum.hpp"

namespace spectrogram {

struct PlotFiles {
    std::filesystem::path png;
    std::filesystem::path data;    ///< lines of time, frequency and level, as gnuplot reads them
    std::filesystem::path script;  ///< kept, so that the picture can be changed by hand
};

/** The files that go with a picture, beside it. */
PlotFiles PlotFilesFor(const std::filesystem::path& png);

/** Draws level over time and frequency. Throws example::Error where a file or gnuplot fails. */
void Plot(const PlotFiles& files, const std::string& title, std::span<const PowerSpectrum> spectra,
          int sample_rate);

}  // namespace spectrogram
