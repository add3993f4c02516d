#pragma once

/** @file @brief Orders of the nodes of bodies that were settled by the clock. */

#include <span>

#include "kernelgen/schedule/settled_order.hpp"
#include "transforms/walsh_hadamard/bodies.hpp"

namespace walsh_hadamard {

/** The table. */
std::span<const kernelgen::SettledBody> settled_bodies(Element element,
                                                       const kernelgen::Target& target);

/** Name of a body of the kernel of that order in the table, "10=6+4 row": with the stages of its
 * passes, since a row is for the bodies that it was found for. */
std::string name_in_table(int order, Element element, const std::string& body);

/** For the body of that name in the kernel of that order; its option is the whole kernel's. */
kernelgen::SettledOrder settled_order(int order, Element element, const std::string& body,
                                      const kernelgen::Target& target);

}  // namespace walsh_hadamard
