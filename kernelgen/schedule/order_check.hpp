#pragma once

/** @file @brief What every order of a kernel's nodes must respect, whoever made it. */

#include "kernelgen/schedule/schedule.hpp"

namespace kernelgen {

/**
 * Throws std::logic_error where `order` lacks a node that a store needs or holds one twice, where a
 * node stands before its operands, or, unless the graph's arrays are apart, where a load or store
 * of an element stands behind a store to it: source and destination may be one array.
 */
void check_order(const Graph& graph, const Order& order);

}  // namespace kernelgen
