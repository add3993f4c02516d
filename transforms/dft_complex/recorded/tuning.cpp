#include "transforms/dft_complex/recorded/tuning.hpp"

#include <sstream>
#include <stdexcept>

namespace dft_complex {
namespace {

// Written by tune_dft_complex; the cost it minimised stands in the manifest. At 19 and 56 the
// fastest by the clock of its best few was taken, 6 and 12 percent ahead of the one with the least
// cost.
constexpr RecordedTuning kSingleWinners[] = {
#include "transforms/dft_complex/recorded/tuned_32fc.inc"
};
constexpr RecordedTuning kDoubleWinners[] = {
#include "transforms/dft_complex/recorded/tuned_64fc.inc"
};

}  // namespace

Tuning tuning_of(const TableRow& row, Element element) {
    return tuning_of(row, element,
                     element == Element::Complex32 ? std::span<const RecordedTuning>(kSingleWinners)
                                                   : kDoubleWinners);
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
    Tuning tuning{.lanes = {}, .order = found->order, .option = found->option};
    std::istringstream words(found->lanes);
    for (std::string word; words >> word;) tuning.lanes.push_back(LaneChoice::from_string(word));
    return tuning;
}

}  // namespace dft_complex
