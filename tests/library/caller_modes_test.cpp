/**
 * @file
 * @brief Transforms in a floating-point environment that the caller has changed: they follow it,
 * whatever it is, and leave the registers of the other unit alone.
 */

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/bits.hpp"
#include "support/control_state.hpp"
#include "support/every_transform.hpp"
#include "support/placed_array.hpp"
#include "support/signals.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class CallerModes : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Signal = std::vector<typename E::Element>;

    static Signal run(const AnyTransform<E>& transform, const Signal& x, std::size_t offset,
                      ControlState state) {
        PlacedArray<typename E::Element> source(transform.source_size, offset);
        PlacedArray<typename E::Element> destination(transform.destination_size, offset);
        source.set(x);
        volatile QsvStatus status = -1;
        {
            const ScopedControlState scope(state);
            status = transform.run(source.data(), destination.data());
        }
        EXPECT_EQ(qsvStatusOk, status) << transform.name;
        return destination.get();
    }

    template <class Change>
    static Signal changed(Signal signal, const Change& change) {
        std::size_t place = 0;
        for (auto& element : signal) {
            if constexpr (kIsReal<E>) {
                element = change(element, place++);
            } else {
                element.re = change(element.re, place++);
                element.im = change(element.im, place++);
            }
        }
        return signal;
    }

    static Signal negated(const Signal& signal) {
        return changed(signal, [](Real value, std::size_t) { return -value; });
    }
    /** Zeros that are stored as such, as in the CCS layout, keep their sign. */
    static Signal without_signs_of_zeros(const Signal& signal) {
        return changed(signal,
                       [](Real value, std::size_t) { return value == 0 ? Real(0) : value; });
    }
};
TYPED_TEST_SUITE(CallerModes, ElementTypes, ElementNames);

// Sums, products and conversions in a directed mode are those of the negated operands in the other.
TYPED_TEST(CallerModes, RoundedUpwardTheNegatedSignalGivesTheNegatedResultsOfDownward) {
    for_each_transform<TypeParam>([&](const auto& transform) {
        const auto x = random_signal<TypeParam>(transform.source_size, 91);
        for (const std::size_t offset : {0U, 4U}) {
            const auto down = this->run(transform, x, offset, kDownward);
            const auto up_of_negated = this->run(transform, this->negated(x), offset, kUpward);
            EXPECT_TRUE(same_bits<TypeParam>(this->without_signs_of_zeros(this->negated(down)),
                                             this->without_signs_of_zeros(up_of_negated)))
                << transform.name << ", offset " << offset;
        }
    });
}

// Eight points or more hold sums that are not exact.
TYPED_TEST(CallerModes, EachDirectedModeGivesResultsOfItsOwn) {
    for_each_transform<TypeParam>([&](const auto& transform) {
        if (transform.source_size < 8) return;
        const auto x = random_signal<TypeParam>(transform.source_size, 92);
        const auto nearest = this->run(transform, x, 0, kToNearest);
        const auto down = this->run(transform, x, 0, kDownward);
        const auto up = this->run(transform, x, 0, kUpward);
        EXPECT_FALSE(same_bits<TypeParam>(nearest, down)) << transform.name;
        EXPECT_FALSE(same_bits<TypeParam>(nearest, up)) << transform.name;
        EXPECT_FALSE(same_bits<TypeParam>(down, up)) << transform.name;
    });
}

TYPED_TEST(CallerModes, InEveryModeAllPlacementsGiveTheSameBits) {
    for_each_transform<TypeParam>([&](const auto& transform) {
        const auto x = random_signal<TypeParam>(transform.source_size, 93);
        for (const ControlState mode :
             {kDownward, kUpward, kTowardZero, kDenormalsAreZeroInAndOut}) {
            EXPECT_TRUE(same_bits<TypeParam>(this->run(transform, x, 0, mode),
                                             this->run(transform, x, 4, mode)))
                << transform.name << std::hex << ", control state 0x" << mode;
        }
    });
}

