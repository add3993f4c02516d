#include "kernelgen/graph/transpose.hpp"

namespace kernelgen {
namespace {

void transpose_two(Graph& graph, Ref* v) {
    const Ref a = v[0];
    const Ref b = v[1];
    v[0] = graph.shuffle(a, b, {0, 2});
    v[1] = graph.shuffle(a, b, {1, 3});
}

void transpose_four(Graph& graph, Ref* v) {
    constexpr Selection kUnpackLow = {0, 4, 1, 5};
    constexpr Selection kUnpackHigh = {2, 6, 3, 7};
    constexpr Selection kLowHalves = {0, 1, 4, 5};
    constexpr Selection kHighHalves = {2, 3, 6, 7};
    const Ref low01 = graph.shuffle(v[0], v[1], kUnpackLow);
    const Ref low23 = graph.shuffle(v[2], v[3], kUnpackLow);
    const Ref high01 = graph.shuffle(v[0], v[1], kUnpackHigh);
    const Ref high23 = graph.shuffle(v[2], v[3], kUnpackHigh);
    v[0] = graph.shuffle(low01, low23, kLowHalves);
    v[1] = graph.shuffle(low01, low23, kHighHalves);
    v[2] = graph.shuffle(high01, high23, kLowHalves);
    v[3] = graph.shuffle(high01, high23, kHighHalves);
}

}  // namespace

void transpose(Graph& graph, Ref* vectors) {
    const int lanes = lane_count(graph.node(vectors[0].id).type);
    (lanes == 4 ? transpose_four : transpose_two)(graph, vectors);
}

}  // namespace kernelgen
