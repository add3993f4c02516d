#pragma once

#include "columns.hpp"
#include "common/gnuplot.hpp"
#include "request.hpp"

namespace qsvg_tool {

/**
 * Draws the transforms: complex values by their real and imaginary parts and magnitudes, the
 * spectrum of a real signal bin by bin, whatever its layout. Throws example::Error where a file or
 * gnuplot fails.
 */
template <class Real>
void PlotColumns(const example::PlotFiles& files, const Request& request,
                 const Columns<Real>& columns, size_t lines_of_block);

}  // namespace qsvg_tool
