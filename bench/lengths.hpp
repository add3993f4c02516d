#pragma once

/** @file @brief Lengths of the DFTs and the Hartley transform, as the header lists them. */

#include <algorithm>
#include <iterator>

#include "qsvgen.h"

namespace bench {

#define BENCH_LENGTH(N) N,
inline constexpr int kLengths[] = {QSVG_FOR_EACH_LENGTH(BENCH_LENGTH)};
#undef BENCH_LENGTH

inline constexpr int kLongestLength = *std::max_element(std::begin(kLengths), std::end(kLengths));

}  // namespace bench
