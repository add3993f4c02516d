/** @file @brief Every real kernel is the transform of the definition, column by column. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/bits.hpp"
#include "support/real_layout.hpp"
#include "support/real_reference.hpp"
#include "support/scale.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class RealDefinition : public testing::Test {};
TYPED_TEST_SUITE(RealDefinition, RealTypes, ElementNames);

// Some roundings of values of the size of the column's, which is 2 where a bin stands for two.
template <class E>
double column_limit(const Kernel<E>& kernel) {
    const double roundings = std::min(3 * kernel.length, 12);
    return roundings * E::kEpsilon * (kernel.direction == Direction::Inverse ? 2 : 1);
}

TYPED_TEST(RealDefinition, AUnitAtEachPlaceGivesItsColumn) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto exact = real_reference(kernel);
        for (std::size_t i = 0; i < kernel.source_size(); ++i) {
            const auto x = impulse<TypeParam>(kernel.source_size(), i, 1);
            const auto y = transform(kernel, x, qsvScaleNone);
            for (std::size_t k = 0; k < y.size(); ++k) {
                EXPECT_LE(std::abs(y[k] - exact.coefficient(i, k)), column_limit(kernel))
                    << describe(kernel, qsvScaleNone) << ", 1 in " << name_input(kernel, i)
                    << ", output " << name_output(kernel, k) << ": " << show<TypeParam>(y[k])
                    << " instead of " << exact.coefficient(i, k);
            }
        }
    }
}

TYPED_TEST(RealDefinition, RandomDataGiveTheirTransformWithEveryFlag) {
    constexpr int kSignals = 10;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto exact = real_reference(kernel);
        for (const auto flag : kFlags) {
            const long double s = scale_factor(kernel, flag);
            // Beside the bound of an unscaled output: its last rounding and that of the factor.
            const long double limit = (3 * kernel.length + 2) * TypeParam::kEpsilon * s;
            for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                const auto x = random_source(kernel, 500 + seed);
                const auto y = transform(kernel, x, flag);
                const auto expected = exact(x);
                for (std::size_t k = 0; k < y.size(); ++k) {
                    EXPECT_LE(std::abs(y[k] - s * expected[k]), limit)
                        << describe(kernel, flag) << ", signal " << seed << ", output "
                        << name_output(kernel, k) << ": " << show<TypeParam>(y[k]) << " instead of "
                        << s * expected[k];
                }
            }
        }
    }
}

// Their constants are 1 and -1: nothing is rounded, so no tolerance can hide a mistake.
TYPED_TEST(RealDefinition, LengthsTwoAndFourAreExactForWholeNumbers) {
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.length != 2 && kernel.length != 4) continue;
        const auto exact = real_reference(kernel);
        for (int round = 0; round < 100; ++round) {
            auto x = constant_signal<TypeParam>(kernel.source_size(), 0);
            for (std::size_t i = 0; i < x.size(); ++i) {
                x[i] = static_cast<typename TypeParam::Real>(
                    (37 * round + 11 * static_cast<int>(i)) % 19 - 9);
            }
            const auto y = transform(kernel, x, qsvScaleNone);
            const auto expected = exact(x);
            for (std::size_t k = 0; k < y.size(); ++k) {
                EXPECT_EQ(std::round(expected[k]), y[k])
                    << describe(kernel, qsvScaleNone) << ", output " << name_output(kernel, k);
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
