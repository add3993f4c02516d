#include "kernelgen/emission/emission.hpp"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <stdexcept>

#include "targets/targets.hpp"
#include "tests/kernelgen/support/random_graph.hpp"

namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Lanes;
using kernelgen::literal;
using kernelgen::Ref;
using kernelgen::Selection;
using kernelgen::Type;

constexpr Type kVector = Type::Binary32x4;
constexpr Type kPair = Type::Binary64x2;

void expect_reads_back(float value) {
    const std::string text = literal(value);
    char* end = nullptr;
    const float read = std::strtof(text.c_str(), &end);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(read), std::bit_cast<std::uint32_t>(value)) << text;
    EXPECT_STREQ(end, "f") << text;
}

void expect_reads_back(double value) {
    const std::string text = literal(value);
    char* end = nullptr;
    const double read = std::strtod(text.c_str(), &end);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read), std::bit_cast<std::uint64_t>(value)) << text;
    EXPECT_STREQ(end, "") << text;
}

template <class Float>
void expect_special_values_read_back() {
    using Limits = std::numeric_limits<Float>;
    for (Float value :
         {Float(0), -Float(0), Float(1), Float(-1), Limits::min(), Limits::denorm_min(),
          Limits::max(), Limits::lowest(), Float(1) + Limits::epsilon()})
        expect_reads_back(value);
}

TEST(Emission, LiteralsOfBinary32ReadBackExactly) {
    expect_special_values_read_back<float>();
    std::mt19937 random(1);
    for (int i = 0; i < 10000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (std::isfinite(value)) expect_reads_back(value);
    }
}

TEST(Emission, LiteralsOfBinary64ReadBackExactly) {
    expect_special_values_read_back<double>();
    std::mt19937_64 random(1);
    for (int i = 0; i < 10000; ++i) {
        const auto value = std::bit_cast<double>(static_cast<std::uint64_t>(random()));
        if (std::isfinite(value)) expect_reads_back(value);
    }
}

std::string statements(const Graph& g) {
    return kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kIa32).statements;
}

TEST(Emission, ASumOfVectorsIsWrittenStatementByStatement) {
    Graph g;
    const Ref x = g.load(kVector, 0);
    const Ref y = g.load(kVector, 4);
    g.store(g.add(x, y), 8);
    EXPECT_EQ(statements(g),
              "    const __m128 v0 = Memory::load(x + 0);\n"
              "    const __m128 v1 = Memory::load(x + 4);\n"
              "    const __m128 v2 = _mm_add_ps(v0, v1);\n"
              "    Memory::store(y + 8, v2);\n");
}

TEST(Emission, VectorsOffA16ByteBoundaryAreMovedUnaligned) {
    Graph g;
    g.store(g.load(kVector, 2), 6);
    EXPECT_EQ(statements(g),
              "    const __m128 v0 = Unaligned::load(x + 2);\n"
              "    Unaligned::store(y + 6, v0);\n");
}

TEST(Emission, PairsOfBinary64HaveInstructionsOfTheirOwn) {
    Graph g;
    const Ref x = g.load(kPair, 0);
    const Ref y = g.load(kPair, 2);
    const Ref sum = g.add(x, y);
    const Ref swapped = g.shuffle(sum, sum, {1, 0, 0, 0});
    const Ref difference = g.sub(swapped, x);
    g.store(g.mul(difference, g.scale(kPair)), 4);
    EXPECT_EQ(statements(g),
              "    const __m128d v0 = Memory::load(x + 0);\n"
              "    const __m128d v1 = Memory::load(x + 2);\n"
              "    const __m128d v2 = _mm_add_pd(v0, v1);\n"
              "    const __m128d v3 = _mm_shuffle_pd(v2, v2, 1);\n"
              "    const __m128d v4 = _mm_sub_pd(v3, v0);\n"
              "    const __m128d v5 = _mm_mul_pd(v4, scale);\n"
              "    Memory::store(y + 4, v5);\n");
}

TEST(Emission, PairsOfBinary64AtEvenOffsetsAreMovedAsTheArrayIsAligned) {
    for (int offset : {0, 2, 4, 6, 10, 126}) {
        Graph g;
        g.store(g.load(kPair, offset), offset);
        const std::string place = " + " + std::to_string(offset);
        EXPECT_EQ(statements(g), "    const __m128d v0 = Memory::load(x" + place +
                                     ");\n    Memory::store(y" + place + ", v0);\n");
    }
}

