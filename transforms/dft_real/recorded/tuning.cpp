#include "transforms/dft_real/recorded/tuning.hpp"

#include <stdexcept>
#include <vector>

namespace dft_real {
namespace {

// Written by scripts/tune-orders.
const std::vector<RecordedTuning> kSingleWinners = {
#include "transforms/dft_real/recorded/tuned_32f.inc"
};
const std::vector<RecordedTuning> kDoubleWinners = {
#include "transforms/dft_real/recorded/tuned_64f.inc"
};

}  // namespace

std::string to_string(Rounding rounding) {
    return rounding == Rounding::Conversion ? "conversion" : "whole register";
}

Tuning tuning_of(Kind kind, const TableRow& row, Element element) {
    return tuning_of(kind, row, element,
                     element == Element::Real32 ? kSingleWinners : kDoubleWinners);
}

Tuning tuning_of(Kind kind, const TableRow& row, Element element,
                 std::span<const RecordedTuning> recorded) {
    const std::string name =
        "the tuning of length " + std::to_string(row.length) + " in " + suffix(element);
    const RecordedTuning* found = nullptr;
    for (const RecordedTuning& tuning : recorded) {
        if (tuning.kind != kind || tuning.length != row.length) continue;
        if (found != nullptr) throw std::logic_error(name + " stands there twice");
        found = &tuning;
    }
    if (found == nullptr) return {};
    const std::string stages = in_words(row.order_of(kind));
    if (found->stages != stages)
        throw std::logic_error(
            name + " was found for the stages " + found->stages + ", but its stages are " + stages +
            ": take its row out, build, and find another by scripts/tune-orders");
    return found->tuning;
}

}  // namespace dft_real
