#pragma once

/**
 * @file
 * @brief Which transforms of a batch share a vector: arrangements to choose from.
 *
 * A group runs up to four transforms in the lanes of split vectors, or up to two of them on
 * interleaved ones, where the lanes that a short group would leave empty hold the imaginary parts.
 */

#include <string>
#include <vector>

#include "transforms/dft_complex/layouts/complex_algebra.hpp"

namespace dft_complex {

struct LaneGroup {
    Layout layout;
    std::vector<int> transforms;  ///< one a lane, of the network
};

/** Whether groups of at most two transforms, and whole batches at the two ends of a kernel, may run
 * on interleaved vectors. */
enum class LanePolicy { SplitOnly, InterleavedEnds };

/** Whether the factors between two stages act before or after the regrouping of lanes. */
enum class FactorSide { BeforeRegroup, AfterRegroup };

struct Arrangement {
    std::vector<LaneGroup> groups;
    FactorSide side = FactorSide::AfterRegroup;
};

/** How one batch is arranged: transforms taken in steps of `stride`, `width` to a group. */
struct LaneChoice {
    int stride = 1;
    int width = 4;
    FactorSide side = FactorSide::AfterRegroup;

    /** "s3w4b": stride, width, factor side (b or a). */
    std::string to_string() const;
    static LaneChoice from_string(const std::string& text);
    auto operator<=>(const LaneChoice&) const = default;
};

Arrangement arrange(const std::vector<int>& batch, const LaneChoice& choice, LanePolicy policy);

/** Where a batch stands in its kernel: only at the two ends may whole batches run interleaved. */
enum class BatchPlace { End, Middle };

/** The choices worth trying for a batch of this many transforms. */
std::vector<LaneChoice> choices_for(int transforms, BatchPlace place, LanePolicy policy);

}  // namespace dft_complex
