#pragma once

/** @file @brief Transforms along one axis of an array, as batches of the C interface. */

#include <array>
#include <cstddef>

#include "copying.hpp"
#include "families.hpp"

namespace python {

constexpr int kMostAxes = 64;

/** An axis that is not transformed; strides in bytes. */
struct Axis {
    ptrdiff_t extent;
    ptrdiff_t source;
    ptrdiff_t result;
};

/** One side of all transforms, along the transformed axis. */
struct Side {
    char* first;
    ptrdiff_t stride;  ///< in bytes
    ptrdiff_t items;   ///< elements as NumPy counts them
    bool is_real;      ///< real elements where the transform wants complex ones
};

/** All that a call computes. */
struct Job {
    const Family* family;
    Precision precision;
    ptrdiff_t length;
    int32_t flag;
    double scale;  ///< of the DCT-IV
    Side source;   ///< of fewer items than wanted, zeros follow; of more, the first are taken
    Side result;
    std::array<Axis, kMostAxes> axes;  ///< all but the transformed one
    int axis_count;
};

enum class Outcome { kDone, kNoMemory, kRefused };

/** How many transforms. */
ptrdiff_t transforms_of(const Job& job);

/** Joins axes that are one in memory, and puts the one that batches run along behind the others. */
void arrange(Job& job);

/** Runs the transforms [begin, end) of an arranged job. plan is that of a DCT-IV and of this call
 * alone; where it is null it is made, and stays. Without the interpreter's lock. */
Outcome run(const Job& job, ptrdiff_t begin, ptrdiff_t end, void*& plan);

}  // namespace python
