#include "walsh_hadamard/bodies.hpp"

#include <vector>

namespace walsh_hadamard {
namespace {

using kernelgen::Graph;
using kernelgen::Ref;
using kernelgen::Type;

using Values = std::vector<Ref>;

Type scalar_type(Element element) {
    return element == Element::Real32 ? Type::Binary32 : Type::Binary64;
}

Type vector_type(Element element) {
    return element == Element::Real32 ? Type::Binary32x4 : Type::Binary64x2;
}

Values load(Graph& graph, Type type, std::size_t count, int stride) {
    Values x;
    for (std::size_t i = 0; i < count; ++i)
        x.push_back(graph.load(type, static_cast<int>(i) * stride));
    return x;
}

void store(Graph& graph, const Values& y, int stride, Scaling scaling) {
    for (std::size_t i = 0; i < y.size(); ++i) {
        const Type type = graph.node(y[i].id).type;
        const Ref value = scaling == Scaling::Last ? graph.mul(y[i], graph.scale(type)) : y[i];
        graph.store(value, static_cast<int>(i) * stride);
    }
}

/** Stage whose partners stand `distance` values apart, whatever a value holds. */
void stage(Graph& graph, Values& v, std::size_t distance) {
    for (std::size_t j = 0; j < v.size(); ++j) {
        if ((j & distance) != 0) continue;
        const Ref a = v[j];
        const Ref b = v[j + distance];
        v[j] = graph.add(a, b);
        v[j + distance] = graph.sub(a, b);
    }
}

/** (a0 a1) (b0 b1) -> (a0 b0) (a1 b1) */
void transpose_two(Graph& graph, Ref* v) {
    const Ref a = v[0];
    const Ref b = v[1];
    v[0] = graph.shuffle(a, b, {0, 2});
    v[1] = graph.shuffle(a, b, {1, 3});
}

void transpose_four(Graph& graph, Ref* v) {
    constexpr kernelgen::Selection kUnpackLow = {0, 4, 1, 5};
    constexpr kernelgen::Selection kUnpackHigh = {2, 6, 3, 7};
    constexpr kernelgen::Selection kLowHalves = {0, 1, 4, 5};
    constexpr kernelgen::Selection kHighHalves = {2, 3, 6, 7};
    const Ref low01 = graph.shuffle(v[0], v[1], kUnpackLow);
    const Ref low23 = graph.shuffle(v[2], v[3], kUnpackLow);
    const Ref high01 = graph.shuffle(v[0], v[1], kUnpackHigh);
    const Ref high23 = graph.shuffle(v[2], v[3], kUnpackHigh);
    v[0] = graph.shuffle(low01, low23, kLowHalves);
    v[1] = graph.shuffle(low01, low23, kHighHalves);
    v[2] = graph.shuffle(high01, high23, kLowHalves);
    v[3] = graph.shuffle(high01, high23, kHighHalves);
}

/** Every block of as many vectors as a vector has lanes. */
void transpose(Graph& graph, Element element, Values& v) {
    const auto block = static_cast<std::size_t>(lanes(element));
    for (std::size_t i = 0; i < v.size(); i += block)
        (block == 4 ? transpose_four : transpose_two)(graph, &v[i]);
}

}  // namespace

int lanes(Element element) {
    return element == Element::Real32 ? 4 : 2;
}

Graph scalar_body(Element element, int order) {
    Graph graph;
    Values v = load(graph, scalar_type(element), std::size_t{1} << order, 1);
    for (std::size_t stride = 1; stride < v.size(); stride *= 2) stage(graph, v, stride);
    store(graph, v, 1, Scaling::Last);
    return graph;
}

Graph row_body(Element element, int stages, Scaling scaling) {
    Graph graph;
    const auto width = static_cast<std::size_t>(lanes(element));
    Values v =
        load(graph, vector_type(element), (std::size_t{1} << stages) / width, lanes(element));
    // In a transposed block, elements a stride apart are the same lane of vectors a stride apart.
    transpose(graph, element, v);
    for (std::size_t stride = 1; stride < width; stride *= 2) stage(graph, v, stride);
    transpose(graph, element, v);
    for (std::size_t distance = 1; distance < v.size(); distance *= 2) stage(graph, v, distance);
    store(graph, v, lanes(element), scaling);
    return graph;
}

Graph column_body(Element element, int stages, int stride, Scaling scaling) {
    Graph graph;
    Values v = load(graph, vector_type(element), std::size_t{1} << stages, stride);
    for (std::size_t distance = 1; distance < v.size(); distance *= 2) stage(graph, v, distance);
    store(graph, v, stride, scaling);
    return graph;
}

}  // namespace walsh_hadamard
