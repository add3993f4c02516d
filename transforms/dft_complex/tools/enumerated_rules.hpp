#pragma once

/** @file @brief The decompositions that a length may have, for whoever looks for one. */

#include <vector>

#include "transforms/dft_complex/rules/table.hpp"

namespace dft_complex {

/**
 * Rules of any length from 6 on that make sense for the element type: each product of two factors
 * with and without twiddle factors, in either order and with either residues, split radix, and for
 * a prime Rader's convolution over lanes and as one small transform. A factor that the table has is
 * taken by the table's rule, as one small transform, and as the primes beside a factor of 2 or
 * more; one that it lacks by all of its own rules.
 */
std::vector<Rule> enumerated_rules(int length, Element element);

}  // namespace dft_complex
