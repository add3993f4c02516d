#pragma once

/**
 * @file
 * @brief What a kernel costs, counted over the nodes that its stores need.
 */

#include <string>

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

struct Counts {
    int sums = 0;
    int differences = 0;
    int products = 0;
    int wide_sums = 0;  ///< sums, differences and products in binary64 inside a binary32 kernel
    int wide_differences = 0;
    int wide_products = 0;
    int flips = 0;
    int shuffles = 0;  ///< lane moves, those that read half a vector from memory among them
    int conversions = 0;
    int loads = 0;
    int stores = 0;
    int constants = 0;

    int arithmetic() const { return sums + differences + products; }
};

/** `wide` arithmetic is counted apart where the kernel's own element is binary32. */
Counts count(const Graph& graph, bool element_is_binary32);

}  // namespace kernelgen
