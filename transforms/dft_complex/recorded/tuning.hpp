#pragma once

#include <string>
#include <vector>

#include "transforms/dft_complex/layouts/lane_groups.hpp"
#include "transforms/dft_complex/rules/variant.hpp"

namespace dft_complex {

/** Decisions that were searched once and are kept: they change a kernel's cost, never its
 * mathematics. */
struct Tuning {
    std::vector<LaneChoice> lanes;
    std::string order;  ///< a method of kernelgen::schedule_by, or empty for the cheapest plain one
    std::string option;  ///< of GCC, without its "-f", or empty
};

/** What tune_dft_complex found best for this length; empty where it has not searched. */
Tuning tuning_of(int length, Element element);

}  // namespace dft_complex
