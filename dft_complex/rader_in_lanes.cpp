#include <map>
#include <stdexcept>

#include "dft_complex/decompositions.hpp"
#include "dft_complex/real_dft.hpp"
#include "dft_complex/signals.hpp"
#include "dft_complex/small_transforms.hpp"

namespace dft_complex {
namespace {

// Of the orders of factors, those with the smallest error among those with the fewest operations.
const RealDft& inner_of(int p) {
    static const std::map<int, RealDft> inner = [] {
        const Rule n2 = small(2), n3 = small(3), n4 = small(4), n5 = small(5);
        std::map<int, RealDft> made;
        made.emplace(13, RealDft(P(n3, n4)));
        made.emplace(17, RealDft(T(n2, small(8))));
        made.emplace(19, RealDft(P(T(n3, n3), n2)));
        made.emplace(23, RealDft(P(n2, small(11))));
        made.emplace(29, RealDft(P(n4, small(7))));
        made.emplace(31, RealDft(P(P(n2, n5), n3)));
        return made;
    }();
    const auto found = inner.find(p);
    if (found == inner.end())
        throw std::logic_error("no small transform of " + std::to_string(p) + " points");
    return found->second;
}

}  // namespace

// With w[t] = exp(-2 pi i g^t / p) and L = p - 1, y[g^m] = x[0] + sum over j of u[j] w[j + m],
// u[j] = x[g^j]. The real part of w has period L/2 and so only even frequencies k, the imaginary
// part only odd ones, so that at each k the spectrum of w is c + i s of a real sequence, times -i
// where k is odd. With even[k] and odd[k] of u, the product's share of the result is
// 2 (c even - s odd) cos - 2 (c odd + s even) sin, four real products where a pair of complex ones
// would take eight, and all of it over sequences of real constants.
Points rader_in_lanes(ComplexAlgebra& m, const Points& x) {
    const int p = static_cast<int>(x.size());
    const int g = primitive_root(p);
    const RealDft& inner = inner_of(p);
    const int L = inner.length();
    Points u;
    for (int j = 0; j < L; ++j) u.push_back(x[at(power_modulo(g, j, p))]);
    const RealDft::HalfSpectrum U = inner.forward(m, u);
    RealDft::HalfSpectrum V{Points(at(L / 2 + 1)), Points(at(L / 2 + 1))};
    for (int k = 0; k <= L / 2; ++k) {
        const ExactComplex W = rader_spectrum(p, g, (L - k) % L);
        const bool alone = k == 0 || k == L / 2;
        const Exact weight = Exact::rational(alone ? 1 : 2);
        const Exact c = Exact::product({weight, k % 2 == 0 ? W.re : -W.im});
        const Exact s = Exact::product({weight, k % 2 == 0 ? W.im : W.re});
        ComplexVector even = m.scaled(U.even[at(k)], c);
        ComplexVector odd;
        if (!alone) {
            even = m.sub(even, m.scaled(U.odd[at(k)], s));
            const ComplexVector even_s = m.scaled(U.even[at(k)], s);
            odd = m.add(m.scaled(U.odd[at(k)], c), even_s);
            odd = {-odd.re, -odd.im};
        }
        V.even[at(k)] = k % 2 == 0 ? even : m.turned(even);
        V.odd[at(k)] = k % 2 == 0 ? odd : m.turned(odd);
    }
    V.even[0] = m.add(V.even[0], x[0]);
    const Points r = inner.transposed(m, V);
    Points y(at(p));
    y[0] = m.add(x[0], U.even[0]);
    for (int j = 0; j < L; ++j) y[at(power_modulo(g, j, p))] = r[at(j)];
    return y;
}

}  // namespace dft_complex
