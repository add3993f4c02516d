/** @file @brief Which element of a spectrum holds what, and that the layouts differ in no more. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/bits.hpp"
#include "support/control_state.hpp"
#include "support/real_layout.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr std::uint32_t kSignals = 20;

template <class E>
class RealLayouts : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Signal = std::vector<Real>;
    using Limits = std::numeric_limits<Real>;

    /** What must not show: NaNs of both kinds, infinities, and numbers of every size. */
    static Signal strangers() {
        return {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),  Limits::max(),
                Limits::lowest(),    Real{-0.0},         Limits::denorm_min(), Real{1}};
    }

    static std::vector<std::size_t> zero_slots(int length) {
        if (length % 2 != 0) return {1};
        return {1, static_cast<std::size_t>(length) + 1};
    }

    static Signal forward(Layout layout, const Signal& x, std::int32_t flag) {
        return transform(kernel_of<E>(static_cast<int>(x.size()), Direction::Forward, layout), x,
                         flag);
    }
};
TYPED_TEST_SUITE(RealLayouts, RealTypes, ElementNames);

template <class E>
testing::AssertionResult is_positive_zero(typename E::Real value) {
    if (same_number_bits(value, typename E::Real{0})) return testing::AssertionSuccess();
    return testing::AssertionFailure() << show<E>(value) << " instead of +0.0";
}

// A constant has the sum alone, an alternating signal the middle bin, a cosine one real part: no
// two of them can be taken for each other.
TYPED_TEST(RealLayouts, EverySlotOfAForwardTransformIsWhereItsTablePutsIt) {
    using Real = typename TypeParam::Real;
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction != Direction::Forward) continue;
        const auto size = static_cast<std::size_t>(kernel.length);
        const long double turn = 2 * std::acos(-1.0L) / kernel.length;
        const auto slots = slots_of(kernel.layout, kernel.length);
        for (const auto& slot : values_of(kernel.length)) {
            auto x = constant_signal<TypeParam>(size, 0);
            for (std::size_t n = 0; n < size; ++n) {
                const long double angle = turn * slot.bin * static_cast<long double>(n);
                x[n] =
                    static_cast<Real>(slot.part == Part::Real ? std::cos(angle) : -std::sin(angle));
            }
            const auto y = transform(kernel, x, qsvScaleFwdByN);
            for (std::size_t i = 0; i < y.size(); ++i) {
                const bool alone = slot.bin == 0 || 2 * slot.bin == kernel.length;
                const double expected = !(slots[i] == slot) ? 0 : alone ? 1 : 0.5;
                EXPECT_NEAR(expected, y[i], 20 * TypeParam::kEpsilon)
                    << describe(kernel, qsvScaleFwdByN) << ", a signal of " << to_string(slot)
                    << " alone, output " << name_output(kernel, i) << ": " << show<TypeParam>(y[i]);
            }
        }
    }
}

TYPED_TEST(RealLayouts, TheThreeForwardLayoutsHoldTheSameBits) {
    for (int length : kHeaderLengths) {
        for (const auto flag : kFlags) {
            for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                const auto x =
                    random_signal<TypeParam>(static_cast<std::size_t>(length), 600 + seed);
                const auto ccs = this->forward(Layout::Ccs, x, flag);
                for (const auto layout : kRealLayouts) {
                    EXPECT_TRUE(same_bits<TypeParam>(rearranged(ccs, Layout::Ccs, layout, length),
                                                     this->forward(layout, x, flag)))
                        << "length " << length << ", flag " << flag << ", signal " << seed
                        << ", layout " << static_cast<int>(layout);
                }
            }
        }
    }
}

TYPED_TEST(RealLayouts, TheThreeInverseLayoutsGiveTheSameBits) {
    for (int length : kHeaderLengths) {
        for (const auto flag : kFlags) {
            for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                const auto pack =
                    random_signal<TypeParam>(static_cast<std::size_t>(length), 700 + seed);
                const auto& of_pack =
                    kernel_of<TypeParam>(length, Direction::Inverse, Layout::Pack);
                const auto expected = transform(of_pack, pack, flag);
                for (const auto layout : kRealLayouts) {
                    const auto& kernel = kernel_of<TypeParam>(length, Direction::Inverse, layout);
                    const auto spectrum = rearranged(pack, Layout::Pack, layout, length);
                    EXPECT_TRUE(same_bits<TypeParam>(expected, transform(kernel, spectrum, flag)))
                        << describe(kernel, flag) << ", signal " << seed;
                }
            }
        }
    }
}

TYPED_TEST(RealLayouts, AnOddLengthHasTheSameArrayInPackAndPerm) {
    for (int length = 3; length <= kLongestLength; length += 2) {
        for (const auto flag : kFlags) {
            const auto x = random_signal<TypeParam>(static_cast<std::size_t>(length), 53);
            const auto pack = this->forward(Layout::Pack, x, flag);
            EXPECT_TRUE(same_bits<TypeParam>(pack, this->forward(Layout::Perm, x, flag)))
                << "forward, length " << length << ", flag " << flag;
            const auto inverse = [&](Layout layout) {
                return transform(kernel_of<TypeParam>(length, Direction::Inverse, layout), pack,
                                 flag);
            };
            EXPECT_TRUE(same_bits<TypeParam>(inverse(Layout::Pack), inverse(Layout::Perm)))
                << "inverse, length " << length << ", flag " << flag;
        }
    }
}

