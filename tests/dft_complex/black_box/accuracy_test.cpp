/** @file @brief How far the results of random inputs may be from the exact transform. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "support/accuracy_limit.hpp"
#include "support/reference_dft.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr int kSignals = 200;

template <class E>
class Accuracy : public testing::Test {};
TYPED_TEST_SUITE(Accuracy, ComplexTypes, ElementNames);

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

// The worst of a set of random transforms has a long tail, so the figure is the one that every
// second set of all lengths stays under.
TYPED_TEST(Accuracy, TheWorstErrorOverAllLengthsIsTypicallyUnderItsBound) {
    std::vector<double> worst_of_set;
    for (std::uint32_t seed = 0; seed < 51; ++seed) {
        long double worst = 0;
        for (const auto& kernel : kernels<TypeParam>()) {
            const auto x = random_signal<TypeParam>(kernel.length, 2000 + seed);
            const auto y = widened(transform(kernel, x, qsvScaleNone));
            const auto exact = reference_dft(widened(x), kernel.direction);
            for (std::size_t k = 0; k < y.size(); ++k) {
                const auto error = y[k] - exact[k];
                worst = std::max({worst, std::abs(error.re), std::abs(error.im)});
            }
        }
        worst_of_set.push_back(static_cast<double>(worst));
    }
    std::sort(worst_of_set.begin(), worst_of_set.end());
    EXPECT_LE(worst_of_set[worst_of_set.size() / 2], TypeParam::kWorstError)
        << "best set " << worst_of_set.front() << ", worst set " << worst_of_set.back();
}

}  // namespace
}  // namespace qsvgen_test
