#include "transforms/dct4/odd_frequency.hpp"

namespace dct4 {
namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Ref;

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

Ref times_cosine_of_eighth(Graph& graph, Ref value) {
    return graph.mul(value, constant(graph, graph.node(value.id).type, Exact::cosine(1, 8)));
}

ComplexValues analysis_of_one(Graph& graph, const Signal& g) {
    return {{g(0), graph.sub(graph.zero(graph.node(g(-1).id).type), g(-1))}};
}

ComplexValues analysis_of_two(Graph& graph, const Signal& g) {
    // One after the other, so that all compilers number the nodes alike.
    const Ref behind = g(-1);
    const Ref ahead = g(1);
    const Ref a = times_cosine_of_eighth(graph, graph.add(ahead, behind));
    const Ref b = times_cosine_of_eighth(graph, graph.sub(ahead, behind));
    return {{graph.add(g(0), a), graph.sub(b, g(-2))}, {graph.sub(g(0), a), graph.add(b, g(-2))}};
}

std::vector<Ref> synthesis_of_two(Graph& graph, const ComplexValues& w) {
    const Ref a = times_cosine_of_eighth(graph, graph.sub(w[0].re, w[1].re));
    const Ref b = times_cosine_of_eighth(graph, graph.add(w[0].im, w[1].im));
    return {graph.sub(w[0].im, w[1].im), graph.add(a, b), graph.add(w[0].re, w[1].re),
            graph.sub(a, b)};
}

/** Parts of an analysis of 2n points, the fewest operations from the lengths that there are. */
int analysis_split(int n) {
    return n == 4 ? 2 : 4;
}

/** `split` tells into how many parts a synthesis of 2m points goes. */
std::vector<Ref> synthesis_by(Graph& graph, const ComplexValues& w,
                              const std::function<int(int)>& split) {
    const int m = static_cast<int>(w.size());
    if (m == 1) return {w[0].im, w[0].re};
    if (m == 2) return synthesis_of_two(graph, w);
    const int s = split(m);
    const int blocks = m / s;
    std::vector<ComplexValues> u(at(s), ComplexValues(at(blocks)));
    for (int block = 0; block < blocks; ++block) {
        ComplexValues d(at(s));
        for (int q = 0; q < s / 2; ++q) {
            d[at(q)] = w[at(2 * blocks * q + block)];
            d[at(s - 1 - q)] = conjugate(w[at(2 * blocks * q + 2 * blocks - 1 - block)]);
        }
        const ComplexValues y = positive_dft(graph, d);
        u[0][at(block)] = y[0];
        for (int r = 1; r < s; ++r)
            u[at(r)][at(block)] = rotated(graph, y[at(r)], r * (2 * block + 1), 4 * m);
    }
    std::vector<Ref> g(at(2 * m));
    for (int r = 0; r < s; ++r) {
        const std::vector<Ref> part = synthesis_by(graph, u[at(r)], split);
        for (int j = 0; j < 2 * blocks; ++j) g[at(r + s * j)] = part[at(j)];
    }
    return g;
}

}  // namespace

ComplexValues analysis(Graph& graph, int n, const Signal& g) {
    if (n == 1) return analysis_of_one(graph, g);
    if (n == 2) return analysis_of_two(graph, g);
    const int s = analysis_split(n);
    const int blocks = n / s;
    std::vector<ComplexValues> parts;
    for (int r = 0; r < s; ++r)
        parts.push_back(analysis(graph, blocks, [&](int j) { return g(r + s * j); }));
    ComplexValues z(at(n));
    for (int block = 0; block < blocks; ++block) {
        ComplexValues u;
        for (const ComplexValues& part : parts) u.push_back(part[at(block)]);
        const ComplexValues d = twiddled_dft(graph, u, [&](int r, Complex value) {
            return rotated(graph, value, r * (2 * block + 1), 4 * n);
        });
        for (int q = 0; q < s / 2; ++q) {
            z[at(2 * blocks * q + block)] = d[at(q)];
            z[at(2 * blocks * q + 2 * blocks - 1 - block)] = d[at(s - 1 - q)];
        }
    }
    return z;
}

std::vector<Ref> synthesis(Graph& graph, const ComplexValues& w) {
    // Of 64 points, the parts of 16 split by four as well; of less, everything by two.
    if (w.size() == 32) return synthesis_by(graph, w, [](int m) { return m == 4 ? 2 : 4; });
    return synthesis_by(graph, w, [](int) { return 2; });
}

ComplexValues twiddled_dft(Graph& graph, const ComplexValues& u, const Twiddle& twiddle) {
    ComplexValues y = u;
    for (std::size_t r = 1; r < y.size(); ++r) y[r] = twiddle(static_cast<int>(r), y[r]);
    return positive_dft(graph, y, SecondHalf::Conjugated);
}

ComplexValues twiddled_dft_of_two_levels(
    Graph& graph, const ComplexValues& u, const Twiddle& outer,
    const std::function<Complex(int t1, int r1, Complex z)>& inner) {
    const int h = static_cast<int>(u.size()) / 4;
    std::vector<ComplexValues> b;
    for (int r1 = 0; r1 < 4; ++r1) {
        ComplexValues y;
        for (int r2 = 0; r2 < h; ++r2) {
            const Complex value = u[at(r1 + 4 * r2)];
            y.push_back(r2 == 0 ? value : outer(r2, value));
        }
        b.push_back(positive_dft(graph, y));
    }
    ComplexValues d(u.size());
    for (int t1 = 0; t1 < h; ++t1) {
        ComplexValues y;
        for (int r1 = 0; r1 < 4; ++r1) {
            const Complex value = b[at(r1)][at(t1)];
            y.push_back(r1 == 0 ? value : inner(t1, r1, value));
        }
        const ComplexValues part = positive_dft(graph, y, SecondHalf::Conjugated);
        for (int t2 = 0; t2 < 4; ++t2) d[at(t1 + h * t2)] = part[at(t2)];
    }
    return d;
}

}  // namespace dct4
