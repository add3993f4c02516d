/** @file @brief Sample values are never examined: NaNs, infinities and denormals pass through. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/reference_dft.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class SpecialValues : public testing::Test {
  protected:
    using Complex = typename E::Complex;
    using Real = typename E::Real;

    static constexpr Real kNan = std::numeric_limits<Real>::quiet_NaN();
    static constexpr Real kInfinity = std::numeric_limits<Real>::infinity();

    // Puts `value` into every place of a random signal in turn, as real and as imaginary part.
    template <class Check>
    static void at_each_place(Real value, Check check) {
        for (const auto& kernel : kernels<E>()) {
            for (int n = 0; n < kernel.length; ++n) {
                for (const bool imaginary : {false, true}) {
                    auto x = random_signal<E>(kernel.length, 37);
                    auto& place = x[static_cast<std::size_t>(n)];
                    (imaginary ? place.im : place.re) = value;
                    for (const auto& placement : {Placement{0, 0}, Placement{4, 4}}) {
                        EXPECT_TRUE(check(transform(kernel, x, qsvScaleNone, placement)))
                            << kernel.name << ", input " << n << (imaginary ? " im" : " re")
                            << ", offsets " << placement.source;
                    }
                }
            }
        }
    }
};
TYPED_TEST_SUITE(SpecialValues, ComplexTypes, ElementNames);

TYPED_TEST(SpecialValues, ANanAtAnyPlaceComesOutSomewhere) {
    this->at_each_place(this->kNan, [](const auto& y) {
        return std::any_of(y.begin(), y.end(), [](const auto& element) {
            return std::isnan(element.re) || std::isnan(element.im);
        });
    });
}

// Every output holds every input, so an infinity leaves no output finite in both parts.
TYPED_TEST(SpecialValues, AnInfinityAtAnyPlaceComesOutEverywhere) {
    this->at_each_place(this->kInfinity, [](const auto& y) {
        return std::none_of(y.begin(), y.end(), [](const auto& element) {
            return std::isfinite(element.re) && std::isfinite(element.im);
        });
    });
}

TYPED_TEST(SpecialValues, SignalsOfNansAloneAreNoFailure) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = constant_signal<TypeParam>(kernel.length, {this->kNan, this->kNan});
        for (const auto flag : kFlags) {
            for (const auto& y : transform(kernel, x, flag)) {
                EXPECT_TRUE(std::isnan(y.re) && std::isnan(y.im)) << describe(kernel, flag);
            }
        }
    }
}

TYPED_TEST(SpecialValues, DenormalsAreTransformedAndNotFlushedToZero) {
    using Limits = std::numeric_limits<typename TypeParam::Real>;
    for (const auto& kernel : kernels<TypeParam>()) {
        auto x = random_signal<TypeParam>(kernel.length, 41);
        for (auto& element : x) {
            element.re *= Limits::min() / 2;
            element.im *= Limits::min() / 2;
        }
        const auto exact = reference_dft(widened(x), kernel.direction);
        long double size = 0;
        for (const auto& element : exact) size = std::max(size, norm(element));
        // Some roundings at the top of the denormals, where a step is 2 eps of the value.
        const long double limit = 16 * TypeParam::kEpsilon * std::sqrt(size);
        for (const auto& placement : kPlacements) {
            const auto y = widened(transform(kernel, x, qsvScaleNone, placement));
            for (std::size_t k = 0; k < y.size(); ++k) {
                EXPECT_LE(std::sqrt(norm(y[k] - exact[k])), limit)
                    << kernel.name << ", output " << k;
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
