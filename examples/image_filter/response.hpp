#pragma once

/** @file @brief By what a filter multiplies a frequency. */

#include <cstddef>
#include <vector>

namespace image_filter {

enum class Filter { kLowPass, kSharpen };

/** Of blocks of length x length pixels: gains of the bins of a column and half a row, column bin by
 * column bin, length x (length / 2 + 1). That of frequency 0 is 1, so that no brightness is lost.
 */
std::vector<float> ResponseOf(Filter filter, size_t length);

}  // namespace image_filter
