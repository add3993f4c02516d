#pragma once

/**
 * @file
 * @brief Which constants the stores of a kernel need, apart from their signs.
 */

#include <map>
#include <set>
#include <string>

#include "kernelgen/graph/graph.hpp"

namespace dft_complex_test {

/** Magnitudes by key. */
using Magnitudes = std::set<std::string>;

std::string magnitude_of(const kernelgen::Exact& constant);

/** All lanes of all constants. */
Magnitudes magnitudes(const kernelgen::Graph& graph);

/** The same, rounded to binary64. */
std::set<double> rounded_magnitudes(const kernelgen::Graph& graph);

/** In how many lanes of products each magnitude stands. */
std::map<std::string, int> uses_in_products(const kernelgen::Graph& graph);

/** |cos| and |sin| of all turns k/order. */
Magnitudes roots(int order);

/** The members of `a` that `b` does not hold. */
Magnitudes without(const Magnitudes& a, const Magnitudes& b);

}  // namespace dft_complex_test
