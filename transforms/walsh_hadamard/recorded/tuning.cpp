#include "transforms/walsh_hadamard/recorded/tuning.hpp"

#include "kernelgen/schedule/rows_of_target.hpp"
#include "transforms/walsh_hadamard/passes.hpp"

namespace walsh_hadamard {
namespace {

using kernelgen::SettledBody;

using Rows = kernelgen::RowsOfTarget<Element, SettledBody>;

// Written by scripts/tune-orders.
const Rows kTables[] = {
    {kernelgen::kIa32,
     Element::Real32,
     {
#include "transforms/walsh_hadamard/recorded/ia32/tuned_32f.inc"
     }},
    {kernelgen::kIa32,
     Element::Real64,
     {
#include "transforms/walsh_hadamard/recorded/ia32/tuned_64f.inc"
     }},
    {kernelgen::kX86_64,
     Element::Real32,
     {
#include "transforms/walsh_hadamard/recorded/x86-64/tuned_32f.inc"
     }},
    {kernelgen::kX86_64,
     Element::Real64,
     {
#include "transforms/walsh_hadamard/recorded/x86-64/tuned_64f.inc"
     }},
    {kernelgen::kX86_64_v3,
     Element::Real32,
     {
#include "transforms/walsh_hadamard/recorded/x86-64-v3/tuned_32f.inc"
     }},
    {kernelgen::kX86_64_v3,
     Element::Real64,
     {
#include "transforms/walsh_hadamard/recorded/x86-64-v3/tuned_64f.inc"
     }},
    {kernelgen::kAarch64,
     Element::Real32,
     {
#include "transforms/walsh_hadamard/recorded/aarch64/tuned_32f.inc"
     }},
    {kernelgen::kAarch64,
     Element::Real64,
     {
#include "transforms/walsh_hadamard/recorded/aarch64/tuned_64f.inc"
     }},
};

}  // namespace

std::span<const SettledBody> settled_bodies(Element element, const kernelgen::Target& target) {
    return kernelgen::rows_of<Element, SettledBody>(kTables, target, element);
}

std::string name_in_table(int order, Element element, const std::string& body) {
    std::string stages;
    for (int number : stages_of(order, element))
        stages += (stages.empty() ? "" : "+") + std::to_string(number);
    return std::to_string(order) + "=" + stages + " " + body;
}

kernelgen::SettledOrder settled_order(int order, Element element, const std::string& body,
                                      const kernelgen::Target& target) {
    return kernelgen::settled_order(settled_bodies(element, target),
                                    name_in_table(order, element, body));
}

}  // namespace walsh_hadamard
