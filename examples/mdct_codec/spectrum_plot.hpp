#pragma once

#include <span>
#include <string>

#include "common/gnuplot.hpp"
#include "lapped_transform.hpp"

namespace mdct_codec {

/** Draws the mean level of every band, before and after. Throws example::Error where a file or
 * gnuplot fails. */
void PlotSpectra(const example::PlotFiles& files, const std::string& title,
                 std::span<const Coefficients> original, std::span<const Coefficients> decoded,
                 int sample_rate);

}  // namespace mdct_codec
