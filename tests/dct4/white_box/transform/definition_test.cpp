/** @file @brief The transform is the matrix of its definition, and its own inverse. */

#include <algorithm>
#include <cmath>

#include "support/dct4.hpp"
#include "support/reference_dct4.hpp"

namespace qsvgen_test {
namespace {

constexpr std::int32_t kLongestByDefinition = 1024;
constexpr std::int32_t kLongest = 131072;

/** Furthest output from what it should be, in units of eps times the largest output. */
double largest_error(const std::vector<long double>& expected, const Signal& actual) {
    long double largest = 0;
    long double error = 0;
    for (std::size_t k = 0; k < expected.size(); ++k) {
        largest = std::max(largest, std::fabs(expected[k]));
        // Not std::max, which would pass over a NaN.
        const long double difference = std::fabs(expected[k] - actual[k]);
        if (!(difference <= error)) error = difference;
    }
    return static_cast<double>(error / largest / E::kEpsilon);
}

double error_limit(std::int32_t length) {
    return length <= 2048 ? 5 : 7;
}

TEST(Dct4Definition, TheFastReferenceIsTheSumOfTheDefinition) {
    for (std::int32_t length : transform_lengths(512)) {
        const auto x = widened(random_signal<E>(static_cast<std::size_t>(length), 1));
        const auto sum = dct4_by_definition(x);
        const auto fast = fast_dct4(x);
        for (std::size_t k = 0; k < x.size(); ++k)
            EXPECT_NEAR(sum[k], fast[k], 1e-16L * length) << "length " << length << ", " << k;
    }
}

TEST(Dct4Definition, EveryBasisVectorGivesItsColumn) {
    for (std::int32_t length : transform_lengths(kLongestByDefinition)) {
        const Dct4Matrix matrix(length);
        std::vector<long double> column(static_cast<std::size_t>(length));
        for (std::int32_t n = 0; n < length; ++n) {
            const auto y =
                transformed(impulse<E>(static_cast<std::size_t>(length), word(n), Real(1)));
            for (std::int32_t k = 0; k < length; ++k) column[word(k)] = matrix.at(k, n);
            ASSERT_LE(largest_error(column, y), 5) << "length " << length << ", input " << n;
        }
    }
}

TEST(Dct4Definition, SomeBasisVectorsOfLongLengthsGiveTheirColumns) {
    for (std::int32_t length : transform_lengths(kLongest)) {
        if (length <= kLongestByDefinition) continue;
        const Dct4Matrix matrix(length);
        std::vector<long double> column(static_cast<std::size_t>(length));
        for (std::int32_t n : {0, 1, 33, length / 3, length / 2, length - 2, length - 1}) {
            const auto y =
                transformed(impulse<E>(static_cast<std::size_t>(length), word(n), Real(1)));
            for (std::int32_t k = 0; k < length; ++k) column[word(k)] = matrix.at(k, n);
            EXPECT_LE(largest_error(column, y), error_limit(length))
                << "length " << length << ", input " << n;
        }
    }
}

TEST(Dct4Definition, RandomInputsStayWithinAFewRoundingsOfTheLargestOutput) {
    for (std::int32_t length : transform_lengths(kLongest)) {
        for (std::uint32_t seed = 0; seed < 3; ++seed) {
            const auto x = random_signal<E>(static_cast<std::size_t>(length), seed);
            EXPECT_LE(largest_error(fast_dct4(widened(x)), transformed(x)), error_limit(length))
                << "length " << length << ", seed " << seed;
        }
    }
}

TEST(Dct4Definition, SingleResultsToLength512StandWithinAHundredThousandth) {
    if (!kSingle) GTEST_SKIP() << "of single precision";
    for (std::int32_t length : transform_lengths(512)) {
        const auto x = random_signal<E>(static_cast<std::size_t>(length), 9);
        const auto expected = fast_dct4(widened(x));
        const auto y = transformed(x);
        for (std::size_t k = 0; k < y.size(); ++k)
            EXPECT_NEAR(expected[k], y[k], 1e-5) << "length " << length << ", output " << k;
    }
}

TEST(Dct4Definition, TwiceIsHalfTheLengthTimesTheInput) {
    for (std::int32_t length : transform_lengths(kLongest)) {
        const auto x = random_signal<E>(static_cast<std::size_t>(length), 5);
        auto expected = widened(x);
        for (auto& value : expected) value *= length / 2.0L;
        EXPECT_LE(largest_error(expected, transformed(transformed(x))), 12) << "length " << length;
    }
}

// Roundings of the tables, of constants and of some log2 N sums grow with the root of log2 N.
TEST(Dct4Accuracy, TheRootMeanSquareErrorGrowsAsTheRootOfTheLogarithm) {
    for (std::int32_t length : transform_lengths(kLongest)) {
        const std::uint32_t inputs = length <= 2048 ? 100 : 3;
        long double sum = 0;
        for (std::uint32_t seed = 0; seed < inputs; ++seed) {
            const auto x = random_signal<E>(static_cast<std::size_t>(length), 1000 + seed);
            const auto expected = fast_dct4(widened(x));
            const auto y = transformed(x);
            long double error = 0;
            long double norm = 0;
            for (std::size_t k = 0; k < y.size(); ++k) {
                error += (expected[k] - y[k]) * (expected[k] - y[k]);
                norm += expected[k] * expected[k];
            }
            sum += error / norm;
        }
        const double relative = static_cast<double>(std::sqrt(sum / inputs)) /
                                (E::kEpsilon * std::sqrt(std::log2(length)));
        EXPECT_LE(relative, length <= 2048 ? 0.6 : 1.2) << "length " << length;
    }
}

TEST(Dct4KnownSignals, LengthTwoOfAnImpulseIsTheCosineAndTheSineOfAnEighthOfPi) {
    const auto y = transformed({Real(1), Real(0)});
    EXPECT_EQ(static_cast<Real>(0.923879532511286756128L), y[0]);
    EXPECT_EQ(static_cast<Real>(0.382683432365089771728L), y[1]);
}

TEST(Dct4KnownSignals, ZerosGivePositiveOrNegativeZeros) {
    for (std::int32_t length : transform_lengths(8192)) {
        const auto y = transformed(constant_signal<E>(word(length), Real(0)));
        for (std::size_t k = 0; k < y.size(); ++k)
            ASSERT_EQ(Real(0), y[k]) << "length " << length << ", output " << k;
    }
}

TEST(Dct4KnownSignals, ANotANumberReachesAllOutputs) {
    for (std::int32_t length : transform_lengths(8192)) {
        for (std::int32_t n : {0, length / 2, length - 1}) {
            const auto y = transformed(
                impulse<E>(word(length), word(n), std::numeric_limits<Real>::quiet_NaN()));
            for (std::size_t k = 0; k < y.size(); ++k)
                ASSERT_TRUE(std::isnan(y[k])) << "length " << length << ", output " << k;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
