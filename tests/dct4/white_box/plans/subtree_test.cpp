/**
 * @file
 * @brief Subtrees by themselves: those that no accepted length has, those that fail, and that what
 * is foretold, taken and given back agree.
 */

#include <gtest/gtest.h>

#include "support/plan_buffer.hpp"

namespace qsvgen_test {
namespace {

constexpr std::int32_t kElement = sizeof(Real);

/** What an env5 without a split takes, with its lists: its record is longer with longer pointers,
 * that of an env9 is not. */
constexpr std::int32_t kLeaf = sizeof(void*) == 4 ? 128 : 160;

std::uint32_t aligned(std::int32_t bytes) {
    return (word(bytes) + 31) / 32 * 32;
}

class Subtrees : public testing::Test {
  protected:
    ArenaBuffer buffer_{1 << 20};

    env5* analyses(std::int32_t points) {
        return DCT4(env5___init__)(allocate<env5>(buffer_.arena()), buffer_.arena(),
                                   {.subLength = points,
                                    .length = 1024,
                                    .lastIndex = 2047,
                                    .twoFactor = 64,
                                    .inner = 32 / kLanes,
                                    .length2 = 1024,
                                    .factor = 32});
    }
    env9* inner_analyses(std::int32_t points) {
        return DCT4(env9___init__)(allocate<env9>(buffer_.arena()), buffer_.arena(),
                                   {.subLength = points,
                                    .length = 1024,
                                    .length2 = 1024,
                                    .stride = 128,
                                    .parentStride = 64,
                                    .factor = 2,
                                    .scratchLength = 1024,
                                    .step = 64,
                                    .parentStep = 32});
    }
    env7* split(std::int32_t points, std::int32_t scratch) {
        return DCT4(env7___init__)(allocate<env7>(buffer_.arena()), buffer_.arena(),
                                   {.subLength = points,
                                    .length = scratch,
                                    .length2 = scratch,
                                    .stride = 64,
                                    .scratchLength = scratch,
                                    .step = 32});
    }

