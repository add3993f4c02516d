/** @file @brief Which memory a transform touches, and what does not depend on where it is. */

#include <algorithm>

#include "support/guarded_arrays.hpp"

namespace qsvgen_test {
namespace {

constexpr std::int32_t kLongest = 131072;

TEST(Dct4Memory, InPlaceGivesTheBitsOfSeparateArrays) {
    for (std::int32_t length : transform_lengths(kLongest)) {
        const Signal x = random_signal<E>(word(length), 2);
        Array both(x.size(), 0);
        both.set(x);
        EXPECT_EQ(qsvStatusOk, EXPORTED(DCT4)(both.data(), both.data(), plan_of(plan_for(length))));
        EXPECT_TRUE(same_bits<E>(transformed(x), both.get())) << "length " << length;
        EXPECT_TRUE(both.margins_untouched()) << "length " << length;
    }
}

TEST(Dct4Memory, BoundariesOfTheElementDoAndNothingAroundTheArraysIsWritten) {
    for (std::int32_t length : transform_lengths(16384)) {
        const Signal x = random_signal<E>(word(length), 2);
        const Signal expected = transformed(x);
        for (std::size_t from = 0; from < 16; from += sizeof(Real)) {
            for (std::size_t to = 0; to < 16; to += sizeof(Real)) {
                Array source(x.size(), from);
                Array destination(x.size(), to);
                source.set(x);
                EXPECT_EQ(qsvStatusOk, EXPORTED(DCT4)(source.data(), destination.data(),
                                                      plan_of(plan_for(length))));
                EXPECT_TRUE(destination.holds(expected))
                    << "length " << length << ", boundaries " << from << " and " << to;
                EXPECT_TRUE(destination.margins_untouched()) << "length " << length;
                EXPECT_TRUE(source.holds(x)) << "length " << length;
            }
        }
    }
}

TEST(Dct4GuardPages, NoElementOutsideSourceAndDestinationIsTouched) {
    for (std::int32_t length : transform_lengths(kLongest)) expect_no_fault(length, word(length));
}

/** A plan in pages of its own, with its buffer at their end. */
class PlanPages {
  public:
    explicit PlanPages(std::int32_t length) : pages_(word(size_of_plan(length)) + 32) {
        auto* const buffer = reinterpret_cast<std::uint8_t*>(pages_.begin());
        EXPECT_EQ(qsvStatusOk, EXPORTED(DCT4Init)(&plan_, length, buffer));
    }
    Plan* plan() { return plan_; }
    env1& root() { return *reinterpret_cast<env1*>(plan_); }
    GuardedPage& pages() { return pages_; }
    std::vector<std::byte> bytes() const { return {pages_.begin(), pages_.end()}; }

  private:
    GuardedPage pages_;
    Plan* plan_ = nullptr;
};

TEST(Dct4Memory, AShortPlanIsOnlyRead) {
    FaultCatcher catcher;
    for (std::int32_t length : transform_lengths(32)) {
        PlanPages plan(length);
        plan.pages().allow(Access::Read);
        const Signal x = random_signal<E>(word(length), 6);
        Signal y(x.size());
        EXPECT_FALSE(catcher.faults([&] {
            EXPORTED(DCT4)
            (x.data(), y.data(), plan.plan());
        })) << "length "
            << length;
        EXPECT_TRUE(same_bits<E>(transformed(x), y)) << "length " << length;
    }
}

TEST(Dct4Memory, OnlyTheScratchVectorsOfALongPlanAreWritten) {
    for (std::int32_t length : {64, 2048, 4096, 131072}) {
        PlanPages plan(length);
        std::vector<const Real*> scratches = {plan.root().scratch};
        const auto& analyses = *static_cast<env5*>(
            EnvList_get(static_cast<env3*>(EnvList_get(plan.root().stage2, 0))->stage, 0));
        EnvList* stage = analyses.stage;
        while (EnvList_get(stage, 0) != nullptr) {
            const auto& split = *static_cast<env7*>(EnvList_get(stage, 0));
            scratches.push_back(split.scratch);
            stage = analyses_of(split).stage;
        }
        const auto before = plan.bytes();
        const Signal x = random_signal<E>(word(length), 6);
        Signal y(x.size());
        EXPORTED(DCT4)(x.data(), y.data(), plan.plan());
        const auto after = plan.bytes();
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (before[i] == after[i]) continue;
            const std::byte* const place = plan.pages().begin() + i;
            EXPECT_TRUE(std::any_of(
                scratches.begin(), scratches.end(),
                [&](const Real* scratch) {
                    const auto* const begin = reinterpret_cast<const std::byte*>(scratch);
                    return begin <= place && place < begin + word(length) * sizeof(Real);
                }))
                << "length " << length << ", byte " << i << " of the buffer";
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
