#pragma once

#include "kernelgen/graph/graph.hpp"

namespace kernelgen_test {

/** Expects the values of a graph to give its bits, of every NaN the same ones, for inputs that are
 * random, zeros of both signs, denormal, among the largest, and infinite; all numbers of
 * `precision`. */
void expect_unfolded_bits(const kernelgen::Graph& graph, kernelgen::Type precision);

}  // namespace kernelgen_test
