#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "transform_library.hpp"

namespace bench {

constexpr int kHighestOrder = 13;

/** What was measured for one order of one type. Of each party the fastest batch counts. */
struct WhtComparison {
    std::string type;  ///< 32f or 64f
    int order = 0;
    double ours = std::numeric_limits<double>::infinity();      ///< TSC cycles of a call
    double textbook = std::numeric_limits<double>::infinity();  ///< of the loop, likewise
    /** The specialised library's ratio to the textbook loop, as it was measured elsewhere. */
    double specialised_ratio = std::numeric_limits<double>::quiet_NaN();

    /** Above 1 where ours is faster. */
    double Ratio() const { return textbook / ours; }
    /** Core cycles that no code can go below: two sums, two loads and one store a cycle. */
    double Bound() const;
};

/** All orders of both types, side by side in one run. Throws std::runtime_error for wrong results
 * and where a file can't be read. */
std::vector<WhtComparison> CompareWht(const TransformLibrary& library,
                                      const std::string& peer_figures, bool quick);

}  // namespace bench
