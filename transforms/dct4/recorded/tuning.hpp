#pragma once

/** @file @brief Orders of the nodes of bodies that were settled by the clock. */

#include <span>

#include "kernelgen/schedule/settled_order.hpp"
#include "transforms/dct4/complex_values.hpp"

namespace dct4 {

/** The table. */
std::span<const kernelgen::SettledBody> settled_bodies(Element element,
                                                       const kernelgen::Target& target);

/** Of the body of that stem, "analysis_4". Options are those of the sources that bodies stand in.
 */
kernelgen::SettledOrder settled_order(const std::string& stem, Element element,
                                      const kernelgen::Target& target);

}  // namespace dct4
