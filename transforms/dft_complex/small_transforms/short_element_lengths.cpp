#include <stdexcept>

#include "transforms/dft_complex/decompositions/signals.hpp"
#include "transforms/dft_complex/layouts/element_layout.hpp"
#include "transforms/dft_complex/small_transforms/short_lengths.hpp"
#include "transforms/dft_complex/small_transforms/small_transforms.hpp"

namespace dft_complex {
namespace {

Points three(ComplexAlgebra& m, const Points& x) {
    const Exact half = Exact::rational(1, 2);
    const Exact c = Exact::sine(1, 3);
    const ComplexVector u = m.add(x[1], x[2]);
    const ComplexVector d = m.sub(x[1], x[2]);
    const ComplexVector w = m.sub(x[0], m.scaled(u, half));
    const ComplexVector p = m.turned_scaled(d, c);
    return {m.add(x[0], u), m.add(w, p), m.sub(w, p)};
}

Points five(ComplexAlgebra& m, const Points& x) {
    const Exact c1 = Exact::cosine(1, 5);
    const Exact c2 = -Exact::cosine(2, 5);
    const Exact s1 = Exact::sine(1, 5);
    const Exact s2 = Exact::sine(2, 5);
    const ComplexVector a = m.add(x[1], x[4]);
    const ComplexVector b = m.add(x[3], x[2]);
    const ComplexVector c = m.sub(x[1], x[4]);
    const ComplexVector d = m.sub(x[3], x[2]);
    const ComplexVector a_c1 = m.add(m.scaled(a, c1), x[0]);
    const ComplexVector P = m.sub(a_c1, m.scaled(b, c2));
    const ComplexVector a_c2 = m.sub(x[0], m.scaled(a, c2));
    const ComplexVector Q = m.add(a_c2, m.scaled(b, c1));
    const ComplexVector c_s1 = m.turned_scaled(c, s1);
    const ComplexVector R = m.sub(c_s1, m.turned_scaled(d, s2));
    const ComplexVector c_s2 = m.turned_scaled(c, s2);
    const ComplexVector T = m.add(c_s2, m.turned_scaled(d, s1));
    const ComplexVector x0_a = m.add(x[0], a);
    return {m.add(x0_a, b), m.add(P, R), m.add(Q, T), m.sub(Q, T), m.sub(P, R)};
}

Points short_transform(ComplexAlgebra& m, const Points& x) {
    switch (x.size()) {
        case 3:
            return three(m, x);
        case 2:
        case 4:
            return small_transform(m, static_cast<int>(x.size()), SmallForm::Usual, x);
        case 5:
            return five(m, x);
        default:
            throw std::logic_error("no short length");
    }
}

}  // namespace

Graph short_length_by_elements(int length, Direction direction) {
    Graph graph;
    const auto algebra = make_algebra(graph, Type::Binary64x2, Layout::Interleaved, false);
    Points x;
    for (int n = 0; n < length; ++n) x.push_back(load_element(graph, n));
    const Points y = short_transform(*algebra, x);
    for (int k = 0; k < length; ++k) {
        const int from = direction == Direction::Forward ? k : (length - k) % length;
        store_element(graph, y[at(from)], k);
    }
    return graph;
}

}  // namespace dft_complex
