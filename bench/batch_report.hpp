#pragma once

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "batch_comparison.hpp"

namespace bench {

struct BatchReport {
    std::vector<std::pair<std::string, std::string>> context;
    std::vector<BatchComparison> comparisons;
    double cycles_per_nanosecond = 0;  ///< of the TSC
    double core_cycles_per_tsc_cycle = 0;
    /** The same between calls of the library, which may slow the core's clock. */
    double core_cycles_per_tsc_cycle_between_calls = 0;
};

/** What is known and where: geometric mean and worst of a ratio. */
struct BatchSpread {
    double mean = 0;
    double worst = 0;
    int worst_size = 0;
    int sizes = 0;
};

/** Comparisons of the same family, layout and count: a line of the table and of the plots. */
struct BatchGroup {
    BatchCase of;  ///< of any size
    /** A peer's time over ours: FFTW, single calls, best with AVX2, best of all, other build. */
    BatchSpread fftw, single_calls, best_avx2, best_any, other;
};

std::vector<BatchGroup> GroupsOf(const BatchReport& report);

void PrintContext(std::ostream& out, const BatchReport& report);
void PrintGroups(std::ostream& out, const BatchReport& report);
/** A line for each comparison. */
void PrintComparisons(std::ostream& out, const BatchReport& report);
void WriteJson(std::ostream& out, const BatchReport& report);
/** For gnuplot; the first line names the columns. */
void WriteColumns(std::ostream& out, const BatchReport& report);

}  // namespace bench
