/** @file @brief The words of each target's sources. */

#include <gtest/gtest.h>

#include <stdexcept>

#include "kernelgen/emission/emission.hpp"
#include "kernelgen/graph/transpose.hpp"
#include "kernelgen/values/unfold.hpp"
#include "targets/targets.hpp"

namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::kX86_64;
using kernelgen::Ref;
using kernelgen::Type;

std::string statements(const Graph& g) {
    return kernelgen::emit(g, kernelgen::source_order(g), kX86_64).statements;
}

TEST(VectorTypes, HaveTheOperatorsOfTheLanguage) {
    Graph g;
    const Ref x = g.load(Type::Binary32x4, 0);
    const Ref y = g.load(Type::Binary32x4, 4);
    g.store(g.mul(g.sub(g.add(x, y), y), g.scale(Type::Binary32x4)), 8);
    EXPECT_EQ(statements(g),
              "    const core::Float4 v0 = Memory::load(x + 0);\n"
              "    const core::Float4 v1 = Memory::load(x + 4);\n"
              "    const core::Float4 v2 = v0 + v1;\n"
              "    const core::Float4 v3 = v2 - v1;\n"
              "    const core::Float4 v4 = v3 * scale;\n"
              "    Memory::store(y + 8, v4);\n");
}

TEST(VectorTypes, PickAnyLanesByTheirNumbers) {
    Graph g;
    const Ref x = g.load(Type::Binary32x4, 0);
    const Ref y = g.load(Type::Binary32x4, 4);
    g.store(g.shuffle(x, y, {0, 5, 2, 7}), 0);
    EXPECT_EQ(statements(g),
              "    const core::Float4 v0 = Memory::load(x + 0);\n"
              "    const core::Float4 v1 = Memory::load(x + 4);\n"
              "    const core::Float4 v2 = __builtin_shufflevector(v0, v1, 0, 5, 2, 7);\n"
              "    Memory::store(y + 0, v2);\n");
}

TEST(VectorTypes, OfBinary64HaveTwoLanes) {
    Graph g;
    const Ref x = g.load(Type::Binary64x2, 0);
    g.store(g.shuffle(x, x, {1, 0, 0, 0}), 0);
    EXPECT_EQ(statements(g),
              "    const core::Double2 v0 = Memory::load(x + 0);\n"
              "    const core::Double2 v1 = __builtin_shufflevector(v0, v0, 1, 0);\n"
              "    Memory::store(y + 0, v1);\n");
}

TEST(VectorTypes, AreFlippedByAMaskOfZerosAndTakeConstantsFromMemory) {
    Graph g;
    const Ref x = g.load(Type::Binary64x2, 0);
    const Ref half = g.mul(x, {Exact::rational(1, 2), Exact::rational(-1, 2)});
    g.store(g.flip(half, {0, 1}), 0);
    const auto body = kernelgen::emit(g, kernelgen::source_order(g), kX86_64);
    EXPECT_EQ(
        body.statements,
        "    const core::Double2 v0 = Memory::load(x + 0);\n"
        "    const core::Double2 v1 = v0 * core::Aligned::load(kConstants[0]);\n"
        "    const core::Double2 v2 = core::flipped(v1, core::Aligned::load(kConstants[1]));\n"
        "    Memory::store(y + 0, v2);\n");
    EXPECT_EQ(body.constants,
              "alignas(16) constexpr double kConstants[][2] = {\n"
              "    {0x1p-1, -0x1p-1},\n"
              "    {0x0p+0, -0x0p+0},\n"
              "};\n");
}

TEST(VectorTypes, OfThirtyTwoBytesAreLoadedWholeOrAsTwoHalves) {
    Graph g;
    const Ref whole = g.load(Type::Binary32x8, 4);
    const Ref halves = g.load_high(g.load_low(Type::Binary32x8, 0), 16);
    g.store(g.add(whole, halves), 8);
    EXPECT_EQ(kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kX86_64_v3).statements,
              "    const core::Float8 v0 = Memory::load(x + 4);\n"
              "    const core::Float8 v1 = Memory::load_halves(x + 0, x + 16);\n"
              "    const core::Float8 v2 = v0 + v1;\n"
              "    Memory::store(y + 8, v2);\n");
}

