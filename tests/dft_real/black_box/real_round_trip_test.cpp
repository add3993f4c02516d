/** @file @brief Forward and inverse real transforms belong together, and Hartley to itself. */

#include <gtest/gtest.h>

#include <cmath>

#include "support/accuracy_limit.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr std::uint32_t kSignals = 10;

template <class E>
class RealRoundTrip : public testing::Test {
  protected:
    // By which power of the length a transform with this flag divides.
    static double divided_power(Direction direction, std::int32_t flag) {
        if (flag == qsvScaleBySqrtN) return 0.5;
        const bool by_length = (flag == qsvScaleFwdByN && direction != Direction::Inverse) ||
                               (flag == qsvScaleInvByN && direction != Direction::Forward);
        return by_length ? 1 : 0;
    }

    // Expects second(first(x)) = N x, but for what the flags divide by.
    static void expect_gain(const Kernel<E>& first, const Kernel<E>& second) {
        const int length = first.length;
        // Two transforms, a single signal instead of a mean over many, two rounded factors.
        const double limit = 4 * accuracy_limit<E>(length) + 1.5 * E::kEpsilon;
        for (const auto first_flag : kFlags) {
            for (const auto second_flag : kFlags) {
                const double power = 1 - divided_power(first.direction, first_flag) -
                                     divided_power(second.direction, second_flag);
                const long double gain = std::pow(static_cast<long double>(length), power);
                for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                    const auto x = random_signal<E>(first.source_size(), seed);
                    const auto back =
                        transform(second, transform(first, x, first_flag), second_flag);
                    ASSERT_EQ(x.size(), back.size());
                    long double error = 0;
                    long double size = 0;
                    for (std::size_t n = 0; n < x.size(); ++n) {
                        const long double expected = gain * x[n];
                        error += (back[n] - expected) * (back[n] - expected);
                        size += expected * expected;
                    }
                    EXPECT_LE(std::sqrt(error / size), limit)
                        << describe(first, first_flag) << " and " << describe(second, second_flag)
                        << ", signal " << seed << ", gain " << gain;
                }
            }
        }
    }
};
TYPED_TEST_SUITE(RealRoundTrip, RealTypes, ElementNames);

// Among the sixteen pairs of flags are those that give the signal back, and N times it.
TYPED_TEST(RealRoundTrip, ForwardAndInverseGiveTheSignalTimesTheLengthOverWhatTheFlagsDivideBy) {
    for (int length : kHeaderLengths) {
        for (const auto layout : kRealLayouts) {
            this->expect_gain(kernel_of<TypeParam>(length, Direction::Forward, layout),
                              kernel_of<TypeParam>(length, Direction::Inverse, layout));
        }
    }
}

TYPED_TEST(RealRoundTrip, HartleyTwiceGivesTheSignalTimesTheLengthOverWhatTheFlagsDivideBy) {
    for (int length : kHeaderLengths) {
        const auto& kernel = kernel_of<TypeParam>(length, Direction::Both);
        this->expect_gain(kernel, kernel);
    }
}

}  // namespace
}  // namespace qsvgen_test
