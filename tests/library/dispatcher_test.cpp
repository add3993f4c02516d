/** @file @brief The transforms of a run-time length: what they refuse and what they pass on. */

#include <gtest/gtest.h>

#include <algorithm>

#include "support/bits.hpp"
#include "support/fault.hpp"
#include "support/guarded_page.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr std::int32_t kBadLengths[] = {
    0,  1,   65,    66,   127,       128,           256 + 8,       -1,       -2,
    -8, -64, 65538, 1024, INT32_MIN, INT32_MIN + 2, INT32_MAX - 1, INT32_MAX};

template <class E>
class DispatcherOfLengths : public testing::Test {
  protected:
    using Array = PlacedArray<typename E::Element>;

    Array source_{kLongestArray, 0};
    Array destination_{kLongestArray, 0};
};
TYPED_TEST_SUITE(DispatcherOfLengths, ElementTypes, ElementNames);

TYPED_TEST(DispatcherOfLengths, RefusesLengthsOutsideTwoToSixtyFour) {
    for (const auto& dispatcher : dispatchers<TypeParam>()) {
        for (const auto length : kBadLengths) {
            EXPECT_EQ(-6, dispatcher.run(this->source_.data(), this->destination_.data(), length,
                                         qsvScaleNone))
                << dispatcher.name << " length " << length;
        }
    }
    EXPECT_TRUE(this->destination_.untouched());
}

TYPED_TEST(DispatcherOfLengths, NoticesABadLengthBeforeNullPointersAndBadFlags) {
    for (const auto& dispatcher : dispatchers<TypeParam>()) {
        for (const auto length : kBadLengths) {
            EXPECT_EQ(-6, dispatcher.run(nullptr, nullptr, length, 0))
                << dispatcher.name << " length " << length;
            EXPECT_EQ(-6, dispatcher.run(this->source_.data(), nullptr, length, qsvScaleNone))
                << dispatcher.name << " length " << length;
            EXPECT_EQ(-6,
                      dispatcher.run(this->source_.data(), this->destination_.data(), length, 3))
                << dispatcher.name << " length " << length;
        }
    }
}

TYPED_TEST(DispatcherOfLengths, RefusesNullPointersAtEveryLengthWhateverTheFlag) {
    for (const auto& dispatcher : dispatchers<TypeParam>()) {
        for (int length : kHeaderLengths) {
            for (const auto flag : {0, 3, 8}) {
                EXPECT_EQ(-8, dispatcher.run(nullptr, nullptr, length, flag))
                    << dispatcher.name << " length " << length << ", flag " << flag;
                EXPECT_EQ(-8, dispatcher.run(this->source_.data(), nullptr, length, flag))
                    << dispatcher.name << " length " << length << ", flag " << flag;
                EXPECT_EQ(-8, dispatcher.run(nullptr, this->destination_.data(), length, flag))
                    << dispatcher.name << " length " << length << ", flag " << flag;
            }
        }
    }
    EXPECT_TRUE(this->destination_.untouched());
}

TYPED_TEST(DispatcherOfLengths, RefusesBadFlagsAtEveryLength) {
    for (const auto& dispatcher : dispatchers<TypeParam>()) {
        for (int length : kHeaderLengths) {
            for (const auto flag : kBadFlags) {
                EXPECT_EQ(-16, dispatcher.run(this->source_.data(), this->destination_.data(),
                                              length, flag))
                    << dispatcher.name << " length " << length << ", flag " << flag;
            }
        }
    }
    EXPECT_TRUE(this->destination_.untouched());
}

TYPED_TEST(DispatcherOfLengths, TouchesNothingWhenItRefuses) {
    using Element = typename TypeParam::Element;
    GuardedPage page;
    page.allow(Access::None);
    auto* forbidden = reinterpret_cast<Element*>(page.begin());
    FaultCatcher catcher;
    for (const auto& dispatcher : dispatchers<TypeParam>()) {
        EXPECT_FALSE(catcher.faults([&] {
            dispatcher.run(forbidden, forbidden, 1, qsvScaleNone);
            dispatcher.run(forbidden, forbidden, 65, qsvScaleNone);
            dispatcher.run(forbidden, forbidden, 8, 0);
        })) << dispatcher.name;
    }
}

TYPED_TEST(DispatcherOfLengths, GivesTheKernelsBitsOnAnyAlignment) {
    using Array = PlacedArray<typename TypeParam::Element>;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto& dispatcher = dispatcher_of(kernel);
        const auto x = random_source(kernel, 43);
        for (const auto flag : kFlags) {
            const auto expected = transform(kernel, x, flag);
            for (std::size_t from = 0; from < 16; from += 2) {
                for (std::size_t to = 0; to < 16; to += 2) {
                    Array source(x.size(), from);
                    Array destination(kernel.destination_size(), to);
                    source.set(x);
                    EXPECT_EQ(
                        0, dispatcher.run(source.data(), destination.data(), kernel.length, flag));
                    EXPECT_TRUE(same_bits<TypeParam>(expected, destination.get()))
                        << dispatcher.name << " length " << kernel.length << ", flag " << flag
                        << ", offsets " << from << " and " << to;
                    EXPECT_TRUE(destination.margins_untouched())
                        << dispatcher.name << " length " << kernel.length;
                }
            }
        }
    }
}

TYPED_TEST(DispatcherOfLengths, GivesTheSameBitsInPlace) {
    using Array = PlacedArray<typename TypeParam::Element>;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto& dispatcher = dispatcher_of(kernel);
        const auto x = random_source(kernel, 47);
        for (const std::size_t offset : {0, 4, 8, 12}) {
            Array array(std::max(x.size(), kernel.destination_size()), offset);
            array.set(x);
            dispatcher.run(array.data(), array.data(), kernel.length, qsvScaleBySqrtN);
            EXPECT_TRUE(same_bits<TypeParam>(transform(kernel, x, qsvScaleBySqrtN),
                                             array.get(kernel.destination_size())))
                << dispatcher.name << " length " << kernel.length << " in place at offset "
                << offset;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
