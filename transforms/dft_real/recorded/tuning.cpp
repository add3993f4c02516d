#include "transforms/dft_real/recorded/tuning.hpp"

#include <vector>

namespace dft_real {
namespace {

struct Winner {
    Kind kind;
    int length;
    Tuning tuning;
};

// Written by scripts/tune-real.
const std::vector<Winner> kSingleWinners = {
#include "transforms/dft_real/recorded/tuned_32f.inc"
};
const std::vector<Winner> kDoubleWinners = {
#include "transforms/dft_real/recorded/tuned_64f.inc"
};

}  // namespace

std::string to_string(Rounding rounding) {
    return rounding == Rounding::Conversion ? "conversion" : "whole register";
}

Tuning tuning_of(Kind kind, int length, Element element) {
    for (const Winner& winner : element == Element::Real32 ? kSingleWinners : kDoubleWinners) {
        if (winner.kind == kind && winner.length == length) return winner.tuning;
    }
    return {};
}

}  // namespace dft_real
