#include <bit>

#include "explain.hpp"
#include "kernel_facts.hpp"
#include "transforms/walsh_hadamard/scales.hpp"
#include "transforms/walsh_hadamard/walsh_hadamard_kernel.hpp"

namespace qsvg_tool {
namespace {

using walsh_hadamard::Kernel;

/** Passes of the loops around the bodies, in the order of the kernel's bodies. */
std::vector<int> RunsOf(const Kernel& kernel) {
    if (!kernel.has_passes()) return {1};
    const int row = 1 << kernel.stages[0];
    const int lanes = walsh_hadamard::lanes(kernel.element);
    const int rows = kernel.length() / row;
    if (kernel.stages.size() == 2) return {rows, row / lanes};
    const int block = walsh_hadamard::big_block(kernel.order, kernel.element);
    return {rows, kernel.length() / block * row / lanes, block / lanes};
}

Section RuleOf(const Kernel& kernel) {
    Section section{"rule"};
    std::string stages;
    for (const int pass : kernel.stages)
        stages += (stages.empty() ? "" : "+") + std::to_string(pass);
    section.lines.push_back({"stages", stages, "of sums and differences, strides 1, 2, ... N/2"});
    const std::vector<int> runs = RunsOf(kernel);
    for (size_t i = 0; i < kernel.bodies.size(); ++i) {
        const walsh_hadamard::Body& body = kernel.bodies[i];
        section.lines.push_back(
            {body.name, std::to_string(kernel.stages[i]) + " stages",
             runs[i] == 1 ? "straight-line code" : "run " + std::to_string(runs[i]) + " times"});
    }
    if (!kernel.has_passes()) return section;
    section.Add("buffer bytes", walsh_hadamard::buffer_size(kernel.order, kernel.element),
                "of work space between the passes");
    return section;
}

Section CountsOf(const Kernel& kernel) {
    const bool is_scalar = walsh_hadamard::is_scalar(kernel.order, kernel.element);
    const int lanes = is_scalar ? 1 : walsh_hadamard::lanes(kernel.element);
    const kernelgen::Counts c = walsh_hadamard::written_out(kernel);
    Section section{
        std::string("counts (as the code is written out, each body once; of ") +
        (is_scalar ? "single values)" : "vectors of " + std::to_string(lanes) + " lanes)")};
    section.Add("sums", c.sums);
    section.Add("differences", c.differences);
    section.Add("products", c.products, "by the scale factor");
    section.Add("shuffles", c.shuffles, "lane moves");
    section.Add("loads", c.loads);
    section.Add("stores", c.stores);
    return section;
}

/** What runs in one call. */
Section WorkOf(const Kernel& kernel) {
    const std::vector<int> runs = RunsOf(kernel);
    kernelgen::Counts all;
    for (size_t i = 0; i < kernel.bodies.size(); ++i) {
        const bool is_single = kernel.element == walsh_hadamard::Element::Real32;
        const kernelgen::Counts c = kernelgen::count(kernel.bodies[i].graph, is_single);
        all.sums += runs[i] * c.sums;
        all.differences += runs[i] * c.differences;
        all.products += runs[i] * c.products;
        all.shuffles += runs[i] * c.shuffles;
        all.loads += runs[i] * c.loads;
        all.stores += runs[i] * c.stores;
    }
    Section section{"operations of a call"};
    section.Add("run sums", all.sums);
    section.Add("run differences", all.differences);
    section.Add("run products", all.products);
    section.Add("run shuffles", all.shuffles);
    section.Add("run loads", all.loads);
    section.Add("run stores", all.stores);
    return section;
}

Section ScalesOf(const Kernel& kernel) {
    return {
        "constants (all of them scale factors)",
        {{"1/N", walsh_hadamard::scale_by_length(kernel.order, kernel.element), "as in the kernel"},
         {"1/sqrt(N)", walsh_hadamard::scale_by_root(kernel.order, kernel.element),
          "as in the kernel"}}};
}

Section CostOf(const Kernel& kernel) {
    Section section{"cost"};
    std::string orders;
    int stack_accesses = 0;
    for (const walsh_hadamard::Body& body : kernel.bodies) {
        const kernelgen::Schedule schedule = walsh_hadamard::schedule_of(body, kernel.target);
        orders += (orders.empty() ? "" : ", ") + schedule.method;
        stack_accesses += schedule.traffic.stack_accesses;
    }
    section.lines.push_back({"orders", orders, "of the operations in the code, body by body"});
    section.Add("modelled stack accesses", stack_accesses, "spills and reloads, each body once");
    if (!kernel.option.empty())
        section.lines.push_back({"option", kernel.option, "of GCC, for this kernel"});
    AddCodeSize(section, kernel.name());
    return section;
}

}  // namespace

Explanation ExplainWalshHadamard(const Request& request) {
    const Kernel kernel = walsh_hadamard::proven_kernel(
        std::countr_zero(static_cast<unsigned>(request.length)),
        request.is_double ? walsh_hadamard::Element::Real64 : walsh_hadamard::Element::Real32,
        BuiltFor());
    return {kernel.name() + ": Walsh-Hadamard transform of " + std::to_string(request.length) +
                " real points, " + Precision(request.is_double),
            {RuleOf(kernel), CountsOf(kernel), WorkOf(kernel), ScalesOf(kernel), CostOf(kernel)}};
}

}  // namespace qsvg_tool
