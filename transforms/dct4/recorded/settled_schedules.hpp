#pragma once

/** @file @brief Orders of the nodes of bodies that were settled by the clock. */

#include <string>

#include "transforms/dct4/complex_values.hpp"

namespace dct4 {

/** A kernelgen::Schedule's method for the body of that stem; empty: that with the least modelled
 * traffic. */
std::string settled_order(const std::string& stem, Element element);

}  // namespace dct4
