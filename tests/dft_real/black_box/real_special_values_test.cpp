/** @file @brief Real samples are never examined: NaNs, infinities and denormals pass through. */

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/bits.hpp"
#include "support/real_layout.hpp"
#include "support/real_reference.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class RealSpecialValues : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Limits = std::numeric_limits<Real>;

    // Puts `value` into every place of a random source in turn and checks each output that holds
    // something of this place.
    template <class Check>
    static void at_each_place(Real value, Check check) {
        for (const auto& kernel : kernels<E>()) {
            const auto reference = real_reference(kernel);
            for (std::size_t i = 0; i < kernel.source_size(); ++i) {
                auto x = random_source(kernel, 37);
                x[i] = value;
                const auto y = transform(kernel, x, qsvScaleNone);
                for (std::size_t k = 0; k < y.size(); ++k) {
                    if (std::abs(reference.coefficient(i, k)) < 1e-9L) continue;
                    EXPECT_TRUE(check(y[k]))
                        << describe(kernel, qsvScaleNone) << ", " << show<E>(value) << " in "
                        << name_input(kernel, i) << ", output " << name_output(kernel, k) << ": "
                        << show<E>(y[k]);
                }
            }
        }
    }
};
TYPED_TEST_SUITE(RealSpecialValues, RealTypes, ElementNames);

TYPED_TEST(RealSpecialValues, ANanComesOutInEveryOutputThatHoldsItsPlace) {
    this->at_each_place(TestFixture::Limits::quiet_NaN(), [](auto y) { return std::isnan(y); });
}

TYPED_TEST(RealSpecialValues, AnInfinityLeavesNoOutputThatHoldsItsPlaceFinite) {
    this->at_each_place(TestFixture::Limits::infinity(), [](auto y) { return !std::isfinite(y); });
}

TYPED_TEST(RealSpecialValues, DenormalsAreTransformedAndNotFlushedToZero) {
    using Limits = typename TestFixture::Limits;
    for (const auto& kernel : kernels<TypeParam>()) {
        auto x = random_source(kernel, 41);
        for (auto& value : x) value *= Limits::min() / 2;
        const auto exact = real_reference(kernel)(x);
        // A rounding among denormals is half a step, and a step is 2 eps of the largest input.
        const long double limit = 3 * TypeParam::kEpsilon * kernel.length * (Limits::min() / 2);
        const auto y = transform(kernel, x, qsvScaleNone);
        for (std::size_t k = 0; k < y.size(); ++k) {
            EXPECT_LE(std::abs(y[k] - exact[k]), limit)
                << describe(kernel, qsvScaleNone) << ", output " << name_output(kernel, k) << ": "
                << show<TypeParam>(y[k]);
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
