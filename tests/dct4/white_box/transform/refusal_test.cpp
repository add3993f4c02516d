/** @file @brief Statuses, and what calls leave alone. */

#include <climits>

#include "support/dct4.hpp"

namespace qsvgen_test {
namespace {

constexpr std::size_t kLength = 4096;

Signal pattern(std::size_t size) {
    return constant_signal<E>(size, Real(-7.25));
}

TEST(Dct4Refusal, NullPointersAreToldAndNothingIsWritten) {
    for (std::int32_t length : {2, 32, 64}) {
        PlanBuffer& plan = plan_for(length);
        Signal x = pattern(word(length));
        Signal y = pattern(word(length));
        EXPECT_EQ(qsvStatusNullPointer, EXPORTED(DCT4)(x.data(), y.data(), nullptr)) << length;
        EXPECT_EQ(qsvStatusNullPointer, EXPORTED(DCT4)(nullptr, y.data(), plan_of(plan))) << length;
        EXPECT_EQ(qsvStatusNullPointer, EXPORTED(DCT4)(x.data(), nullptr, plan_of(plan))) << length;
        EXPECT_EQ(qsvStatusNullPointer, EXPORTED(DCT4)(nullptr, nullptr, nullptr)) << length;
        EXPECT_TRUE(same_bits<E>(pattern(word(length)), y)) << length;
        EXPECT_TRUE(same_bits<E>(pattern(word(length)), x)) << length;
    }
}

// A null source is told before the plan is looked into: this plan cannot be.
TEST(Dct4Refusal, NullArraysAreToldBeforeThePlanIsRead) {
    Signal y = pattern(2);
    auto* const unreadable = reinterpret_cast<Plan*>(16);
    EXPECT_EQ(qsvStatusNullPointer, EXPORTED(DCT4)(nullptr, y.data(), unreadable));
    EXPECT_EQ(qsvStatusNullPointer, EXPORTED(DCT4)(y.data(), nullptr, unreadable));
}

TEST(Dct4Refusal, ARootOfAnotherRuleIsABadPlan) {
    for (std::int32_t rule : {0, 7, 8, -1, 255, 256 + 6, INT_MAX, INT_MIN}) {
        PlanBuffer plan(64);
        plan.root().rule = rule;
        const Signal x = random_signal<E>(64, 1);
        Signal y = pattern(64);
        EXPECT_EQ(qsvStatusBadPlan, EXPORTED(DCT4)(x.data(), y.data(), plan_of(plan))) << rule;
        EXPECT_TRUE(same_bits<E>(pattern(64), y)) << rule;
    }
}

TEST(Dct4Refusal, AStageThatIsNotValidIsPassedOver) {
    for (std::int32_t valid : {0, 2, -1, 256 + 1, INT_MIN}) {
        PlanBuffer plan(128);
        const Signal x = random_signal<E>(128, 1);
        const Signal y = transformed(plan, x);
        const Signal scratch(plan.root().scratch, plan.root().scratch + 128);

        // Stage A alone: the destination stays as it was.
        plan.stage_b().valid = valid;
        Signal untouched = pattern(128);
        std::memset(static_cast<void*>(plan.root().scratch), 0, 128 * sizeof(Real));
        EXPECT_EQ(qsvStatusOk, EXPORTED(DCT4)(x.data(), untouched.data(), plan_of(plan))) << valid;
        EXPECT_TRUE(same_bits<E>(pattern(128), untouched)) << valid;
        EXPECT_TRUE(same_bits<E>(scratch, Signal(plan.root().scratch, plan.root().scratch + 128)))
            << valid;

        // Stage B alone: what is in the scratch vector is used, whatever the source is.
        plan.stage_b().valid = 1;
        plan.stage_a().valid = valid;
        Signal from_scratch = pattern(128);
        EXPECT_EQ(qsvStatusOk,
                  EXPORTED(DCT4)(pattern(128).data(), from_scratch.data(), plan_of(plan)))
            << valid;
        EXPECT_TRUE(same_bits<E>(y, from_scratch)) << valid;
    }
}

/** A plan whose recursion is poked, its scratch vectors filled with a pattern. */
class PokedPlan {
  public:
    PokedPlan() : plan_(static_cast<std::int32_t>(kLength)) {
        fill(plan_.root().scratch);
        fill(split().scratch);
    }

    PlanBuffer& plan() { return plan_; }
    env7& split() { return *plan_.splits().at(0); }
    env8& dfts() { return twiddles_of(split()); }
    env9& parts() { return analyses_of(split()); }
    Signal scratch() { return copy(plan_.root().scratch); }
    Signal inner_scratch() { return copy(split().scratch); }

