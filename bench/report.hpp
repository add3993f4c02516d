#pragma once

#include <filesystem>
#include <iosfwd>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "comparison.hpp"

namespace bench {

/** Everything that a run has found out. */
struct Report {
    std::vector<std::pair<std::string, std::string>> context;  ///< machine, compilers, peers
    std::vector<Comparison> comparisons;                       ///< the measured ones
    std::map<int, double> best_peer_shares;                    ///< by length, see BestPeerShares
    double cycles_per_nanosecond = 1;

    double Nanoseconds(const Comparison& comparison, Party party) const;
    /** Time of the best known peer over ours; NaN where no figure of that peer is known. */
    double BestRatio(const Comparison& comparison) const;
};

/** Context, a line for each length and direction, geometric means and worst lengths. */
void PrintTable(std::ostream& out, const Report& report);

void WriteJson(std::ostream& out, const Report& report);

/** Plain columns for gnuplot, named in the first line. */
void WriteColumns(std::ostream& out, const Report& report);

}  // namespace bench
