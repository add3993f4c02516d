#include "kernelgen/emission/lane_emission.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::LaneElements;
using kernelgen::Ref;
using kernelgen::Type;

std::string emitted(const Graph& graph, Type precision = Type::Binary64,
                    LaneElements elements = LaneElements::Real) {
    return kernelgen::emit_in_lanes(graph, kernelgen::source_order(graph), precision, elements);
}

TEST(LaneEmission, MakesAStatementOfEachNode) {
    Graph g;
    const Ref a = g.load(Type::Binary64, 0);
    const Ref b = g.load(Type::Binary64, 3);
    g.store(g.add(a, b), 1);
    EXPECT_EQ(
        "    const Vector v0 = x.load(0);\n"
        "    const Vector v1 = x.load(3);\n"
        "    const Vector v2 = v0 + v1;\n"
        "    y.store(1, v2);\n",
        emitted(g));
}

TEST(LaneEmission, PutsConstantsBesideAVector) {
    Graph g;
    g.store(g.mul(g.load(Type::Binary64, 0), {Exact::rational(1, 2)}), 0);
    const std::string text = emitted(g);
    EXPECT_NE(std::string::npos, text.find("v0 * 0x1p-1")) << text;
}

TEST(LaneEmission, FillsAVectorWhereAConstantStandsAlone) {
    Graph g;
    g.store(g.zero(Type::Binary64), 0);
    EXPECT_EQ("    y.store(0, Vector{});\n", emitted(g));
}

TEST(LaneEmission, CallsTheScaleFactorByItsNameBehindTheVector) {
    Graph g;
    g.store(g.mul(g.scale(Type::Binary64), g.load(Type::Binary64, 0)), 0);
    EXPECT_EQ(
        "    const Vector v0 = x.load(0);\n"
        "    const Vector v1 = v0 * factor;\n"
        "    y.store(0, v1);\n",
        emitted(g));
}

TEST(LaneEmission, WritesRowsAsTheirHalves) {
    Graph g;
    const Ref wide = g.widen(g.load(Type::Binary32, 5));
    g.store(g.round(g.mul(wide, wide)), 2);
    EXPECT_EQ(
        "    const Half v0_low = x.low(5);\n"
        "    const Half v0_high = x.high(5);\n"
        "    const Half v1_low = v0_low * v0_low;\n"
        "    const Half v1_high = v0_high * v0_high;\n"
        "    y.store(2, v1_low, v1_high);\n",
        emitted(g, Type::Binary32));
}

TEST(LaneEmission, WidensAVectorThatOthersNeedAsItIs) {
    Graph g;
    const Ref narrow = g.load(Type::Binary32, 5);
    const Ref wide = g.widen(narrow);
    g.store(g.add(g.round(g.mul(wide, wide)), narrow), 2);
    EXPECT_EQ(
        "    const Vector v0 = x.load(5);\n"
        "    const Half v1_low = widen_low(v0);\n"
        "    const Half v1_high = widen_high(v0);\n"
        "    const Half v2_low = v1_low * v1_low;\n"
        "    const Half v2_high = v1_high * v1_high;\n"
        "    const Vector v3 = round(v2_low, v2_high);\n"
        "    const Vector v4 = v0 + v3;\n"
        "    y.store(2, v4);\n",
        emitted(g, Type::Binary32));
}

TEST(LaneEmission, StoresBothPartsOfAComplexElementTogether) {
    Graph g;
    const Ref im = g.load(Type::Binary64, 3);
    const Ref re = g.load(Type::Binary64, 2);
    g.store(im, 0);
    g.store(re, 1);
    EXPECT_EQ(
        "    const Vector v0 = x.load(3);\n"
        "    const Vector v1 = x.load(2);\n"
        "    y.store(0, v0, v1);\n",
        emitted(g, Type::Binary64, LaneElements::Complex));
}

TEST(LaneEmission, RefusesHalfAComplexElement) {
    Graph g;
    g.store(g.load(Type::Binary64, 0), 4);
    EXPECT_THROW(emitted(g, Type::Binary64, LaneElements::Complex), std::logic_error);
}

TEST(LaneEmission, RefusesVectors) {
    Graph g;
    g.store(g.load(Type::Binary64x2, 0), 0);
    EXPECT_THROW(emitted(g), std::logic_error);
}

}  // namespace
