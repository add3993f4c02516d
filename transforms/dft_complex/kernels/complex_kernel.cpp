#include "transforms/dft_complex/kernels/complex_kernel.hpp"

#include <stdexcept>
#include <vector>

#include "kernelgen/lanes/pack_search.hpp"
#include "kernelgen/proof/proof.hpp"
#include "kernelgen/schedule/settled_order.hpp"
#include "kernelgen/values/same_values.hpp"
#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/layouts/element_layout.hpp"
#include "transforms/dft_complex/recorded/tuning.hpp"
#include "transforms/dft_complex/small_transforms/short_lengths.hpp"

namespace dft_complex {

std::string Kernel::name() const {
    return std::string(direction == Direction::Forward ? "qsvgDFTFwd" : "qsvgDFTInv") + "_CToC_" +
           std::to_string(length) + "_" + suffix(element);
}

std::string Kernel::twin_name() const {
    // Short kernels serve any array: scalars do by themselves, the others are written
    // with both copies in one function, which a compiler may merge. Vectors of 32 bytes stand
    // anywhere.
    if (!packs.empty()) return {};
    if (length <= (element == Element::Complex32 ? 5 : 4)) return {};
    return "owng" + name().substr(4) + "_unaligned";
}

namespace {

/** 32-bit programs keep the scalars that they have always had. */
bool is_of_pairs(int length, const Target& target) {
    return is_length_of_pairs(length) && target.spelling != kernelgen::Spelling::SseIntrinsics;
}

}  // namespace

bool Kernel::is_scalar() const {
    return element == Element::Complex32 && length <= kLongestShortLength &&
           !is_of_pairs(length, target);
}

Kernel draft_kernel(const Rule& rule, Direction direction, Element element,
                    const std::vector<LaneChoice>& choices, const Target& target) {
    const int length = rule.length;
    Kernel kernel{target, length, direction, element, rule, {}};
    if (length <= kLongestShortLength) {
        kernel.graph = element == Element::Complex64 ? short_length_by_elements(length, direction)
                       : is_of_pairs(length, target) ? short_length_by_pairs(length, direction)
                                                     : short_length(length, direction);
        return kernel;
    }
    Network network;
    const Signal outputs = dft(network, rule, network.input(length));
    if (element == Element::Complex64) {
        kernel.graph = lay_out_by_elements(network, outputs, direction);
        return kernel;
    }
    PackedKernel packed = lay_out_packed(network, outputs, direction, lane_policy(length), choices);
    kernel.graph = std::move(packed.graph);
    kernel.choices = std::move(packed.choices);
    return kernel;
}

std::vector<int> own_lengths(Element element, const Target& target) {
    std::vector<int> own = lengths();
    if (target.level_below == nullptr) return own;
    std::erase_if(own, [&](int length) {
        return tuning_of(row_of(length, element), element, target).order.empty();
    });
    return own;
}

Kernel described_kernel(int length, Direction direction, Element element, const Target& target) {
    const TableRow& row = row_of(length, element);
    const Tuning tuning = tuning_of(row, element, target);
    if (target.level_below != nullptr && tuning.order.empty())
        return described_kernel(length, direction, element, *target.level_below);
    Kernel kernel = draft_kernel(row.rule, direction, element, tuning.lanes, target);
    if (!tuning.lanes.empty() && tuning.lanes.size() < kernel.choices.size())
        throw std::logic_error("the tuning of length " + std::to_string(length) + " in " +
                               suffix(element) + " chooses lanes for " +
                               std::to_string(tuning.lanes.size()) + " of " +
                               std::to_string(kernel.choices.size()) + " batches");
    kernel.order = tuning.order;
    kernel.option = tuning.option;
    kernel.packs = packs_of(tuning.packs, direction);
    if (target.level_below != nullptr && kernel.packs.empty())
        kernel.packs = described_kernel(length, direction, element, *target.level_below).packs;
    return kernel;
}

Kernel proven_kernel(int length, Direction direction, Element element, const Target& target) {
    Kernel kernel = described_kernel(length, direction, element, target);
    prove(kernel);
    return kernel;
}

LanePolicy lane_policy(int length) {
    const bool power_of_two = (length & (length - 1)) == 0;
    return power_of_two ? LanePolicy::SplitOnly : LanePolicy::InterleavedEnds;
}

std::vector<int> batch_sizes(const Rule& rule) {
    Network network;
    dft(network, rule, network.input(rule.length));
    std::vector<int> sizes;
    for (const auto& batch : network.batches()) sizes.push_back(static_cast<int>(batch.size()));
    return sizes;
}

Graph written_graph(const Kernel& kernel) {
    if (kernel.packs.empty()) return kernel.graph;
    return kernelgen::laned_graph(kernel.name(), kernel.graph, kernel.packs);
}

kernelgen::Schedule schedule_of(const Kernel& kernel) {
    return kernelgen::settled_schedule(kernel.order, written_graph(kernel), kernel.target);
}

void prove_dft(const Kernel& kernel) {
    const int length = kernel.length;
    const auto entry = [&](int row, int column) -> kernelgen::Wide {
        const long turns = static_cast<long>(row / 2) * (column / 2);
        const ExactComplex w = ExactComplex::forward_root(
            kernel.direction == Direction::Forward ? turns : -turns, length);
        const bool real_row = row % 2 == 0;
        const bool real_column = column % 2 == 0;
        if (real_row == real_column) return w.re.value();
        return real_row ? kernelgen::Wide(-w.im.value()) : w.im.value();
    };
    kernelgen::prove(kernel.name() + " by rule " + formula(kernel.rule), kernel.graph, 2 * length,
                     2 * length, entry);
}

void prove(const Kernel& kernel) {
    prove_dft(kernel);
    kernelgen::prove_values_of_reference(kernel.name(), kernel.graph, kernel.target, [&] {
        return described_kernel(kernel.length, kernel.direction, kernel.element).graph;
    });
}

}  // namespace dft_complex
