#include "transforms/dct4/recorded/tuning.hpp"

#include "kernelgen/schedule/rows_of_target.hpp"

namespace dct4 {
namespace {

using kernelgen::SettledBody;

using Rows = kernelgen::RowsOfTarget<Element, SettledBody>;

// Written by scripts/tune-orders.
const Rows kTables[] = {
    {kernelgen::kIa32,
     Element::Real32,
     {
#include "transforms/dct4/recorded/ia32/tuned_32f.inc"
     }},
    {kernelgen::kIa32,
     Element::Real64,
     {
#include "transforms/dct4/recorded/ia32/tuned_64f.inc"
     }},
    {kernelgen::kX86_64,
     Element::Real32,
     {
#include "transforms/dct4/recorded/x86-64/tuned_32f.inc"
     }},
    {kernelgen::kX86_64,
     Element::Real64,
     {
#include "transforms/dct4/recorded/x86-64/tuned_64f.inc"
     }},
    {kernelgen::kAarch64,
     Element::Real32,
     {
#include "transforms/dct4/recorded/aarch64/tuned_32f.inc"
     }},
    {kernelgen::kAarch64,
     Element::Real64,
     {
#include "transforms/dct4/recorded/aarch64/tuned_64f.inc"
     }},
};

}  // namespace

std::span<const SettledBody> settled_bodies(Element element, const kernelgen::Target& target) {
    return kernelgen::rows_of<Element, SettledBody>(kTables, target, element);
}

kernelgen::SettledOrder settled_order(const std::string& stem, Element element,
                                      const kernelgen::Target& target) {
    return kernelgen::settled_order(settled_bodies(element, target), stem);
}

}  // namespace dct4
