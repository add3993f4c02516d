#include "dft_complex/kernels.hpp"

#include <stdexcept>

#include "dft_complex/decompositions.hpp"
#include "dft_complex/short_lengths.hpp"
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
        return {length, direction, rule, short_length(length, direction), {}};
    Network network;
    const Signal outputs = dft(network, rule, network.input(length));
    PackedKernel packed = lay_out_packed(network, outputs, direction, choices);
    return {length, direction, rule, std::move(packed.graph), std::move(packed.choices)};
}

Kernel single_precision_kernel(int length, Direction direction) {
    Kernel kernel = draft_kernel(length, direction, {});
    prove_dft(kernel);
    return kernel;
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
