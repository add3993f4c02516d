/** @file @brief Every rule of every node by itself, those that no plan reaches among them. */

#include <algorithm>
#include <cmath>
#include <numbers>

#include "dct4/batch.hpp"
#include "support/interpreted_plan.hpp"

namespace qsvgen_test {
namespace {

constexpr Real kUnwritten = Real(-7.25);

/** Random elements on a vector boundary, as many as two arrays of any of these nodes take. */
class WorkSpace {
  public:
    WorkSpace(std::size_t size, std::uint32_t seed) : array_(size, 0) {
        array_.set(random_signal<E>(size, seed));
    }
    explicit WorkSpace(std::size_t size) : array_(size, 0) {
        array_.set(constant_signal<E>(size, kUnwritten));
    }
    Real* data() { return array_.data(); }
    Memory memory() const {
        const Signal values = array_.get();
        return {values.begin(), values.end()};
    }
    Signal signal() const { return array_.get(); }
    bool margins_untouched() const { return array_.margins_untouched(); }

  private:
    Array array_;
};

Signal as_signal(const Memory& y) {
    Signal signal;
    for (double value : y) signal.push_back(static_cast<Real>(value));
    return signal;
}

TEST(Dct4Nodes, AnalysesOfEveryRuleAndRowGiveThoseOfTheFormula) {
    for (int rule = 1; rule <= 6; ++rule) {
        for (int groups = 1; groups <= kBatch + 1; ++groups) {
            const int points = 1 << rule;
            const int m = groups * kLanes;
            const int length = points * m;
            env5 node{};
            node.rule = rule;
            node.subLength = points;
            node.length = node.length2 = length;
            node.lastIndex = 2 * length - 1;
            node.twoFactor = 2 * m;
            node.inner = groups;
            node.factor = m;
            WorkSpace source(word(length), 1);
            WorkSpace destination(word(length));
            EXPECT_EQ(qsvStatusOk, DCT4(env5_compute)(&node, source.data(), destination.data()));
            Memory expected(word(length), double{kUnwritten});
            for (int c = 0; c < m; c += kLanes)
                interpret_analysis({points, 2 * m, c, 2 * length - 1 - 2 * c, c, m},
                                   source.memory(), expected);
            EXPECT_TRUE(same_bits<E>(as_signal(expected), destination.signal()))
                << "rule " << rule << ", " << groups << " groups";
            EXPECT_TRUE(destination.margins_untouched()) << "rule " << rule;
        }
    }
}

TEST(Dct4Nodes, AnalysesOfTwoPointsAreTheFirstAndZeroMinusTheLast) {
    env5 node{};
    node.rule = 1;
    node.lastIndex = 2 * 2 * kLanes - 1;
    node.twoFactor = 2 * kLanes;
    node.inner = 1;
    WorkSpace source(word(2 * kLanes), 3);
    WorkSpace destination(word(2 * kLanes));
    source.data()[2 * kLanes - 1] = Real(0);
    EXPECT_EQ(qsvStatusOk, DCT4(env5_compute)(&node, source.data(), destination.data()));
    const Signal x = source.signal();
    const Signal t = destination.signal();
    for (int c = 0; c < kLanes; ++c) {
        EXPECT_EQ(x[word(c)], t[word(c)]);
        EXPECT_TRUE(same_number_bits(Real(0) - x[word(2 * kLanes - 1 - c)], t[word(kLanes + c)]))
            << "column " << c;
    }
}

TEST(Dct4Nodes, SynthesesOfEveryRuleGiveThoseOfTheFormula) {
    for (int rule = 1; rule <= 6; ++rule) {
        for (int groups = 1; groups <= kBatch + 1; ++groups) {
            const int points = 1 << rule;
            const int n = groups * kLanes;
            const int length = points * n;
            WorkSpace table(word(length), 7);
            env4 node{};
            node.rule = rule;
            node.table = table.data();
            node.factor = points / 2;
            node.length = node.length2 = length;
            node.twoFactor = points;
            node.span = points * kLanes;
            node.blocks = groups;
            node.lastIndex = 2 * length - 1;
            node.subLength = 2 * n;
            WorkSpace source(word(length), 1);
            WorkSpace destination(word(length));
            EXPECT_EQ(qsvStatusOk, DCT4(env4_compute)(&node, source.data(), destination.data()));
            Memory expected(word(length), double{kUnwritten});
            interpret_syntheses({rule, groups, 2 * n, 2 * length - 1}, table.data(),
                                source.memory(), expected);
            EXPECT_TRUE(same_bits<E>(as_signal(expected), destination.signal()))
                << "rule " << rule << ", " << groups << " groups";
            EXPECT_TRUE(destination.margins_untouched()) << "rule " << rule;
        }
    }
}

// The kernels for rows of a plan's distance hold for rows without gaps alone.
TEST(Dct4Nodes, SynthesesOfRowsWithGapsGiveThoseOfRowsWithout) {
    for (int rule = 2; rule <= 6; ++rule) {  // rows of a whole vector or more
        for (int groups : {2, 4, 8}) {
            const int points = 1 << rule;
            const int n = groups * kLanes;
            const int length = points * n;
            WorkSpace table(word(length), 7);
            WorkSpace plain(word(length), 1);
            WorkSpace gaps(word(2 * length), 2);
            for (int row = 0; row < n; ++row) {
                for (int i = 0; i < points; ++i)
                    gaps.data()[2 * points * row + i] = plain.data()[points * row + i];
            }
            env4 node{};
            node.rule = rule;
            node.table = table.data();
            node.twoFactor = points;
            node.span = points * kLanes;
            node.blocks = groups;
            node.lastIndex = 2 * length - 1;
            node.subLength = 2 * n;
            WorkSpace expected(word(length));
            EXPECT_EQ(qsvStatusOk, DCT4(env4_compute)(&node, plain.data(), expected.data()));
            node.twoFactor = 2 * points;
            node.span = 2 * points * kLanes;
            WorkSpace destination(word(length));
            EXPECT_EQ(qsvStatusOk, DCT4(env4_compute)(&node, gaps.data(), destination.data()));
            EXPECT_TRUE(same_bits<E>(expected.signal(), destination.signal()))
                << "rule " << rule << ", " << groups << " groups";
        }
    }
}

env9 part_node(int rule, int parts, int stride, int spacing) {
    env9 node{};
    node.rule = rule;
    node.stride = parts * stride;
    node.parentStride = stride;
    node.factor = parts;
    node.step = parts * spacing;
    node.parentStep = spacing;
    return node;
}

TEST(Dct4Nodes, PartsOfAnAnalysisOfEveryRuleGiveThoseOfTheFormula) {
    for (int rule = 1; rule <= 6; ++rule) {
        for (int parts : {2, 8}) {
            const int points = 1 << rule;
            const int m = 2 * kLanes;
            const int length = points * parts * m;
            const env9 node = part_node(rule, parts, 2 * m, m);
            WorkSpace source(word(length), 1);
            WorkSpace scratch(word(length));
            Memory expected(word(length), double{kUnwritten});
            for (int c = 0; c < m; c += kLanes) {
                EXPECT_EQ(qsvStatusOk, DCT4(env9_compute)(&node, source.data(), scratch.data(),
                                                          {c, 2 * length - 1 - 2 * c, c, 1}));
                for (int r = 0; r < parts; ++r)
                    interpret_analysis(
                        {points, parts * 2 * m, c + r * 2 * m,
                         2 * length - 1 - 2 * c - 2 * r * 2 * m, c + r * m, parts * m},
                        source.memory(), expected);
            }
            EXPECT_TRUE(same_bits<E>(as_signal(expected), scratch.signal()))
                << "rule " << rule << ", " << parts << " parts";
        }
    }
}

/** What the formula gives for `groups` groups of columns, the rows of which are `stride` elements
 * apart in the source and `spacing` in the scratch vector. */
Memory expected_parts(int rule, int parts, int groups, int stride, int spacing, int length,
                      const WorkSpace& source, std::size_t scratch_length) {
    Memory expected(scratch_length, double{kUnwritten});
    for (int c = 0; c < groups * kLanes; c += kLanes) {
        for (int r = 0; r < parts; ++r)
            interpret_analysis(
                {1 << rule, parts * stride, c + r * stride, 2 * length - 1 - 2 * c - 2 * r * stride,
                 c + r * spacing, parts * spacing},
                source.memory(), expected);
    }
    return expected;
}

void expect_parts_of_the_formula(int rule, int parts, int groups, int stride, int spacing) {
    const int length = (1 << rule) * parts * stride / 2;
    const std::size_t scratch_length = word((1 << rule) * parts * spacing);
    const env9 node = part_node(rule, parts, stride, spacing);
    WorkSpace source(word(length), 1);
    WorkSpace scratch(scratch_length);
    EXPECT_EQ(qsvStatusOk, DCT4(env9_compute)(&node, source.data(), scratch.data(),
                                              {0, 2 * length - 1, 0, groups}));
    EXPECT_TRUE(same_bits<E>(as_signal(expected_parts(rule, parts, groups, stride, spacing, length,
                                                      source, scratch_length)),
                             scratch.signal()))
        << "rule " << rule << ", " << groups << " groups, rows " << stride << " apart, in scratch "
        << spacing;
}

TEST(Dct4Nodes, BatchesOfPartsOfEveryRuleAndSizeGiveThoseOfTheFormula) {
    for (int rule = 1; rule <= 6; ++rule) {
        for (int groups = 1; groups <= kBatch; ++groups)
            expect_parts_of_the_formula(rule, 2, groups, 2 * groups * kLanes, groups * kLanes);
    }
}

// Kernels for rows of one distance must not be taken for rows that are stored further apart.
TEST(Dct4Nodes, PartsWithTheRowsOfAPlanAndAnotherSpacingGiveThoseOfTheFormula) {
    for (int rule : {3, 4, 5}) {
        for (int stride : {512 / 8, 1024 / 8}) {
            for (int spacing : {stride / 2, stride})
                expect_parts_of_the_formula(rule, 8, kBatch / 2, stride, spacing);
        }
    }
}

/** DFTs of three blocks whose rows are `spacing` elements apart. */
class ThreeBlocks {
  public:
    ThreeBlocks(int rule, int spacing)
        : rule_(rule),
          spacing_(spacing),
          table_(word(kBlocks * ((2 << rule) - 2) * kLanes), 5),
          scratch_(length(), 1) {
        const int s = 1 << rule;
        node_.rule = rule;
        node_.table = table_.data();
        node_.factor = s;
        node_.step = node_.step2 = spacing;
        node_.span = 2 * s * spacing;
        node_.blocks = kBlocks;
        node_.halfLength = s * kBlocks;
        node_.lastIndex = 2 * s * kBlocks - 1;
        node_.quotient = 2 * kBlocks;
    }
    std::size_t length() const { return word((2 << rule_) * kBlocks * spacing_); }
    const env8& node() const { return node_; }
    Real* scratch() { return scratch_.data(); }
    Signal expected(int groups) {
        Memory memory(length(), double{kUnwritten});
        for (int c = 0; c < groups * kLanes; c += kLanes)
            interpret_dfts({rule_, kBlocks, spacing_, c}, table_.data(), scratch_.memory(), memory);
        return as_signal(memory);
    }

