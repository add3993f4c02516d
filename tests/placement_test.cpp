/** @file @brief Where the arrays stand changes no bit of the result. */

#include <gtest/gtest.h>

#include "support/bits.hpp"
#include "support/fault.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr std::size_t kOffsets = 16;

template <class E>
class PlacementOfArrays : public testing::Test {};
TYPED_TEST_SUITE(PlacementOfArrays, ElementTypes, ElementNames);

// Odd offsets are no address for an element in C, but the processor takes them and so do we.
TYPED_TEST(PlacementOfArrays, EveryPairOfByteOffsetsGivesTheAlignedBits) {
    using Array = PlacedArray<typename TypeParam::Complex>;
    FaultCatcher catcher;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_signal<TypeParam>(kernel.length, 7);
        const auto expected = transform(kernel, x, qsvScaleBySqrtN);
        for (std::size_t from = 0; from < kOffsets; ++from) {
            Array source(x.size(), from);
            source.set(x);
            for (std::size_t to = 0; to < kOffsets; ++to) {
                Array destination(x.size(), to);
                ASSERT_FALSE(catcher.faults([&] {
                    kernel.run(source.data(), destination.data(), qsvScaleBySqrtN);
                })) << kernel.name
                    << " faults at offsets " << from << " and " << to;
                ASSERT_TRUE(same_bits<TypeParam>(expected, destination.get()))
                    << describe(kernel, qsvScaleBySqrtN) << " at offsets " << from << " and " << to;
            }
        }
    }
}

TYPED_TEST(PlacementOfArrays, BothPathsGiveTheSameBitsForManySignalsAndAllFlags) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto flag : kFlags) {
            for (std::uint32_t seed = 0; seed < 40; ++seed) {
                const auto x = random_signal<TypeParam>(kernel.length, seed);
                ASSERT_TRUE(same_bits<TypeParam>(transform(kernel, x, flag, {0, 0}),
                                                 transform(kernel, x, flag, {4, 8})))
                    << describe(kernel, flag) << ", signal " << seed;
            }
        }
    }
}

TYPED_TEST(PlacementOfArrays, InPlaceGivesTheBitsOfOutOfPlaceAtEveryOffset) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_signal<TypeParam>(kernel.length, 11);
        for (const auto flag : kFlags) {
            const auto expected = transform(kernel, x, flag);
            for (std::size_t offset = 0; offset < kOffsets; ++offset) {
                ASSERT_TRUE(
                    same_bits<TypeParam>(expected, transform_in_place(kernel, x, flag, offset)))
                    << describe(kernel, flag) << " in place at offset " << offset;
            }
        }
    }
}

TYPED_TEST(PlacementOfArrays, ASecondCallOnTheSameArraysGivesTheSameBits) {
    using Array = PlacedArray<typename TypeParam::Complex>;
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto& placement : kPlacements) {
            const auto x = random_signal<TypeParam>(kernel.length, 13);
            Array source(x.size(), placement.source);
            Array destination(x.size(), placement.destination);
            source.set(x);
            kernel.run(source.data(), destination.data(), qsvScaleNone);
            const auto first = destination.get();
            EXPECT_TRUE(same_bits<TypeParam>(x, source.get())) << kernel.name << " wrote to source";
            kernel.run(source.data(), destination.data(), qsvScaleNone);
            EXPECT_TRUE(same_bits<TypeParam>(first, destination.get())) << kernel.name;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
