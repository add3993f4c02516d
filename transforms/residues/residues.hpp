#pragma once

/**
 * @file
 * @brief Arithmetic of residues, on which the decompositions of all transforms rest.
 */

#include "kernelgen/graph/exact_constant.hpp"

namespace residues {

bool is_prime(int n);

/** base^exponent modulo p, 0 <= base < p, exponent >= 0. */
int power_modulo(int base, int exponent, int p);

/** Smallest number whose powers are all residues of the prime p but 0. */
int primitive_root(int p);

/** The number below a b that is r modulo a and s modulo b, a and b coprime (Chinese remainders). */
int from_remainders(int r, int a, int s, int b);

/** Spectrum of exp(-2 pi i g^(-j) / p), j = 0 to p - 2, at frequency k, divided by p - 1 (Rader,
 * "Discrete Fourier transforms when the number of data samples is prime", 1968). */
kernelgen::ExactComplex rader_spectrum(int p, int g, int k);

}  // namespace residues
