/** @file @brief Lengths of a power of two and one, which the 32-bit library alone makes plans of:
 * what they touch, as callers may know it. */

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/guarded_arrays.hpp"
#include "support/interpreted_plan.hpp"

namespace qsvgen_test {
namespace {

std::vector<std::int32_t> odd_lengths(std::int32_t last) {
    std::vector<std::int32_t> lengths;
    for (std::int32_t length : accepted_lengths(last)) {
        if (length % 2 != 0) lengths.push_back(length);
    }
    return lengths;
}

constexpr Real kUnwritten = Real(-7.25);

TEST(Dct4OddLengths, TouchTheElementsOfTheFormulasWithTheirBits) {
    for (std::int32_t length : odd_lengths(16384)) {
        PlanBuffer& plan = plan_for(length);
        const Signal x = random_signal<E>(word(length) + 1, 8);
        Signal y = constant_signal<E>(x.size(), kUnwritten);
        EXPECT_EQ(qsvStatusOk, EXPORTED(DCT4)(x.data(), y.data(), plan_of(plan))) << length;
        EXPECT_TRUE(same_bits<E>(
            as_signal(interpreted_transform(plan, as_memory(x), double{kUnwritten})), y))
            << "length " << length;
    }
}

TEST(Dct4OddLengths, ReadAndWriteTheElementBehindTheEnd) {
    for (std::int32_t length : odd_lengths(4096)) {
        Signal x = constant_signal<E>(word(length) + 1, Real(0));
        x.back() = Real(1);
        Signal y = constant_signal<E>(x.size(), kUnwritten);
        EXPORTED(DCT4)(x.data(), y.data(), plan_of(plan_for(length)));
        EXPECT_NE(Real(0), y[0]) << "length " << length;
        EXPECT_NE(kUnwritten, y.back()) << "length " << length;
    }
}

TEST(Dct4OddLengths, ThirtyThreeLeavesEightElementsOfEachArrayAlone) {
    const std::vector<std::size_t> left = {4, 5, 12, 13, 20, 21, 28, 29};
    Signal x = random_signal<E>(34, 8);
    Signal y = constant_signal<E>(34, kUnwritten);
    EXPORTED(DCT4)(x.data(), y.data(), plan_of(plan_for(33)));
    // What is not read may be anything.
    for (std::size_t i : left) x[i] = std::numeric_limits<Real>::quiet_NaN();
    Signal again = constant_signal<E>(34, kUnwritten);
    EXPORTED(DCT4)(x.data(), again.data(), plan_of(plan_for(33)));
    EXPECT_TRUE(same_bits<E>(y, again));
    for (std::size_t i = 0; i < y.size(); ++i) {
        const bool alone = std::find(left.begin(), left.end(), i) != left.end();
        EXPECT_EQ(alone, y[i] == kUnwritten) << "output " << i;
        if (alone) continue;
        Signal poisoned = x;
        poisoned[i] = std::numeric_limits<Real>::quiet_NaN();
        Signal poison = constant_signal<E>(34, kUnwritten);
        EXPORTED(DCT4)(poisoned.data(), poison.data(), plan_of(plan_for(33)));
        EXPECT_TRUE(std::isnan(poison[0])) << "input " << i;
    }
}

TEST(Dct4OddLengths, TouchOneElementMore) {
    for (std::int32_t length : odd_lengths(16384)) expect_no_fault(length, word(length) + 1);
}

}  // namespace
}  // namespace qsvgen_test
