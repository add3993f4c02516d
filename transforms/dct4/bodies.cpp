#include "transforms/dct4/bodies.hpp"

#include <stdexcept>

#include "kernelgen/graph/transpose.hpp"
#include "library/dct4/table_layout.hpp"

namespace dct4 {
namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Lanes;
using kernelgen::Ref;
using kernelgen::Type;

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

/** Place of g[j] where those with a negative index stand behind the others, counted backwards. */
int mirrored_place(int j, int n) {
    return j >= 0 ? j : n - 1 - j;
}

Ref load(Graph& graph, Element element, int place) {
    return graph.load(vector_type(element), place * lanes(element));
}

void store(Graph& graph, Element element, int place, Ref value) {
    graph.store(value, place * lanes(element));
}

void store_parts(Graph& graph, Element element, const ComplexValues& z) {
    for (int i = 0; i < static_cast<int>(z.size()); ++i) {
        store(graph, element, 2 * i, z[at(i)].re);
        store(graph, element, 2 * i + 1, z[at(i)].im);
    }
}

/** One vector for each column of as many rows as there are lanes. */
std::vector<Ref> columns_of_rows(Graph& graph, Element element, int row) {
    const int width = lanes(element);
    if (row < width) {
        // Two rows of two in a vector.
        const Ref a = load(graph, element, 0);
        const Ref b = load(graph, element, 1);
        return {graph.shuffle(a, b, {0, 2, 4, 6}), graph.shuffle(a, b, {1, 3, 5, 7})};
    }
    std::vector<Ref> columns;
    const int row_places = row / width;
    for (int i = 0; i < row_places; ++i) {
        std::vector<Ref> block;
        for (int lane = 0; lane < width; ++lane)
            block.push_back(load(graph, element, lane * row_places + i));
        kernelgen::transpose(graph, block.data());
        columns.insert(columns.end(), block.begin(), block.end());
    }
    return columns;
}

/** tan(pi p / q) for even q: that of the complement is the sum over k below q of -2k/q sin(2 pi k
 * r / q). Eisenstein's sum for the cotangent. */
Exact tangent(int p, int q) {
    std::vector<Exact> terms;
    for (int k = 1; k < q; ++k)
        terms.push_back(
            Exact::product({Exact::rational(-2 * k, q), Exact::sine(k * (q / 2 - p), q)}));
    return Exact::sum(terms);
}

/** Three lifting steps, which turn (x, y) by the angle of `half_tangent` and `sine`. */
struct Lifted {
    Ref first;
    Ref second;
};

Lifted lifted(Graph& graph, Type type, Ref x, Ref y, const Exact& half_tangent, const Exact& sine) {
    const Ref t = constant(graph, type, half_tangent);
    const Ref s = constant(graph, type, sine);
    const Ref once = graph.sub(x, graph.mul(y, t));
    const Ref second = graph.add(y, graph.mul(once, s));
    return {graph.sub(once, graph.mul(second, t)), second};
}

Graph inline_two(Type type) {
    Graph graph;
    const Ref x0 = graph.load(type, 0);
    const Ref x1 = graph.load(type, 1);
    const Ref cosine = constant(graph, type, Exact::cosine(1, 16));
    const Ref sine = constant(graph, type, Exact::sine(1, 16));
    // One after the other, so that all compilers number the nodes alike.
    const Ref x1_sine = graph.mul(x1, sine);
    const Ref x0_cosine = graph.mul(x0, cosine);
    graph.store(graph.add(x0_cosine, x1_sine), 0);
    const Ref x1_cosine = graph.mul(x1, cosine);
    const Ref x0_sine = graph.mul(x0, sine);
    graph.store(graph.sub(x0_sine, x1_cosine), 1);
    return graph;
}

Graph inline_four(Type type) {
    Graph graph;
    std::vector<Ref> x;
    for (int i = 0; i < 4; ++i) x.push_back(graph.load(type, i));
    const Lifted a = lifted(graph, type, x[0], x[3], tangent(7, 32), Exact::sine(7, 32));
    const Lifted b = lifted(graph, type, x[1], x[2], tangent(5, 32), Exact::sine(5, 32));
    const Ref k = constant(graph, type, Exact::cosine(1, 8));
    const Ref d = graph.mul(graph.sub(a.second, b.second), k);
    const Ref e = graph.mul(graph.add(a.first, b.first), k);
    graph.store(graph.add(a.second, b.second), 0);
    graph.store(graph.add(d, e), 1);
    graph.store(graph.sub(d, e), 2);
    graph.store(graph.sub(a.first, b.first), 3);
    return graph;
}

/** The factorisation of the long lengths for N = 2nm: m analyses, then n syntheses. */
Graph inline_product(Type type, int n, int m) {
    Graph graph;
    std::vector<ComplexValues> columns;
    for (int c = 0; c < m; ++c)
        columns.push_back(analysis(graph, n, [&](int j) {
            return graph.load(type, j >= 0 ? 2 * m * j + c : -2 * m * j - 1 - c);
        }));
    for (int b = 0; b < n; ++b) {
        ComplexValues w;
        for (int c = 0; c < m; ++c)
            w.push_back(
                rotated(graph, columns[at(c)][at(b)], (2 * b + 1) * (2 * c + 1), 16 * n * m));
        const std::vector<Ref> g = synthesis(graph, w);
        for (int j = -m; j < m; ++j)
            graph.store(g[at(j + m)], j >= 0 ? 2 * n * j + b : -2 * n * j - 1 - b);
    }
    return graph;
}

}  // namespace

