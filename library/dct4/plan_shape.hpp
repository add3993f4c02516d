#pragma once

/**
 * @file
 * @brief What plans of known lengths are made of, for the stages that have code of its own for
 * them.
 */

#include <utility>

#include "plan/factor_choice.hpp"

namespace dct4 {

/** k of 2^k */
constexpr int logarithm(int power) {
    return power == 1 ? 0 : 1 + logarithm(power / 2);
}

/** An analysis of `points` that is split: `factor` analyses, and DFTs of `factor` points. */
struct SplitShape {
    int points;
    int factor;

    constexpr int part_points() const { return points / factor; }
    constexpr int part_rule() const { return logarithm(part_points()); }
    constexpr int dft_rule() const { return logarithm(factor); }
};

/** The plan of N = 2^k points, from kShortestTree on. */
struct PlanShape {
    int length;
    int factor;  ///< a

    /** Elements of a row of the scratch vector: real parts, then imaginary parts. */
    constexpr int row() const { return 2 * factor; }
    constexpr int analysis_points() const { return length / factor; }
    constexpr int analysis_rule() const { return logarithm(analysis_points()); }
    constexpr int synthesis_rule() const { return logarithm(row()); }
    /** Between the rows that stage B writes. */
    constexpr int destination_stride() const { return length / factor; }
    /** The first split, of lengths from kShortestSplit on. */
    constexpr SplitShape split() const {
        return {analysis_points(), plan::factor_of(analysis_points() / 2)};
    }
};

constexpr PlanShape plan_shape(int length) {
    return {length, plan::factor_of(length / 2)};
}

constexpr int kShortestTree = 64;

/** Analyses of more points are split. */
constexpr int kLongestAnalysis = 64;

constexpr int shortest_split() {
    int length = kShortestTree;
    while (plan_shape(length).analysis_points() <= kLongestAnalysis) length *= 2;
    return length;
}
constexpr int kShortestSplit = shortest_split();

/** `attempt` with each power of two from kFirst to kLast as its argument, until one gives true. */
template <int kFirst, int kLast, class Attempt>
[[gnu::always_inline]] inline bool any_length(const Attempt& attempt) {
    return [&]<int... kDoublings>(std::integer_sequence<int, kDoublings...>) {
        return (attempt.template operator()<(kFirst << kDoublings)>() || ...);
    }
    (std::make_integer_sequence<int, logarithm(kLast / kFirst) + 1>());
}

}  // namespace dct4
