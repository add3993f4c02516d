#pragma once

/**
 * @file
 * @brief Complex values of a graph, and the two steps that all complex DFTs of the DCT-IV are made
 * of.
 */

#include <vector>

#include "kernelgen/graph/graph.hpp"
#include "transforms/real_element.hpp"

namespace dct4 {

using Element = transforms::RealElement;
inline constexpr auto& kElements = transforms::kRealElements;
using transforms::lanes;
using transforms::suffix;

struct Complex {
    kernelgen::Ref re;
    kernelgen::Ref im;
};
using ComplexValues = std::vector<Complex>;

Complex conjugate(Complex z);

/** The same constant in every lane. Its sign stays its own, so that a rotation is one sum and one
 * difference at every angle. */
kernelgen::Ref constant(kernelgen::Graph& graph, kernelgen::Type type,
                        const kernelgen::Exact& value);

/** z times (cosine + i sine): four products, a sum and a difference. */
Complex rotated(kernelgen::Graph& graph, Complex z, kernelgen::Ref cosine, kernelgen::Ref sine);

/** z times exp(2 pi i numerator / denominator), with the constants in the graph. */
Complex rotated(kernelgen::Graph& graph, Complex z, long numerator, long denominator);

/** Whether the second half of the outputs is wanted conjugated. */
enum class SecondHalf { Plain, Conjugated };

/** Sum over r of y[r] exp(2 pi i t r / s), t from 0 to s - 1, of s = 2, 4 or 8 values. */
ComplexValues positive_dft(kernelgen::Graph& graph, const ComplexValues& y,
                           SecondHalf second_half = SecondHalf::Plain);

}  // namespace dct4
