/** @file @brief The words of each target's sources. */

#include <gtest/gtest.h>

#include <stdexcept>

#include "kernelgen/emission/emission.hpp"
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

TEST(VectorTypes, StandBesideScalarsOfOneSpelling) {
    Graph g;
    g.store(g.round(g.widen(g.load(Type::Binary32, 0))), 0);
    EXPECT_EQ(statements(g),
              kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kIa32).statements);
}

TEST(Targets, AreFoundByTheirNames) {
    for (const kernelgen::Target& target : kernelgen::kTargets)
        EXPECT_EQ(target.name, kernelgen::target_named(target.name).name);
    try {
        kernelgen::target_named("z80");
        FAIL() << "nothing was thrown";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ("there is no target z80; there are ia32 x86-64", error.what());
    }
}

}  // namespace
