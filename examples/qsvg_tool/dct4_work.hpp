#pragma once

/** @file @brief Which bodies a transform of the DCT-IV runs, and how often. */

#include <cstdint>
#include <vector>

#include "dct4_splits.hpp"
#include "transforms/dct4/dct4_body.hpp"

namespace qsvg_tool {

struct Dct4Work {
    dct4::BodyKey key;
    int runs;
};

/** In the order in which they run. A run serves as many columns or blocks as a vector has lanes. */
std::vector<Dct4Work> WorkOf(const Dct4Splits& splits, int32_t length, int lanes);

}  // namespace qsvg_tool
