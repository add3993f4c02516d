#include "transforms/walsh_hadamard/bodies.hpp"

#include <array>
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

/** Of two vectors, one after the other in runs of `run` lanes: what picks the even runs of both,
 * and what the odd. */
std::array<kernelgen::Selection, 2> exchanged_runs(const Graph& graph, Ref vector, int run) {
    const int count = kernelgen::lane_count(graph.node(vector.id).type);
    std::array<kernelgen::Selection, 2> runs = {};
    for (int lane = 0; lane < count; ++lane) {
        const int from = (lane & run) == 0 ? lane : lane + count - run;
        runs[0].at(static_cast<std::size_t>(lane)) = static_cast<std::uint8_t>(from);
        runs[1].at(static_cast<std::size_t>(lane)) = static_cast<std::uint8_t>(from + run);
    }
    return runs;
}

/** Of each two vectors, one of even and one of odd runs: elements that were lanes `run` apart are
 * the same lane of the two then. Done once more, each is where it was. */
void exchange_runs(Graph& graph, Values& v, int run) {
    const auto [even, odd] = exchanged_runs(graph, v[0], run);
    for (std::size_t i = 0; i < v.size(); i += 2) {
        const Ref a = v[i];
        const Ref b = v[i + 1];
        v[i] = graph.shuffle(a, b, even);
        v[i + 1] = graph.shuffle(a, b, odd);
    }
}

/** Of each two vectors, one of their low halves, behind all of these one of their high halves. */
Values with_low_halves_first(Graph& graph, const Values& v) {
    const int half = kernelgen::lane_count(graph.node(v[0].id).type) / 2;
    Values result;
    for (const kernelgen::Selection& lanes : exchanged_runs(graph, v[0], half)) {
        for (std::size_t i = 0; i < v.size(); i += 2)
            result.push_back(graph.shuffle(v[i], v[i + 1], lanes));
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
    int run = 1;
    if (v.size() >= static_cast<std::size_t>(lanes(element))) {
        // In a transposed block, elements a stride apart are the same lane of vectors a stride
        // apart.
        run = lanes(element);
        transpose(graph, element, v);
        for (std::size_t stride = 1; stride < static_cast<std::size_t>(run); stride *= 2)
            stage(graph, v, stride);
        transpose(graph, element, v);
    }
    for (; run < width / 2; run *= 2) {
        exchange_runs(graph, v, run);
        stage(graph, v, 1);
        exchange_runs(graph, v, run);
    }
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

int bytes_of_single_row(Element element, int stages, int vector_bytes) {
    while (vector_bytes > 16 && 1 << stages < lanes(element, vector_bytes) * lanes(element))
        vector_bytes /= 2;
    return vector_bytes;
}

}  // namespace walsh_hadamard
