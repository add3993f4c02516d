/**
 * @file
 * @brief Plans made in a floating-point environment that the caller has changed: they do not follow
 * it, and leave it as it was.
 */

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "support/control_state.hpp"
#include "support/dct4_interface.hpp"

namespace qsvgen_test {
namespace {

constexpr unsigned kToNearest = 0x1F80;
// Each directed rounding; denormals as zero in and out; all of that together; every exception
// traps.
constexpr unsigned kOtherModes[] = {0x3F80, 0x5F80, 0x7F80, 0x9FC0, 0xFFC0, 0x0000, 0xE040};
constexpr unsigned kFlags = 0x003F;
constexpr unsigned kInexact = 0x0020;

template <class E>
class PlanModes : public testing::Test {
  protected:
    using Functions = Dct4Interface<E>;

    explicit PlanModes() {
        std::int32_t size = 0;
        Functions::kGetSize(kPlanLengths[std::size(kPlanLengths) - 1], &size);
        memory_.resize(static_cast<std::size_t>(size));
    }

    /** All bytes of a plan, always at the same address, which plans hold; and in `after` MXCSR. */
    const std::vector<std::uint8_t>& plan_made(std::int32_t length, unsigned mxcsr,
                                               unsigned* after = nullptr) {
        std::int32_t size = 0;
        Functions::kGetSize(length, &size);
        memory_.assign(static_cast<std::size_t>(size), 0xA5);
        typename Functions::Plan* plan = nullptr;
        volatile QsvStatus status = -1;
        volatile unsigned left = 0;
        {
            const ScopedMxcsr scope(mxcsr);
            status = Functions::kInit(&plan, length, memory_.data());
            left = _mm_getcsr();
        }
        EXPECT_EQ(qsvStatusOk, status) << "length " << length;
        if (after != nullptr) *after = left;
        return memory_;
    }

  private:
    std::vector<std::uint8_t> memory_;
};
using Types = testing::Types<RealSingle, RealDouble>;
TYPED_TEST_SUITE(PlanModes, Types, ElementNames);

TYPED_TEST(PlanModes, EveryModeGivesThePlanOfRoundingToNearest) {
    for (const std::int32_t length : kPlanLengths) {
        const std::vector<std::uint8_t> nearest = this->plan_made(length, kToNearest);
        for (const unsigned mode : kOtherModes) {
            EXPECT_TRUE(nearest == this->plan_made(length, mode))
                << "length " << length << std::hex << ", MXCSR 0x" << mode;
        }
    }
}

TYPED_TEST(PlanModes, TheX87ControlWordChangesNoPlan) {
    for (const std::int32_t length : kPlanLengths) {
        const std::vector<std::uint8_t> usual = this->plan_made(length, kToNearest);
        // 53 and 24 bits of precision, and each directed rounding.
        for (const std::uint16_t word : {0x027F, 0x007F, 0x077F, 0x0B7F, 0x0F7F}) {
            const ScopedX87ControlWord scope(word);
            EXPECT_TRUE(usual == this->plan_made(length, kToNearest))
                << "length " << length << std::hex << ", control word 0x" << word;
        }
    }
}

TYPED_TEST(PlanModes, ControlBitsAreLeftAsTheyWere) {
    for (const std::int32_t length : kPlanLengths) {
        for (const unsigned mode : kOtherModes) {
            unsigned after = 0;
            this->plan_made(length, mode, &after);
            EXPECT_EQ(mode, after & ~kFlags)
                << "length " << length << std::hex << ", MXCSR 0x" << mode;
        }
    }
}

TYPED_TEST(PlanModes, ExceptionFlagsStayRaisedAndThatOfRoundingIsRaisedByTables) {
    for (const std::int32_t length : kPlanLengths) {
        for (unsigned flag = 1; flag <= kFlags; flag *= 2) {
            unsigned after = 0;
            this->plan_made(length, kToNearest | flag, &after);
            const unsigned raised = length > 32 ? kInexact : 0;
            EXPECT_EQ(flag | raised, after & kFlags) << "length " << length << ", flag " << flag;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
