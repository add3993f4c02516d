/** @file @brief Signals whose real transforms are known to the bit without calculation. */

#include <gtest/gtest.h>

#include <cmath>

#include "support/bits.hpp"
#include "support/real_layout.hpp"
#include "support/scale.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class RealKnownSignal : public testing::Test {
  protected:
    using Real = typename E::Real;

    static void expect_bits(Real expected, Real actual, const Kernel<E>& kernel, std::int32_t flag,
                            std::size_t output) {
        EXPECT_TRUE(same_number_bits(expected, actual))
            << describe(kernel, flag) << ", output " << name_output(kernel, output) << ": "
            << show<E>(actual) << " instead of " << show<E>(expected);
    }
};
TYPED_TEST_SUITE(RealKnownSignal, RealTypes, ElementNames);

TYPED_TEST(RealKnownSignal, AnImpulseAtZeroGivesTheFactorInRealPartsAndPositiveZerosBeside) {
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction != Direction::Forward) continue;
        const auto x = impulse<TypeParam>(kernel.source_size(), 0, 1);
        const auto slots = slots_of(kernel.layout, kernel.length);
        for (const auto flag : kFlags) {
            const auto s = scale_factor(kernel, flag);
            const auto y = transform(kernel, x, flag);
            for (std::size_t i = 0; i < y.size(); ++i) {
                this->expect_bits(slots[i].part == Part::Real ? s : 0, y[i], kernel, flag, i);
            }
        }
    }
}

TYPED_TEST(RealKnownSignal, ASpectrumOfItsFirstBinAloneGivesTheFactorInEveryOutput) {
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction != Direction::Inverse) continue;
        const auto spectrum = impulse<TypeParam>(kernel.source_size(), 0, 1);
        for (const auto flag : kFlags) {
            const auto x = transform(kernel, spectrum, flag);
            for (std::size_t n = 0; n < x.size(); ++n) {
                this->expect_bits(scale_factor(kernel, flag), x[n], kernel, flag, n);
            }
        }
    }
}

TYPED_TEST(RealKnownSignal, TheHartleyTransformOfAnImpulseAtZeroIsTheFactorEverywhere) {
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction != Direction::Both) continue;
        const auto x = impulse<TypeParam>(kernel.source_size(), 0, 1);
        for (const auto flag : kFlags) {
            const auto y = transform(kernel, x, flag);
            for (std::size_t k = 0; k < y.size(); ++k) {
                this->expect_bits(scale_factor(kernel, flag), y[k], kernel, flag, k);
            }
        }
    }
}

TYPED_TEST(RealKnownSignal, ZerosGiveZerosAndPositiveOnesInImaginaryParts) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = constant_signal<TypeParam>(kernel.source_size(), 0);
        for (const auto flag : kFlags) {
            const auto y = transform(kernel, x, flag);
            for (std::size_t i = 0; i < y.size(); ++i) {
                EXPECT_EQ(0, y[i])
                    << describe(kernel, flag) << ", output " << name_output(kernel, i);
                if (kernel.direction != Direction::Forward) continue;
                if (slots_of(kernel.layout, kernel.length)[i].part == Part::Real) continue;
                this->expect_bits(0, y[i], kernel, flag, i);
            }
        }
    }
}

TYPED_TEST(RealKnownSignal, AConstantComesOutInTheFirstOutputAlone) {
    const auto value = static_cast<typename TypeParam::Real>(0.7);  // of a full mantissa
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction == Direction::Inverse) continue;
        const auto x = constant_signal<TypeParam>(kernel.source_size(), value);
        for (const auto flag : kFlags) {
            const long double gain =
                kernel.length * static_cast<long double>(value) * scale_factor(kernel, flag);
            const auto y = transform(kernel, x, flag);
            for (std::size_t k = 0; k < y.size(); ++k) {
                EXPECT_LE(std::abs(y[k] - (k == 0 ? gain : 0)), 4 * TypeParam::kEpsilon * gain)
                    << describe(kernel, flag) << ", output " << name_output(kernel, k) << ": "
                    << show<TypeParam>(y[k]);
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