TEST(VectorTypes, OfThirtyTwoBytesHaveConstantsOfAsMany) {
    Graph g;
    const Ref x = g.load(Type::Binary64x4, 0);
    g.store(
        g.mul(x, {Exact::rational(2), Exact::rational(3), Exact::rational(4), Exact::rational(5)}),
        0);
    const auto body = kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kX86_64_v3);
    EXPECT_EQ(body.constants,
              "alignas(32) constexpr double kConstants[][4] = {\n"
              "    {0x1p+1, 0x1.8p+1, 0x1p+2, 0x1.4p+2},\n};\n");
    EXPECT_NE(body.statements.find("v0 * core::Wide::load(kConstants[0])"), std::string::npos)
        << body.statements;
}

TEST(VectorTypes, OfSixtyFourBytesAreLoadedWholeOrAsTwoHalves) {
    Graph g;
    const Ref whole = g.load(Type::Binary32x16, 8);
    const Ref halves = g.load_high(g.load_low(Type::Binary32x16, 0), 32);
    g.store(g.add(whole, halves), 16);
    EXPECT_EQ(kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kX86_64_v4).statements,
              "    const core::Float16 v0 = Memory::load(x + 8);\n"
              "    const core::Float16 v1 = Memory::load_halves(x + 0, x + 32);\n"
              "    const core::Float16 v2 = v0 + v1;\n"
              "    Memory::store(y + 16, v2);\n");
}

TEST(VectorTypes, OfSixtyFourBytesHaveConstantsOfAsMany) {
    Graph g;
    const Ref x = g.load(Type::Binary64x8, 0);
    std::vector<Exact> factors;
    for (int lane = 0; lane < 8; ++lane) factors.push_back(Exact::rational(lane + 2));
    g.store(g.mul(x, factors), 0);
    const auto body = kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kX86_64_v4);
    EXPECT_EQ(
        body.constants,
        "alignas(64) constexpr double kConstants[][8] = {\n"
        "    {0x1p+1, 0x1.8p+1, 0x1p+2, 0x1.4p+2, 0x1.8p+2, 0x1.cp+2, 0x1p+3, 0x1.2p+3},\n};\n");
    EXPECT_NE(
        body.statements.find("const core::Double8 v1 = v0 * core::Widest::load(kConstants[0])"),
        std::string::npos)
        << body.statements;
}

TEST(VectorTypes, HaveAsManyBytesAsTheirLanes) {
    for (const Type type : {Type::Binary32x4, Type::Binary64x2}) {
        EXPECT_EQ(kernelgen::byte_count(type), 16);
        EXPECT_FALSE(kernelgen::is_wide(type));
    }
    for (const Type type : {Type::Binary32x8, Type::Binary64x4}) {
        EXPECT_EQ(kernelgen::byte_count(type), 32);
        EXPECT_TRUE(kernelgen::is_wide(type));
    }
    for (const Type type : {Type::Binary32x16, Type::Binary64x8}) {
        EXPECT_EQ(kernelgen::byte_count(type), 64);
        EXPECT_TRUE(kernelgen::is_wide(type));
    }
}

// So that no lane crosses from one piece of a vector to another.
TEST(Transpose, OfLongerVectorsIsOneInEachSixteenBytes) {
    for (const Type type :
         {Type::Binary32x8, Type::Binary64x4, Type::Binary32x16, Type::Binary64x8}) {
        Graph g;
        const int lanes = kernelgen::lane_count(type);
        const int piece = kernelgen::lanes_in_piece(type);
        std::vector<Ref> v;
        for (int i = 0; i < piece; ++i) v.push_back(g.load(type, i * lanes));
        kernelgen::transpose(g, v.data());
        for (int i = 0; i < piece; ++i) g.store(v[static_cast<std::size_t>(i)], i * lanes);
        kernelgen::ValueGraph values;
        const kernelgen::Outputs outputs = kernelgen::unfold(g, values);
        const Type scalar = kernelgen::is_binary32(type) ? Type::Binary32 : Type::Binary64;
        for (int vector = 0; vector < piece; ++vector) {
            for (int lane = 0; lane < lanes; ++lane) {
                const int from = lane % piece * lanes + lane / piece * piece + vector;
                EXPECT_EQ(outputs.at(vector * lanes + lane), values.input(scalar, from))
                    << lanes << " lanes, vector " << vector << ", lane " << lane;
            }
        }
    }
}

