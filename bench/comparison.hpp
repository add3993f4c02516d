#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace bench {

/**
 * Who is timed side by side: our library, FFTW, KissFFT where it has the transform, and a second
 * build of our library where one was given.
 */
enum Party : size_t { kOurs, kPeer, kKiss, kOther, kParties };

/**
 * What was measured for one family and length, over all rounds. In a round every party runs
 * one batch of calls, so that a change of clock rate or a busy neighbour hits all alike. Of each
 * party the fastest batch counts, since disturbances only ever add time.
 */
struct Comparison {
    std::string family;  ///< as in the names of benchmarks: dft_real/fwd
    int length = 0;
    bool has_kiss = false;
    bool has_other = false;
    /** The best known peer's time as a share of this peer's; NaN where no figure is known. */
    double best_peer_share = std::numeric_limits<double>::quiet_NaN();

    int rounds = 0;
    std::array<double, kParties> cycles = {1e300, 1e300, 1e300, 1e300};  ///< of a call in the TSC
    std::vector<double> round_ratios;                                    ///< FFTW over ours

    bool Has(Party party) const {
        return party == kKiss ? has_kiss : party == kOther ? has_other : true;
    }

    void AddRound(const std::array<double, kParties>& round_cycles);

    /** Above 1 where ours is faster, as for the other ratios. */
    double Ratio() const { return RatioOf(kPeer); }
    /** NaN where KissFFT has no such transform. */
    double KissRatio() const { return RatioOf(kKiss); }
    /** Time of the best known peer over ours. */
    double BestRatio() const { return Ratio() * best_peer_share; }
    /** NaN where no second build was given. */
    double OtherRatio() const { return RatioOf(kOther); }
    /** Less sharp than the ratio of minima, but not decided by one lucky batch. */
    double MedianRatio() const;

    bool IsPrimeFrom17() const;

  private:
    double RatioOf(Party party) const {
        return Has(party) ? cycles[party] / cycles[kOurs]
                          : std::numeric_limits<double>::quiet_NaN();
    }
};

}  // namespace bench
