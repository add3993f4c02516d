#pragma once

/** @file @brief The factors by which a flag scales a Walsh-Hadamard transform. */

#include <string>

#include "transforms/walsh_hadamard/bodies.hpp"

namespace walsh_hadamard {

/** 1/N as a literal of the kernels. */
std::string scale_by_length(int order, Element element);

/** 1/sqrt(N) as a literal of the kernels. */
std::string scale_by_root(int order, Element element);

}  // namespace walsh_hadamard
