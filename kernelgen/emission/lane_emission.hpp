#pragma once

/**
 * @file
 * @brief Writes a scheduled graph of scalars as statements over vectors, in whose lanes as many
 * transforms run side by side.
 *
 * A value of the arrays' precision is a `Vector`. One of binary64 beside binary32 takes two,
 * `Half`s, which `widen_low(v)` and `widen_high(v)` make and `round(low, high)` joins. The scale
 * factor is `factor`. Memory is `x.load(place)`, `x.low(place)` and `x.high(place)` where a value
 * is only wanted in binary64, and `y.store(place, value)` or, which rounds, `y.store(place, low,
 * high)`; of complex arrays `y.store(element, re, im)`, since parts are neighbours in memory.
 */

#include <string>

#include "kernelgen/graph/graph.hpp"
#include "kernelgen/schedule/schedule.hpp"

namespace kernelgen {

enum class LaneElements { Real, Complex };

/** One statement a line, indented by four spaces, with `x`, `y` and `factor` in scope. */
std::string emit_in_lanes(const Graph& graph, const Order& order, Type array_precision,
                          LaneElements elements);

}  // namespace kernelgen