    /** Destroys and releases what was taken first. */
    void expect_all_given_back(EnvObject* object) {
        object->destroy(object);
        qsvgArenaFree(buffer_.arena(), object, word(object->size));
        EXPECT_EQ(0U, buffer_.used());
    }
};

TEST_F(Subtrees, LeavesOfEverySizeTakeTheirListHeadsAlone) {
    for (std::int32_t rule = 1; rule <= 6; ++rule) {
        env5* const outer = analyses(1 << rule);
        ASSERT_EQ(0, outer->plan(outer));
        EXPECT_EQ(rule, outer->rule);
        EXPECT_EQ(0, outer->done);
        EXPECT_EQ(word(kLeaf), buffer_.used());
        EXPECT_EQ(kLeaf, DCT4(env5_mem)(1 << rule, 1024));
        expect_all_given_back(outer);

        env9* const inner = inner_analyses(1 << rule);
        ASSERT_EQ(0, inner->plan(inner));
        EXPECT_EQ(rule, inner->rule);
        EXPECT_EQ(0, inner->done);
        EXPECT_EQ(160U, buffer_.used());
        EXPECT_EQ(160, DCT4(env9_mem)(1 << rule, 1024));
        expect_all_given_back(inner);
    }
}

// The factors 2 and 4 and the rules 2 and 3 below them are for these lengths alone.
TEST_F(Subtrees, SplitsOfShortLengthsHaveTheRulesThatNoAcceptedLengthHas) {
    struct Known {
        std::int32_t points, factor, env8_rule, env9_rule;
    };
    for (const Known known : {Known{8, 2, 1, 2}, Known{16, 2, 1, 3}, Known{32, 4, 2, 3},
                              Known{64, 8, 3, 3}, Known{128, 8, 3, 4}}) {
        env7* const node = split(known.points, 1024);
        ASSERT_EQ(0, node->plan(node)) << known.points;
        EXPECT_EQ(1, node->valid);
        EXPECT_EQ(known.factor, node->factor);
        EXPECT_EQ(known.env8_rule, twiddles_of(*node).rule);
        EXPECT_EQ(known.env9_rule, analyses_of(*node).rule);
        expect_all_given_back(node);
    }
}

// Five adds in each env7 and two above each are counted, of which those into heads take nothing.
TEST_F(Subtrees, OfEverySplitTakeWhatIsForetoldLessTheAddsIntoHeads) {
    for (std::int32_t points = 8; points <= 4096; points *= 2) {
        env7* const node = split(points, 2048);
        ASSERT_EQ(0, node->plan(node)) << points;
        std::uint32_t adds_into_heads = 0;
        for (const env7* level = node; level != nullptr;
             level = static_cast<env7*>(EnvList_get(analyses_of(*level).stage, 0))) {
            adds_into_heads += 3;
            if (analyses_of(*level).rule == 7) adds_into_heads += 2;
        }
        EXPECT_EQ(word(DCT4(env7_mem)(points, 2048)), buffer_.used() + 32 * adds_into_heads)
            << points;
        expect_all_given_back(node);
    }
}

TEST_F(Subtrees, AgreeWithTheirNeedOnWhichLengthsFail) {
    for (std::int32_t points = 1; points <= 1024; ++points) {
        ArenaBuffer buffer(1 << 18);
        env9* const node = DCT4(env9___init__)(allocate<env9>(buffer.arena()), buffer.arena(),
                                               {.subLength = points,
                                                .length = 64,
                                                .length2 = 64,
                                                .stride = 128,
                                                .parentStride = 64,
                                                .factor = 2,
                                                .scratchLength = 64,
                                                .step = 64,
                                                .parentStep = 32});
        const QsvStatus status = node->plan(node);
        EXPECT_EQ(status == qsvStatusOk, DCT4(env9_mem)(points, 64) >= 0) << points;
        EXPECT_TRUE(status == qsvStatusOk || status == qsvStatusBadLength) << points;
        EXPECT_TRUE(DCT4(env9_mem)(points, 64) >= 0 || DCT4(env9_mem)(points, 64) == -6) << points;
        EXPECT_EQ(DCT4(env9_mem)(points, 64) - DCT4(env5_mem)(points, 64),
                  status == qsvStatusOk ? 160 - kLeaf : 0)
            << points;
    }
}

TEST_F(Subtrees, OfWrongShapesFailAndAreNotValid) {
    envfCompose compose;
    DCT4(envfCompose___init__)
    (&compose, buffer_.arena(),
     {.columns = 8, .angleBase = 8 * 48, .rowCount = 6, .factor = 4, .rowStride = 8});
    for (const std::int32_t blocks : {1, 3, kLanes / 2, 3 * kLanes / 2, 2 * kLanes - 1}) {
        env2* const node = DCT4(env2___init__)(allocate<env2>(buffer_.arena()), buffer_.arena(),
                                               {.factor = 4,
                                                .length = 48,
                                                .twoFactor = 8,
                                                .blocks = blocks,
                                                .length2 = 48,
                                                .lastIndex = 95,
                                                .subLength = 12,
                                                .coefficients = &compose});
        EXPECT_EQ(-6, node->plan(node)) << blocks;
        EXPECT_EQ(0, node->valid) << blocks;
        EXPECT_EQ(-6, DCT4(env2_mem)(4, blocks)) << blocks;
        expect_all_given_back(node);
    }
    for (const std::int32_t factor : {1, 3, kLanes / 2, 3 * kLanes / 2, kLanes + 1}) {
        env3* const node = DCT4(env3___init__)(allocate<env3>(buffer_.arena()), buffer_.arena(),
                                               {.subLength = 8,
                                                .length = 64,
                                                .lastIndex = 127,
                                                .twoFactor = 2 * factor,
                                                .inner = factor,
                                                .length2 = 64,
                                                .factor = factor});
        EXPECT_EQ(-6, node->plan(node)) << factor;
        EXPECT_EQ(0, node->valid) << factor;
        EXPECT_EQ(-6, DCT4(env3_mem)(8, factor, 64)) << factor;
        expect_all_given_back(node);
    }
}

TEST_F(Subtrees, OfFactorsWithoutAKernelFail) {
    envfCompose compose;
    DCT4(envfCompose___init__)
    (&compose, buffer_.arena(),
     {.columns = 6, .angleBase = 8 * 48, .rowCount = 8, .factor = 3, .rowStride = 6});
    for (const std::int32_t factor : {3, 64, 0}) {
        env2* const rotations =
            DCT4(env2___init__)(allocate<env2>(buffer_.arena()), buffer_.arena(),
                                {.factor = factor,
                                 .length = 48,
                                 .twoFactor = 2 * factor,
                                 .blocks = 8,
                                 .length2 = 48,
                                 .lastIndex = 95,
                                 .subLength = 16,
                                 .coefficients = &compose});
        EXPECT_EQ(-6, rotations->plan(rotations)) << factor;
        EXPECT_EQ(1, rotations->valid) << factor;
        EXPECT_EQ(0, static_cast<env4*>(EnvList_get(rotations->stage, 0))->rule) << factor;
        EXPECT_EQ(-6, DCT4(env2_mem)(factor, 8)) << factor;
        expect_all_given_back(rotations);
    }
    for (const std::int32_t factor : {1, 3, 64, 0}) {
        env8* const twiddles = DCT4(env8___init__)(allocate<env8>(buffer_.arena()), buffer_.arena(),
                                                   {.factor = factor,
                                                    .scratchLength = 64,
                                                    .step = 4,
                                                    .span = 8,
                                                    .blocks = 2,
                                                    .scratchLength2 = 64,
                                                    .halfLength = 32,
                                                    .lastIndex = 63,
                                                    .step2 = 4,
                                                    .quotient = 16,
                                                    .coefficients = nullptr});
        EXPECT_EQ(-6, twiddles->plan(twiddles)) << factor;
        EXPECT_EQ(0, twiddles->rule) << factor;
        expect_all_given_back(twiddles);
    }
}

TEST_F(Subtrees, WithARuleOutOfRangeReleaseNoTable) {
    envlambda lambda;
    DCT4(envlambda___init__)(&lambda, buffer_.arena(), 32, 2);
    for (const std::int32_t rule : {0, 6, -1, 1000}) {
        env8* const node = DCT4(env8___init__)(allocate<env8>(buffer_.arena()), buffer_.arena(),
                                               {.factor = 2,
                                                .scratchLength = 64,
                                                .step = 4,
                                                .span = 16,
                                                .blocks = 8,
                                                .scratchLength2 = 64,
                                                .halfLength = 16,
                                                .lastIndex = 31,
                                                .step2 = 4,
                                                .quotient = 16,
                                                .coefficients = &lambda});
        ASSERT_EQ(0, node->plan(node));
        node->rule = rule;
        node->destroy(node);
        qsvgArenaFree(buffer_.arena(), node, word(node->size));
        EXPECT_EQ(256U, buffer_.used()) << rule;
        qsvgArenaFree(buffer_.arena(), nullptr, 256);
    }
}

// A cosine and a sine for each row and column: as many elements as the length.
TEST_F(Subtrees, RotationsWithARuleOutOfRangeReleaseNoTable) {
    constexpr std::int32_t kLength = 64;
    for (const std::int32_t rule : {1, 6, 0, 7, -1, 1000}) {
        PlanBuffer plan(kLength);
        const bool is_known = rule >= 1 && rule <= 6;
        plan.rotations().rule = rule;
        const std::int32_t size_of_root = plan.root().size;
        plan.root().destroy(&plan.root());
        EXPECT_EQ(aligned(size_of_root) + (is_known ? 0 : word(kLength * kElement)),
                  plan.buffer().used())
            << rule;
    }
}

TEST_F(Subtrees, ARootWithARuleOutOfRangeReleasesNoScratch) {
    constexpr std::int32_t kLength = 64;
    for (const std::int32_t rule : {6, 0, 7, -1, 1000}) {
        PlanBuffer plan(kLength);
        const bool is_known = rule == 6;
        plan.root().rule = rule;
        const std::int32_t size_of_root = plan.root().size;
        plan.root().destroy(&plan.root());
        EXPECT_EQ(aligned(size_of_root) + (is_known ? 0 : word(kLength * kElement)),
                  plan.buffer().used())
            << rule;
    }
}

TEST_F(Subtrees, AnEnv7ReleasesItsScratchOnlyWhereItIsValid) {
    for (const std::int32_t valid : {1, 0, 2, -1}) {
        env7* const node = split(64, 512);
        ASSERT_EQ(0, node->plan(node));
        node->valid = valid;
        node->destroy(node);
        qsvgArenaFree(buffer_.arena(), node, word(node->size));
        EXPECT_EQ(valid == 1 ? 0U : word(512 * kElement), buffer_.used()) << valid;
        qsvgArenaFree(buffer_.arena(), nullptr, buffer_.used());
    }
}

// It is released though it was never taken: the pointer then stands below where it began.
TEST_F(Subtrees, AFailedEnv7ReleasesTheScratchItDidNotTake) {
    for (const std::int32_t points : {6, 3, 2, 12, 24}) {
        env7* const node = split(points, 512);
        EXPECT_EQ(-6, node->plan(node)) << points;
        EXPECT_EQ(1, node->valid) << points;
        const std::int32_t levels = points == 24 ? 3 : points == 12 ? 2 : 1;
        node->destroy(node);
        qsvgArenaFree(buffer_.arena(), node, word(node->size));
        EXPECT_EQ(std::uintptr_t{0} - word(levels) * aligned(512 * kElement), buffer_.used())
            << points;
        buffer_.arena()->bump = buffer_.start();
    }
}

}  // namespace
}  // namespace qsvgen_test
