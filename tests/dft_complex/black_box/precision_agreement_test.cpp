/** @file @brief The transforms of both precisions are the same transform. */

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/accuracy_limit.hpp"
#include "support/reference_dft.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr int kSignals = 200;

std::vector<Complex64> in_double_precision(const std::vector<Complex32>& x) {
    std::vector<Complex64> y;
    y.reserve(x.size());
    for (const auto& element : x) y.push_back({element.re, element.im});
    return y;
}

/** Root mean square of |a - b| / |b| over random signals, which both precisions hold exactly. */
double relative_difference(int length, Direction direction, std::int32_t flag) {
    const auto& single_kernel = kernel_of<Single>(length, direction);
    const auto& double_kernel = kernel_of<Double>(length, direction);
    double sum = 0;
    for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
        const auto x = random_signal<Single>(length, 3000 + seed);
        const auto a = widened(transform(single_kernel, x, flag));
        const auto b = widened(transform(double_kernel, in_double_precision(x), flag));
        long double difference = 0;
        long double size = 0;
        for (std::size_t k = 0; k < a.size(); ++k) {
            difference += norm(a[k] - b[k]);
            size += norm(b[k]);
        }
        sum += static_cast<double>(difference / size);
    }
    return std::sqrt(sum / kSignals);
}

// Each may miss the exact transform by its own limit, so at single precision nothing more than the
// roundings of the single one may part them.
TEST(BothPrecisions, DifferByTheErrorsOfEachAtEveryLength) {
    for (const auto& kernel : kernels<Single>()) {
        const double limit =
            accuracy_limit<Single>(kernel.length) + accuracy_limit<Double>(kernel.length);
        const double difference =
            relative_difference(kernel.length, kernel.direction, qsvScaleNone);
        EXPECT_LE(difference, limit)
            << describe(kernel, qsvScaleNone) << ": " << difference / limit << " times the limit";
    }
}

// The factor and the product with it are two more roundings of the single one.
TEST(BothPrecisions, AreScaledAlike) {
    for (const auto& kernel : kernels<Single>()) {
        const double limit = accuracy_limit<Single>(kernel.length) +
                             accuracy_limit<Double>(kernel.length) + Single::kEpsilon;
        for (const auto flag : {qsvScaleFwdByN, qsvScaleInvByN, qsvScaleBySqrtN}) {
            EXPECT_LE(relative_difference(kernel.length, kernel.direction, flag), limit)
                << describe(kernel, flag);
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
