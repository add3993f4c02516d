#pragma once

/** @file @brief How a plan of the DCT-IV splits its length, decided by the functions that plans are
 * made with. */

#include <cstdint>
#include <vector>

namespace qsvg_tool {

/** Lengths that are powers of two from 2 on. */
struct Dct4Splits {
    bool is_inline = false;  ///< one straight line of code
    int32_t inline_rule = 0;

    int32_t factor = 0;           ///< analyses side by side in stage A
    int32_t synthesis_rule = 0;   ///< of stage B, by `factor`
    int32_t analysis_length = 0;  ///< of each in stage A
    /** DFTs that make the long analyses from shorter ones, the longest first. */
    struct Split {
        int32_t length;  ///< of the analysis
        int32_t factor;  ///< shorter analyses, and points of the DFTs behind them
        int32_t dft_rule;
    };
    std::vector<Split> splits = {};
    int32_t analysis_rule = 0;  ///< of the analyses that are not split
};

Dct4Splits SplitsOf(int32_t length);

}  // namespace qsvg_tool
