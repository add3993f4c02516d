/**
 * @file
 * @brief All outputs of sparse inputs at every length up to the longest, which random inputs and a
 * reference of the same length would take minutes for.
 */

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

#include "dct4/element.hpp"

namespace qsvgen_test {
namespace {

using namespace dct4::QSVG_ELEMENT;

constexpr bool kSingle = sizeof(Real) == 4;
// An address sanitizer's shadow leaves no room for the longest. Three levels of splits begin at
// 2^22.
#ifdef __SANITIZE_ADDRESS__
constexpr std::int32_t kLongest = 1 << 22;
#else
constexpr std::int32_t kLongest = kSingle ? 1 << 26 : 1 << 25;
#endif

/** cos(pi/N (n + 1/2) (k + 1/2)) of lengths whose cosines would not fit a table: each angle is a
 * sum of a long step and a short one. */
class LongMatrix {
  public:
    explicit LongMatrix(std::int64_t length) : full_turn_(8 * length) {
        for (std::int64_t t = 0; t < std::min(kShort, full_turn_); ++t) short_.push_back(at(t));
        for (std::int64_t t = 0; t < full_turn_; t += kShort) long_.push_back(at(t));
    }

    long double operator()(std::int64_t k, std::int64_t n) const {
        const std::int64_t t = (2 * n + 1) * (2 * k + 1) % full_turn_;
        const Point a = long_[static_cast<std::size_t>(t / kShort)];
        const Point b = short_[static_cast<std::size_t>(t % kShort)];
        return a.cosine * b.cosine - a.sine * b.sine;
    }

  private:
    static constexpr std::int64_t kShort = 1 << 14;

    struct Point {
        long double cosine;
        long double sine;
    };
    Point at(std::int64_t t) const {
        const long double angle = 2 * std::numbers::pi_v<long double> *
                                  static_cast<long double>(t) /
                                  static_cast<long double>(full_turn_);
        return {std::cos(angle), std::sin(angle)};
    }

    std::int64_t full_turn_;
    std::vector<Point> short_;
    std::vector<Point> long_;
};

struct Sample {
    std::int32_t index;
    double value;
};

/** The first, the last but one, and one of another column and row in between. */
std::array<Sample, 3> samples_of(std::int32_t length) {
    return {{{0, 1}, {length / 3, -0.75}, {length - (length > 4 ? 2 : 1), 0.5}}};
}

struct FreePlan {
    void operator()(Plan* plan) const { EXPORTED(DCT4Free)(plan); }
};

std::vector<Real> transformed(std::int32_t length) {
    Plan* made = nullptr;
    EXPECT_EQ(qsvStatusOk, EXPORTED(DCT4InitAlloc)(&made, length)) << length;
    const std::unique_ptr<Plan, FreePlan> plan(made);
    // In place: the longest plan and one array just fit.
    std::vector<Real> x(static_cast<std::size_t>(length), Real(0));
    for (const Sample& sample : samples_of(length))
        x[static_cast<std::size_t>(sample.index)] += static_cast<Real>(sample.value);
    EXPECT_EQ(qsvStatusOk, EXPORTED(DCT4)(x.data(), x.data(), made)) << length;
    return x;
}

struct Worst {
    long double error = 0;
    std::int32_t output = -1;
};

Worst worst_of(std::int32_t length) {
    const LongMatrix matrix(length);
    const std::vector<Real> y = transformed(length);
    Worst worst;
    for (std::int32_t k = 0; k < length; ++k) {
        long double expected = 0;
        for (const Sample& sample : samples_of(length))
            expected += sample.value * matrix(k, sample.index);
        const long double error = std::fabs(expected - y[static_cast<std::size_t>(k)]);
        // Written so that a NaN is an error.
        if (!(error <= worst.error)) worst = {error, k};
    }
    return worst;
}

TEST(Dct4LongLengths, OfSparseInputsHaveAllOutputsOfTheDefinition) {
    constexpr long double kEpsilon = kSingle ? 0x1p-24L : 0x1p-53L;
    for (std::int32_t length = 2; length <= kLongest; length *= 2) {
        const Worst worst = worst_of(length);
        EXPECT_LE(worst.error, 16 * kEpsilon)
            << "length " << length << ", output " << worst.output << ": off by "
            << worst.error / kEpsilon << " roundings of one";
    }
}

}  // namespace
}  // namespace qsvgen_test
