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

template <class E>
class PlanModes : public testing::Test {
  protected:
    using Functions = Dct4Interface<E>;

    explicit PlanModes() {
        std::int32_t size = 0;
        Functions::kGetSize(kPlanLengths[std::size(kPlanLengths) - 1], &size);
        memory_.resize(static_cast<std::size_t>(size));
    }

    /** All bytes of a plan, always at the same address, which plans hold; and in `after` the
     * control state behind it. */
    const std::vector<std::uint8_t>& plan_made(std::int32_t length, ControlState state,
                                               ControlState* after = nullptr) {
        std::int32_t size = 0;
        Functions::kGetSize(length, &size);
        memory_.assign(static_cast<std::size_t>(size), 0xA5);
        typename Functions::Plan* plan = nullptr;
        volatile QsvStatus status = -1;
        volatile ControlState left = 0;
        {
            const ScopedControlState scope(state);
            status = Functions::kInit(&plan, length, memory_.data());
            left = control_state();
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
        for (const ControlState mode : kUnusualModes) {
            EXPECT_TRUE(nearest == this->plan_made(length, mode))
                << "length " << length << std::hex << ", control state 0x" << mode;
        }
    }
}

#if defined(__i386__) || defined(__x86_64__)
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
#endif

TYPED_TEST(PlanModes, ControlBitsAreLeftAsTheyWere) {
    for (const std::int32_t length : kPlanLengths) {
        for (const ControlState mode : kUnusualModes) {
            ControlState after = 0;
            this->plan_made(length, mode, &after);
            EXPECT_EQ(mode, after & ~kExceptionFlags)
                << "length " << length << std::hex << ", control state 0x" << mode;
        }
    }
}

TYPED_TEST(PlanModes, ExceptionFlagsStayRaisedAndThatOfRoundingIsRaisedByTables) {
    for (const std::int32_t length : kPlanLengths) {
        for (const ControlState flag : kEachFlag) {
            ControlState after = 0;
            this->plan_made(length, kToNearest | flag, &after);
            const ControlState raised = length > 32 ? kInexact : 0;
            EXPECT_EQ(flag | raised, after & kExceptionFlags)
                << "length " << length << ", flag " << flag;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
