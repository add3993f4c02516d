#pragma once

/**
 * @file
 * @brief Analysis and synthesis at odd frequencies, of which the DCT-IV is made.
 *
 * The analysis of 2n real values g[j], j from -n to n - 1, gives for a from 0 to n - 1
 *
 *     Z[a] = sum over j of g[j] exp(i pi (2a + 1) j / (2n)).
 *
 * The synthesis of m complex values W[c] gives for j from -m to m - 1
 *
 *     g[j] = real part of the sum over c of W[c] exp(i pi (2c + 1) j / (2m)),
 *
 * the transposed analysis but for the sign of the imaginary parts.
 */

#include <functional>

#include "transforms/dct4/complex_values.hpp"

namespace dct4 {

/** Real values by index, from minus half of their number on. */
using Signal = std::function<kernelgen::Ref(int)>;

/**
 * For a factor s of n and n' = n/s: s analyses of the values s apart, and behind them for each a'
 * from 0 to n' - 1 a DFT of s points, whose outputs D[q] are Z[2n'q + a'] and those of the second
 * half, taken from the end, the conjugates of Z[2n'q + 2n' - 1 - a'].
 */
ComplexValues analysis(kernelgen::Graph& graph, int n, const Signal& g);

/** The split of the analysis from the end to the beginning. Result[j + m] is g[j]. */
std::vector<kernelgen::Ref> synthesis(kernelgen::Graph& graph, const ComplexValues& w);

/** One DFT behind the analyses: r -> r times the angle of the block. */
using Twiddle = std::function<Complex(int r, Complex z)>;

/**
 * For one block a' of a split by s = 2, 4 or 8: D from the s values U[r] of the smaller analyses,
 * the second half conjugated.
 */
ComplexValues twiddled_dft(kernelgen::Graph& graph, const ComplexValues& u, const Twiddle& twiddle);

/**
 * The same for s = 16 or 32 in two levels, h = s/4 times 4, with the angle of the block taken into
 * the twiddle factors between them: r = r1 + 4 r2 and t = t1 + h t2. `outer` turns by 4 r2 times
 * the angle; `inner`, for t1, by r1 times (the angle + 2 pi t1 / s).
 */
ComplexValues twiddled_dft_of_two_levels(
    kernelgen::Graph& graph, const ComplexValues& u, const Twiddle& outer,
    const std::function<Complex(int t1, int r1, Complex z)>& inner);

}  // namespace dct4
