#pragma once

/** @file @brief One call of a kernel on a signal, where only the result matters. */

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/fault.hpp"
#include "support/kernel_table.hpp"
#include "support/placed_array.hpp"

namespace qsvgen_test {

/** Distances of source and destination from a 16-byte boundary. */
struct Placement {
    std::size_t source = 0;
    std::size_t destination = 0;
};

/** The paths through a kernel that has two: the aligned one, and the three ways into its twin. */
inline constexpr Placement kAligned = {0, 0};
inline constexpr Placement kPlacements[] = {kAligned, {4, 0}, {0, 4}, {8, 12}};

/** Runs the kernel and expects success; a memory fault is a failure that names the kernel. */
template <class E>
void run_expecting_success(const Kernel<E>& kernel, const typename E::Element* src,
                           typename E::Element* dst, std::int32_t flag) {
    static FaultCatcher catcher;
    volatile QsvStatus status = -1;
    EXPECT_FALSE(catcher.faults([&] { status = kernel.run(src, dst, flag); }))
        << describe(kernel, flag) << " faults";
    EXPECT_EQ(qsvStatusOk, status) << describe(kernel, flag);
}

template <class E>
std::vector<typename E::Element> transform(const Kernel<E>& kernel,
                                           const std::vector<typename E::Element>& x,
                                           std::int32_t flag, Placement placement = kAligned) {
    PlacedArray<typename E::Element> source(x.size(), placement.source);
    PlacedArray<typename E::Element> destination(kernel.destination_size(), placement.destination);
    source.set(x);
    run_expecting_success(kernel, source.data(), destination.data(), flag);
    return destination.get();
}

template <class E>
std::vector<typename E::Element> transform_in_place(const Kernel<E>& kernel,
                                                    const std::vector<typename E::Element>& x,
                                                    std::int32_t flag, std::size_t offset) {
    PlacedArray<typename E::Element> array(std::max(x.size(), kernel.destination_size()), offset);
    array.set(x);
    run_expecting_success(kernel, array.data(), array.data(), flag);
    return array.get(kernel.destination_size());
}

}  // namespace qsvgen_test
