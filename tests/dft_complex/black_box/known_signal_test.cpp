/** @file @brief Signals whose transform is known without calculation. */

#include <gtest/gtest.h>

#include <cmath>

#include "support/bits.hpp"
#include "support/reference_dft.hpp"
#include "support/scale.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class KnownSignal : public testing::Test {};
TYPED_TEST_SUITE(KnownSignal, ComplexTypes, ElementNames);

TYPED_TEST(KnownSignal, ZerosStayZeros) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = constant_signal<TypeParam>(kernel.length, {0, 0});
        for (const auto flag : kFlags) {
            for (const auto& placement : kPlacements) {
                const auto y = transform(kernel, x, flag, placement);
                for (std::size_t k = 0; k < y.size(); ++k) {
                    EXPECT_EQ(0, y[k].re) << describe(kernel, flag) << ", output " << k;
                    EXPECT_EQ(0, y[k].im) << describe(kernel, flag) << ", output " << k;
                }
            }
        }
    }
}

TYPED_TEST(KnownSignal, AConstantComesOutInTheFirstOutputAlone) {
    // Full mantissas in either precision.
    const typename TypeParam::Complex value = {static_cast<typename TypeParam::Real>(0.7),
                                               static_cast<typename TypeParam::Real>(-0.3)};
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = constant_signal<TypeParam>(kernel.length, value);
        for (const auto flag : kFlags) {
            const long double s = scale_factor<TypeParam>(kernel.length, kernel.direction, flag);
            const long double gain = kernel.length * s;
            const long double tolerance = 4 * TypeParam::kEpsilon * gain;
            const auto y = transform(kernel, x, flag);
            for (std::size_t k = 0; k < y.size(); ++k) {
                const long double expected_re = k == 0 ? gain * value.re : 0;
                const long double expected_im = k == 0 ? gain * value.im : 0;
                EXPECT_LE(std::abs(y[k].re - expected_re), tolerance)
                    << describe(kernel, flag) << ", output " << k << ": "
                    << show<TypeParam>(y[k].re);
                EXPECT_LE(std::abs(y[k].im - expected_im), tolerance)
                    << describe(kernel, flag) << ", output " << k << ": "
                    << show<TypeParam>(y[k].im);
            }
        }
    }
}

TYPED_TEST(KnownSignal, AnImpulseAtOneHasTheSameMagnitudeInAllOutputsOfAPrimeLength) {
    for (const auto& kernel : kernels<TypeParam>()) {
        if (!is_prime(kernel.length)) continue;
        const auto x = impulse<TypeParam>(kernel.length, 1, {1, 0});
        for (const auto flag : kFlags) {
            const long double s = scale_factor<TypeParam>(kernel.length, kernel.direction, flag);
            const auto y = widened(transform(kernel, x, flag));
            for (std::size_t k = 0; k < y.size(); ++k) {
                EXPECT_LE(std::abs(std::sqrt(norm(y[k])) - s), TypeParam::kBasisError * s)
                    << describe(kernel, flag) << ", output " << k;
            }
        }
    }
}

TYPED_TEST(KnownSignal, TheInverseOfAnImpulseAtOneIsTheConjugateOfTheForward) {
    for (int length : kHeaderLengths) {
        const auto x = impulse<TypeParam>(length, 1, {1, 0});
        const auto forward =
            transform(kernel_of<TypeParam>(length, Direction::Forward), x, qsvScaleNone);
        const auto inverse =
            transform(kernel_of<TypeParam>(length, Direction::Inverse), x, qsvScaleNone);
        for (std::size_t k = 0; k < x.size(); ++k) {
            EXPECT_NEAR(forward[k].re, inverse[k].re, TypeParam::kBasisError)
                << "length " << length << ", real part of output " << k;
            EXPECT_NEAR(-forward[k].im, inverse[k].im, TypeParam::kBasisError)
                << "length " << length << ", imaginary part of output " << k;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