TEST(Emission, PairsOfBinary64EightBytesOffAreMovedUnaligned) {
    for (int offset : {1, 3, 5, 127}) {
        Graph g;
        g.store(g.load(kPair, offset), offset);
        const std::string place = " + " + std::to_string(offset);
        EXPECT_EQ(statements(g), "    const __m128d v0 = Unaligned::load(x" + place +
                                     ");\n    Unaligned::store(y" + place + ", v0);\n");
    }
}

TEST(Emission, ConstantPairsAreDefinedOnceWithBothTheirLanes) {
    Graph g;
    const Ref x = g.load(kPair, 0);
    const kernelgen::Lanes lanes = {Exact::rational(1, 2), Exact::rational(-3)};
    g.store(g.mul(x, lanes), 0);
    g.store(g.mul(g.flip(x, {0, 1}), lanes), 2);
    const auto body = kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kIa32);
    EXPECT_EQ(body.constants,
              "alignas(16) constexpr double kConstants[][2] = {\n"
              "    {0x1p-1, -0x1.8p+1},\n"
              "    {0x0p+0, -0x0p+0},\n"
              "};\n");
    EXPECT_EQ(body.statements,
              "    const __m128d v0 = Memory::load(x + 0);\n"
              "    const __m128d v1 = _mm_mul_pd(v0, _mm_load_pd(kConstants[0]));\n"
              "    Memory::store(y + 0, v1);\n"
              "    const __m128d v2 = _mm_xor_pd(v0, _mm_load_pd(kConstants[1]));\n"
              "    const __m128d v3 = _mm_mul_pd(v2, _mm_load_pd(kConstants[0]));\n"
              "    Memory::store(y + 2, v3);\n");
}

TEST(Emission, ConstantPairsKeepTheBitsOfBinary64) {
    Graph g;
    const Exact third = Exact::rational(1, 3);
    g.store(g.mul(g.load(kPair, 0), {third, third}), 0);
    EXPECT_NE(kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kIa32)
                  .constants.find("{" + literal(1.0 / 3) + ", " + literal(1.0 / 3) + "}"),
              std::string::npos);
}

TEST(Emission, HalvesAndScalarsHaveMovesOfTheirOwn) {
    Graph g;
    const Ref x = g.load_high(g.load_low(kVector, 6), 2);
    const Ref sum = g.sub(x, g.load_scalar(kVector, 9));
    g.store_low(sum, 4);
    g.store_high(sum, 0);
    EXPECT_EQ(statements(g),
              "    const __m128 v0 = load_low(x + 6);\n"
              "    const __m128 v1 = load_high(v0, x + 2);\n"
              "    const __m128 v2 = _mm_load_ss(x + 9);\n"
              "    const __m128 v3 = _mm_sub_ps(v1, v2);\n"
              "    store_low(y + 4, v3);\n"
              "    store_high(y + 0, v3);\n");
}

TEST(Emission, ScalarsAreWrittenAsPlainArithmetic) {
    Graph g;
    const Ref x = g.load(Type::Binary32, 1);
    const Ref wide = g.mul(g.widen(x), {Exact::rational(1, 2)});
    g.store(g.mul(g.sub(x, g.round(wide)), g.scale(Type::Binary32)), 3);
    EXPECT_EQ(statements(g),
              "    const float v0 = x[1];\n"
              "    const double v1 = static_cast<double>(v0);\n"
              "    const double v2 = v1 * 0x1p-1;\n"
              "    const float v3 = static_cast<float>(v2);\n"
              "    const float v4 = v0 - v3;\n"
              "    const float v5 = v4 * scale;\n"
              "    y[3] = v5;\n");
}

TEST(Emission, AScalarZeroIsALiteralOfItsType) {
    Graph g;
    g.store(g.zero(Type::Binary32), 1);
    g.store(g.sub(g.zero(Type::Binary64), g.load(Type::Binary64, 0)), 2);
    EXPECT_EQ(statements(g),
              "    y[1] = 0x0p+0f;\n"
              "    const double v0 = x[0];\n"
              "    const double v1 = 0x0p+0 - v0;\n"
              "    y[2] = v1;\n");
}

