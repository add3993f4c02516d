#pragma once

/**
 * @file
 * @brief Writes a scheduled graph as C++ statements in the words of a target.
 *
 * The statements stand in a function template over the memory access (`Memory::load`,
 * `Memory::store` for whole vectors), with the arrays `x` and `y` of real elements and the factor
 * `scale` in scope; aligned and unaligned kernels so share their arithmetic to the letter.
 *
 * An order that check_order refuses is not written, nor a graph whose constant vectors are of
 * several types: std::logic_error.
 */

#include <string>
#include <vector>

#include "kernelgen/graph/graph.hpp"
#include "kernelgen/schedule/schedule.hpp"

namespace kernelgen {

struct EmittedBody {
    std::string constants;   ///< definitions at namespace scope, or empty
    std::string statements;  ///< one a line, indented by four spaces
};

/** `rounding` converts a binary64 value to binary32. */
EmittedBody emit(const Graph& graph, const Order& order, const Target& target,
                 const std::string& rounding = "static_cast<float>");

/** The same for a graph of scalars and vectors of several lengths; vectors are moved at any
 * address. */
EmittedBody emit_mixed(const Graph& graph, const Order& order, const Target& target,
                       const std::string& rounding = "static_cast<float>");

/**
 * The same for a graph of whole vectors whose places the surrounding loop knows: the vector at
 * offset i times the lanes is `x.load(i)`, and `y.store(i, value)` stores one.
 */
EmittedBody emit_between_places(const Graph& graph, const Order& order, const Target& target);

/**
 * The same for a graph of vectors, as statements over longer ones, in each of whose pieces of 16
 * bytes runs a transform of its own. `x` and `y` know where the transforms stand: `x.load(offset)`,
 * `x.load_low(offset)`, `x.load_halves(low, high)` for two half vectors, `x.load_scalar(offset)`;
 * `y.store(offset, value)`, `y.store_low(..)`, `y.store_high(..)`.
 */
EmittedBody emit_in_pieces(const Graph& graph, const Order& order);

/** A literal that reads back as exactly this value: 0x1.bb67aep-1f, 0x1.bb67ae8584caap-1. */
std::string literal(float value);
std::string literal(double value);

}  // namespace kernelgen
