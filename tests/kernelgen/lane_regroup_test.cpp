#include "kernelgen/graph/lane_regroup.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>

#include "kernelgen/emission/emission.hpp"
#include "kernelgen/graph/counts.hpp"
#include "kernelgen/proof/bit_interpreter.hpp"
#include "targets/targets.hpp"

namespace {

using kernelgen::Graph;
using kernelgen::LaneRegroup;
using kernelgen::Origin;
using kernelgen::Ref;
using kernelgen::Type;
using kernelgen::Wanted;

/** Source vectors, wanted vectors, and what became of them. */
class Regrouping {
  public:
    explicit Regrouping(int vectors) {
        for (int v = 0; v < vectors; ++v) sources_.push_back(g_.load(Type::Binary32x4, 4 * v));
    }

    Origin lane(int vector, int lane) const {
        return Origin::of(sources_[static_cast<std::size_t>(vector)].id, lane);
    }
    void want(const Wanted& wanted) { wanted_.push_back(wanted); }

    void run(bool announce = true) {
        LaneRegroup regroup(g_);
        if (announce) {
            for (const Wanted& wanted : wanted_) regroup.announce(wanted);
        }
        for (std::size_t i = 0; i < wanted_.size(); ++i)
            g_.store(regroup.make(wanted_[i]), static_cast<int>(4 * i));
    }

    int shuffles() const { return kernelgen::count(g_, true).shuffles; }

    /** Lanes that hold another element than they should, as text; empty where all are right. */
    std::string wrong_lanes() const {
        std::vector<double> elements;
        for (std::size_t i = 0; i < 4 * sources_.size(); ++i)
            elements.push_back(static_cast<double>(i + 1));
        const auto held =
            kernelgen::interpret(g_, elements, 1, static_cast<int>(4 * wanted_.size()));
        std::ostringstream text;
        for (std::size_t i = 0; i < held.size(); ++i) {
            const Origin& origin = wanted_[i / 4][i % 4];
            if (origin.kind == Origin::Kind::Any) continue;
            const double right =
                origin.kind == Origin::Kind::Zero
                    ? 0.0
                    : elements[static_cast<std::size_t>(g_.node(origin.node).offset + origin.lane)];
            if (held[i] != right || std::signbit(held[i]))
                text << "vector " << i / 4 << " lane " << i % 4 << " holds " << held[i] << ", not "
                     << right << "; ";
        }
        return text.str();
    }

    const Graph& graph() const { return g_; }

