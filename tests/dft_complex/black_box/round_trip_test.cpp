/** @file @brief Forward and inverse belong together. */

#include <gtest/gtest.h>

#include <cmath>

#include "support/accuracy_limit.hpp"
#include "support/reference_dft.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr std::uint32_t kSignals = 50;

template <class E>
class RoundTrip : public testing::Test {
  protected:
    // Expects Inv(Fwd(x)) = gain * x with the same flag on both ways.
    static void expect_gain(std::int32_t flag, bool times_length) {
        for (int length : kHeaderLengths) {
            const auto& forward = kernel_of<E>(length, Direction::Forward);
            const auto& inverse = kernel_of<E>(length, Direction::Inverse);
            const long double gain = times_length ? length : 1;
            // Two transforms, a single signal instead of a mean over many, two rounded factors.
            const double limit = 4 * accuracy_limit<E>(length) + 1.5 * E::kEpsilon;
            for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                const auto x = random_signal<E>(length, seed);
                const auto back = transform(inverse, transform(forward, x, flag), flag);
                const auto wide_x = widened(x);
                const auto wide_back = widened(back);
                long double error = 0;
                long double size = 0;
                for (std::size_t n = 0; n < x.size(); ++n) {
                    const Wide expected = {gain * wide_x[n].re, gain * wide_x[n].im};
                    error += norm(wide_back[n] - expected);
                    size += norm(expected);
                }
                EXPECT_LE(std::sqrt(error / size), limit)
                    << "length " << length << ", flag " << flag << ", signal " << seed;
            }
        }
    }
};
TYPED_TEST_SUITE(RoundTrip, ComplexTypes, ElementNames);

TYPED_TEST(RoundTrip, GivesTheInputBackWhereTheForwardDividesByTheLength) {
    this->expect_gain(qsvScaleFwdByN, false);
}
TYPED_TEST(RoundTrip, GivesTheInputBackWhereTheInverseDividesByTheLength) {
    this->expect_gain(qsvScaleInvByN, false);
}
TYPED_TEST(RoundTrip, GivesTheInputBackWhereBothDivideByTheRootOfTheLength) {
    this->expect_gain(qsvScaleBySqrtN, false);
}
TYPED_TEST(RoundTrip, GivesTheInputTimesTheLengthWhereNeitherDivides) {
    this->expect_gain(qsvScaleNone, true);
}

TYPED_TEST(RoundTrip, TheInverseIsTheForwardBetweenTwoExchangesOfRealAndImaginaryParts) {
    for (int length : kHeaderLengths) {
        const auto& forward = kernel_of<TypeParam>(length, Direction::Forward);
        const auto& inverse = kernel_of<TypeParam>(length, Direction::Inverse);
        double sum = 0;
        for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
            const auto x = random_signal<TypeParam>(length, seed);
            const auto direct = widened(transform(inverse, x, qsvScaleNone));
            const auto around = widened(exchanged(transform(forward, exchanged(x), qsvScaleNone)));
            long double difference = 0;
            long double size = 0;
            for (std::size_t k = 0; k < x.size(); ++k) {
                difference += norm(around[k] - direct[k]);
                size += norm(direct[k]);
            }
            sum += static_cast<double>(difference / size);
        }
        // Both may miss the exact transform by the limit, in opposite directions.
        EXPECT_LE(std::sqrt(sum / kSignals), 2 * accuracy_limit<TypeParam>(length))
            << "length " << length;
    }
}

}  // namespace
}  // namespace qsvgen_test
