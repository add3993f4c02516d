#include "dft_complex/kernels.hpp"

#include <stdexcept>

#include "dft_complex/decompositions.hpp"
#include "dft_complex/short_lengths.hpp"
#include "dft_complex/tuning.hpp"
#include "kernelgen/proof.hpp"

namespace dft_complex {

const TableRow& row_of(int length) {
    if (length < kShortestLength || length > kLongestLength)
        throw std::out_of_range("no kernel of length " + std::to_string(length));
    return single_precision_table()[static_cast<std::size_t>(length - kShortestLength)];
}

std::string Kernel::name() const {
    return std::string(direction == Direction::Forward ? "qsvgDFTFwd" : "qsvgDFTInv") + "_CToC_" +
           std::to_string(length) + "_32fc";
}

std::string Kernel::twin_name() const {
    if (length <= kLongestShortLength) return {};
    return "owng" + name().substr(4) + "_unaligned";
}

Kernel draft_kernel(int length, Direction direction, const std::vector<LaneChoice>& choices) {
    const Rule& rule = row_of(length).rule;
    if (length <= kLongestShortLength)
        return {length, direction, rule, short_length(length, direction)};
    Network network;
    const Signal outputs = dft(network, rule, network.input(length));
    PackedKernel packed = lay_out_packed(network, outputs, direction, lane_policy(length), choices);
    return {length, direction, rule, std::move(packed.graph), std::move(packed.choices)};
}

Kernel single_precision_kernel(int length, Direction direction) {
    const Tuning tuning = tuning_of(length);
    Kernel kernel = draft_kernel(length, direction, tuning.lanes);
    kernel.order = tuning.order;
    prove_dft(kernel);
    return kernel;
}

LanePolicy lane_policy(int length) {
    const bool power_of_two = (length & (length - 1)) == 0;
    return power_of_two ? LanePolicy::SplitOnly : LanePolicy::InterleavedEnds;
}

std::vector<int> batch_sizes(int length) {
    Network network;
    dft(network, row_of(length).rule, network.input(length));
    std::vector<int> sizes;
    for (const auto& batch : network.batches()) sizes.push_back(static_cast<int>(batch.size()));
    return sizes;
}

kernelgen::Schedule schedule_of(const Kernel& kernel) {
    if (kernel.order.empty()) return kernelgen::schedule(kernel.graph, kernelgen::kX86Sse2);
    return kernelgen::schedule_by(kernel.order, kernel.graph, kernelgen::kX86Sse2);
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
    kernelgen::prove(kernel.name(), kernel.graph, 2 * length, 2 * length, entry);
}

}  // namespace dft_complex