  private:
    Graph g_;
    std::vector<Ref> sources_;
    std::vector<Wanted> wanted_;
};

TEST(LaneRegroup, AFourByFourTransposeTakesEightShuffles) {
    Regrouping r(4);
    for (int lane = 0; lane < 4; ++lane)
        r.want({r.lane(0, lane), r.lane(1, lane), r.lane(2, lane), r.lane(3, lane)});
    r.run();
    EXPECT_EQ(r.wrong_lanes(), "");
    EXPECT_EQ(r.shuffles(), 8);
}

// Two lanes that are no neighbours: only what was announced tells that they belong together.
TEST(LaneRegroup, TwoDistantColumnsOfFourVectorsTakeFourShuffles) {
    Regrouping r(4);
    for (int lane : {0, 2})
        r.want({r.lane(0, lane), r.lane(1, lane), r.lane(2, lane), r.lane(3, lane)});
    r.run();
    EXPECT_EQ(r.wrong_lanes(), "");
    EXPECT_EQ(r.shuffles(), 4);
}

TEST(LaneRegroup, AVectorThatStandsReadyIsTaken) {
    Regrouping r(2);
    r.want({r.lane(1, 0), r.lane(1, 1), r.lane(1, 2), r.lane(1, 3)});
    r.want({r.lane(0, 0), Origin{}, r.lane(0, 2), Origin{}});
    r.run();
    EXPECT_EQ(r.wrong_lanes(), "");
    EXPECT_EQ(r.shuffles(), 0);
}

TEST(LaneRegroup, AVectorWantedTwiceIsMadeOnce) {
    Regrouping r(2);
    const Wanted wanted = {r.lane(0, 3), r.lane(0, 0), r.lane(1, 1), r.lane(1, 1)};
    r.want(wanted);
    r.want(wanted);
    r.run();
    EXPECT_EQ(r.wrong_lanes(), "");
    EXPECT_EQ(r.shuffles(), 1);
}

TEST(LaneRegroup, WhatOneInstructionCanDoTakesOne) {
    const int patterns[][4] = {{4, 1, 2, 3}, {4, 5, 2, 3}, {0, 4, 1, 5}, {2, 6, 3, 7},
                               {0, 1, 4, 5}, {2, 3, 6, 7}, {3, 0, 6, 6}, {1, 0, 3, 2}};
    for (const auto& pattern : patterns) {
        Regrouping r(2);
        Wanted wanted;
        for (std::size_t i = 0; i < 4; ++i) wanted[i] = r.lane(pattern[i] / 4, pattern[i] % 4);
        r.want(wanted);
        r.run();
        const std::string text = testing::PrintToString(pattern);
        EXPECT_EQ(r.wrong_lanes(), "") << text;
        EXPECT_EQ(r.shuffles(), 1) << text;
    }
}

TEST(LaneRegroup, ZeroLanesHoldPositiveZero) {
    Regrouping r(2);
    r.want({r.lane(0, 1), Origin::zero(), r.lane(1, 2), Origin::zero()});
    r.want({Origin::zero(), Origin::zero(), Origin::zero(), Origin::zero()});
    r.want({Origin::zero(), Origin{}, Origin{}, r.lane(1, 3)});
    r.run();
    EXPECT_EQ(r.wrong_lanes(), "");
}

TEST(LaneRegroup, VectorsThatWereNotAnnouncedAreRightAllTheSame) {
    Regrouping r(4);
    for (int lane = 0; lane < 4; ++lane)
        r.want({r.lane(0, lane), r.lane(1, lane), r.lane(2, lane), r.lane(3, lane)});
    r.run(false);
    EXPECT_EQ(r.wrong_lanes(), "");
}

/** Some lanes of random vectors, zeros and lanes that may hold anything; never only the last. */
Regrouping random_regrouping(std::uint32_t seed) {
    std::mt19937 random(seed);
    const auto below = [&](int limit) {
        return static_cast<int>(random() % static_cast<std::uint32_t>(limit));
    };
    const int vectors = 1 + below(6);
    Regrouping r(vectors);
    for (int count = 1 + below(6); count > 0; --count) {
        Wanted wanted;
        for (Origin& origin : wanted) {
            const int kind = below(8);
            if (kind > 1) origin = r.lane(below(vectors), below(4));
            if (kind == 1) origin = Origin::zero();
        }
        const Origin any;
        if (wanted == Wanted{any, any, any, any}) wanted[2] = r.lane(0, below(4));
        r.want(wanted);
    }
    return r;
}

TEST(LaneRegroup, EveryLaneOfRandomVectorsHoldsWhatWasWanted) {
    for (std::uint32_t seed = 1; seed <= 5000; ++seed) {
        Regrouping r = random_regrouping(seed);
        r.run();
        ASSERT_EQ(r.wrong_lanes(), "") << "seed " << seed;
    }
}

TEST(LaneRegroup, EveryShuffleOfRandomVectorsIsOneInstruction) {
    for (std::uint32_t seed = 1; seed <= 2000; ++seed) {
        Regrouping r = random_regrouping(seed);
        r.run();
        ASSERT_NO_THROW(
            kernelgen::emit(r.graph(), kernelgen::source_order(r.graph()), kernelgen::kIa32))
            << "seed " << seed;
    }
}

TEST(LaneRegroup, AnyFourLanesTakeAtMostThreeShuffles) {
    std::mt19937 random(7);
    for (int i = 0; i < 2000; ++i) {
        Regrouping r(4);
        Wanted wanted;
        for (Origin& origin : wanted)
            origin = r.lane(static_cast<int>(random() % 4), static_cast<int>(random() % 4));
        r.want(wanted);
        r.run();
        ASSERT_LE(r.shuffles(), 3) << "case " << i;
    }
}

}  // namespace
