/** @file @brief How far the results of random inputs may be from the exact transform. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/accuracy_limit.hpp"
#include "support/reference_dft.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr int kSignals = 200;

template <class E>
class Accuracy : public testing::Test {};
TYPED_TEST_SUITE(Accuracy, ElementTypes, ElementNames);

TYPED_TEST(Accuracy, TheRelativeErrorOfRandomInputsStaysUnderTheLimitOfItsLength) {
    for (const auto& kernel : kernels<TypeParam>()) {
        double sum = 0;
        for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
            const auto x = random_signal<TypeParam>(kernel.length, 1000 + seed);
            const auto y = widened(transform(kernel, x, qsvScaleNone));
            const auto exact = reference_dft(widened(x), kernel.direction);
            long double error = 0;
            long double size = 0;
            for (std::size_t k = 0; k < y.size(); ++k) {
                error += norm(y[k] - exact[k]);
                size += norm(exact[k]);
            }
            sum += static_cast<double>(error / size);
        }
        const double rms = std::sqrt(sum / kSignals);
        EXPECT_LE(rms, accuracy_limit<TypeParam>(kernel.length))
            << kernel.name << ": " << rms / accuracy_limit<TypeParam>(kernel.length)
            << " times the limit";
    }
}

TYPED_TEST(Accuracy, NoOutputIsFurtherOffThanTheWorstErrorOfAllLengths) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
            const auto x = random_signal<TypeParam>(kernel.length, 2000 + seed);
            const auto y = widened(transform(kernel, x, qsvScaleNone));
            const auto exact = reference_dft(widened(x), kernel.direction);
            for (std::size_t k = 0; k < y.size(); ++k) {
                const auto error = y[k] - exact[k];
                const long double worse = std::max(std::abs(error.re), std::abs(error.im));
                EXPECT_LE(worse, TypeParam::kWorstError)
                    << kernel.name << ", output " << k << ", signal " << seed;
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
