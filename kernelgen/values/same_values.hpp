#pragma once

/**
 * @file
 * @brief Shows that two kernels round alike: that they give the same bits for all inputs.
 */

#include <functional>
#include <string>

#include "kernelgen/values/value_graph.hpp"
#include "targets/target.hpp"

namespace kernelgen {

/**
 * Throws std::logic_error where the outputs of `kernel` are not those of `reference`, both of
 * `values`: it names both, the element, and what was found and wanted where the expressions first
 * differ, cut to a readable depth.
 */
void prove_same_outputs(const ValueGraph& values, const std::string& kernel, const Outputs& outputs,
                        const std::string& reference, const Outputs& wanted);

/** The same of graphs, however each is laid out, with inputs at the places of their elements. */
void prove_same_values(const std::string& kernel, const Graph& graph, const std::string& reference,
                       const Graph& wanted);

/** The same of a target's kernel and that of the reference target of its name, which is described
 * for any other target alone: the reference's own values are the promise. */
void prove_values_of_reference(const std::string& kernel, const Graph& graph, const Target& target,
                               const std::function<Graph()>& described_for_reference);

/** An expression in words of C, "(x[0] - x[1]) * scale", with "..." for what is deeper. */
std::string in_words(const ValueGraph& values, SignedValue value, int depth);

}  // namespace kernelgen
