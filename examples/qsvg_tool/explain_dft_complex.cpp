#include "explain.hpp"
#include "kernel_facts.hpp"
#include "kernelgen/graph/counts.hpp"
#include "transforms/dft_complex/kernels/complex_kernel.hpp"

namespace qsvg_tool {
namespace {

using dft_complex::Rule;
using dft_complex::SmallForm;

std::string Factors(const Rule& rule) {
    return std::to_string(rule.length) + " = " + std::to_string(rule.parts[0].length) + " x " +
           std::to_string(rule.parts[1].length);
}

std::string SmallTransform(const Rule& rule) {
    const std::string number = std::to_string(rule.length);
    switch (rule.small_form) {
        case SmallForm::HalfSumOfTwo:
            return number +
                   ": one step, by half the sum and half the difference of its two cosines";
        case SmallForm::RaderOfSeven:
            return number + ": one step, Rader's convolution of 6";
        case SmallForm::Pairs:
            return number + ": one step, from the sums and differences of its pairs";
        case SmallForm::Usual:
            break;
    }
    if (rule.length >= 13)
        return number + ": one step, Rader's convolution of " + std::to_string(rule.length - 1) +
               " over real constants";
    return number + ": one step" +
           (rule.length % 2 == 0 ? "" : ", from the sums and differences of its pairs");
}

std::string Decomposition(const Rule& rule) {
    const std::string number = std::to_string(rule.length);
    switch (rule.form) {
        case Rule::Form::Small:
            return SmallTransform(rule);
        case Rule::Form::PrimeFactor:
            return Factors(rule) + ": Good-Thomas (prime factor), no twiddle factors";
        case Rule::Form::CooleyTukey:
            return Factors(rule) + ": Cooley-Tukey, twiddle factors between";
        case Rule::Form::SplitRadix:
            return number + ": split radix";
        case Rule::Form::Rader:
            return number + ": Rader, a cyclic convolution of " +
                   std::to_string(rule.parts[0].length);
        case Rule::Form::Chirp:
            return number + ": chirp (Bluestein), a cyclic convolution of " +
                   std::to_string(rule.parts[0].length);
    }
    return {};
}

void AddTree(Section& section, const Rule& rule, size_t depth) {
    section.lines.push_back({std::string(2 * depth, ' ') + Decomposition(rule)});
    for (const Rule& part : rule.parts) {
        // Of several transforms of one length the first may have a rule of its own.
        const bool is_first_of_b = &part == &rule.parts.front() + 2;
        if (is_first_of_b)
            section.lines.push_back(
                {std::string(2 * depth + 2, ' ') + "the first of these instead:"});
        AddTree(section, part, depth + (is_first_of_b ? 2 : 1));
    }
}

Section CountsOf(const dft_complex::Kernel& kernel, bool is_single) {
    const kernelgen::Counts c = kernelgen::count(kernel.graph, is_single);
    Section section{kernel.is_scalar() ? "counts (of single values)"
                    : is_single        ? "counts (of vectors of 4 lanes)"
                                       : "counts (of vectors of 2 lanes)"};
    section.Add("sums", c.sums);
    section.Add("differences", c.differences);
    section.Add("products", c.products, "those by the scale factor among them");
    section.AddIfAny("wide sums", c.wide_sums, "in binary64");
    section.AddIfAny("wide differences", c.wide_differences, "in binary64");
    section.AddIfAny("wide products", c.wide_products, "in binary64");
    section.AddIfAny("conversions", c.conversions, "between binary32 and binary64");
    section.Add("flips", c.flips, "of signs in some lanes");
    section.Add("shuffles", c.shuffles, "lane moves");
    section.Add("loads", c.loads);
    section.Add("stores", c.stores);
    return section;
}

Section CostOf(const dft_complex::Kernel& kernel) {
    const dft_complex::TableRow& row = dft_complex::row_of(kernel.length, kernel.element);
    Section section{"cost"};
    section.Add("table sums", row.sums + row.differences,
                "sums and differences as the table of rules has them");
    section.Add("table products", row.products,
                "the forward kernel takes no more than both together");
    AddSchedule(section, dft_complex::schedule_of(kernel));
    std::string lanes;
    for (const auto& choice : kernel.choices)
        lanes += (lanes.empty() ? "" : " ") + choice.to_string();
    if (!lanes.empty()) section.lines.push_back({"lanes", lanes, "searched, batch by batch"});
    if (!kernel.option.empty())
        section.lines.push_back({"option", kernel.option, "of GCC, for this kernel"});
    AddCodeSize(section, kernel.name());
    if (!kernel.twin_name().empty())
        section.lines.push_back(
            {"A hidden twin of the same operations serves arrays off 16-byte "
             "boundaries."});
    return section;
}

}  // namespace

Explanation ExplainDftComplex(const Request& request) {
    const auto kernel = dft_complex::proven_kernel(
        request.length,
        request.is_inverse ? dft_complex::Direction::Inverse : dft_complex::Direction::Forward,
        request.is_double ? dft_complex::Element::Complex64 : dft_complex::Element::Complex32,
        BuiltFor());
    Section rule{"rule"};
    rule.lines.push_back({"rule", dft_complex::to_string(kernel.rule)});
    AddTree(rule, kernel.rule, 0);
    return {kernel.name() + ": " + (request.is_inverse ? "inverse" : "forward") + " DFT of " +
                std::to_string(request.length) + " complex points, " + Precision(request.is_double),
            {rule, CountsOf(kernel, !request.is_double), Constants(kernel.graph, request.length),
             CostOf(kernel)}};
}

}  // namespace qsvg_tool
