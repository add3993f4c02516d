/** @file @brief The search of lanes leaves the values of published kernels as they are. */
#include "transforms/dft_complex/tools/lane_search.hpp"

#include <gtest/gtest.h>

#include "kernelgen/values/value_hash.hpp"
#include "targets/targets.hpp"

namespace {

using dft_complex::Direction;
using dft_complex::Element;
using dft_complex::Kernel;
using kernelgen::hash_of_values;

constexpr kernelgen::Target kTarget = kernelgen::kX86_64;

Kernel published(int length) {
    return dft_complex::described_kernel(length, Direction::Forward, Element::Complex32);
}

Kernel with_tuned_lanes(int length) {
    const auto& row = dft_complex::row_of(length, Element::Complex32);
    return dft_complex::with_tuned_lanes(row.rule, row.arithmetic(), kTarget);
}

// Without the values as a condition other lanes win at these lengths, which give other bits.
TEST(LaneSearch, OfAPublishedLengthKeepsTheValuesOfTheReference) {
    for (int length : {11, 16, 19, 32}) {
        const Kernel found = dft_complex::with_lanes_of_same_values(length, kTarget);
        EXPECT_EQ(found.target.name, kTarget.name) << length;
        EXPECT_EQ(hash_of_values(found.graph), hash_of_values(published(length).graph)) << length;
        EXPECT_NE(hash_of_values(with_tuned_lanes(length).graph),
                  hash_of_values(published(length).graph))
            << length;
    }
}

}  // namespace
