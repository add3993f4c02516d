#include "dct4_work.hpp"
#include "explain.hpp"
#include "kernel_facts.hpp"

namespace qsvg_tool {
namespace {

using dct4::Step;

std::string Number(int32_t value) {
    return std::to_string(value);
}

Section RuleOf(const Dct4Splits& splits, int32_t length) {
    Section section{"rule"};
    if (splits.is_inline) {
        section.lines.push_back({"length", Number(length), "straight-line code"});
        return section;
    }
    const int32_t n = splits.analysis_length / 2;
    section.lines.push_back(
        {"length", Number(length) + " = 2 x " + Number(n) + " x " + Number(splits.factor)});
    section.lines.push_back(
        {"stage A", Number(splits.factor),
         "analyses of " + Number(splits.analysis_length) + " points at odd frequencies"});
    for (const Dct4Splits::Split& split : splits.splits) {
        section.lines.push_back({"  split",
                                 Number(split.length) + " = " + Number(split.factor) + " x " +
                                     Number(split.length / split.factor),
                                 Number(split.factor) +
                                     " shorter analyses, then twiddled DFTs of " +
                                     Number(split.factor) + " points"});
    }
    section.lines.push_back(
        {"stage B", Number(n),
         "rotations and syntheses of " + Number(2 * splits.factor) + " points at odd frequencies"});
    return section;
}

Section BodySection(const dct4::Kernel& kernel, int runs) {
    const kernelgen::Counts c = dct4::counts_of(kernel);
    const int lanes = kernel.step == Step::Inline ? 1 : dct4::lanes(kernel.element);
    Section section{"body " + kernel.name() + ", run " +
                    (runs == 1 ? "once" : Number(runs) + " times") +
                    (lanes == 1 ? " (counts of single values)"
                                : " (counts of vectors of " + Number(lanes) + " lanes)")};
    section.Add("runs", runs);
    section.Add("sums", c.sums);
    section.Add("differences", c.differences);
    section.Add("products", c.products);
    section.Add("shuffles", c.shuffles, "lane moves");
    section.Add("loads", c.loads, "of the table among them");
    section.Add("stores", c.stores);
    AddSchedule(section, dct4::schedule_of(kernel));
    return section;
}

Section TotalOf(const std::vector<Dct4Work>& work, dct4::Element element) {
    long long sums = 0;
    long long products = 0;
    for (const Dct4Work& item : work) {
        const kernelgen::Counts c =
            dct4::counts_of(dct4::described_kernel(item.key, element, BuiltFor()));
        sums += static_cast<long long>(item.runs) * (c.sums + c.differences);
        products += static_cast<long long>(item.runs) * c.products;
    }
    Section section{"operations of a transform (of vectors, or of single values of inline code)"};
    section.lines.push_back({"run sums", std::to_string(sums), "sums and differences"});
    section.lines.push_back({"run products", std::to_string(products)});
    return section;
}

Section CostOf(const Request& request) {
    Section section{"cost"};
    int32_t bytes = 0;
    const auto size = request.is_double ? qsvgDCT4GetSize_64f : qsvgDCT4GetSize_32f;
    if (size(request.length, &bytes) == qsvStatusOk)
        section.Add("plan bytes", bytes, "tables and work space, made once");
    return section;
}

}  // namespace

Explanation ExplainDct4(const Request& request) {
    const auto element = request.is_double ? dct4::Element::Real64 : dct4::Element::Real32;
    const Dct4Splits splits = SplitsOf(request.length);
    const std::vector<Dct4Work> work = WorkOf(splits, request.length, dct4::lanes(element));
    Explanation explanation{"DCT-IV of " + Number(request.length) + " real points, " +
                            Precision(request.is_double) + ", by a plan"};
    explanation.sections.push_back(RuleOf(splits, request.length));
    for (const Dct4Work& item : work) {
        // The build has proven it, which takes a second for long ones.
        const dct4::Kernel kernel = dct4::described_kernel(item.key, element, BuiltFor());
        explanation.sections.push_back(BodySection(kernel, item.runs));
        Section constants = Constants(kernel.graph, 8 * kernel.points());
        constants.title =
            "constants of " + kernel.name() + " (as rounded, without signs, and what they mean)";
        if (item.key.step == Step::Synthesis || item.key.step == Step::Dft)
            constants.lines.push_back(
                {"And cosines and sines of the plan's table, at multiples of pi."});
        explanation.sections.push_back(constants);
    }
    explanation.sections.push_back(TotalOf(work, element));
    explanation.sections.push_back(CostOf(request));
    return explanation;
}

}  // namespace qsvg_tool
