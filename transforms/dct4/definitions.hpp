#pragma once

/**
 * @file
 * @brief The matrices that define the steps of the DCT-IV, held against the graphs of its bodies.
 *
 * Each throws std::runtime_error that names `kernel` where the graph is another matrix. Bodies that
 * read a table are linear for each table; the angles of the proof are as many as tell all angles.
 */

#include <string>

#include "transforms/dct4/complex_values.hpp"

namespace dct4 {

/** Of 2n points, a signal a lane. */
void prove_analysis(const std::string& kernel, const kernelgen::Graph& graph, Element element,
                    int n);

/** Of 2m points behind rotations by the angles of a transform's first and last blocks. */
void prove_synthesis(const std::string& kernel, const kernelgen::Graph& graph, Element element,
                     int m);

/** Of 2^rule points, with another angle in each lane. */
void prove_dft(const std::string& kernel, const kernelgen::Graph& graph, Element element, int rule);

/** y[k] is the sum over i of x[i] cos(pi / N (i + 1/2) (k + 1/2)). */
void prove_transform(const std::string& kernel, const kernelgen::Graph& graph, int length);

}  // namespace dct4
