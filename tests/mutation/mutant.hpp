#pragma once

/**
 * @file
 * @brief Graphs with one node changed, as a fault in a description or in the kernel compiler would.
 */

#include <optional>
#include <string>

#include "kernelgen/graph/graph.hpp"

namespace mutation {

enum class Change {
    Sign,         ///< a sum for a difference, a difference for a sum, one lane more or less flipped
    LastDigit,    ///< a constant one unit of the last place of its type away
    OperandSwap,  ///< of a difference or of a shuffle
    EarlyRounding,  ///< a value inside a row of binary64 in binary32, as without the widening
};
inline constexpr Change kChanges[] = {Change::Sign, Change::LastDigit, Change::OperandSwap,
                                      Change::EarlyRounding};
std::string to_string(Change change);

/** The graph with `change` made at `node`, or nothing where that node has nothing to change. */
std::optional<kernelgen::Graph> mutant(const kernelgen::Graph& graph, kernelgen::NodeId node,
                                       Change change);

}  // namespace mutation
