/** @file @brief Where the arrays stand changes no bit of the result. */

#include <gtest/gtest.h>

#include "support/bits.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr std::size_t kOffsets = 16;

template <class E>
class PlacementOfArrays : public testing::Test {};
TYPED_TEST_SUITE(PlacementOfArrays, ElementTypes, ElementNames);

// The first failure of a kernel is enough; the next kernel is looked at all the same.
TYPED_TEST(PlacementOfArrays, EveryPairOfByteOffsetsGivesTheAlignedBits) {
    // Odd offsets are no address for an element in C, but the processor takes them and so do we.
    const auto all_pairs_alike = [](const Kernel<TypeParam>& kernel) {
        const auto x = random_source(kernel, 7);
        const auto expected = transform(kernel, x, qsvScaleBySqrtN);
        for (std::size_t from = 0; from < kOffsets; ++from) {
            for (std::size_t to = 0; to < kOffsets; ++to) {
                const auto y = transform(kernel, x, qsvScaleBySqrtN, {from, to});
                if (auto same = same_bits<TypeParam>(expected, y); !same) {
                    return same << " at offsets " << from << " and " << to;
                }
            }
        }
        return testing::AssertionSuccess();
    };
    for (const auto& kernel : kernels<TypeParam>()) {
        EXPECT_TRUE(all_pairs_alike(kernel)) << describe(kernel, qsvScaleBySqrtN);
    }
}

TYPED_TEST(PlacementOfArrays, BothPathsGiveTheSameBitsForManySignalsAndAllFlags) {
    const auto all_signals_alike = [](const Kernel<TypeParam>& kernel, std::int32_t flag) {
        for (std::uint32_t seed = 0; seed < 40; ++seed) {
            const auto x = random_source(kernel, seed);
            auto same = same_bits<TypeParam>(transform(kernel, x, flag, {0, 0}),
                                             transform(kernel, x, flag, {4, 8}));
            if (!same) return same << ", signal " << seed;
        }
        return testing::AssertionSuccess();
    };
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto flag : kFlags) {
            EXPECT_TRUE(all_signals_alike(kernel, flag)) << describe(kernel, flag);
        }
    }
}

TYPED_TEST(PlacementOfArrays, InPlaceGivesTheBitsOfOutOfPlaceAtEveryOffset) {
    const auto all_offsets_alike = [](const Kernel<TypeParam>& kernel, std::int32_t flag) {
        const auto x = random_source(kernel, 11);
        const auto expected = transform(kernel, x, flag);
        for (std::size_t offset = 0; offset < kOffsets; ++offset) {
            const auto y = transform_in_place(kernel, x, flag, offset);
            if (auto same = same_bits<TypeParam>(expected, y); !same) {
                return same << " in place at offset " << offset;
            }
        }
        return testing::AssertionSuccess();
    };
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto flag : kFlags) {
            EXPECT_TRUE(all_offsets_alike(kernel, flag)) << describe(kernel, flag);
        }
    }
}

TYPED_TEST(PlacementOfArrays, ASecondCallOnTheSameArraysGivesTheSameBits) {
    using Array = PlacedArray<typename TypeParam::Element>;
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto& placement : kPlacements) {
            const auto x = random_source(kernel, 13);
            Array source(x.size(), placement.source);
            Array destination(kernel.destination_size(), placement.destination);
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