  private:
    static constexpr int kBlocks = 3;
    int rule_;
    int spacing_;
    WorkSpace table_;
    WorkSpace scratch_;
    env8 node_{};
};

TEST(Dct4Nodes, DftsOfEveryRuleAndRowGiveThoseOfTheFormula) {
    for (int rule = 1; rule <= 5; ++rule) {
        for (int spacing : {kLanes, 2 * kLanes, 32, 64}) {
            ThreeBlocks dfts(rule, spacing);
            WorkSpace destination(dfts.length());
            for (int c = 0; c < spacing; c += kLanes) {
                EXPECT_EQ(qsvStatusOk, DCT4(env8_compute)(&dfts.node(), dfts.scratch(),
                                                          destination.data(), {0, 0, c, 1}));
            }
            EXPECT_TRUE(same_bits<E>(dfts.expected(spacing / kLanes), destination.signal()))
                << "rule " << rule << ", rows of " << spacing;
        }
    }
}

TEST(Dct4Nodes, BatchesOfDftsOfEveryRuleRowAndSizeGiveThoseOfTheFormula) {
    for (int rule = 1; rule <= 5; ++rule) {
        for (int spacing : {32, 64}) {
            for (int groups = 1; groups <= std::min(kBatch, spacing / kLanes); ++groups) {
                ThreeBlocks dfts(rule, spacing);
                WorkSpace destination(dfts.length());
                EXPECT_EQ(qsvStatusOk, DCT4(env8_compute)(&dfts.node(), dfts.scratch(),
                                                          destination.data(), {0, 0, 0, groups}));
                EXPECT_TRUE(same_bits<E>(dfts.expected(groups), destination.signal()))
                    << "rule " << rule << ", rows of " << spacing << ", " << groups << " groups";
            }
        }
    }
}

TEST(Dct4Nodes, ADftOfTwoGivesTheSumAndTheConjugateOfTheDifference) {
    // One block: its two values are (U0, V0) and, turned by the table, (U1, V1).
    WorkSpace table(word(2 * kLanes));
    for (int lane = 0; lane < kLanes; ++lane) {
        table.data()[lane] = Real(0);
        table.data()[kLanes + lane] = Real(1);
    }
    env8 node{};
    node.rule = 1;
    node.table = table.data();
    node.step = kLanes;
    node.span = 4 * kLanes;
    node.blocks = 1;
    node.quotient = 2;
    WorkSpace scratch(word(4 * kLanes), 2);
    WorkSpace destination(word(4 * kLanes));
    EXPECT_EQ(qsvStatusOk,
              DCT4(env8_compute)(&node, scratch.data(), destination.data(), {0, 0, 0, 1}));
    const Signal u = scratch.signal();
    const Signal z = destination.signal();
    for (std::size_t lane = 0; lane < word(kLanes); ++lane) {
        const auto at = [&](const Signal& v, std::size_t row) { return v[row * kLanes + lane]; };
        // i (U1 + i V1) = -V1 + i U1
        EXPECT_EQ(at(u, 0) - at(u, 3), at(z, 0));
        EXPECT_EQ(at(u, 2) + at(u, 1), at(z, 1));
        EXPECT_EQ(at(u, 0) + at(u, 3), at(z, 2));
        EXPECT_EQ(-(at(u, 2) - at(u, 1)), at(z, 3));
    }
}

/** A split of 2n points into s, with all that it needs, one group of columns wide. */
TEST(Dct4Nodes, SplitsOfRulesThatNoPlanReachesAreAnalyses) {
    constexpr double kPi = std::numbers::pi;
    for (int dft_rule : {1, 2, 3}) {
        for (int part_rule : {1, 2, 3}) {
            const int s = 1 << dft_rule;
            const int blocks = (1 << part_rule) / 2;
            const int n = s * blocks;
            const int length = 2 * n * kLanes;
            // As wide as one group: rows of kLanes real and kLanes imaginary parts.
            const int row = 2 * kLanes;
            WorkSpace table(word(blocks * (2 * s - 2) * kLanes));
            Real* entry = table.data();
            for (int block = 0; block < blocks; ++block) {
                for (int r = 1; r < s; ++r) {
                    const double angle = r * kPi * (2 * block + 1) / (2 * n);
                    for (int lane = 0; lane < kLanes; ++lane) {
                        entry[lane] = static_cast<Real>(std::cos(angle));
                        entry[kLanes + lane] = static_cast<Real>(std::sin(angle));
                    }
                    entry += 2 * kLanes;
                }
            }
            env8 dfts{};
            dfts.rule = dft_rule;
            dfts.table = table.data();
            dfts.step = kLanes;
            dfts.span = 2 * s * kLanes;
            dfts.blocks = blocks;
            dfts.quotient = 2 * blocks;
            env9 parts = part_node(part_rule, s, row, kLanes);
            EnvList dft_list{&dfts, nullptr, nullptr};
            EnvList part_list{&parts, nullptr, nullptr};
            WorkSpace scratch(word(length));
            env7 split{};
            split.stage1 = &dft_list;
            split.stage2 = &part_list;
            split.scratch = scratch.data();
            split.valid = 1;
            WorkSpace source(word(length), 4);
            WorkSpace destination(word(length));
            EXPECT_EQ(qsvStatusOk, DCT4(env7_compute)(&split, source.data(), destination.data(),
                                                      {0, 2 * length - 1, 0, 1}));
            const Signal x = source.signal();
            const Signal z = destination.signal();
            for (int a = 0; a < n; ++a) {
                for (int c = 0; c < kLanes; ++c) {
                    double re = 0;
                    double im = 0;
                    for (int j = -n; j < n; ++j) {
                        const double g = x[word(j >= 0 ? row * j + c : -row * j - 1 - c)];
                        re += g * std::cos(kPi * (2 * a + 1) * j / (2 * n));
                        im += g * std::sin(kPi * (2 * a + 1) * j / (2 * n));
                    }
                    const double limit = 30 * n * E::kEpsilon;
                    EXPECT_NEAR(re, z[word(row * a + c)], limit) << "s " << s << ", " << a;
                    EXPECT_NEAR(im, z[word(row * a + kLanes + c)], limit) << "s " << s << ", " << a;
                }
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