TEST(Emission, ConstantVectorsAreDefinedOnceWithAllTheirLanes) {
    Graph g;
    const Ref x = g.load(kVector, 0);
    const Exact half = Exact::rational(1, 2);
    const kernelgen::Lanes lanes = {half, -half, Exact::rational(3), Exact::rational(0)};
    g.store(g.mul(x, lanes), 0);
    g.store(g.mul(g.flip(x, {0, 1, 0, 1}), lanes), 4);
    const auto body = kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kIa32);
    EXPECT_EQ(body.constants,
              "alignas(16) constexpr float kConstants[][4] = {\n"
              "    {0x1p-1f, -0x1p-1f, 0x1.8p+1f, 0x0p+0f},\n"
              "    {0x0p+0f, -0x0p+0f, 0x0p+0f, -0x0p+0f},\n"
              "};\n");
    EXPECT_EQ(body.statements,
              "    const __m128 v0 = Memory::load(x + 0);\n"
              "    const __m128 v1 = _mm_mul_ps(v0, _mm_load_ps(kConstants[0]));\n"
              "    Memory::store(y + 0, v1);\n"
              "    const __m128 v2 = _mm_xor_ps(v0, _mm_load_ps(kConstants[1]));\n"
              "    const __m128 v3 = _mm_mul_ps(v2, _mm_load_ps(kConstants[0]));\n"
              "    Memory::store(y + 4, v3);\n");
}

TEST(Emission, AKernelWithoutConstantVectorsDefinesNone) {
    Graph g;
    g.store(g.load(kVector, 0), 0);
    EXPECT_EQ(kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kIa32).constants, "");
}

TEST(Emission, EachStatementNamesAFreshValue) {
    const Graph g = kernelgen_test::random_graph(2, 300);
    const std::string text = statements(g);
    int named = 0;
    for (std::size_t at = 0; (at = text.find("const __m128 v", at)) != std::string::npos; ++at) {
        EXPECT_EQ(std::atoi(text.c_str() + at + 14), named) << text.substr(at, 40);
        ++named;
    }
    EXPECT_GT(named, 50);
}

/** Lanes that an instruction on v0 (lanes 0 to 3) and v1 (lanes 4 to 7) gives, by its manual. */
Selection lanes_of_instruction(const std::string& text) {
    int z = 0, y = 0, x = 0, w = 0;
    if (text == "_mm_move_ss(v0, v1)") return {4, 1, 2, 3};
    if (text == "move_low(v0, v1)") return {4, 5, 2, 3};
    if (text == "_mm_unpacklo_ps(v0, v1)") return {0, 4, 1, 5};
    if (text == "_mm_unpackhi_ps(v0, v1)") return {2, 6, 3, 7};
    if (text == "_mm_movelh_ps(v0, v1)") return {0, 1, 4, 5};
    if (text == "_mm_movehl_ps(v1, v0)") return {2, 3, 6, 7};
    if (std::sscanf(text.c_str(), "_mm_shuffle_ps(v0, v1, _MM_SHUFFLE(%d, %d, %d, %d))", &z, &y, &x,
                    &w) == 4) {
        return {static_cast<std::uint8_t>(w), static_cast<std::uint8_t>(x),
                static_cast<std::uint8_t>(4 + y), static_cast<std::uint8_t>(4 + z)};
    }
    return {255, 255, 255, 255};
}

std::string shuffle_instruction(const Selection& selection) {
    Graph g;
    const Ref x = g.load(kVector, 0);
    const Ref y = g.load(kVector, 4);
    const Ref sum = g.add(x, y);
    g.store(g.add(sum, g.shuffle(x, y, selection)), 0);
    const std::string text = statements(g);
    const std::string start = "const __m128 v3 = ";
    const std::size_t at = text.find(start) + start.size();
    return text.substr(at, text.find(';', at) - at);
}

template <class Check>
void for_all_selections(const Check& check) {
    for (int code = 0; code < 4096; ++code) {
        const Selection s = {
            static_cast<std::uint8_t>(code & 7), static_cast<std::uint8_t>(code >> 3 & 7),
            static_cast<std::uint8_t>(code >> 6 & 7), static_cast<std::uint8_t>(code >> 9)};
        if (s != Selection{0, 1, 2, 3}) check(s);
    }
}

