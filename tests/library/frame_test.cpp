/** @file @brief What a kernel refuses, in which order, and that a refused call does nothing. */

#include <gtest/gtest.h>

#include "support/fault.hpp"
#include "support/guarded_page.hpp"
#include "support/kernel_table.hpp"
#include "support/placed_array.hpp"
#include "support/signals.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class Frame : public testing::Test {
  protected:
    using Element = typename E::Element;
    using Array = PlacedArray<Element>;

    // No status: the call ended in a memory fault.
    static constexpr QsvStatus kFaulted = 1;

    QsvStatus run(const Kernel<E>& kernel, const Element* src, Element* dst, std::int32_t flag) {
        volatile QsvStatus status = kFaulted;
        catcher_.faults([&] { status = kernel.run(src, dst, flag); });
        return status;
    }

    Array source_{kLongestArray, 0};
    Array destination_{kLongestArray, 0};
    Array misplaced_source_{kLongestArray, 1};
    Array misplaced_destination_{kLongestArray, 3};
    FaultCatcher catcher_;
};
TYPED_TEST_SUITE(Frame, ElementTypes, ElementNames);

TYPED_TEST(Frame, EachOfTheFourFlagsIsAccepted) {
    this->source_.set(random_signal<TypeParam>(kLongestArray, 1));
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto flag : kFlags) {
            EXPECT_EQ(0, this->run(kernel, this->source_.data(), this->destination_.data(), flag))
                << describe(kernel, flag);
        }
    }
}

TYPED_TEST(Frame, EveryOtherFlagIsRefused) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto flag : kBadFlags) {
            EXPECT_EQ(-16, this->run(kernel, this->source_.data(), this->destination_.data(), flag))
                << describe(kernel, flag);
        }
    }
    EXPECT_TRUE(this->destination_.untouched());
}

TYPED_TEST(Frame, FlagThreeIsNoCombinationOfOneAndTwo) {
    for (const auto& kernel : kernels<TypeParam>()) {
        EXPECT_EQ(-16, this->run(kernel, this->source_.data(), this->destination_.data(), 3))
            << describe(kernel, 3);
        EXPECT_EQ(-16, this->run(kernel, this->misplaced_source_.data(),
                                 this->misplaced_destination_.data(), 3))
            << describe(kernel, 3) << " on unaligned arrays";
    }
}

TYPED_TEST(Frame, ANullSourceIsRefusedWithEveryFlag) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto flag : kFlags) {
            EXPECT_EQ(-8, this->run(kernel, nullptr, this->destination_.data(), flag))
                << describe(kernel, flag);
        }
    }
    EXPECT_TRUE(this->destination_.untouched());
}

TYPED_TEST(Frame, ANullDestinationIsRefusedWithEveryFlag) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto flag : kFlags) {
            EXPECT_EQ(-8, this->run(kernel, this->source_.data(), nullptr, flag))
                << describe(kernel, flag);
        }
    }
}

TYPED_TEST(Frame, NullPointersAreNoticedBeforeABadFlag) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto flag : kBadFlags) {
            EXPECT_EQ(-8, this->run(kernel, nullptr, this->destination_.data(), flag))
                << describe(kernel, flag);
            EXPECT_EQ(-8, this->run(kernel, this->source_.data(), nullptr, flag))
                << describe(kernel, flag);
            EXPECT_EQ(-8, this->run(kernel, nullptr, nullptr, flag)) << describe(kernel, flag);
        }
    }
    EXPECT_TRUE(this->destination_.untouched());
}

TYPED_TEST(Frame, ANullDestinationIsNoticedBehindAMisplacedSource) {
    for (const auto& kernel : kernels<TypeParam>()) {
        EXPECT_EQ(-8, this->run(kernel, this->misplaced_source_.data(), nullptr, 0))
            << describe(kernel, 0);
        EXPECT_EQ(-8, this->run(kernel, this->misplaced_source_.data(), nullptr, qsvScaleNone))
            << describe(kernel, qsvScaleNone);
        EXPECT_EQ(-8, this->run(kernel, nullptr, this->misplaced_destination_.data(), 0))
            << describe(kernel, 0);
    }
    EXPECT_TRUE(this->misplaced_destination_.untouched());
}

TYPED_TEST(Frame, ABadFlagIsNoticedOnMisplacedArrays) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto flag : kBadFlags) {
            EXPECT_EQ(-16, this->run(kernel, this->misplaced_source_.data(),
                                     this->misplaced_destination_.data(), flag))
                << describe(kernel, flag);
            EXPECT_EQ(-16, this->run(kernel, this->misplaced_source_.data(),
                                     this->destination_.data(), flag))
                << describe(kernel, flag) << " with an aligned destination";
            EXPECT_EQ(-16, this->run(kernel, this->source_.data(),
                                     this->misplaced_destination_.data(), flag))
                << describe(kernel, flag) << " with an aligned source";
        }
    }
    EXPECT_TRUE(this->destination_.untouched());
    EXPECT_TRUE(this->misplaced_destination_.untouched());
}

TYPED_TEST(Frame, ARefusedCallTouchesNeitherArray) {
    using Element = typename TypeParam::Element;
    GuardedPage source_page;
    GuardedPage destination_page;
    source_page.allow(Access::None);
    destination_page.allow(Access::None);
    FaultCatcher catcher;
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const std::size_t offset : {0, 4}) {
            const auto* source = reinterpret_cast<Element*>(source_page.begin() + offset);
            auto* destination = reinterpret_cast<Element*>(destination_page.begin() + offset);
            volatile QsvStatus bad_flag = 0;
            volatile QsvStatus no_source = 0;
            volatile QsvStatus no_destination = 0;
            EXPECT_FALSE(catcher.faults([&] {
                bad_flag = kernel.run(source, destination, 0);
                no_source = kernel.run(nullptr, destination, qsvScaleNone);
                no_destination = kernel.run(source, nullptr, qsvScaleNone);
            })) << kernel.name
                << " at offset " << offset;
            EXPECT_EQ(-16, bad_flag) << kernel.name << " at offset " << offset;
            EXPECT_EQ(-8, no_source) << kernel.name << " at offset " << offset;
            EXPECT_EQ(-8, no_destination) << kernel.name << " at offset " << offset;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
