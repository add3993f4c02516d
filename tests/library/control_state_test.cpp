/** @file @brief Floating-point control state is neither changed nor, in the x87 unit, used. */

#include <gtest/gtest.h>

#include "support/bits.hpp"
#include "support/control_state.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class ControlStateOfKernels : public testing::Test {};
TYPED_TEST_SUITE(ControlStateOfKernels, ElementTypes, ElementNames);

TYPED_TEST(ControlStateOfKernels, ControlBitsAreLeftAsTheyWere) {
    using Array = PlacedArray<typename TypeParam::Element>;
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto& placement : kPlacements) {
            Array source(kernel.source_size(), placement.source);
            Array destination(kernel.destination_size(), placement.destination);
            source.set(random_source(kernel, 29));
            for (const ControlState value : kStatesOfCallers) {
                for (const auto flag : {0, 1, 2, 4, 8}) {
                    ControlState after;
                    {
                        const ScopedControlState scope(value);
                        kernel.run(source.data(), destination.data(), flag);
                        after = control_state();
                    }
                    EXPECT_EQ(value & kControlMask, after & kControlMask) << describe(kernel, flag);
                }
            }
        }
    }
}

#if defined(__i386__) || defined(__x86_64__)
// 64, 53 and 24 bits of precision; each other rounding.
constexpr std::uint16_t kX87Values[] = {0x037F, 0x027F, 0x007F, 0x077F, 0x0B7F, 0x0F7F};

TYPED_TEST(ControlStateOfKernels, X87ControlWordAndRegisterStackAreLeftAsTheyWere) {
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

TYPED_TEST(ControlStateOfKernels, TheX87PrecisionChangesNoBit) {
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
#endif

}  // namespace
}  // namespace qsvgen_test
