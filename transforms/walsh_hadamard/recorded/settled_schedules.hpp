#pragma once

/** @file @brief Orders of the nodes of bodies that were settled by the clock. */

#include <string>

#include "transforms/walsh_hadamard/bodies.hpp"

namespace walsh_hadamard {

struct SettledOrder {
    std::string method;  ///< a kernelgen::Schedule's; empty: that with the least modelled traffic
    std::string option;  ///< of GCC, for the kernel as a whole; empty: none
};

/** For the body of that name in the kernel of that order. */
SettledOrder settled_order(int order, Element element, const std::string& body);

}  // namespace walsh_hadamard
