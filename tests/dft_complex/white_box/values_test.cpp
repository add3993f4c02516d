#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "kernelgen/proof/bit_interpreter.hpp"
#include "kernelgen/values/same_values.hpp"
#include "kernelgen/values/unfold.hpp"
#include "kernelgen/values/value_hash.hpp"
#include "tests/dft_complex/white_box/support/all_kernels.hpp"
#include "tests/kernelgen/support/unfolded_bits.hpp"
#include "transforms/dft_complex/rules/table.hpp"

// What the laid-out kernels compute, apart from where they do so.

namespace {

using dft_complex::LaneChoice;
using dft_complex_test::Direction;
using dft_complex_test::Element;
using dft_complex_test::for_each_kernel;
using dft_complex_test::Kernel;
using kernelgen::Outputs;
using kernelgen::Type;
using kernelgen::ValueGraph;
using kernelgen::ValueOp;

TEST(ValuesOfKernels, GiveTheBitsOfTheirGraphs) {
    for_each_kernel([](const Kernel& kernel) {
        kernelgen_test::expect_unfolded_bits(
            kernel.graph, kernel.element == Element::Complex32 ? Type::Binary32 : Type::Binary64);
    });
}

TEST(ValuesOfKernels, MultiplyEachOutputByTheScaleFactorOnce) {
    for_each_kernel([](const Kernel& kernel) {
        ValueGraph values;
        const Outputs outputs = kernelgen::unfold(kernel.graph, values);
        int products = 0;
        for (kernelgen::ValueId id : values.live(outputs)) {
            for (kernelgen::SignedValue operand : kernelgen::operands(values.node(id)))
                products += values.node(operand.id).op == ValueOp::Scale ? 1 : 0;
        }
        EXPECT_EQ(products, 2 * kernel.length);
    });
}

/** The forward kernel of single precision by the table's rule, with all batches in the same lanes.
 */
Kernel in_lanes(const Kernel& kernel, const LaneChoice& choice) {
    return dft_complex::draft_kernel(kernel.rule, Direction::Forward, Element::Complex32,
                                     std::vector<LaneChoice>(kernel.choices.size(), choice),
                                     kernel.target);
}

const Kernel& single(int length) {
    return dft_complex_test::kernel(length, Direction::Forward, Element::Complex32);
}

bool have_same_values(const Kernel& a, const Kernel& b) {
    return kernelgen::hash_of_values(a.graph) == kernelgen::hash_of_values(b.graph);
}

bool have_same_bits(const Kernel& a, const Kernel& b, std::mt19937& random) {
    std::uniform_real_distribution<float> part(-1, 1);
    std::vector<double> x;
    for (int i = 0; i < 2 * a.length; ++i) x.push_back(part(random));
    return kernelgen::interpret(a.graph, x, 1, 2 * a.length) ==
           kernelgen::interpret(b.graph, x, 1, 2 * b.length);
}

TEST(ValuesOfKernels, AreTheSameInOtherLanes) {
    for (int length : {7, 10, 14, 22, 26, 34, 38, 58}) {
        for (const char* lanes : {"s1w2a", "s1w3b", "s1w4a"}) {
            const Kernel other = in_lanes(single(length), LaneChoice::from_string(lanes));
            ASSERT_NE(single(length).choices, other.choices)
                << "length " << length << ", " << lanes;
            EXPECT_NO_THROW(kernelgen::prove_same_values(
                other.name(), other.graph, single(length).name(), single(length).graph))
                << "length " << length << ", " << lanes;
            EXPECT_TRUE(have_same_values(other, single(length)))
                << "length " << length << ", " << lanes;
        }
    }
}

// Where lanes decide on which side of a sum a factor stands, or meet one of 0, they decide bits.
TEST(ValuesOfKernels, AreOthersInLanesThatGiveOtherBits) {
    std::mt19937 random(1);
    int others = 0;
    for (int length : dft_complex::lengths()) {
        if (single(length).choices.empty()) continue;
        for (const char* lanes : {"s1w2a", "s1w3a", "s1w4a", "s1w2b", "s1w3b", "s1w4b"}) {
            const Kernel other = in_lanes(single(length), LaneChoice::from_string(lanes));
            if (have_same_bits(other, single(length), random)) continue;
            ++others;
            EXPECT_FALSE(have_same_values(other, single(length)))
                << "length " << length << ", " << lanes;
        }
    }
    EXPECT_GT(others, 20);
}

std::string complaint(const Kernel& kernel) {
    try {
        dft_complex::prove(kernel);
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "none";
}

// Its matrix is right, so that the values alone tell.
TEST(ValuesOfKernels, OfAnotherTargetMustBeThoseOfTheReference) {
    Kernel kernel = in_lanes(single(9), LaneChoice::from_string("s1w4b"));
    ASSERT_FALSE(have_same_values(kernel, single(9)));
    EXPECT_EQ(complaint(kernel), "none");
    kernel.target = kernelgen::kX86_64;
    EXPECT_NE(
        complaint(kernel).find("has not the bits of qsvgDFTFwd_CToC_9_32fc for ia32: it takes "),
        std::string::npos)
        << complaint(kernel);
    kernel = in_lanes(single(9), single(9).choices.front());
    kernel.target = kernelgen::kX86_64;
    EXPECT_EQ(complaint(kernel), "none");
}

}  // namespace
