#pragma once

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "comparison.hpp"

namespace bench {

/** Everything that a run has found out. */
struct Report {
    std::vector<std::pair<std::string, std::string>> context;  ///< machine, compilers, peers
    std::vector<Comparison> comparisons;                       ///< the measured ones
    double cycles_per_nanosecond = 1;
    double core_cycles_per_tsc_cycle = 1;

    double Nanoseconds(const Comparison& comparison, Party party) const;
};

/** Context, a line for each kernel, geometric means and worst lengths. */
void PrintTable(std::ostream& out, const Report& report);

void WriteJson(std::ostream& out, const Report& report);

/** Plain columns for gnuplot, named in the first line. */
void WriteColumns(std::ostream& out, const Report& report);

}  // namespace bench
