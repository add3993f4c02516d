#pragma once

/**
 * @file
 * @brief The decompositions of a DFT, each as its formula over signals.
 *
 * All of them give the forward transform y[k] = sum over n of x[n] exp(-2 pi i n k / N) in natural
 * order, as small transforms of a network.
 */

#include "transforms/dft_complex/decompositions/network.hpp"
#include "transforms/dft_complex/rules/rules.hpp"
#include "transforms/residues/residues.hpp"

namespace dft_complex {

/** The DFT of x by `rule`; x has rule.length values. */
Signal dft(Network& net, const Rule& rule, const Signal& x);

/**
 * N = a b, a and b coprime, no twiddle factors. Good, "The interaction algorithm and practical
 * Fourier analysis", 1958; index maps as in Burrus, "Index mappings for multidimensional
 * formulation of the DFT and convolution", 1977. `first_of_b` is the rule of the first of the
 * transforms of length b, as a rule b itself.
 */
Signal prime_factor(Network& net, const Rule& a, const Rule& b, const Rule& first_of_b,
                    const Signal& x);

/** N = a b. Cooley and Tukey, "An algorithm for the machine calculation of complex Fourier series",
 * 1965, in the form that decimates in time by b. */
Signal cooley_tukey(Network& net, const Rule& a, const Rule& b, Residues residues, const Signal& x);

/** N a power of two, into one half and two quarters, decimated in frequency. Duhamel and Hollmann,
 * "Split radix FFT algorithm", 1984. */
Signal split_radix(Network& net, const Signal& x);

/** Prime N as a cyclic convolution of length N - 1. Rader, "Discrete Fourier transforms when the
 * number of data samples is prime", 1968. */
Signal rader(Network& net, const Rule& inner, const Signal& x);

/** Any N as a cyclic convolution of length inner.length, at least 2 N - 1. Bluestein, "A linear
 * filtering approach to the computation of discrete Fourier transform", 1970. */
Signal chirp(Network& net, const Rule& inner, const Signal& x);

using residues::power_modulo;
using residues::primitive_root;
using residues::rader_spectrum;

}  // namespace dft_complex
