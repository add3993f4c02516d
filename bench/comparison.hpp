#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

enum class Direction { kForward, kInverse };

const char* ShortName(Direction direction);  ///< fwd, inv, as in the names of benchmarks

/** Who is timed side by side; kOther is a second build of our library, where one was given. */
enum Party : size_t { kOurs, kPeer, kOther, kParties };

/**
 * What was measured for one length and direction, over all rounds. In a round every party runs
 * one batch of calls, so that a change of clock rate or a busy neighbour hits all alike. Of each
 * party the fastest batch counts, since disturbances only ever add time.
 */
struct Comparison {
    int length = 0;
    Direction direction = Direction::kForward;
    bool has_other = false;

    int rounds = 0;
    std::array<double, kParties> cycles = {1e300, 1e300, 1e300};  ///< of one call in the TSC
    std::vector<double> round_ratios;                             ///< peer over ours

    void AddRound(const std::array<double, kParties>& round_cycles);

    /** Above 1 where ours is faster, as for the other ratios. */
    double Ratio() const { return cycles[kPeer] / cycles[kOurs]; }
    double OtherRatio() const { return cycles[kOther] / cycles[kOurs]; }
    /** Less sharp than the ratio of minima, but not decided by one lucky batch. */
    double MedianRatio() const;

    bool IsPrimeFrom17() const;
};

}  // namespace bench