Graph analysis_body(Element element, int rule) {
    Graph graph;
    graph.keep_arrays_apart();
    const int n = (1 << rule) / 2;
    store_parts(graph, element, analysis(graph, n, [&](int j) {
                    return load(graph, element, mirrored_place(j, n));
                }));
    return graph;
}

std::vector<int> table_columns(int m) {
    std::vector<int> columns;
    for (int place = 0; place < m; ++place) columns.push_back(rotation_column(m, place));
    return columns;
}

Graph synthesis_body(Element element, int rule) {
    Graph graph;
    graph.keep_arrays_apart();
    const int m = (1 << rule) / 2;
    const std::vector<Ref> parts = columns_of_rows(graph, element, 2 * m);
    ComplexValues w(at(m));
    int place = 2 * m;
    for (int c : table_columns(m)) {
        const Ref cosine = load(graph, element, place++);
        const Ref sine = load(graph, element, place++);
        w[at(c)] = rotated(graph, {parts[at(c)], parts[at(m + c)]}, cosine, sine);
    }
    const std::vector<Ref> g = synthesis(graph, w);
    for (int j = -m; j < m; ++j) store(graph, element, mirrored_place(j, m), g[at(j + m)]);
    return graph;
}

int inner_places(int rule) {
    return 2 * DftTable(1 << rule).inner_pairs();
}

int outer_places(int rule) {
    return 2 * DftTable(1 << rule).outer_pairs();
}

Graph dft_body(Element element, int rule) {
    Graph graph;
    graph.keep_arrays_apart();
    const int s = 1 << rule;
    ComplexValues u;
    for (int r = 0; r < s; ++r) u.push_back({load(graph, element, r), load(graph, element, s + r)});
    const DftTable table(s);
    const int inner_table = 2 * s;
    const int outer_table = inner_table + inner_places(rule);
    const auto turned = [&](Complex z, int place) {
        const Ref sine = load(graph, element, place + 1);
        const Ref cosine = load(graph, element, place);
        return rotated(graph, z, cosine, sine);
    };
    const Twiddle outer = [&](int r, Complex z) {
        return turned(z, outer_table + 2 * table.outer_pair(r));
    };
    const auto inner = [&](int t1, int r1, Complex z) {
        return turned(z, inner_table + 2 * table.inner_pair(t1, r1));
    };
    store_parts(graph, element,
                table.has_two_levels() ? twiddled_dft_of_two_levels(graph, u, outer, inner)
                                       : twiddled_dft(graph, u, outer));
    return graph;
}

Graph inline_body(Element element, int length) {
    const Type type = scalar_type(element);
    switch (length) {
        case 2:
            return inline_two(type);
        case 4:
            return inline_four(type);
        case 8:
            return inline_product(type, 2, 2);
        case 16:
            return inline_product(type, 2, 4);
        case 32:
            return inline_product(type, 8, 2);
        default:
            throw std::logic_error("an inline kernel has 2, 4, 8, 16 or 32 points");
    }
}

}  // namespace dct4