bool is_one_instruction(const Selection& s) {
    return (s[0] < 4 && s[1] < 4 && s[2] >= 4 && s[3] >= 4) || s == Selection{4, 1, 2, 3} ||
           s == Selection{4, 5, 2, 3} || s == Selection{0, 4, 1, 5} || s == Selection{2, 6, 3, 7};
}

TEST(Emission, EachShuffleInstructionPicksTheLanesOfItsSelection) {
    for_all_selections([](const Selection& s) {
        if (!is_one_instruction(s)) return;
        const std::string text = shuffle_instruction(s);
        EXPECT_EQ(lanes_of_instruction(text), s) << testing::PrintToString(s) << " became " << text;
    });
}

TEST(Emission, ASelectionThatNoInstructionMakesIsRefused) {
    for_all_selections([](const Selection& s) {
        if (is_one_instruction(s)) return;
        EXPECT_THROW(shuffle_instruction(s), std::logic_error) << testing::PrintToString(s);
    });
}

std::string shuffle_of_pairs(const Selection& selection, bool of_one) {
    Graph g;
    const Ref x = g.load(kPair, 0);
    const Ref y = g.load(kPair, 2);
    const Ref sum = g.add(x, y);
    g.store(g.add(sum, g.shuffle(x, of_one ? x : y, selection)), 0);
    const std::string text = statements(g);
    const std::string start = "const __m128d v3 = ";
    const std::size_t at = text.find(start) + start.size();
    return text.substr(at, text.find(';', at) - at);
}

// The low lane comes from the first operand, lanes 0 and 1, the high one from the second, 2 and 3.
TEST(Emission, AShuffleOfPairsPicksALaneOfEachOperand) {
    EXPECT_EQ(shuffle_of_pairs({0, 2}, false), "_mm_shuffle_pd(v0, v1, 0)");
    EXPECT_EQ(shuffle_of_pairs({1, 2}, false), "_mm_shuffle_pd(v0, v1, 1)");
    EXPECT_EQ(shuffle_of_pairs({0, 3}, false), "_mm_shuffle_pd(v0, v1, 2)");
    EXPECT_EQ(shuffle_of_pairs({1, 3}, false), "_mm_shuffle_pd(v0, v1, 3)");
}

TEST(Emission, AShuffleOfOnePairSwapsItsLanes) {
    EXPECT_EQ(shuffle_of_pairs({1, 0}, true), "_mm_shuffle_pd(v0, v0, 1)");
}

TEST(Emission, ASelectionOfPairsThatNoInstructionMakesIsRefused) {
    const Selection refused[] = {{2, 0}, {2, 1}, {3, 0}, {3, 1}, {2, 3}, {3, 2}, {0, 1}, {1, 0}};
    for (const Selection& s : refused)
        EXPECT_THROW(shuffle_of_pairs(s, false), std::logic_error) << testing::PrintToString(s);
}

TEST(Emission, BetweenPlacesALoadAndAStoreNameTheVectorsNumber) {
    Graph g;
    const Ref x = g.load(kVector, 8);
    const Ref y = g.load(kVector, 4);
    g.store(g.add(x, y), 12);
    const auto body =
        kernelgen::emit_between_places(g, kernelgen::source_order(g), kernelgen::kIa32);
    EXPECT_EQ(body.statements,
              "    const __m128 v0 = x.load(2);\n"
              "    const __m128 v1 = x.load(1);\n"
              "    const __m128 v2 = _mm_add_ps(v0, v1);\n"
              "    y.store(3, v2);\n");
    Graph pairs;
    pairs.store(pairs.load(kPair, 6), 2);
    EXPECT_EQ(
        kernelgen::emit_between_places(pairs, kernelgen::source_order(pairs), kernelgen::kIa32)
            .statements,
        "    const __m128d v0 = x.load(3);\n"
        "    y.store(1, v0);\n");
}

TEST(Emission, OnlyWholeVectorsHavePlaces) {
    Graph half;
    half.store_low(half.load(kVector, 0), 0);
    EXPECT_THROW(
        kernelgen::emit_between_places(half, kernelgen::source_order(half), kernelgen::kIa32),
        std::logic_error);
    Graph scalar;
    scalar.store(scalar.load(Type::Binary32, 0), 0);
    EXPECT_THROW(
        kernelgen::emit_between_places(scalar, kernelgen::source_order(scalar), kernelgen::kIa32),
        std::logic_error);
}