TEST(VectorTypes, StandBesideScalarsOfOneSpelling) {
    Graph g;
    g.store(g.round(g.widen(g.load(Type::Binary32, 0))), 0);
    EXPECT_EQ(statements(g),
              kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kIa32).statements);
}

std::string piecewise(const Graph& g) {
    return kernelgen::emit_in_pieces(g, kernelgen::source_order(g)).statements;
}

TEST(Pieces, TakeWholeVectorsConstantsAndLanesOfEachPiece) {
    Graph g;
    const Ref x = g.load(Type::Binary64x2, 2);
    const Ref turned = g.shuffle(x, x, {1, 0});
    const Ref sum = g.add(turned, g.scale(Type::Binary64x2));
    g.store(g.mul(sum, g.constant(Type::Binary64x2, {Exact::rational(2), Exact::rational(3)})), 4);
    const kernelgen::EmittedBody body = kernelgen::emit_in_pieces(g, kernelgen::source_order(g));
    EXPECT_EQ(body.statements,
              "    const Vector v0 = x.load(2);\n"
              "    const Vector v1 = shuffled<1, 0>(v0, v0);\n"
              "    const Vector v2 = v1 + scale;\n"
              "    const Vector v3 = v2 * in_each_piece(kConstants[0]);\n"
              "    y.store(4, v3);\n");
    EXPECT_EQ(body.constants,
              "alignas(16) constexpr double kConstants[][2] = {\n    {0x1p+1, 0x1.8p+1},\n};\n");
}

TEST(Pieces, LoadTwoHalvesAtOnceWhereNobodyElseWantsTheLowOne) {
    Graph g;
    const Ref low = g.load_low(Type::Binary32x4, 6);
    g.store(g.load_high(low, 16), 0);
    EXPECT_EQ(piecewise(g),
              "    const Vector v0 = x.load_halves(6, 16);\n"
              "    y.store(0, v0);\n");
}

TEST(Pieces, KeepAHalfThatIsWantedByItself) {
    Graph g;
    const Ref low = g.load_low(Type::Binary32x4, 6);
    g.store(g.add(g.load_high(low, 16), low), 0);
    EXPECT_EQ(piecewise(g),
              "    const Vector v0 = x.load_low(6);\n"
              "    const Vector v1 = x.load_halves(6, 16);\n"
              "    const Vector v2 = v0 + v1;\n"
              "    y.store(0, v2);\n");
}

TEST(Pieces, StoreHalves) {
    Graph g;
    const Ref x = g.load(Type::Binary32x4, 0);
    g.store_low(x, 2);
    g.store_high(x, 8);
    EXPECT_EQ(piecewise(g),
              "    const Vector v0 = x.load(0);\n"
              "    y.store_low(2, v0);\n"
              "    y.store_high(8, v0);\n");
}

TEST(Pieces, JoinNoHalfThatIsNotFromMemory) {
    Graph g;
    const Ref x = g.load(Type::Binary32x4, 0);
    g.store(g.load_high(g.add(x, x), 4), 0);
    EXPECT_THROW(piecewise(g), std::logic_error);
}

TEST(Targets, AreFoundByTheirNames) {
    for (const kernelgen::Target& target : kernelgen::kTargets)
        EXPECT_EQ(target.name, kernelgen::target_named(target.name).name);
    try {
        kernelgen::target_named("z80");
        FAIL() << "nothing was thrown";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ("there is no target z80; there are ia32 x86-64 x86-64-v3 x86-64-v4 aarch64",
                     error.what());
    }
}

}  // namespace
