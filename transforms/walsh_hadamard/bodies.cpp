#include "transforms/walsh_hadamard/bodies.hpp"

#include <vector>

#include "kernelgen/graph/transpose.hpp"

namespace walsh_hadamard {
namespace {

using kernelgen::Graph;
using kernelgen::Ref;
using kernelgen::Type;

using Values = std::vector<Ref>;

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

/** Every block of as many vectors as a vector has lanes. */
void transpose(Graph& graph, Element element, Values& v) {
    const auto block = static_cast<std::size_t>(lanes(element));
    for (std::size_t i = 0; i < v.size(); i += block) kernelgen::transpose(graph, &v[i]);
}

}  // namespace

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
