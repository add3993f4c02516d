#pragma once

/**
 * @file
 * @brief The straight-line bodies that the loops of the DCT-IV are made of, as graphs.
 *
 * Vectors stand at places: place i of a graph's memory holds the elements from i times the lanes
 * on. Which address a place has is for the loop to say. A table stands behind the inputs.
 */

#include "transforms/dct4/odd_frequency.hpp"

namespace dct4 {

inline constexpr int kHighestRule = 6;
inline constexpr int kHighestDftRule = 5;
inline constexpr int kLongestInlineLength = 32;

/**
 * Analysis of 2n = 2^rule points. Inputs: g[0] to g[n - 1], then g[-1] to g[-n]; outputs: Re and Im
 * of each Z[a].
 */
kernelgen::Graph analysis_body(Element element, int rule);

/**
 * Rotations and synthesis of 2m = 2^rule points, one block a lane. Inputs: as many rows as lanes,
 * each m real and m imaginary parts; behind them the table in its own order. Outputs: g[0] to g[m -
 * 1], then g[-1] to g[-m].
 */
kernelgen::Graph synthesis_body(Element element, int rule);

/** Columns of the table in their order, for blocks of m of them. */
std::vector<int> table_columns(int m);

/**
 * One block of the DFTs of s = 2^rule points behind analyses. Inputs: s real parts, s imaginary
 * parts, then the inner pairs of the table (s = 16 and 32 only), then the outer ones. Outputs: Re
 * and Im of each D, the second half conjugated.
 */
kernelgen::Graph dft_body(Element element, int rule);

/** Places of the table's inner pairs, which a block of dft_body reads, and of the outer ones. */
int inner_places(int rule);
int outer_places(int rule);

/** The transform of 2 to 32 points, one value at a time. */
kernelgen::Graph inline_body(Element element, int length);

}  // namespace dct4
