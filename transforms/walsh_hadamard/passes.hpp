#pragma once

/**
 * @file
 * @brief How an order is divided into passes over memory, and what memory that takes.
 */

#include <cstddef>
#include <vector>

#include "transforms/walsh_hadamard/bodies.hpp"

namespace walsh_hadamard {

inline constexpr int kLowestOrder = 1;
inline constexpr int kHighestOrder = 13;
/** Up to this order a kernel is one body, from the next on it loops over the bodies of passes. */
inline constexpr int kHighestStraightOrder = 7;

/** Stages of each pass, those of the smallest strides first: one number where there are no passes,
 * else two (rows, final columns) or three (rows, middle columns, final columns). */
std::vector<int> stages_of(int order, Element element);

/** Whether the kernel works on one value at a time. */
bool is_scalar(int order, Element element);

/** Whether the code for unaligned arrays is a function of its own. */
bool has_twin(int order, Element element);

/** Elements of a block that the first two of three passes work on at a time, else 0: so many the
 * temporary region holds, behind the elements of the main region. */
int big_block(int order, Element element);

/** Bytes of the work buffer. */
int buffer_size(int order, Element element);

}  // namespace walsh_hadamard
