#pragma once

#include <span>
#include <string>
#include <vector>

#include "targets/target.hpp"
#include "transforms/dft_complex/layouts/lane_groups.hpp"
#include "transforms/dft_complex/rules/rules.hpp"
#include "transforms/dft_complex/rules/variant.hpp"

namespace dft_complex {

/** Decisions that were searched once and are kept: they change a kernel's cost, never its
 * mathematics. */
struct Tuning {
    std::vector<LaneChoice> lanes;
    std::string order;  ///< a method of kernelgen::schedule_by, or empty for the cheapest plain one
    std::string option;  ///< of GCC, without its "-f", or empty
    std::string
        packs;  ///< kernelgen::PackSeeds in words, or empty: vectors of 16 bytes; of the
                ///< forward and, behind a semicolon, of the inverse kernel where they differ
};

/** A tuning as it is recorded, with the formula of the rule that it was found for. */
struct RecordedTuning {
    int length;
    const char* rule;
    const char* lanes;  ///< one choice a batch, in order of the batches
    const char* order;
    const char* option = "";
    const char* packs = "";
};

/** Those of one direction. */
std::string packs_of(const std::string& recorded, Direction direction);

/** What was found best for the row on the target; where nothing has been searched there, the lanes
 * of the reference and no order. Throws std::logic_error where it was found for another rule than
 * the row's, or stands there twice. */
Tuning tuning_of(const TableRow& row, Element element, const kernelgen::Target& target);
Tuning tuning_of(const TableRow& row, Element element, std::span<const RecordedTuning> recorded);

}  // namespace dft_complex
