#pragma once

/** @file @brief One call of a kernel on a signal, where only the result matters. */

#include <gtest/gtest.h>

#include <vector>

#include "support/kernel_table.hpp"
#include "support/placed_array.hpp"

namespace qsvgen_test {

/** Distances of source and destination from a 16-byte boundary. */
struct Placement {
    std::size_t source = 0;
    std::size_t destination = 0;
};

/** The paths through a kernel: the aligned one, and the three ways into its twin. */
inline constexpr Placement kAligned = {0, 0};
inline constexpr Placement kPlacements[] = {kAligned, {4, 0}, {0, 4}, {8, 12}};

template <class E>
std::vector<typename E::Complex> transform(const Kernel<E>& kernel,
                                           const std::vector<typename E::Complex>& x,
                                           std::int32_t flag, Placement placement = kAligned) {
    PlacedArray<typename E::Complex> source(x.size(), placement.source);
    PlacedArray<typename E::Complex> destination(x.size(), placement.destination);
    source.set(x);
    EXPECT_EQ(qsvStatusOk, kernel.run(source.data(), destination.data(), flag))
        << describe(kernel, flag);
    return destination.get();
}

template <class E>
std::vector<typename E::Complex> transform_in_place(const Kernel<E>& kernel,
                                                    const std::vector<typename E::Complex>& x,
                                                    std::int32_t flag, std::size_t offset) {
    PlacedArray<typename E::Complex> array(x.size(), offset);
    array.set(x);
    EXPECT_EQ(qsvStatusOk, kernel.run(array.data(), array.data(), flag)) << describe(kernel, flag);
    return array.get();
}

}  // namespace qsvgen_test
