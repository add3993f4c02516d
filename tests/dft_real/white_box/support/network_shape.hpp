#pragma once

/**
 * @file
 * @brief What stands in a network of rows.
 */

#include <string>
#include <vector>

#include "kernelgen/graph/graph.hpp"

namespace dft_real_test {

/** How many live nodes are of one operation. */
inline int number_of(const kernelgen::Graph& graph, kernelgen::Op op) {
    int number = 0;
    for (kernelgen::NodeId id : graph.live()) number += graph.node(id).op == op ? 1 : 0;
    return number;
}

/** Products by anything. */
inline int products(const kernelgen::Graph& graph) {
    return number_of(graph, kernelgen::Op::Mul);
}

inline int sums(const kernelgen::Graph& graph) {
    return number_of(graph, kernelgen::Op::Add) + number_of(graph, kernelgen::Op::Sub);
}

/** The constants that live nodes take, as binary64 rounds them, in the order of their nodes. */
inline std::vector<double> constants(const kernelgen::Graph& graph) {
    std::vector<double> values;
    for (kernelgen::NodeId id : graph.live()) {
        const kernelgen::Node& n = graph.node(id);
        if (n.op != kernelgen::Op::Constant) continue;
        for (const kernelgen::Exact& lane : graph.constants()[static_cast<std::size_t>(n.constant)])
            values.push_back(lane.to_binary64());
    }
    return values;
}

}  // namespace dft_real_test