TYPED_TEST(CallerModes, WithDenormalsAsZeroOrdinarySignalsGiveTheSameBits) {
    for_each_transform<TypeParam>([&](const auto& transform) {
        const auto x = random_signal<TypeParam>(transform.source_size, 94);
        EXPECT_TRUE(same_bits<TypeParam>(this->run(transform, x, 0, kToNearest),
                                         this->run(transform, x, 0, kDenormalsAreZeroInAndOut)))
            << transform.name;
    });
}

TYPED_TEST(CallerModes, WithDenormalsAsZeroADenormalCountsAsZero) {
    using Real = typename TypeParam::Real;
    constexpr Real kDenormal = std::numeric_limits<Real>::min() / 4;
    for_each_transform<TypeParam>([&](const auto& transform) {
        const auto x = random_signal<TypeParam>(transform.source_size, 95);
        const auto each_third = [&](Real replacement) {
            return this->changed(x, [&](Real value, std::size_t place) {
                return place % 3 == 1 ? std::copysign(replacement, value) : value;
            });
        };
        for (const std::size_t offset : {0U, 4U}) {
            EXPECT_TRUE(same_bits<TypeParam>(
                this->run(transform, each_third(0), offset, kDenormalsAreZeroInAndOut),
                this->run(transform, each_third(kDenormal), offset, kDenormalsAreZeroInAndOut)))
                << transform.name << ", offset " << offset;
        }
    });
}

TYPED_TEST(CallerModes, WithDenormalsAsZeroDenormalsAloneGiveZeros) {
    using Real = typename TypeParam::Real;
    constexpr Real kDenormal = std::numeric_limits<Real>::min() / 4;
    for_each_transform<TypeParam>([&](const auto& transform) {
        const auto x =
            this->changed(random_signal<TypeParam>(transform.source_size, 96),
                          [&](Real value, std::size_t) { return std::copysign(kDenormal, value); });
        const auto y = this->run(transform, x, 0, kDenormalsAreZeroInAndOut);
        EXPECT_TRUE(
            same_bits<TypeParam>(this->changed(y, [](Real, std::size_t) { return Real(0); }),
                                 this->without_signs_of_zeros(y)))
            << transform.name;
    });
}

#ifdef __aarch64__
// A NaN of the caller has a sign and a payload; the default one has neither.
TYPED_TEST(CallerModes, WithDefaultNansEveryNanThatComesOutIsTheDefaultOne) {
    using Real = typename TypeParam::Real;
    const Real callers = std::copysign(std::numeric_limits<Real>::quiet_NaN(), Real(-1));
    for_each_transform<TypeParam>([&](const auto& transform) {
        const auto x = this->changed(
            random_signal<TypeParam>(transform.source_size, 98),
            [&](Real value, std::size_t place) { return place < 2 ? callers : value; });
        for (const std::size_t offset : {0U, 4U}) {
            int nans = 0;
            this->changed(this->run(transform, x, offset, kDefaultNan),
                          [&](Real value, std::size_t place) {
                              if (!std::isnan(value)) return value;
                              ++nans;
                              EXPECT_FALSE(std::signbit(value))
                                  << transform.name << ", offset " << offset << ", place " << place;
                              return value;
                          });
            EXPECT_GT(nans, 0) << transform.name;
        }
    });
}
#else
// MMX registers are these too. A plan is made beforehand, by functions that return a value in one
// of them and find them empty, as every caller of a function leaves them.
TYPED_TEST(CallerModes, AllEightX87RegistersInUseAreLeftAsTheyWere) {
    for_each_transform<TypeParam>([&](const auto& transform) {
        for (const std::size_t offset : {0U, 4U}) {
            PlacedArray<typename TypeParam::Element> source(transform.source_size, offset);
            PlacedArray<typename TypeParam::Element> destination(transform.destination_size,
                                                                 offset);
            source.set(random_signal<TypeParam>(transform.source_size, 97));
            X87Registers before;
            X87Registers after;
            with_all_x87_registers_in_use([&] { transform.run(source.data(), destination.data()); },
                                          before, after);
            EXPECT_EQ(0xFF, before.in_use());
            EXPECT_TRUE(before == after) << transform.name << ", offset " << offset;
        }
    });
}
#endif

}  // namespace
}  // namespace qsvgen_test
