#include "transforms/dft_real/recorded/tuning.hpp"

#include <stdexcept>

#include "kernelgen/schedule/rows_of_target.hpp"

namespace dft_real {
namespace {

using Rows = kernelgen::RowsOfTarget<Element, RecordedTuning>;

// Written by scripts/tune-orders.
const Rows kTables[] = {
    {kernelgen::kIa32,
     Element::Real32,
     {
#include "transforms/dft_real/recorded/ia32/tuned_32f.inc"
     }},
    {kernelgen::kIa32,
     Element::Real64,
     {
#include "transforms/dft_real/recorded/ia32/tuned_64f.inc"
     }},
    {kernelgen::kX86_64,
     Element::Real32,
     {
#include "transforms/dft_real/recorded/x86-64/tuned_32f.inc"
     }},
    {kernelgen::kX86_64,
     Element::Real64,
     {
#include "transforms/dft_real/recorded/x86-64/tuned_64f.inc"
     }},
    {kernelgen::kX86_64_v3,
     Element::Real32,
     {
#include "transforms/dft_real/recorded/x86-64-v3/tuned_32f.inc"
     }},
    {kernelgen::kX86_64_v3,
     Element::Real64,
     {
#include "transforms/dft_real/recorded/x86-64-v3/tuned_64f.inc"
     }},
    {kernelgen::kX86_64_v4,
     Element::Real32,
     {
#include "transforms/dft_real/recorded/x86-64-v4/tuned_32f.inc"
     }},
    {kernelgen::kX86_64_v4,
     Element::Real64,
     {
#include "transforms/dft_real/recorded/x86-64-v4/tuned_64f.inc"
     }},
    {kernelgen::kAarch64,
     Element::Real32,
     {
#include "transforms/dft_real/recorded/aarch64/tuned_32f.inc"
     }},
    {kernelgen::kAarch64,
     Element::Real64,
     {
#include "transforms/dft_real/recorded/aarch64/tuned_64f.inc"
     }},
};

}  // namespace

std::string to_string(Rounding rounding) {
    return rounding == Rounding::Conversion ? "conversion" : "whole register";
}

Tuning tuning_of(Kind kind, const TableRow& row, Element element, const kernelgen::Target& target) {
    return tuning_of(kind, row, element,
                     kernelgen::rows_of<Element, RecordedTuning>(kTables, target, element));
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
    const auto& [order, rounding, option, packs] = found->tuning;
    return {order, rounding, option, packs};
}

}  // namespace dft_real
