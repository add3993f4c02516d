#pragma once

/**
 * @file
 * @brief What the straight-line bodies are to their loops: one class a step and a rule, 2^rule
 * points.
 *
 * `run(x, y)` takes its vectors from x.load(place) and gives them to y.store(place, vector); which
 * address a place has, x and y know. The kernel compiler writes the classes.
 */

#include "dct4/element.hpp"

namespace dct4::QSVG_VECTORS {

/** Places in: g[0] to g[n - 1], then g[-1] to g[-n]; out: Re and Im of each Z[a]. */
template <int kRule>
struct Analysis;

/** Places in: a row for each lane, then the table; out: g[0] to g[m - 1], then g[-1] to g[-m]. */
template <int kRule>
struct Synthesis;

/** Places in: s real parts, s imaginary parts, inner pairs of the table, outer pairs; out: Re and
 * Im of each D, the second half conjugated. */
template <int kRule>
struct Dft;

}  // namespace dct4::QSVG_VECTORS
