#pragma once

#include <limits>
#include <string>
#include <vector>

#include "transform_library.hpp"

namespace bench {

/** What was measured for one length of one type: TSC cycles of a call, the fastest batch of each.
 */
struct Dct4Comparison {
    std::string type;  ///< 32f or 64f
    int length = 0;
    double ours = std::numeric_limits<double>::infinity();
    double redft11 = std::numeric_limits<double>::infinity();   ///< FFTW's own DCT-IV
    double composed = std::numeric_limits<double>::infinity();  ///< FFTW's DFT between two loops

    // Above 1 where ours is faster.
    double Redft11Ratio() const { return redft11 / ours; }
    double ComposedRatio() const { return composed / ours; }
};

/**
 * Powers of two from 2 to `longest` of both types, side by side in one run. Throws
 * std::runtime_error where the parties' results differ by more than rounding.
 */
std::vector<Dct4Comparison> CompareDct4(const TransformLibrary& library, int longest, bool quick);

}  // namespace bench
