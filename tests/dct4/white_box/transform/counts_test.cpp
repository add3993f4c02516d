/** @file @brief What each body costs, and that its proof is one. */

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <stdexcept>

#include "kernelgen/proof/proof.hpp"
#include "tests/dct4/white_box/transform/support/expected_counts.hpp"
#include "transforms/dct4/dct4_body.hpp"
#include "transforms/dct4/recorded/tuning.hpp"

namespace {

using namespace dct4;
using kernelgen::Counts;
using kernelgen::Graph;

template <std::size_t size>
void expect_rows(Step step, const dct4_test::BodyCounts (&rows)[size]) {
    for (Element element : kElements) {
        for (const auto& row : rows) {
            const Kernel kernel = described_kernel({step, row.rule}, element);
            const Counts c = counts_of(kernel);
            EXPECT_EQ(row.sums_and_differences, c.sums + c.differences) << kernel.name();
            EXPECT_EQ(row.products, c.products) << kernel.name();
            EXPECT_EQ(0, c.flips + c.conversions) << kernel.name();
        }
    }
}

TEST(Dct4Counts, AnalysesCostWhatTheirSplitsSay) {
    expect_rows(Step::Analysis, dct4_test::kAnalyses);
}

TEST(Dct4Counts, SynthesesWithTheirRotationsCostWhatTheirSplitsSay) {
    expect_rows(Step::Synthesis, dct4_test::kSyntheses);
}

TEST(Dct4Counts, DftsCostWhatTheirProductsAndLevelsSay) {
    expect_rows(Step::Dft, dct4_test::kDfts);
}

TEST(Dct4Counts, ShortTransformsHaveAsManySumsAsDifferencesButForTheLifting) {
    for (Element element : kElements) {
        for (const auto& row : dct4_test::kInlines) {
            const Kernel kernel = described_kernel({Step::Inline, row.rule}, element);
            const Counts c = counts_of(kernel);
            EXPECT_EQ(row.sums, c.sums) << kernel.name();
            EXPECT_EQ(row.differences, c.differences) << kernel.name();
            EXPECT_EQ(row.products, c.products) << kernel.name();
            EXPECT_EQ(1 << row.rule, c.loads) << kernel.name();
            EXPECT_EQ(1 << row.rule, c.stores) << kernel.name();
        }
    }
}

TEST(Dct4Counts, OnlySynthesesMoveLanesAndAsOftenAsTransposesTake) {
    for (Element element : kElements) {
        for (BodyKey key : all_bodies()) {
            const Kernel kernel = described_kernel(key, element);
            const int vectors = key.step == Step::Synthesis ? kernel.points() : 0;
            // Two shuffles a vector of four lanes, one a vector of two; or half rows joined.
            const bool half_rows = element == Element::Real32 && kernel.points() == 2;
            const int shuffles = element == Element::Real64 || half_rows ? 1 : 2;
            EXPECT_EQ(vectors * shuffles, counts_of(kernel).shuffles) << kernel.name();
        }
    }
}

TEST(Dct4Counts, EveryVectorIsLoadedOnceAndStoredOnce) {
    for (Element element : kElements) {
        for (BodyKey key : all_bodies()) {
            if (key.step == Step::Inline) continue;
            const Kernel kernel = described_kernel(key, element);
            const int points = kernel.points();
            const Counts c = counts_of(kernel);
            const int vectors = key.step == Step::Dft ? 2 * points : points;
            const int table = key.step == Step::Analysis    ? 0
                              : key.step == Step::Synthesis ? points
                                                            : 2 * (points - 1);
            EXPECT_EQ(vectors + table, c.loads) << kernel.name();
            EXPECT_EQ(vectors, c.stores) << kernel.name();
        }
    }
}

TEST(Dct4Table, ColumnsOfThirtyTwoRunInDigitExchangedOrder) {
    const std::vector<int> first = {0, 31, 16, 15, 4, 27, 20, 11, 8, 23, 24, 7, 12, 19, 28, 3,
                                    1, 30, 17, 14, 5, 26, 21, 10, 9, 22, 25, 6, 13, 18, 29, 2};
    EXPECT_EQ(first, table_columns(32));
    EXPECT_EQ((std::vector<int>{0, 7, 1, 6, 2, 5, 3, 4}), table_columns(8));
    EXPECT_EQ((std::vector<int>{0}), table_columns(1));
}

/** The graph with one product taken by another constant, which no proof may let pass. */
Graph damaged(const Graph& graph, int victim) {
    Graph copy;
    if (graph.arrays_are_apart()) copy.keep_arrays_apart();
    std::vector<kernelgen::Ref> made(graph.size());
    const auto operand = [&](kernelgen::NodeId id) { return made[static_cast<std::size_t>(id)]; };
    int differences = 0;
    for (kernelgen::NodeId id : graph.live()) {
        const kernelgen::Node& n = graph.node(id);
        kernelgen::Ref& ref = made[static_cast<std::size_t>(id)];
        switch (n.op) {
            case kernelgen::Op::Load:
                ref = copy.load(n.type, n.offset);
                break;
            case kernelgen::Op::Zero:
                ref = copy.zero(n.type);
                break;
            case kernelgen::Op::Constant:
                ref =
                    copy.constant(n.type, graph.constants()[static_cast<std::size_t>(n.constant)]);
                break;
            case kernelgen::Op::Add:
                ref = copy.add(operand(n.a), operand(n.b));
                break;
            case kernelgen::Op::Sub:
                ref = differences++ == victim ? copy.sub(operand(n.b), operand(n.a))
                                              : copy.sub(operand(n.a), operand(n.b));
                break;
            case kernelgen::Op::Mul:
                ref = copy.mul(operand(n.a), operand(n.b));
                break;
            case kernelgen::Op::Shuffle:
                ref = copy.shuffle(operand(n.a), operand(n.b), n.selection);
                break;
            case kernelgen::Op::Store:
                copy.store(operand(n.a), n.offset);
                break;
            default:
                throw std::logic_error("no body has such a node");
        }
    }
    return copy;
}

TEST(Dct4Proof, PassesEveryBody) {
    for (Element element : kElements) {
        for (BodyKey key : all_bodies()) EXPECT_NO_THROW(prove(described_kernel(key, element)));
    }
}

TEST(Dct4Proof, CatchesEveryDifferenceTakenTheWrongWay) {
    for (BodyKey key : all_bodies()) {
        const Kernel kernel = described_kernel(key, Element::Real64);
        const int differences = counts_of(kernel).differences;
        // Some thirty of the longest ones, all of the others.
        for (int victim = 0; victim < differences; victim += 1 + differences / 30) {
            Kernel wrong = kernel;
            wrong.graph = damaged(kernel.graph, victim);
            EXPECT_THROW(prove(wrong), std::runtime_error)
                << kernel.name() << ", difference " << victim;
        }
    }
}

TEST(Dct4Proof, HoldsWithTheTransformsOwnOperations) {
    for (BodyKey key : all_bodies()) {
        const Kernel kernel = described_kernel(key, Element::Real32);
        Kernel copy = kernel;
        copy.graph = damaged(kernel.graph, -1);
        EXPECT_NO_THROW(prove(copy)) << kernel.name();
        EXPECT_EQ(counts_of(kernel).arithmetic(), counts_of(copy).arithmetic()) << kernel.name();
    }
}

// A row of no body would be passed over, and of two rows of one body the second.
TEST(Dct4Bodies, HaveTheRowsOfTheirTuningOnce) {
    for (const kernelgen::Target& target : kernelgen::kTargets) {
        for (Element element : kElements) {
            std::multiset<std::string> stems;
            for (BodyKey key : all_bodies()) stems.insert(described_kernel(key, element).stem());
            for (const kernelgen::SettledBody& row : settled_bodies(element, target)) {
                const auto found = stems.find(row.name);
                EXPECT_NE(stems.end(), found)
                    << row.name << ", " << suffix(element) << ", " << target.name;
                if (found != stems.end()) stems.erase(found);
                EXPECT_EQ("", row.order.option)
                    << row.name << ": options are those of whole sources";
            }
        }
    }
}

// Source and destination of a short transform may be one array.
TEST(Dct4Bodies, ShortTransformsStoreNoElementBeforeItIsLoaded) {
    for (Element element : kElements) {
        for (int rule = 1; rule <= 5; ++rule) {
            const Kernel kernel = described_kernel({Step::Inline, rule}, element);
            std::vector<int> stored;
            for (kernelgen::NodeId id : schedule_of(kernel).order) {
                const kernelgen::Node& node = kernel.graph.node(id);
                if (node.op == kernelgen::Op::Store) stored.push_back(node.offset);
                if (node.op != kernelgen::Op::Load) continue;
                EXPECT_EQ(0, std::count(stored.begin(), stored.end(), node.offset))
                    << kernel.name() << ", element " << node.offset;
            }
        }
    }
}

}  // namespace
