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

/** Every block of as many vectors as 16 bytes have lanes. */
void transpose(Graph& graph, Element element, Values& v) {
    const auto block = static_cast<std::size_t>(lanes(element));
    for (std::size_t i = 0; i < v.size(); i += block) kernelgen::transpose(graph, &v[i]);
}

/** Vectors of two halves, `apart` elements from one another. */
Values load_halves(Graph& graph, Type type, std::size_t count, int apart) {
    Values x;
    for (std::size_t i = 0; i < count; ++i) {
        const int low = static_cast<int>(i) * kernelgen::lane_count(type) / 2;
        x.push_back(graph.load_high(graph.load_low(type, low), low + apart));
    }
    return x;
}

/** Of each two vectors, one of their low halves, behind all of these one of their high halves. */
Values with_low_halves_first(Graph& graph, const Values& v) {
    const auto count = static_cast<std::size_t>(kernelgen::lane_count(graph.node(v[0].id).type));
    kernelgen::Selection low = {};
    kernelgen::Selection high = {};
    for (std::size_t lane = 0; lane < count; ++lane) {
        const std::size_t from = lane < count / 2 ? lane : lane + count / 2;
        low.at(lane) = static_cast<std::uint8_t>(from);
        high.at(lane) = static_cast<std::uint8_t>(from + count / 2);
    }
    Values result;
    for (const kernelgen::Selection& half : {low, high}) {
        for (std::size_t i = 0; i < v.size(); i += 2)
            result.push_back(graph.shuffle(v[i], v[i + 1], half));
    }
    return result;
}

}  // namespace

Graph scalar_body(Element element, int order) {
    Graph graph;
    Values v = load(graph, scalar_type(element), std::size_t{1} << order, 1);
    for (std::size_t stride = 1; stride < v.size(); stride *= 2) stage(graph, v, stride);
    store(graph, v, 1, Scaling::Last);
    return graph;
}

Graph row_body(Element element, int stages, Scaling scaling, int vector_bytes) {
    Graph graph;
    const Type type = vector_type(element, vector_bytes);
    const int width = lanes(element, vector_bytes);
    const int elements = 1 << stages;
    const auto count = static_cast<std::size_t>(elements / width);
    const bool is_wide = kernelgen::is_wide(type);
    Values v =
        is_wide ? load_halves(graph, type, count, elements / 2) : load(graph, type, count, width);
    // In a transposed block, elements a stride apart are the same lane of vectors a stride apart.
    transpose(graph, element, v);
    for (std::size_t stride = 1; stride < static_cast<std::size_t>(lanes(element)); stride *= 2)
        stage(graph, v, stride);
    transpose(graph, element, v);
    for (std::size_t distance = 1; distance < v.size(); distance *= 2) stage(graph, v, distance);
    if (is_wide) {
        v = with_low_halves_first(graph, v);
        stage(graph, v, v.size() / 2);
    }
    store(graph, v, width, scaling);
    return graph;
}

Graph column_body(Element element, int stages, int stride, Scaling scaling, int vector_bytes) {
    Graph graph;
    Values v = load(graph, vector_type(element, vector_bytes), std::size_t{1} << stages, stride);
    for (std::size_t distance = 1; distance < v.size(); distance *= 2) stage(graph, v, distance);
    store(graph, v, stride, scaling);
    return graph;
}

bool has_row_body(Element element, int stages, int vector_bytes) {
    return 1 << stages >= lanes(element, vector_bytes) * lanes(element);
}

}  // namespace walsh_hadamard
