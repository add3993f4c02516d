#include <map>
#include <stdexcept>
#include <string>
#include <utility>

#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/decompositions/signals.hpp"
#include "transforms/dft_complex/small_transforms/dft_over_reals.hpp"
#include "transforms/dft_complex/small_transforms/small_transforms.hpp"

namespace dft_complex {
namespace {

// Of the orders of factors, those with the smallest error among those with the fewest operations.
Rule inner_rule(int p) {
    const Rule n2 = small(2), n3 = small(3), n4 = small(4), n7 = small(7), n8 = small(8),
               n9 = T(n3, n3), h5 = small(5, SmallForm::HalfSumOfTwo);
    switch (p) {
        case 13:
            return P(n4, n3);
        case 17:
            return T(n2, n8);
        case 19:
            return P(n2, T(n3, n3, Residues::FromZero));
        case 23:
            return P(n2, small(11));
        case 29:
            return P(n4, n7);
        case 31:
            return P(P(n2, h5), n3);
        case 37:
            return P(n4, n9);
        case 41:
            return P(n8, h5);
        case 43:
            return P(P(n2, n7), n3);
        case 47:
            // 22 has the factor 11, so that Rader's form would take more sums and more products and
            // lose more by rounding.
            return P(n2, small(23, SmallForm::Pairs));
        case 53:
            return P(n4, small(13));
        case 59:
            return P(n2, small(29));
        case 61:
            return P(P(n4, h5), n3);
        default:
            throw std::logic_error("no small transform of " + std::to_string(p) + " points");
    }
}

const RealDft& inner_of(int p) {
    static std::map<int, RealDft> made;
    const auto found = made.find(p);
    if (found != made.end()) return found->second;
    RealDft inner(inner_rule(p));  // may ask for that of another prime
    return made.emplace(p, std::move(inner)).first->second;
}

}  // namespace

// With w[t] = exp(-2 pi i g^t / p) and L = p - 1, y[g^m] = x[0] + sum over j of u[j] w[j + m],
// u[j] = x[g^j]. The real part of w has period L/2 and so only even frequencies k, the imaginary
// part only odd ones, so that at each k the spectrum of w is c + i s of a real sequence, times -i
// where k is odd. With even[k] and odd[k] of u, the product's share of the result is
// 2 (c even - s odd) cos - 2 (c odd + s even) sin, four real products where a pair of complex ones
// would take eight, and all of it over sequences of real constants.
Points rader_over_reals(ComplexAlgebra& m, const Points& x) {
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
        const Exact c = k % 2 == 0 ? W.re : -W.im;
        const Exact s = k % 2 == 0 ? W.im : W.re;
        const Exact& fe = inner.even_factor(k);
        const Exact& fo = inner.odd_factor(k);
        const auto times = [&](const ComplexVector& v, const std::vector<Exact>& factors) {
            const Exact factor = Exact::product(factors);
            return k % 2 == 0 ? m.scaled(v, factor) : m.turned_scaled(v, factor);
        };
        V.even[at(k)] = times(U.even[at(k)], {weight, fe, fe, c});
        if (alone) continue;
        V.even[at(k)] = m.sub(V.even[at(k)], times(U.odd[at(k)], {weight, fe, fo, s}));
        const ComplexVector even_s = times(U.even[at(k)], {weight, fe, fo, s});
        const ComplexVector odd = m.add(times(U.odd[at(k)], {weight, fo, fo, c}), even_s);
        V.odd[at(k)] = {-odd.re, -odd.im};
    }
    // The factor of frequency 0 is 1 in every decomposition.
    V.even[0] = m.add(V.even[0], x[0]);
    const Points r = inner.transposed(m, V);
    Points y(at(p));
    y[0] = m.add(x[0], U.even[0]);
    for (int j = 0; j < L; ++j) y[at(power_modulo(g, j, p))] = r[at(j)];
    return y;
}

}  // namespace dft_complex
