#include "explain.hpp"
#include "kernel_facts.hpp"
#include "transforms/dft_real/decompositions/decomposition.hpp"
#include "transforms/dft_real/kernels/real_dft_kernel.hpp"
#include "transforms/hartley/hartley_kernel.hpp"
#include "transforms/hartley/hartley_transform.hpp"

namespace qsvg_tool {
namespace {

using dft_real::Decomposition;
using dft_real::Kind;
using dft_real::Method;
using dft_real::Order;

std::string Product(const Order& order) {
    std::string text;
    for (const int factor : order) text += (text.empty() ? "" : " x ") + std::to_string(factor);
    return text;
}

std::string Indent(size_t depth) {
    return std::string(2 * depth, ' ');
}

std::string MethodOf(const Decomposition& network) {
    const int length = dft_real::length_of(network.order);
    switch (network.method) {
        case Method::BetweenTwos:
            return "the two stages of 4 points stand at the ends";
        case Method::Coprime:
            return "Good-Thomas (coprime parts), no twiddle factors";
        case Method::PowerOfTwo:
            if (length == 2) return "a sum and a difference";
            return network.is_inverse ? "split radix" : "halves, odd bins by radix 4";
        case Method::PowerOfOddPrime:
            return "Cooley-Tukey, twiddle factors between";
        case Method::Dense:
            return "dense, a row a bin";
        case Method::Rader:
            return "Rader, a cyclic convolution of " + std::to_string(length - 1);
    }
    return {};
}

void AddNetwork(Section& section, const Decomposition& network, size_t depth) {
    const Order& order = network.order;
    section.lines.push_back({Indent(depth) + std::to_string(dft_real::length_of(order)) +
                             (order.size() > 1 ? " = " + Product(order) : "") + ": " +
                             MethodOf(network)});
    const bool is_convolution = network.method == Method::Rader;
    for (const Decomposition& part : network.parts) {
        if (is_convolution) {
            const bool has_all_bins = part.is_inverse == network.is_inverse;
            section.lines.push_back({Indent(depth + 1) + (part.is_inverse ? "out of" : "into") +
                                     " it" + (has_all_bins ? "" : ", even bins")});
        }
        AddNetwork(section, part, depth + (is_convolution ? 2 : 1));
    }
}

Section RuleOf(int length, Kind kind) {
    Section section{"rule"};
    section.lines.push_back({"order of stages", Product(dft_real::row_of(length).order_of(kind))});
    if (kind == Kind::Hartley) {
        const bool closing = hartley::pair_stage(length) == hartley::PairStage::Closing;
        section.lines.push_back(
            {closing ? "sums and differences of pairs of outputs, behind the forward real DFT of"
                     : "sums and differences of pairs of inputs, before the inverse real DFT of"});
        AddNetwork(section, hartley::decomposition(length), 0);
    } else {
        AddNetwork(section, dft_real::decomposition(length, kind), 0);
    }
    return section;
}

Section CountsOf(const dft_real::RealKernel& kernel) {
    const dft_real::Cost cost = dft_real::network_cost(kernel.graph);
    const bool is_single = kernel.element == dft_real::Element::Real32;
    const kernelgen::Counts c = kernelgen::count(kernel.graph, is_single);
    Section section{"counts (of single values)"};
    section.Add("sums", cost.sums, "sums and differences");
    section.Add("products", cost.products, "by constants; and one by the scale factor an output");
    section.Add("outputs scaled in rows", dft_real::outputs_scaled_in_rows(kernel.graph),
                "by the scale factor in binary64");
    section.Add("doubled inputs", dft_real::doubled_inputs(kernel.graph));
    section.Add("wide sums", dft_real::wide_sums(kernel.graph), "of two values, in binary64");
    section.Add("conversions", c.conversions, "between binary32 and binary64");
    section.Add("loads", c.loads);
    section.Add("stores", c.stores);
    return section;
}

Section CostOf(const dft_real::RealKernel& kernel) {
    const dft_real::Cost table = dft_real::row_of(kernel.length).cost_of(kernel.family.kind);
    Section section{"cost"};
    section.Add("table sums", table.sums, "that the network may take");
    section.Add("table products", table.products, "that it may take");
    AddSchedule(section, dft_real::schedule_of(kernel));
    section.lines.push_back({"rounding", dft_real::to_string(kernel.tuning.rounding),
                             "how rows of binary64 become binary32"});
    if (!kernel.tuning.option.empty())
        section.lines.push_back({"option", kernel.tuning.option, "of GCC, for this kernel"});
    AddCodeSize(section, kernel.name());
    return section;
}

dft_real::RealKernel KernelOf(const Request& request) {
    const auto element = request.is_double ? dft_real::Element::Real64 : dft_real::Element::Real32;
    if (request.family == Family::kHartley)
        return hartley::hartley_kernel(request.length, element, BuiltFor());
    constexpr dft_real::Layout kLayouts[] = {dft_real::Layout::CCS, dft_real::Layout::Pack,
                                             dft_real::Layout::Perm};
    return dft_real::dft_kernel(
        request.length,
        request.is_inverse ? dft_real::Direction::Inverse : dft_real::Direction::Forward,
        kLayouts[static_cast<size_t>(request.layout)], element, BuiltFor());
}

}  // namespace

Explanation ExplainRealTransform(const Request& request) {
    const dft_real::RealKernel kernel = KernelOf(request);
    std::string title = kernel.family.title;
    title.replace(title.find("{N}"), 3, std::to_string(request.length));
    return {kernel.name() + ": " + title + ", " + Precision(request.is_double),
            {RuleOf(request.length, kernel.family.kind), CountsOf(kernel),
             Constants(kernel.graph, request.length), CostOf(kernel)}};
}

}  // namespace qsvg_tool
