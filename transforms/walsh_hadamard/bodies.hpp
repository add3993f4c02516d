#pragma once

/**
 * @file
 * @brief The straight-line bodies that a Walsh-Hadamard kernel is made of.
 *
 * A stage of stride h replaces each pair (x[j], x[j + h]) by its sum and its difference; the
 * stages of strides 1, 2, ..., N/2 in this order are the transform. Every sum is rounded, so
 * neither their order nor which values meet is free: a body may only choose where values are.
 *
 * Fino and Algazi, "Unified matrix treatment of the fast Walsh-Hadamard transform", 1976.
 */

#include "kernelgen/graph/graph.hpp"
#include "transforms/real_element.hpp"

namespace walsh_hadamard {

using Element = transforms::RealElement;
inline constexpr auto& kElements = transforms::kRealElements;
using transforms::lanes;
using transforms::suffix;
using transforms::vector_type;

/** Whether a body multiplies its outputs by the scale factor. */
enum class Scaling { None, Last };

/** All stages of 2^order elements, one value at a time. */
kernelgen::Graph scalar_body(Element element, int order);

/**
 * The stages of strides 1 to 2^(stages - 1) of 2^stages contiguous elements in vectors. Strides
 * shorter than 16 bytes run between blocks of vectors that are transposed, and transposed back. A
 * vector of more bytes holds two halves that meet in the last stage, half of the elements apart,
 * and becomes contiguous before it. Where a half has more than 16 bytes, or the vectors are too few
 * for a block, strides within it run between pairs of vectors that exchange lanes, and do so again.
 */
kernelgen::Graph row_body(Element element, int stages, Scaling scaling, int vector_bytes = 16);

/** `stages` stages across 2^stages vectors that stand `stride` elements apart. */
kernelgen::Graph column_body(Element element, int stages, int stride, Scaling scaling,
                             int vector_bytes = 16);

/** Bytes of the longest vectors, up to those of a target, of which a row of 2^stages elements holds
 * a whole block to transpose. */
int bytes_of_single_row(Element element, int stages, int vector_bytes);

}  // namespace walsh_hadamard
