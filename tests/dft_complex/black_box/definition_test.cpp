/** @file @brief Every kernel is the transform of the definition, column by column. */

#include <gtest/gtest.h>

#include <cmath>

#include "support/reference_dft.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class Definition : public testing::Test {};
TYPED_TEST_SUITE(Definition, ComplexTypes, ElementNames);

template <class E>
void expect_column(const Kernel<E>& kernel, int n, typename E::Complex unit) {
    const auto x = impulse<E>(kernel.length, n, unit);
    const int sign = kernel.direction == Direction::Forward ? -1 : 1;
    for (const auto& placement : {Placement{0, 0}, Placement{4, 4}}) {
        const auto y = transform(kernel, x, qsvScaleNone, placement);
        for (int k = 0; k < kernel.length; ++k) {
            const Wide exact = Wide{unit.re, unit.im} * root_of_unity(sign * n * k, kernel.length);
            const auto& actual = y[static_cast<std::size_t>(k)];
            EXPECT_LE(std::abs(actual.re - exact.re), E::kBasisError)
                << kernel.name << ", real part of output " << k << ", input " << n << " is ("
                << unit.re << ", " << unit.im << "), offsets " << placement.source;
            EXPECT_LE(std::abs(actual.im - exact.im), E::kBasisError)
                << kernel.name << ", imaginary part of output " << k << ", input " << n << " is ("
                << unit.re << ", " << unit.im << "), offsets " << placement.source;
        }
    }
}

TYPED_TEST(Definition, ARealUnitAtEachPlaceGivesItsColumn) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (int n = 0; n < kernel.length; ++n) expect_column(kernel, n, {1, 0});
    }
}

TYPED_TEST(Definition, AnImaginaryUnitAtEachPlaceGivesItsColumn) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (int n = 0; n < kernel.length; ++n) expect_column(kernel, n, {0, 1});
    }
}

// Their constants are 1, -1, i and -i: nothing is rounded, so no tolerance can hide a mistake.
TYPED_TEST(Definition, LengthsTwoAndFourAreExactForWholeNumbers) {
    for (const int length : {2, 4}) {
        for (const auto direction : {Direction::Forward, Direction::Inverse}) {
            const auto& kernel = kernel_of<TypeParam>(length, direction);
            for (int round = 0; round < 100; ++round) {
                auto x = constant_signal<TypeParam>(length, {0, 0});
                for (int n = 0; n < length; ++n) {
                    const int mixed = 37 * round + 11 * n;
                    x[static_cast<std::size_t>(n)] = {
                        static_cast<typename TypeParam::Real>(mixed % 19 - 9),
                        static_cast<typename TypeParam::Real>(mixed % 23 - 11)};
                }
                const auto y = transform(kernel, x, qsvScaleNone);
                const auto exact = reference_dft(widened(x), direction);
                for (std::size_t k = 0; k < y.size(); ++k) {
                    EXPECT_EQ(std::round(exact[k].re), y[k].re) << kernel.name << ", output " << k;
                    EXPECT_EQ(std::round(exact[k].im), y[k].im) << kernel.name << ", output " << k;
                }
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
