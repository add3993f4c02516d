#include "transforms/dft_complex/layouts/element_layout.hpp"

#include "transforms/dft_complex/decompositions/network_evaluation.hpp"
#include "transforms/dft_complex/decompositions/signals.hpp"

namespace dft_complex {
namespace {

constexpr Type kVector = Type::Binary64x2;

}  // namespace

Graph lay_out_by_elements(const Network& network, const Signal& outputs, Direction direction) {
    Graph graph;
    const auto algebra =
        make_algebra(graph, kVector, Layout::Interleaved, direction == Direction::Inverse);
    const int length = static_cast<int>(outputs.size());
    Points x;
    for (int n = 0; n < length; ++n) x.push_back(load_element(graph, n));
    const Points y = evaluate(*algebra, network, x, outputs, ConjugateFactors::Folded);
    for (int k = 0; k < length; ++k) store_element(graph, y[at(k)], k);
    return graph;
}

ComplexVector load_element(Graph& graph, int n) {
    return {graph.load(kVector, 2 * n), {}};
}

void store_element(Graph& graph, const ComplexVector& value, int k) {
    graph.store(graph.mul(graph.positive(value.re), graph.scale(kVector)), 2 * k);
}

}  // namespace dft_complex
