#pragma once

/** @file @brief Each batch function beside the single one that it is to agree with, bit by bit. */

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "qsvgen_batch.h"

namespace qsvgen_test {

/** Of an array's address, in any program: of doubles it is less in 32-bit ones than the type's own.
 */
template <class Real>
struct InRecord {
    Real number;
};
template <class Real>
inline constexpr std::size_t kElementAlignment = alignof(InRecord<Real>);

/** Arguments of a batch function, its arrays as numbers. */
template <class Real>
struct BatchCall {
    const Real* source;
    std::ptrdiff_t source_stride;
    std::ptrdiff_t source_distance;
    Real* destination;
    std::ptrdiff_t destination_stride;
    std::ptrdiff_t destination_distance;
    std::int32_t size;
    std::int32_t count;
    std::int32_t flag;
};

/** A batch function with one of its sizes. */
template <class Real>
struct BatchKernel {
    std::string name;
    int size;   ///< a length, or an order
    int parts;  ///< numbers of an element
    int source_elements;
    int destination_elements;
    int smallest;  ///< size that the function has
    int largest;
    std::function<QsvStatus(const Real* src, Real* dst, std::int32_t flag)> single;
    std::function<QsvStatus(const BatchCall<Real>& call)> batch;

    std::string description() const { return name + " of " + std::to_string(size); }
};

/** All functions with all sizes. */
template <class Real>
const std::vector<BatchKernel<Real>>& batch_kernels();

template <>
const std::vector<BatchKernel<Real32>>& batch_kernels<Real32>();
template <>
const std::vector<BatchKernel<Real64>>& batch_kernels<Real64>();

}  // namespace qsvgen_test
