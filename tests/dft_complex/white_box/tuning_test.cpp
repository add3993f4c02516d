/** @file @brief A tuning serves the rule that it was found for, and no other. */
#include "transforms/dft_complex/recorded/tuning.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

#include "targets/targets.hpp"
#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/layouts/packed_layout.hpp"
#include "transforms/dft_complex/rules/table.hpp"

namespace {

using dft_complex::Direction;
using dft_complex::Element;
using dft_complex::LaneChoice;
using dft_complex::LanePolicy;
using dft_complex::Network;
using dft_complex::P;
using dft_complex::RecordedTuning;
using dft_complex::Signal;
using dft_complex::small;
using dft_complex::SmallForm;
using dft_complex::TableRow;
using dft_complex::Tuning;
using dft_complex::tuning_of;

const TableRow kSix{6, P(small(2), small(3)), 0, 0, 0};

TEST(Tuning, IsFoundByLengthAndRule) {
    const RecordedTuning recorded[] = {{6, "P(2,3)", "s1w2a s2w4b", "source", "no-tree-ter"}};
    const Tuning tuning = tuning_of(kSix, Element::Complex32, recorded);
    EXPECT_EQ(tuning.order, "source");
    EXPECT_EQ(tuning.option, "no-tree-ter");
    ASSERT_EQ(tuning.lanes.size(), 2U);
    EXPECT_EQ(tuning.lanes[1].to_string(), "s2w4b");
}

TEST(Tuning, IsEmptyWhereNoneIsRecorded) {
    const Tuning tuning = tuning_of(kSix, Element::Complex32, std::span<const RecordedTuning>());
    EXPECT_TRUE(tuning.lanes.empty());
    EXPECT_EQ(tuning.order, "");
}

TEST(Tuning, OfAnotherRuleIsRefusedAndBothAreNamed) {
    const RecordedTuning recorded[] = {{6, "P(3,2)", "s1w2a s1w4a", "source"}};
    try {
        tuning_of(kSix, Element::Complex32, recorded);
        FAIL() << "nothing was thrown";
    } catch (const std::logic_error& error) {
        const std::string message = error.what();
        for (const char* part : {"length 6 in 32fc", "P(3,2)", "P(2,3)", "scripts/tune-orders"})
            EXPECT_NE(message.find(part), std::string::npos) << part << ": " << message;
    }
}

TEST(Tuning, ThatStandsThereTwiceIsRefused) {
    const RecordedTuning recorded[] = {{6, "P(2,3)", "", "source"}, {6, "P(2,3)", "", "source"}};
    EXPECT_THROW(tuning_of(kSix, Element::Complex64, recorded), std::logic_error);
}

TEST(Tuning, AllThatAreRecordedFitTheirTables) {
    for (const kernelgen::Target& target : kernelgen::kTargets) {
        for (Element element : {Element::Complex32, Element::Complex64}) {
            for (int length : dft_complex::lengths())
                EXPECT_NO_THROW(tuning_of(dft_complex::row_of(length, element), element, target))
                    << length << ", " << target.name;
        }
    }
}

TEST(Tuning, ForATargetThatHasNoneHasTheLanesOfTheReferenceAndNoOrder) {
    constexpr kernelgen::Target kAdded{
        .name = "added", .vector_registers = 32, .spelling = kernelgen::Spelling::VectorTypes};
    const auto& row = dft_complex::row_of(15, Element::Complex32);
    const Tuning tuning = tuning_of(row, Element::Complex32, kAdded);
    EXPECT_EQ(tuning.lanes, tuning_of(row, Element::Complex32, kernelgen::kReference).lanes);
    EXPECT_FALSE(tuning.lanes.empty());
    EXPECT_EQ(tuning.order, "");
    EXPECT_EQ(tuning.option, "");
}

TEST(LaneChoices, OutOfRangeAreRefused) {
    for (const char* text : {"s0w4a", "s1w0a", "s1w5a", "s1w1a", "s1w4c", "w4a", ""})
        EXPECT_THROW(LaneChoice::from_string(text), std::invalid_argument) << text;
}

TEST(LaneChoices, MoreThanThereAreBatchesAreRefused) {
    Network network;
    const Signal y = dft(network, kSix.rule, network.input(6));
    const std::vector<LaneChoice> three(3);
    EXPECT_THROW(lay_out_packed(network, y, Direction::Forward, LanePolicy::InterleavedEnds, three),
                 std::invalid_argument);
}

TEST(PackedLayout, TakesTheFormThatTheRuleAsksFor) {
    const auto sums_of = [](SmallForm form) {
        Network network;
        const Signal y = dft(network, small(5, form), network.input(5));
        const auto kernel =
            lay_out_packed(network, y, Direction::Forward, LanePolicy::InterleavedEnds, {});
        return kernel.graph.size();
    };
    EXPECT_NE(sums_of(SmallForm::HalfSumOfTwo), sums_of(SmallForm::Usual));
}

TEST(PackedLayout, RefusesABatchOfSeveralForms) {
    Network network;
    const Signal x = network.input(10);
    Signal y = network.transform(5, Signal(x.begin(), x.begin() + 5), SmallForm::Usual);
    const Signal z = network.transform(5, Signal(x.begin() + 5, x.end()), SmallForm::HalfSumOfTwo);
    y.insert(y.end(), z.begin(), z.end());
    EXPECT_THROW(lay_out_packed(network, y, Direction::Forward, LanePolicy::InterleavedEnds, {}),
                 std::logic_error);
}

}  // namespace