  private:
    static void fill(Real* array) {
        const Signal values = pattern(kLength);
        std::memcpy(static_cast<void*>(array), values.data(), kLength * sizeof(Real));
    }
    static Signal copy(const Real* array) { return {array, array + kLength}; }

    PlanBuffer plan_;
};

TEST(Dct4Refusal, StagesOfUnknownRulesTouchNothing) {
    const Signal x = random_signal<E>(kLength, 3);
    for (std::int32_t rule : {0, -1, 8, 1000, INT_MIN}) {
        PokedPlan poked;
        Signal y = pattern(kLength);
        poked.plan().analyses().rule = rule;
        EXPECT_EQ(qsvStatusBadPlan,
                  DCT4(env5_compute)(&poked.plan().analyses(), x.data(), y.data()))
            << rule;
        EXPECT_TRUE(same_bits<E>(pattern(kLength), y)) << rule;
        EXPECT_TRUE(same_bits<E>(pattern(kLength), poked.inner_scratch())) << rule;
    }
    for (std::int32_t rule : {0, -1, 7, 1000, INT_MIN}) {
        PokedPlan poked;
        Signal y = pattern(kLength);
        poked.plan().rotations().rule = rule;
        EXPECT_EQ(qsvStatusBadPlan,
                  DCT4(env4_compute)(&poked.plan().rotations(), x.data(), y.data()))
            << rule;
        EXPECT_TRUE(same_bits<E>(pattern(kLength), y)) << rule;
    }
}

TEST(Dct4Refusal, StepsOfTheRecursionOfUnknownRulesTouchNothing) {
    const Signal x = random_signal<E>(kLength, 3);
    const auto mirror = static_cast<std::int32_t>(2 * kLength - 1);
    for (std::int32_t rule : {0, -1, 8, 1000}) {
        PokedPlan poked;
        Signal y = pattern(kLength);
        poked.parts().rule = rule;
        EXPECT_EQ(qsvStatusBadPlan,
                  DCT4(env9_compute)(&poked.parts(), x.data(), y.data(), {0, mirror, 0, 1}))
            << rule;
        EXPECT_TRUE(same_bits<E>(pattern(kLength), y)) << rule;
    }
    for (std::int32_t rule : {0, -1, 6, 1000}) {
        PokedPlan poked;
        Signal y = pattern(kLength);
        poked.dfts().rule = rule;
        EXPECT_EQ(qsvStatusBadPlan,
                  DCT4(env8_compute)(&poked.dfts(), x.data(), y.data(), {0, 0, 0, 1}))
            << rule;
        EXPECT_TRUE(same_bits<E>(pattern(kLength), y)) << rule;
    }
    for (std::int32_t valid : {0, 2, -1}) {
        PokedPlan poked;
        Signal y = pattern(kLength);
        poked.split().valid = valid;
        EXPECT_EQ(qsvStatusBadPlan,
                  DCT4(env7_compute)(&poked.split(), x.data(), y.data(), {0, mirror, 0, 1}))
            << valid;
        EXPECT_TRUE(same_bits<E>(pattern(kLength), y)) << valid;
        EXPECT_TRUE(same_bits<E>(pattern(kLength), poked.inner_scratch())) << valid;
    }
}

TEST(Dct4Refusal, ABadNodeInsideAPlanIsNotToldByTheTransform) {
    const Signal x = random_signal<E>(kLength, 3);
    Signal y = pattern(kLength);
    const auto run = [&](PokedPlan& poked) {
        return EXPORTED(DCT4)(x.data(), y.data(), plan_of(poked.plan()));
    };
    PokedPlan split;
    split.split().valid = 0;
    EXPECT_EQ(qsvStatusOk, run(split));
    EXPECT_TRUE(same_bits<E>(pattern(kLength), split.scratch()));
    PokedPlan parts;
    parts.parts().rule = 0;
    EXPECT_EQ(qsvStatusOk, run(parts));
    EXPECT_TRUE(same_bits<E>(pattern(kLength), parts.inner_scratch()));
    PokedPlan dfts;
    dfts.dfts().rule = 0;
    EXPECT_EQ(qsvStatusOk, run(dfts));
    EXPECT_TRUE(same_bits<E>(pattern(kLength), dfts.scratch()));
    PokedPlan analyses;
    analyses.plan().analyses().rule = 0;
    EXPECT_EQ(qsvStatusOk, run(analyses));
    EXPECT_TRUE(same_bits<E>(pattern(kLength), analyses.scratch()));
    PokedPlan rotations;
    rotations.plan().rotations().rule = 0;
    y = pattern(kLength);
    EXPECT_EQ(qsvStatusOk, run(rotations));
    EXPECT_TRUE(same_bits<E>(pattern(kLength), y));
}

}  // namespace
}  // namespace qsvgen_test