TEST(Emission, ConstantVectorsOfTwoTypesAreTablesOfTheirOwn) {
    Graph g;
    const Exact half = Exact::rational(1, 2);
    g.store(g.mul(g.load(Type::Binary32x4, 0), Lanes(4, half)), 0);
    g.store(g.mul(g.load(Type::Binary64x2, 8), Lanes(2, half)), 8);
    const auto body = kernelgen::emit(g, kernelgen::source_order(g), kernelgen::kIa32);
    EXPECT_EQ(body.constants,
              "alignas(16) constexpr float kConstants32x4[][4] = {\n"
              "    {0x1p-1f, 0x1p-1f, 0x1p-1f, 0x1p-1f},\n"
              "};\n"
              "alignas(16) constexpr double kConstants64x2[][2] = {\n"
              "    {0x1p-1, 0x1p-1},\n"
              "};\n");
    EXPECT_NE(body.statements.find("_mm_load_ps(kConstants32x4[0])"), std::string::npos);
    EXPECT_NE(body.statements.find("_mm_load_pd(kConstants64x2[0])"), std::string::npos);
}

std::string mixed_statements(const Graph& g) {
    return kernelgen::emit_mixed(g, kernelgen::source_order(g), kernelgen::kX86_64_v3).statements;
}

TEST(Emission, LanesAreGatheredFromElementsApartAndTakenOutAgain) {
    Graph g;
    const Ref x = g.gather(Type::Binary64x4, {3, 0, 7, 5});
    const Ref sum = g.add(x, g.spread(g.load(Type::Binary64, 9)));
    g.store(g.part(sum, Type::Binary64, 2), 1);
    g.store_high(sum, 4);
    EXPECT_EQ(mixed_statements(g),
              "    const double v0 = x[9];\n"
              "    const core::Double4 v1 = core::Double4{v0, v0, v0, v0};\n"
              "    const core::Double4 v2 = core::gathered(x + 3, x + 0, x + 7, x + 5);\n"
              "    const core::Double4 v3 = v2 + v1;\n"
              "    const double v4 = v3[2];\n"
              "    y[1] = v4;\n"
              "    core::store_high(y + 4, v3);\n");
}

TEST(Emission, OneElementInAllLanesIsNoGathering) {
    Graph g;
    g.store(g.gather(Type::Binary32x4, {6, 6, 6, 6}), 0);
    EXPECT_EQ(mixed_statements(g),
              "    const core::Float4 v0 = core::Float4{x[6], x[6], x[6], x[6]};\n"
              "    core::Unaligned::store(y + 0, v0);\n");
}

TEST(Emission, VectorsOfTwoLengthsStandSideBySide) {
    Graph g;
    const Ref low = g.load(Type::Binary64x2, 0);
    const Ref both = g.join(low, g.load(Type::Binary64x2, 6));
    g.store(g.add(both, g.load(Type::Binary64x4, 8)), 0);
    g.store(g.part(both, Type::Binary64x2, 1), 4);
    EXPECT_EQ(mixed_statements(g),
              "    const core::Double2 v0 = core::Unaligned::load(x + 0);\n"
              "    const core::Double2 v1 = core::Unaligned::load(x + 6);\n"
              "    const core::Double4 v2 = core::joined(v0, v1);\n"
              "    const core::Double4 v3 = core::Wide::load(x + 8);\n"
              "    const core::Double4 v4 = v2 + v3;\n"
              "    core::Wide::store(y + 0, v4);\n"
              "    const core::Double2 v5 = core::half<1>(v2);\n"
              "    core::Unaligned::store(y + 4, v5);\n");
}

TEST(Emission, ConversionsOfVectorsAreFunctionsOfTheLibrary) {
    Graph g;
    const Ref row = g.widen(g.load(Type::Binary32x4, 4));
    g.store(g.round(g.add(row, row)), 0);
    EXPECT_EQ(mixed_statements(g),
              "    const core::Float4 v0 = core::Unaligned::load(x + 4);\n"
              "    const core::Double4 v1 = core::widened(v0);\n"
              "    const core::Double4 v2 = v1 + v1;\n"
              "    const core::Float4 v3 = core::rounded(v2);\n"
              "    core::Unaligned::store(y + 0, v3);\n");
}

}  // namespace
