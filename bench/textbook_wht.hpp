#pragma once

#include <cstddef>

namespace bench {

/**
 * What a programmer writes first: a copy, then three loops in place. The compiler may do with it
 * what it can; the sums are those that our kernels promise.
 */
void TextbookWht(const float* src, float* dst, size_t size);
void TextbookWht(const double* src, double* dst, size_t size);

}  // namespace bench
