#include "transforms/dft_complex/recorded/tuning.hpp"

#include <sstream>
#include <stdexcept>

#include "kernelgen/schedule/rows_of_target.hpp"

namespace dft_complex {
namespace {

using Rows = kernelgen::RowsOfTarget<Element, RecordedTuning>;

// Written by tune_dft_complex; the cost it minimised stands in the manifest. At 19 and 56 the
// fastest by the clock of its best few was taken, 6 and 12 percent ahead of the one with the least
// cost.
const Rows kTables[] = {
    {kernelgen::kIa32,
     Element::Complex32,
     {
#include "transforms/dft_complex/recorded/ia32/tuned_32fc.inc"
     }},
    {kernelgen::kIa32,
     Element::Complex64,
     {
#include "transforms/dft_complex/recorded/ia32/tuned_64fc.inc"
     }},
    {kernelgen::kX86_64,
     Element::Complex32,
     {
#include "transforms/dft_complex/recorded/x86-64/tuned_32fc.inc"
     }},
    {kernelgen::kX86_64,
     Element::Complex64,
     {
#include "transforms/dft_complex/recorded/x86-64/tuned_64fc.inc"
     }},
    {kernelgen::kX86_64_v3,
     Element::Complex32,
     {
#include "transforms/dft_complex/recorded/x86-64-v3/tuned_32fc.inc"
     }},
    {kernelgen::kX86_64_v3,
     Element::Complex64,
     {
#include "transforms/dft_complex/recorded/x86-64-v3/tuned_64fc.inc"
     }},
    {kernelgen::kX86_64_v4,
     Element::Complex32,
     {
#include "transforms/dft_complex/recorded/x86-64-v4/tuned_32fc.inc"
     }},
    {kernelgen::kX86_64_v4,
     Element::Complex64,
     {
#include "transforms/dft_complex/recorded/x86-64-v4/tuned_64fc.inc"
     }},
    {kernelgen::kAarch64,
     Element::Complex32,
     {
#include "transforms/dft_complex/recorded/aarch64/tuned_32fc.inc"
     }},
    {kernelgen::kAarch64,
     Element::Complex64,
     {
#include "transforms/dft_complex/recorded/aarch64/tuned_64fc.inc"
     }},
};

}  // namespace

std::string packs_of(const std::string& recorded, Direction direction) {
    const std::size_t end = recorded.find("; ");
    if (end == std::string::npos) return recorded;
    return direction == Direction::Forward ? recorded.substr(0, end) : recorded.substr(end + 2);
}

Tuning tuning_of(const TableRow& row, Element element, const kernelgen::Target& target) {
    const auto recorded_for = [&](const kernelgen::Target& any) {
        return tuning_of(row, element,
                         kernelgen::rows_of<Element, RecordedTuning>(kTables, any, element));
    };
    Tuning tuning = recorded_for(target);
    if (tuning.lanes.empty()) tuning.lanes = recorded_for(kernelgen::kReference).lanes;
    return tuning;
}

Tuning tuning_of(const TableRow& row, Element element, std::span<const RecordedTuning> recorded) {
    const std::string name =
        "the tuning of length " + std::to_string(row.length) + " in " + suffix(element);
    const RecordedTuning* found = nullptr;
    for (const RecordedTuning& tuning : recorded) {
        if (tuning.length != row.length) continue;
        if (found != nullptr) throw std::logic_error(name + " stands there twice");
        found = &tuning;
    }
    if (found == nullptr) return {};
    if (found->rule != formula(row.rule))
        throw std::logic_error(name + " was found for the rule " + found->rule +
                               ", but its rule is " + formula(row.rule) +
                               ": take its row out, build, and find another by " +
                               "tune_dft_complex lanes (32fc) and scripts/tune-orders");
    Tuning tuning{
        .lanes = {}, .order = found->order, .option = found->option, .packs = found->packs};
    std::istringstream words(found->lanes);
    for (std::string word; words >> word;) tuning.lanes.push_back(LaneChoice::from_string(word));
    return tuning;
}

}  // namespace dft_complex
