/** @file @brief Floating-point control state is neither changed nor, on the x87 side, used. */

#include <gtest/gtest.h>

#include "support/bits.hpp"
#include "support/control_state.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

// The usual one; denormals as zero in and out; each other rounding; flags already raised.
constexpr unsigned kMxcsrValues[] = {0x1F80, 0x9F80, 0x1FC0, 0x3F80, 0x5F80, 0x7F80, 0x1FBF};
// 64, 53 and 24 bits of precision; each other rounding.
constexpr std::uint16_t kX87Values[] = {0x037F, 0x027F, 0x007F, 0x077F, 0x0B7F, 0x0F7F};

template <class E>
class ControlState : public testing::Test {};
TYPED_TEST_SUITE(ControlState, ElementTypes, ElementNames);

TYPED_TEST(ControlState, MxcsrControlBitsAreLeftAsTheyWere) {
    using Array = PlacedArray<typename TypeParam::Element>;
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto& placement : kPlacements) {
            Array source(kernel.source_size(), placement.source);
            Array destination(kernel.destination_size(), placement.destination);
            source.set(random_source(kernel, 29));
            for (const unsigned value : kMxcsrValues) {
                for (const auto flag : {0, 1, 2, 4, 8}) {
                    unsigned after;
                    {
                        const ScopedMxcsr scope(value);
                        kernel.run(source.data(), destination.data(), flag);
                        after = _mm_getcsr();
                    }
                    EXPECT_EQ(value & kMxcsrControlMask, after & kMxcsrControlMask)
                        << describe(kernel, flag);
                }
            }
        }
    }
}

TYPED_TEST(ControlState, X87ControlWordAndRegisterStackAreLeftAsTheyWere) {
    using Array = PlacedArray<typename TypeParam::Element>;
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto& placement : kPlacements) {
            Array source(kernel.source_size(), placement.source);
            Array destination(kernel.destination_size(), placement.destination);
            source.set(random_source(kernel, 31));
            for (const auto value : kX87Values) {
                std::uint16_t control;
                std::uint16_t tags;
                {
                    const ScopedX87ControlWord scope(value);
                    kernel.run(source.data(), destination.data(), qsvScaleBySqrtN);
                    control = x87_control_word();
                    tags = x87_tag_word();
                }
                EXPECT_EQ(value, control) << describe(kernel, qsvScaleBySqrtN);
                EXPECT_EQ(0xFFFF, tags) << describe(kernel, qsvScaleBySqrtN);
            }
        }
    }
}

TYPED_TEST(ControlState, TheX87PrecisionChangesNoBit) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (std::uint32_t seed = 0; seed < 20; ++seed) {
            const auto x = random_source(kernel, seed);
            const auto expected = transform(kernel, x, qsvScaleBySqrtN);
            for (const auto value : kX87Values) {
                const ScopedX87ControlWord scope(value);
                EXPECT_TRUE(same_bits<TypeParam>(expected, transform(kernel, x, qsvScaleBySqrtN)))
                    << describe(kernel, qsvScaleBySqrtN) << ", signal " << seed;
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