TYPED_TEST(RealLayouts, TheZerosOfCcsArePositiveWhateverTheInput) {
    auto values = this->strangers();
    values.push_back(-1);
    for (int length : kHeaderLengths) {
        for (const auto flag : kFlags) {
            for (const auto value : values) {
                const auto size = static_cast<std::size_t>(length);
                auto mixed = random_signal<TypeParam>(size, 59);
                mixed[size / 2] = value;
                for (const auto& x : {constant_signal<TypeParam>(size, value), mixed}) {
                    const auto y = this->forward(Layout::Ccs, x, flag);
                    for (const auto slot : this->zero_slots(length)) {
                        EXPECT_TRUE(is_positive_zero<TypeParam>(y[slot]))
                            << "length " << length << ", flag " << flag << ", element " << slot
                            << ", inputs with " << show<TypeParam>(value);
                    }
                }
            }
        }
    }
}

TYPED_TEST(RealLayouts, WhatStandsInTheZeroSlotsOfAnInverseChangesNothing) {
    for (int length : kHeaderLengths) {
        const auto& kernel = kernel_of<TypeParam>(length, Direction::Inverse, Layout::Ccs);
        const auto spectrum = random_source(kernel, 61);
        for (const auto flag : kFlags) {
            auto with_zeros = spectrum;
            for (const auto slot : this->zero_slots(length)) with_zeros[slot] = 0;
            const auto expected = transform(kernel, with_zeros, flag);
            for (const auto value : this->strangers()) {
                auto changed = spectrum;
                for (const auto slot : this->zero_slots(length)) changed[slot] = value;
                EXPECT_TRUE(same_bits<TypeParam>(expected, transform(kernel, changed, flag)))
                    << describe(kernel, flag) << ", " << show<TypeParam>(value)
                    << " in the zero slots";
            }
        }
    }
}

// A signalling NaN raises the invalid flag as soon as it is calculated with or converted.
TYPED_TEST(RealLayouts, AnInverseDoesNotCalculateWithItsZeroSlots) {
    using Real = typename TypeParam::Real;
    static constexpr Real trap = std::numeric_limits<Real>::signaling_NaN();
    for (int length : kHeaderLengths) {
        const auto& kernel = kernel_of<TypeParam>(length, Direction::Inverse, Layout::Ccs);
        auto spectrum = random_source(kernel, 67);
        PlacedArray<Real> destination(kernel.destination_size(), 0);
        for (const auto slot : this->zero_slots(length)) {
            std::memcpy(&spectrum[slot], &trap, sizeof trap);
        }
        const ControlState raised =
            raised_by([&] { kernel.run(spectrum.data(), destination.data(), qsvScaleBySqrtN); });
        EXPECT_EQ(0u, raised & kInvalid) << describe(kernel, qsvScaleBySqrtN);
    }
}

TYPED_TEST(RealLayouts, AForwardTransformWritesTheSizeOfItsLayoutAndNoMore) {
    using Array = PlacedArray<typename TypeParam::Real>;
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction != Direction::Forward) continue;
        const auto x = random_source(kernel, 71);
        for (const auto fill : {std::byte{0xA5}, std::byte{0x3C}}) {
            Array array(kLongestArray + 4, 0, fill);
            kernel.run(x.data(), array.data(), qsvScaleNone);
            const auto size = static_cast<std::size_t>(kernel.length);
            const std::size_t written =
                kernel.layout != Layout::Ccs ? size : size + (size % 2 == 0 ? 2 : 1);
            EXPECT_TRUE(array.untouched_around(written)) << kernel.name;
            EXPECT_FALSE(array.untouched_around(written - 1)) << kernel.name;
        }
    }
}

TYPED_TEST(RealLayouts, AnInverseInPlaceKeepsWhatStandsBehindTheSignal) {
    using Array = PlacedArray<typename TypeParam::Real>;
    for (const auto& kernel : kernels<TypeParam>()) {
        if (kernel.direction != Direction::Inverse) continue;
        const auto size = static_cast<std::size_t>(kernel.length);
        const auto before = random_signal<TypeParam>(kLongestArray, 73);
        for (const auto flag : kFlags) {
            Array array(before.size(), 0);
            array.set(before);
            kernel.run(array.data(), array.data(), flag);
            auto expected = before;
            const auto signal = array.get(size);
            std::copy(signal.begin(), signal.end(), expected.begin());
            EXPECT_TRUE(same_bits<TypeParam>(expected, array.get())) << describe(kernel, flag);
            EXPECT_TRUE(array.margins_untouched()) << describe(kernel, flag);
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
