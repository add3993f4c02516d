#include "transforms/dft_real/kernels/layout_values.hpp"

#include <map>
#include <stdexcept>

#include "kernelgen/values/same_values.hpp"
#include "kernelgen/values/unfold.hpp"

namespace dft_real {
namespace {

using kernelgen::Outputs;
using kernelgen::SignedValue;
using kernelgen::ValueGraph;

/** The elements of a layout that hold a part of a bin, each with that of CCS. */
std::map<int, int> elements_of_ccs(Layout layout, int N) {
    std::map<int, int> elements;
    for (int k = 0; 2 * k <= N; ++k) {
        elements[real_element(layout, N, k)] = real_element(Layout::CCS, N, k);
        if (is_complex(N, k))
            elements[imaginary_element(layout, N, k)] = imaginary_element(Layout::CCS, N, k);
    }
    return elements;
}

bool is_zero(const ValueGraph& values, SignedValue value) {
    const kernelgen::ValueNode& n = values.node(value.id);
    return n.op == kernelgen::ValueOp::Constant && constant_of(n) == 0 && !value.negative;
}

/** Outputs by their elements in CCS. What an element without a part of a bin holds is no output of
 * the transform, and must be zero. */
Outputs forward_outputs(const RealKernel& kernel, Layout layout, ValueGraph& values) {
    const std::map<int, int> elements = elements_of_ccs(layout, kernel.length);
    Outputs outputs;
    for (const auto& [element, value] : unfold(kernel.graph, values)) {
        const auto part = elements.find(element);
        if (part != elements.end())
            outputs[part->second] = value;
        else if (!is_zero(values, value))
            throw std::logic_error(kernel.name() + ": element " + std::to_string(element) +
                                   " is neither a part of a bin nor zero");
    }
    return outputs;
}

/** Outputs for inputs at their elements in CCS. */
Outputs inverse_outputs(const RealKernel& kernel, Layout layout, ValueGraph& values) {
    const std::map<int, int> elements = elements_of_ccs(layout, kernel.length);
    return unfold(kernel.graph, values, [&](int element, kernelgen::Type precision) {
        const auto part = elements.find(element);
        if (part == elements.end())
            throw std::logic_error(kernel.name() + ": reads element " + std::to_string(element) +
                                   ", which is no part of a bin");
        return values.input(precision, part->second);
    });
}

}  // namespace

void prove_same_values_as_ccs(const RealKernel& kernel, Direction direction, Layout layout) {
    const RealKernel ccs =
        described_dft_kernel(kernel.length, direction, Layout::CCS, kernel.element);
    const auto outputs_of = direction == Direction::Forward ? &forward_outputs : &inverse_outputs;
    ValueGraph values;
    const Outputs outputs = outputs_of(kernel, layout, values);
    const Outputs wanted = outputs_of(ccs, Layout::CCS, values);
    prove_same_outputs(values, kernel.name(), outputs, ccs.name(), wanted);
}

}  // namespace dft_real
