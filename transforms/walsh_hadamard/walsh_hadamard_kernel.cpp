#include "transforms/walsh_hadamard/walsh_hadamard_kernel.hpp"

#include <bit>

#include "kernelgen/proof/proof.hpp"
#include "kernelgen/values/same_values.hpp"
#include "transforms/walsh_hadamard/recorded/tuning.hpp"
#include "transforms/walsh_hadamard/sequence.hpp"

namespace walsh_hadamard {
namespace {

using kernelgen::Counts;
using kernelgen::Graph;
using kernelgen::Wide;

/** Entry of the Hadamard matrix in natural order. */
Wide hadamard(int row, int column) {
    const auto common = static_cast<unsigned>(row & column);
    return std::popcount(common) % 2 == 0 ? 1 : -1;
}

void prove_contiguous(const std::string& what, const Graph& graph, int stages) {
    kernelgen::prove(what, graph, 1 << stages, 1 << stages, hadamard);
}

/** Of vectors that stand `stride` elements apart. */
void prove_columns(const std::string& what, const Graph& graph, int width, int stages, int stride) {
    kernelgen::Places places;
    for (int i = 0; i < 1 << stages; ++i) {
        for (int lane = 0; lane < width; ++lane) places.push_back(i * stride + lane);
    }
    const auto entry = [&](int row, int column) -> Wide {
        return row % width == column % width ? hadamard(row / width, column / width) : Wide(0);
    };
    kernelgen::prove_between(what, graph, places, places, entry);
}

}  // namespace

std::string Kernel::name() const {
    return "qsvgWHT_" + std::to_string(order) + "_" + suffix(element);
}

std::string Kernel::twin_name() const {
    if (!has_twin(order, element) || is_wide()) return {};
    return "owngWHT_" + std::to_string(order) + "_" + suffix(element) + "_unaligned";
}

Kernel described_kernel(int order, Element element, const kernelgen::Target& target) {
    const std::vector<int> s = stages_of(order, element);
    // A row alone waits for its exchanges one by one, of many rows they fill each other's gaps.
    const int bytes = s.size() == 1 ? bytes_of_single_row(element, order, target.vector_bytes)
                                    : target.vector_bytes;
    Kernel kernel{target, order, element, s, bytes};
    if (is_scalar(order, element)) {
        kernel.bodies = {{"transform", scalar_body(element, order), Scaling::Last}};
    } else if (s.size() == 1) {
        kernel.bodies = {
            {"transform", row_body(element, order, Scaling::Last, bytes), Scaling::Last}};
    } else {
        kernel.bodies.push_back(
            {"row", row_body(element, s[0], Scaling::None, bytes), Scaling::None});
        if (s.size() == 3)
            kernel.bodies.push_back({"middle_columns",
                                     column_body(element, s[1], 1 << s[0], Scaling::None, bytes),
                                     Scaling::None});
        kernel.bodies.push_back(
            {"final_columns",
             column_body(element, s.back(), 1 << (order - s.back()), Scaling::Last, bytes),
             Scaling::Last});
    }
    for (Body& body : kernel.bodies) {
        const kernelgen::SettledOrder settled = settled_order(order, element, body.name, target);
        body.method = settled.method;
        if (!settled.option.empty()) kernel.option = settled.option;
    }
    return kernel;
}

void prove(const Kernel& kernel) {
    int stride = 1;
    for (std::size_t i = 0; i < kernel.bodies.size(); ++i) {
        const Body& body = kernel.bodies[i];
        const std::string what = kernel.name() + ", " + body.name;
        if (i == 0)
            prove_contiguous(what, body.graph, kernel.stages[i]);
        else
            prove_columns(what, body.graph, kernel.width(), kernel.stages[i], stride);
        stride <<= kernel.stages[i];
    }
    kernelgen::ValueGraph values;
    const kernelgen::Outputs sums = sums_of_kernel(values, kernel);
    kernelgen::prove_same_outputs(values, kernel.name(), sums, "the reference sequence",
                                  sums_of_reference(values, kernel.order, kernel.element));
}

Kernel proven_kernel(int order, Element element, const kernelgen::Target& target) {
    Kernel kernel = described_kernel(order, element, target);
    prove(kernel);
    return kernel;
}

Counts written_out(const Kernel& kernel) {
    Counts all;
    for (const Body& body : kernel.bodies) {
        const Counts c = kernelgen::count(body.graph, kernel.element == Element::Real32);
        all.sums += c.sums;
        all.differences += c.differences;
        all.products += c.products;
        all.shuffles += c.shuffles;
        all.loads += c.loads;
        all.stores += c.stores;
    }
    return all;
}

kernelgen::Schedule schedule_of(const Body& body, const kernelgen::Target& target) {
    return kernelgen::settled_schedule(body.method, body.graph, target);
}

}  // namespace walsh_hadamard
