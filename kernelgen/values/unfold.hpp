#pragma once

/**
 * @file
 * @brief From a laid-out graph to its values, lane by lane.
 *
 * A vector sum becomes a sum for each lane that a store needs, a shuffle or a half load becomes
 * nothing, a flip becomes a sign, a product by constants one by the constant of its lane.
 */

#include <functional>

#include "kernelgen/values/value_graph.hpp"

namespace kernelgen {

/** What a graph finds at an element of its source. */
using Source = std::function<SignedValue(int element, Type precision)>;

/**
 * Outputs of `graph` as nodes of `values`. Throws std::logic_error where an element is written
 * twice, or where a lane is read that no node gives a value.
 */
Outputs unfold(const Graph& graph, ValueGraph& values, const Source& source);

/** The same where the source holds inputs, each at the place of its element. */
Outputs unfold(const Graph& graph, ValueGraph& values);

}  // namespace kernelgen
