#include "transforms/dft_real/decompositions/rader_parts.hpp"
#include "transforms/residues/residues.hpp"

namespace dft_real {
namespace {

using kernelgen::ExactComplex;

/** A length of 4 q', q' odd, or the like, in its even and its odd factors. */
struct EvenAndOdd {
    Order even;
    Order odd;
};

EvenAndOdd even_and_odd(int length, Kind kind) {
    EvenAndOdd parts;
    for (int factor : row_of(length).factors_of(kind))
        (factor % 2 == 0 ? parts.even : parts.odd).push_back(factor);
    return parts;
}

// The inverse transform of length 2 q of bins 0, 2, ... has period q: it is that of length q.
Reals inverse_of_even_bins(RowArithmetic& m, const HalfSpectrum& X, ElevenPoints eleven) {
    const int q = static_cast<int>(X.size()) - 1;
    HalfSpectrum even(at(q / 2 + 1));
    for (int k = 0; 2 * k <= q; ++k) even[at(k)] = X[at(2 * k)];
    return inverse_real_dft(m, row_of(q).factors_of(Kind::Inverse), even, eleven);
}

// Bins 0, 2, ... up to q of the transform of length 2 q of x[0] to x[q - 1] and zeros.
HalfSpectrum even_bins(RowArithmetic& m, const Reals& x) {
    const int q = static_cast<int>(x.size());
    const HalfSpectrum even = real_dft(m, row_of(q).factors_of(Kind::Forward), x);
    HalfSpectrum X(at(q + 1));
    for (int k = 0; 2 * k <= q; ++k) X[at(2 * k)] = even[at(k)];
    return X;
}

// Bins 1, 3, ..., by the same two ways: what is to be zeros may as well be -x[0] to -x[q - 1],
// where half of the cosets of the power of two are enough.
HalfSpectrum odd_bins(RowArithmetic& m, const Reals& x) {
    const int q = static_cast<int>(x.size());
    const int L = 2 * q;
    HalfSpectrum X(at(q + 1));
    if (q % 2 != 0) {
        Reals signed_x = x;
        for (int j = 1; j < q; j += 2) signed_x[at(j)] = -x[at(j)];
        const HalfSpectrum shifted = real_dft(m, row_of(q).factors_of(Kind::Forward), signed_x);
        for (int k = 0; 2 * k <= q; ++k) set_bin(X, L, (2 * k + q) % L, shifted[at(k)]);
        return X;
    }
    const auto [even, odd] = even_and_odd(L, Kind::Forward);
    if (odd.empty()) {
        Reals padded = x;
        padded.resize(at(L));
        return radix_two_real_dft(m, padded);
    }
    const int a = length_of(odd);
    const int b = length_of(even);
    std::vector<HalfSpectrum> cosets;
    for (int c = 0; c < b / 2; ++c) {
        Reals coset;
        for (int i = 0; i < a; ++i) {
            const int n = (b * i + a * c) % L;
            coset.push_back(n < q ? x[at(n)] : -x[at(n - q)]);
        }
        cosets.push_back(real_dft(m, odd, coset));
    }
    for (int r = 0; 2 * r < a; ++r) {
        Complexes row(at(b));
        for (int c = 0; c < b / 2; ++c) row[at(c)] = cosets[at(c)][at(r)];
        if (r == 0) {
            Reals reals;
            for (const Complex& value : row) reals.push_back(value.re);
            row = radix_two_real_dft(m, reals);
        } else {
            row = split_radix_complex_dft(m, row);
        }
        for (int s = 1; s < static_cast<int>(row.size()); s += 2)
            set_bin(X, L, residues::from_remainders(r, a, s, b), row[at(s)]);
    }
    return X;
}

// The same where each part that is but a product hands its constant on.
Complex joined_product(RowArithmetic& m, const Complex& a, const ExactComplex& c) {
    const Term re = m.only_product_of(a.re);
    const Term im = m.only_product_of(a.im);
    const auto join = [](const Exact& constant, const Term& term) -> Term {
        if (term.constant.is_one()) return {constant, term.value};
        return {product_of_rounded(constant, term.constant), term.value};
    };
    const Ref real_row = m.row({join(c.re, re), join(-c.im, im)});
    return {real_row, m.row({join(c.re, im), join(c.im, re)})};
}

}  // namespace

Complex product(RowArithmetic& m, const Complex& a, const ExactComplex& c) {
    const Ref re = m.row({{c.re, a.re}, {-c.im, a.im}});
    return {re, m.row({{c.re, a.im}, {c.im, a.re}})};
}

namespace {

Exact as_settled(const Exact& constant, int p, int k, bool imaginary) {
    for (const SettledConstant& settled : settled_constants()) {
        if (settled.prime != p || settled.frequency != k || settled.imaginary != imaginary)
            continue;
        const Exact magnitude = constant.is_negative() ? -constant : constant;
        const Exact pinned = Exact::pinned(settled.magnitude, magnitude);
        return constant.is_negative() ? -pinned : pinned;
    }
    return constant;
}

}  // namespace

ExactComplex convolution_constant(int p, int g, int k) {
    const bool own_conjugate = 2 * k == p - 1;
    const Exact weight = Exact::rational(own_conjugate ? 1 : 2);
    const ExactComplex W = residues::rader_spectrum(p, g, k);
    const Exact re = Exact::product({weight, k % 2 == 0 ? W.re : W.im});
    const Exact im = Exact::product({weight, k % 2 == 0 ? W.im : -W.re});
    return {as_settled(re, p, k, false),
            own_conjugate ? Exact::rational(0) : as_settled(im, p, k, true)};
}

// Of bins 1, 3, ... the transform changes its sign after q points. For odd q the sign (-1)^j makes
// it one of length q, whose bin (k + q) / 2 is bin k; for even q half of the rows of the power of
// two do.
Reals inverse_of_odd_bins(RowArithmetic& m, const HalfSpectrum& X, ElevenPoints eleven) {
    const int q = static_cast<int>(X.size()) - 1;
    const int L = 2 * q;
    Reals x(at(q));
    if (q % 2 != 0) {
        HalfSpectrum shifted(at(q / 2 + 1));
        for (int k = 0; 2 * k <= q; ++k) shifted[at(k)] = bin(X, L, (2 * k + q) % L);
        x = inverse_real_dft(m, row_of(q).factors_of(Kind::Inverse), shifted, eleven);
        for (int j = 1; j < q; j += 2) x[at(j)] = -x[at(j)];
        return x;
    }
    const auto [even, odd] = even_and_odd(L, Kind::Inverse);
    if (odd.empty()) {
        x = split_radix_inverse(m, X);
        x.resize(at(q));
        return x;
    }
    const int a = length_of(even);
    const int b = length_of(odd);
    std::vector<HalfSpectrum> rows(at(a / 2), HalfSpectrum(at(b / 2 + 1)));
    for (int s = 0; 2 * s <= b; ++s) {
        Complexes column;
        for (int r = 0; r < a; ++r)
            column.push_back(bin(X, L, residues::from_remainders(r, a, s, b)));
        if (s == 0) {
            column.resize(at(a / 2 + 1));
            const Reals reals = split_radix_inverse(m, column);
            for (int i = 0; i < a / 2; ++i) rows[at(i)][0] = {reals[at(i)], {}};
        } else {
            column = complex_inverse_dft(m, even, column);
            for (int i = 0; i < a / 2; ++i) rows[at(i)][at(s)] = column[at(i)];
        }
    }
    for (int i = 0; i < a / 2; ++i) {
        const Reals row = inverse_real_dft(m, odd, rows[at(i)]);
        for (int c = 0; c < b; ++c) {
            const int n = (b * i + a * c) % L;
            x[at(n % q)] = n < q ? row[at(c)] : -row[at(c)];
        }
    }
    return x;
}

// With a[i] = x[g^i], X[g^(-j)] = x[0] + b[j], b the cyclic convolution of a with
// w[j] = exp(-2 pi i g^(-j) / p). As b[j + q] is the conjugate of b[j], the even bins of its
// spectrum give the real parts and the odd ones the imaginary parts: two inverse real transforms,
// each with gaps. Bin 0 of w is -1, so that x[0] can join it and reach all outputs.
HalfSpectrum rader_real_dft(RowArithmetic& m, const Order& inner, const Reals& x,
                            ElevenPoints eleven) {
    const int p = static_cast<int>(x.size());
    const int g = residues::primitive_root(p);
    const int L = p - 1;
    const int q = L / 2;
    Reals a;
    for (int i = 0; i < L; ++i) a.push_back(x[at(residues::power_modulo(g, i, p))]);
    const HalfSpectrum A = real_dft(m, inner, a);
    HalfSpectrum reals(at(q + 1));
    HalfSpectrum imaginaries(at(q + 1));
    reals[0].re = m.row({{Exact::rational(1), x[0]}, {-Exact::rational(1, L), A[0].re}});
    for (int k = 1; k <= q; ++k) {
        HalfSpectrum& part = k % 2 == 0 ? reals : imaginaries;
        part[at(k)] = product(m, A[at(k)], convolution_constant(p, g, k));
    }
    const Reals re = inverse_of_even_bins(m, reals, eleven);
    const Reals im = inverse_of_odd_bins(m, imaginaries, eleven);
    HalfSpectrum X(at(q + 1));
    X[0].re = m.add(A[0].re, x[0]);
    for (int j = 0; j < q; ++j)
        set_bin(X, p, residues::power_modulo(g, L - j, p), {re[at(j)], im[at(j)]});
    return X;
}

// The same backwards: with C[j] = X[g^(-j)], x[g^i] = X[0] + the cyclic convolution of C with
// exp(+2 pi i g^i / p), whose spectrum is the conjugate of that of w.
Reals rader_inverse(RowArithmetic& m, const Order& inner, const HalfSpectrum& X) {
    const int q = static_cast<int>(X.size()) - 1;
    const int p = 2 * q + 1;
    const int g = residues::primitive_root(p);
    const int L = p - 1;
    Reals reals;
    Reals imaginaries;
    for (int j = 0; j < q; ++j) {
        const Complex C = bin(X, p, residues::power_modulo(g, L - j, p));
        reals.push_back(C.re);
        imaginaries.push_back(C.im);
    }
    const HalfSpectrum even = even_bins(m, reals);
    const HalfSpectrum odd = odd_bins(m, imaginaries);
    HalfSpectrum V(at(q + 1));
    V[0].re = m.row({{Exact::rational(1), X[0].re}, {-Exact::rational(1, L), even[0].re}});
    // The given bins are doubled already, and the interior ones of V are to be.
    for (int k = 1; k <= q; ++k) {
        const ExactComplex W = convolution_constant(p, g, k);
        V[at(k)] = joined_product(m, k % 2 == 0 ? even[at(k)] : odd[at(k)], {W.re, -W.im});
    }
    const Reals v = inverse_real_dft(m, inner, V, kElevenPointsBehindConvolutions);
    Reals x(at(p));
    x[0] = m.add(even[0].re, X[0].re);
    for (int i = 0; i < L; ++i) x[at(residues::power_modulo(g, i, p))] = v[at(i)];
    return x;
}

}  // namespace dft_real
