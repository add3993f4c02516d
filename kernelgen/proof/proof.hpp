#pragma once

/**
 * @file
 * @brief Shows that a kernel's graph is the matrix that defines its transform.
 *
 * A kernel is linear, so its values on the unit vectors are its matrix. They are computed with
 * unrounded constants, where a right graph agrees to the last of some 60 digits.
 */

#include <functional>
#include <string>
#include <vector>

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

/** Entry of the defining matrix: what input `column` contributes to output `row`. */
using Definition = std::function<Wide(int row, int column)>;

/** Where a graph's matrix is furthest from the one that is wanted; row and column are -1 where
 * something is written that is no output. */
struct Deviation {
    Wide size = 0;
    int row = 0;
    int column = 0;
    Wide wanted = 0;
    Wide got = 0;
};

/**
 * Largest difference of the graph's matrix (unscaled, both ways in real elements) from `wanted`.
 * `table` is what the graph finds behind its inputs and multiplies them by.
 */
Wide deviation(const Graph& graph, int inputs, int outputs, const Definition& wanted,
               const std::vector<Wide>& table = {});

/** Indices of the elements that a body reads and writes, ascending: all rows and columns that its
 * matrix has. Those between are others'. */
using Places = std::vector<int>;

/** The same of a body that reads `inputs` and writes `outputs` of its arrays. What it reads in
 * between reaches its outputs as a large value, and what it writes there is a large deviation. */
Deviation deviation_between(const Graph& graph, const Places& inputs, const Places& outputs,
                            const Definition& wanted, const std::vector<Wide>& table = {});

/** Throws std::runtime_error where the deviation exceeds 1e-28, which names `kernel` (and so the
 * rule that it follows, where there is one), row, column, and what is wanted and what came out
 * there. */
void prove(const std::string& kernel, const Graph& graph, int inputs, int outputs,
           const Definition& wanted, const std::vector<Wide>& table = {});
void prove_between(const std::string& kernel, const Graph& graph, const Places& inputs,
                   const Places& outputs, const Definition& wanted,
                   const std::vector<Wide>& table = {});

}  // namespace kernelgen
