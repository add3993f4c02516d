/** @file @brief Where an inverse transform doubles its bins, told by what overflows. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "support/bits.hpp"
#include "support/real_counts.hpp"
#include "support/real_layout.hpp"
#include "support/scale.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class RealOverflow : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Signal = std::vector<Real>;

    static constexpr Real kLargest = std::numeric_limits<Real>::max();
    // Twice it overflows; times the constant of a fold, which is below 1.99, it does not.
    static constexpr Real kJustOverHalf = kLargest / 2 * static_cast<Real>(1.0009765625);

    static bool all_finite(const Signal& signal) {
        return std::all_of(signal.begin(), signal.end(), [](Real x) { return std::isfinite(x); });
    }

    /** The bins' parts that can be a little over half the largest number, each alone. */
    static std::set<std::string> folded_values(const Kernel<E>& kernel) {
        std::set<std::string> folded;
        const auto slots = slots_of(kernel.layout, kernel.length);
        for (std::size_t i = 0; i < slots.size(); ++i) {
            const bool is_interior = slots[i].bin > 0 && 2 * slots[i].bin != kernel.length;
            if (!is_interior) continue;
            const auto x = impulse<E>(kernel.source_size(), i, kJustOverHalf);
            if (all_finite(transform(kernel, x, qsvScaleNone))) folded.insert(to_string(slots[i]));
        }
        return folded;
    }

    static Signal with(const Kernel<E>& kernel, Slot slot, Real value) {
        const auto element = element_of(slot, kernel.layout, kernel.length);
        return impulse<E>(kernel.source_size(), element, value);
    }
};
TYPED_TEST_SUITE(RealOverflow, RealTypes, ElementNames);

TYPED_TEST(RealOverflow, OnlyTheFoldedBinsOfALengthMayBeOverHalfTheLargestNumber) {
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction != Direction::Inverse) continue;
        const auto folded = this->folded_values(kernel);
        const auto count = static_cast<int>(folded.size());
        std::string names;
        for (const auto& name : folded) names += " " + name;
        if (is_open_by_half(kernel.length)) {
            EXPECT_LE(count, real_counts(kernel.length).folded_doublings) << kernel.name << names;
        } else {
            EXPECT_EQ(real_counts(kernel.length).folded_doublings, count) << kernel.name << names;
        }
    }
}

// These have no other use than their one product, by the sine of a third of a turn.
TYPED_TEST(RealOverflow, TheFoldedBinsAreTheImaginaryPartsAtAThirdAndASixthOfTheLength) {
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction != Direction::Inverse) continue;
        const int length = kernel.length;
        if (real_counts(length).folded_doublings == 0 || is_open_by_half(length)) continue;
        std::set<std::string> expected = {"I" + std::to_string(length / 3)};
        if (length % 2 == 0) expected.insert("I" + std::to_string(length / 6));
        EXPECT_EQ(expected, this->folded_values(kernel)) << kernel.name;
    }
}

TYPED_TEST(RealOverflow, TheFirstAndTheMiddleBinAreNotDoubled) {
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction != Direction::Inverse) continue;
        std::vector<Slot> single = {{Part::Real, 0}};
        if (kernel.length % 2 == 0) single.push_back({Part::Real, kernel.length / 2});
        for (const auto& slot : single) {
            const auto x =
                transform(kernel, this->with(kernel, slot, this->kLargest), qsvScaleNone);
            for (std::size_t n = 0; n < x.size(); ++n) {
                EXPECT_EQ(this->kLargest, std::abs(x[n]))
                    << describe(kernel, qsvScaleNone) << ", " << to_string(slot) << ", output " << n
                    << ": " << show<TypeParam>(x[n]);
            }
        }
    }
}

// The doubling comes first: what the factor of the flag would bring back has overflowed by then.
TYPED_TEST(RealOverflow, ADoubledBinOverflowsWhateverTheFlag) {
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction != Direction::Inverse || kernel.length < 3) continue;
        if (is_open_by_half(kernel.length)) continue;  // R1 may be one of the folded values
        const auto x = this->with(kernel, {Part::Real, 1}, this->kJustOverHalf);
        for (const auto flag : kFlags) {
            EXPECT_FALSE(this->all_finite(transform(kernel, x, flag))) << describe(kernel, flag);
        }
    }
}

TYPED_TEST(RealOverflow, TheFoldedBinOfLengthThreeIsMultipliedByTheDoubledSineAtOnce) {
    using Real = typename TypeParam::Real;
    for (const auto layout : kRealLayouts) {
        const auto& kernel = kernel_of<TypeParam>(3, Direction::Inverse, layout);
        for (const Real value : {this->kJustOverHalf, static_cast<Real>(this->kLargest * 0.55)}) {
            const auto product = static_cast<Real>(double{value} * 1.7320508075688772);
            ASSERT_TRUE(std::isfinite(product));
            const auto spectrum = this->with(kernel, {Part::Imaginary, 1}, value);
            for (const auto flag : kFlags) {
                const Real s = scale_factor(kernel, flag);
                EXPECT_TRUE(same_bits<TypeParam>({0, -product * s, product * s},
                                                 transform(kernel, spectrum, flag)))
                    << describe(kernel, flag) << ", I1 " << show<TypeParam>(value);
            }
        }
    }
}

// The row of R1 is scaled in binary64 before it is rounded to binary32; the sum R0 is not.
TEST(RealOverflowOf32f, AForwardRowMayBeTooLargeUntilItIsScaled) {
    const auto& kernel = kernel_of<RealSingle>(3, Direction::Forward, Layout::Pack);
    const float largest = std::numeric_limits<float>::max();
    const std::vector<float> x = {largest, -largest, 0};
    const float s = scale_factor(kernel, qsvScaleFwdByN);
    const auto y = transform(kernel, x, qsvScaleFwdByN);
    EXPECT_EQ(static_cast<float>(1.5 * largest * s), y[1]) << show<RealSingle>(y[1]);
    EXPECT_TRUE(std::isinf(transform(kernel, x, qsvScaleNone)[1]));
    const auto sum = transform(kernel, {largest, largest, 0}, qsvScaleFwdByN)[0];
    EXPECT_TRUE(std::isinf(sum)) << show<RealSingle>(sum);
}

}  // namespace
}  // namespace qsvgen_test
