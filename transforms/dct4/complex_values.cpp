#include "transforms/dct4/complex_values.hpp"

#include <stdexcept>

namespace dct4 {
namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Lanes;
using kernelgen::Ref;
using kernelgen::Type;

struct Pair {
    Complex sum;
    Complex difference;
};

Pair butterfly(Graph& graph, Complex a, Complex b, SecondHalf second_half) {
    return {{graph.add(a.re, b.re), graph.add(a.im, b.im)},
            {graph.sub(a.re, b.re), second_half == SecondHalf::Conjugated ? graph.sub(b.im, a.im)
                                                                          : graph.sub(a.im, b.im)}};
}

Complex times_i(Complex z) {
    return {-z.im, z.re};
}

/** z times exp(2 pi i t / 8). The odd ones take two products, since both parts are of one size. */
Complex turned_by_eighths(Graph& graph, Complex z, std::size_t t) {
    if (t == 0) return z;
    if (t == 2) return times_i(z);
    const Type type = graph.node(z.re.id).type;
    const Ref k = constant(graph, type, Exact::cosine(1, 8));
    const Ref sum = graph.mul(graph.add(z.re, z.im), k);
    const Ref difference = graph.mul(graph.sub(z.re, z.im), k);
    return t == 1 ? Complex{difference, sum} : Complex{-sum, difference};
}

}  // namespace

Complex conjugate(Complex z) {
    return {z.re, -z.im};
}

Ref constant(Graph& graph, Type type, const Exact& value) {
    return graph.constant(type,
                          Lanes(static_cast<std::size_t>(kernelgen::lane_count(type)), value));
}

// Here and below: one after the other, so that all compilers number the nodes alike. The second
// operand goes first, as it does in the bodies whose orders were settled by the clock.
Complex rotated(Graph& graph, Complex z, Ref cosine, Ref sine) {
    const Ref im_sine = graph.mul(z.im, sine);
    const Ref re_cosine = graph.mul(z.re, cosine);
    const Ref re = graph.sub(re_cosine, im_sine);
    const Ref im_cosine = graph.mul(z.im, cosine);
    const Ref re_sine = graph.mul(z.re, sine);
    return {re, graph.add(re_sine, im_cosine)};
}

Complex rotated(Graph& graph, Complex z, long numerator, long denominator) {
    const Type type = graph.node(z.re.id).type;
    const Ref sine = constant(graph, type, Exact::sine(numerator, denominator));
    const Ref cosine = constant(graph, type, Exact::cosine(numerator, denominator));
    return rotated(graph, z, cosine, sine);
}

ComplexValues positive_dft(Graph& graph, const ComplexValues& y, SecondHalf second_half) {
    const std::size_t half = y.size() / 2;
    ComplexValues even;
    ComplexValues odd;
    for (std::size_t r = 0; r < half; ++r) {
        even.push_back(y[2 * r]);
        odd.push_back(y[2 * r + 1]);
    }
    if (half == 2 || half == 4) {
        even = positive_dft(graph, even);
        odd = positive_dft(graph, odd);
    } else if (half != 1) {
        throw std::logic_error("a DFT of 2, 4 or 8 points");
    }
    ComplexValues d(y.size());
    for (std::size_t t = 0; t < half; ++t) {
        const Pair pair = butterfly(graph, even[t],
                                    turned_by_eighths(graph, odd[t], t * (4 / half)), second_half);
        d[t] = pair.sum;
        d[t + half] = pair.difference;
    }
    return d;
}

}  // namespace dct4
