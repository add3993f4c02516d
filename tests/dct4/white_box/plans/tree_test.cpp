/** @file @brief The tree of a plan, word by word. */

#include <gtest/gtest.h>

#include <cstring>

#include "support/expected_plan.hpp"
#include "support/plan_buffer.hpp"

namespace qsvgen_test {
namespace {

std::uint64_t value_at(std::uintptr_t address, std::size_t bytes) {
    std::uint64_t value = 0;
    std::memcpy(&value, reinterpret_cast<const void*>(address), bytes);
    return value;
}

/** The next boundary of as many bytes. */
std::size_t aligned(std::size_t offset, std::size_t bytes) {
    return (offset + bytes - 1) / bytes * bytes;
}

TEST(PlanTree, HasEveryBlockInItsPlaceAndEveryFieldInEveryBlock) {
    for (const std::int32_t length : accepted_lengths(1 << 18)) {
        PlanBuffer plan(length);
        const auto head = reinterpret_cast<std::uintptr_t>(plan.buffer().head());
        const ExpectedPlan expected(length, {head}, {plan.buffer().start()});
        EXPECT_EQ(plan.buffer().start(), reinterpret_cast<std::uintptr_t>(&plan.root())) << length;
        for (const ExpectedBlock& block : expected.blocks()) {
            std::size_t offset = 0;
            for (const Field& field : block.fields) {
                offset = aligned(offset, field.bytes);
                if (field.value.has_value()) {
                    EXPECT_EQ(*field.value, value_at(block.address.value + offset, field.bytes))
                        << "length " << length << ": " << block.name << " at offset "
                        << block.address.value - head << ", byte " << offset;
                }
                offset += field.bytes;
                if (field.ends_a_base) offset = aligned(offset, sizeof(void*));
            }
        }
        EXPECT_EQ(expected.end().value - head, plan.buffer().arena()->bump - head) << length;
    }
}

TEST(PlanTree, EndsWhereTheKnownOnesEnd) {
    const auto end_of = [](std::int32_t length) { return PlanBuffer(length).buffer().used() + 64; };
    const bool small = sizeof(void*) == 4;
    EXPECT_EQ(small ? 224U : 256U, end_of(2));
    EXPECT_EQ(small ? 224U : 256U, end_of(32));
    if (!kSingle) return;
    EXPECT_EQ(small ? 1408U : 1600U, end_of(64));
    EXPECT_EQ(small ? 52384U : 52672U, end_of(4096));
}

TEST(PlanTree, OfTheShortLengthsIsTheRootAlone) {
    for (const std::int32_t length : {2, 4, 8, 16, 32}) {
        PlanBuffer plan(length);
        EXPECT_EQ(nullptr, plan.root().scratch) << length;
        EXPECT_EQ(nullptr, EnvList_get(plan.root().children, 0)) << length;
        EXPECT_EQ(length, 1 << plan.root().rule) << length;
    }
}

TEST(PlanTree, HasTheFactorsAndRulesThatAreKnown) {
    struct Known {
        std::int32_t length, factor, env4_rule, env5_rule;
    };
    for (const Known& known : std::vector<Known>{{64, 8, 4, 3},
                                                 {128, 8, 4, 4},
                                                 {256, 16, 5, 4},
                                                 {512, 16, 5, 5},
                                                 {1024, 32, 6, 5},
                                                 {2048, 32, 6, 6},
                                                 {4096, 32, 6, 7},
                                                 {131072, 32, 6, 7}}) {
        PlanBuffer plan(known.length);
        EXPECT_EQ(known.factor, plan.root().factor) << known.length;
        EXPECT_EQ(known.env4_rule, plan.rotations().rule) << known.length;
        EXPECT_EQ(known.env5_rule, plan.analyses().rule) << known.length;
    }
    if (kOnlyPowersOfTwo) return;
    PlanBuffer odd(33);
    EXPECT_EQ(4, odd.root().factor);
    EXPECT_EQ(3, odd.rotations().rule);
    EXPECT_EQ(3, odd.analyses().rule);
    if (kSingle) return;
    PlanBuffer nine(9);
    EXPECT_EQ(2, nine.root().factor);
    EXPECT_EQ(2, nine.stage_b().blocks);
    EXPECT_EQ(2, nine.rotations().rule);
    EXPECT_EQ(2, nine.analyses().rule);
}

TEST(PlanTree, HasTheSplitsThatAreKnown) {
    struct Known {
        std::int32_t length;
        std::vector<std::int32_t> points, factors, env8_rules, env9_rules;
    };
    for (const Known& known : std::vector<Known>{{2048, {}, {}, {}, {}},
                                                 {4096, {128}, {8}, {3}, {4}},
                                                 {8192, {256}, {16}, {4}, {4}},
                                                 {16384, {512}, {16}, {4}, {5}},
                                                 {32768, {1024}, {32}, {5}, {5}},
                                                 {65536, {2048}, {32}, {5}, {6}},
                                                 {131072, {4096, 128}, {32, 8}, {5, 3}, {7, 4}}}) {
        PlanBuffer plan(known.length);
        const std::vector<env7*> splits = plan.splits();
        ASSERT_EQ(known.points.size(), splits.size()) << known.length;
        for (std::size_t i = 0; i < splits.size(); ++i) {
            EXPECT_EQ(known.points[i], splits[i]->subLength) << known.length;
            EXPECT_EQ(known.factors[i], splits[i]->factor) << known.length;
            EXPECT_EQ(known.env8_rules[i], twiddles_of(*splits[i]).rule) << known.length;
            EXPECT_EQ(known.env9_rules[i], analyses_of(*splits[i]).rule) << known.length;
        }
    }
}

TEST(PlanTree, KeepsTheAlignmentOfTablesAndScratch) {
    const auto on_boundary = [](const void* array) {
        return reinterpret_cast<std::uintptr_t>(array) % 32 == 0;
    };
    for (const std::int32_t length : accepted_lengths(1 << 17)) {
        PlanBuffer plan(length);
        if (plan.root().rule != 6) continue;
        EXPECT_TRUE(on_boundary(plan.root().scratch)) << length;
        EXPECT_TRUE(on_boundary(plan.rotations().table)) << length;
        for (const env7* split : plan.splits()) {
            EXPECT_TRUE(on_boundary(split->scratch)) << length;
            EXPECT_TRUE(on_boundary(twiddles_of(*split).table)) << length;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
