/** @file @brief How far the real transforms of random inputs may be from the exact ones. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "support/accuracy_limit.hpp"
#include "support/bits.hpp"
#include "support/real_layout.hpp"
#include "support/real_reference.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class RealAccuracy : public testing::Test {};
TYPED_TEST_SUITE(RealAccuracy, RealTypes, ElementNames);

TYPED_TEST(RealAccuracy, TheRelativeErrorOfRandomInputsStaysUnderTheLimitOfItsLength) {
    constexpr int kSignals = 128;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto exact = real_reference(kernel);
        double sum = 0;
        for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
            const auto x = random_source(kernel, 1000 + seed);
            const auto y = transform(kernel, x, qsvScaleNone);
            const auto expected = exact(x);
            long double error = 0;
            long double size = 0;
            for (std::size_t k = 0; k < y.size(); ++k) {
                error += (y[k] - expected[k]) * (y[k] - expected[k]);
                size += expected[k] * expected[k];
            }
            sum += static_cast<double>(error / size);
        }
        const double rms = std::sqrt(sum / kSignals);
        EXPECT_LE(rms, accuracy_limit<TypeParam>(kernel.length))
            << kernel.name << ": " << rms / accuracy_limit<TypeParam>(kernel.length)
            << " times the limit";
    }
}

TYPED_TEST(RealAccuracy, NoOutputIsFurtherOffThanThreeRoundingsOfAllInputsTogether) {
    constexpr int kSignals = 64;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto exact = real_reference(kernel);
        for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
            const auto x = random_source(kernel, 3000 + seed);
            double largest = 0;
            for (const auto value : x) largest = std::max(largest, std::abs(double{value}));
            const double limit = 3 * TypeParam::kEpsilon * kernel.length * largest;
            const auto y = transform(kernel, x, qsvScaleNone);
            const auto expected = exact(x);
            for (std::size_t k = 0; k < y.size(); ++k) {
                EXPECT_LE(std::abs(y[k] - expected[k]), limit)
                    << describe(kernel, qsvScaleNone) << ", signal " << seed << ", output "
                    << name_output(kernel, k) << ": " << show<TypeParam>(y[k]) << " instead of "
                    << expected[k];
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
