#include "dft_complex/decompositions.hpp"
#include "dft_complex/signals.hpp"
#include "dft_complex/small_transforms.hpp"

namespace dft_complex {
namespace {

constexpr int kPrime = 13;
constexpr int kInner = 12;

Exact times(long factor, const Exact& c) { return Exact::product({Exact::rational(factor), c}); }

// A conjugate pair U[k] = a - i b, U[-k] = a + i b under the spectrum S[k] = c + i s, S[-k] = +-
// conj(S[k]): twice the new a and b. Four real products where two complex ones would need eight.
struct Pair {
    ComplexVector a;
    ComplexVector b;
};

Pair under_spectrum(ComplexAlgebra& m, const Pair& u, int k) {
    const ExactComplex S = rader_spectrum(kPrime, primitive_root(kPrime), k);
    const Exact c = times(2, S.re);
    const Exact s = times(2, S.im);
    return {m.add(m.scaled(u.a, c), m.scaled(u.b, s)), m.sub(m.scaled(u.b, c), m.scaled(u.a, s))};
}

// The same for a pair whose b still lacks the factor sin(2 pi / 3) of the three-point transform and
// whose result needs that factor on b again: both are folded into the constants.
Pair under_folded_spectrum(ComplexAlgebra& m, const Pair& u, int k) {
    const ExactComplex S = rader_spectrum(kPrime, primitive_root(kPrime), k);
    const Exact c = times(2, S.re);
    const Exact s = Exact::product({Exact::square_root(3), S.im});
    const Exact d = Exact::product({Exact::rational(3, 2), S.re});
    return {m.add(m.scaled(u.a, c), m.scaled(u.b, s)), m.sub(m.scaled(u.b, d), m.scaled(u.a, s))};
}

// Three-point transform before its last butterfly: the sum, x[0] - (x[1] + x[2]) / 2, x[1] - x[2].
struct Three {
    ComplexVector sum;
    ComplexVector even;
    ComplexVector difference;
};

Three three(ComplexAlgebra& m, const ComplexVector x[3]) {
    const ComplexVector u = m.add(x[1], x[2]);
    return {m.add(x[0], u), m.sub(x[0], m.scaled(u, Exact::rational(1, 2))), m.sub(x[1], x[2])};
}

// z[c] = t + a cos(2 pi c / 3) + b, - b for c = 1, 2
void back_three(ComplexAlgebra& m, const ComplexVector& t, const ComplexVector& a,
                const ComplexVector& b, ComplexVector z[3]) {
    const ComplexVector half = m.sub(t, m.scaled(a, Exact::rational(1, 2)));
    z[0] = m.add(t, a);
    z[1] = m.add(half, b);
    z[2] = m.sub(half, b);
}

}  // namespace

// The inner transform of length 12 is P(4,3) each way, k = r modulo 4 = s modulo 3. Its last forward
// and first backward butterflies are left out: for inputs in conjugate positions k and -k they
// cancel around the spectrum, which then acts on each pair by real constants.
Points rader_pairs(ComplexAlgebra& m, const Points& x) {
    const int g = primitive_root(kPrime);
    const Exact sine3 = Exact::sine(1, 3);

    // Four-point transforms of the three classes: rows r = 0 and 2, and the parts b -+ i d of
    // rows 1 and 3.
    ComplexVector row0[3], row2[3], b[3], d[3];
    for (int c = 0; c < 3; ++c) {
        const auto u = [&](int t) { return x[at(power_modulo(g, (4 * c + 3 * t) % kInner, kPrime))]; };
        const ComplexVector even = m.add(u(0), u(2));
        const ComplexVector odd = m.add(u(1), u(3));
        row0[c] = m.add(even, odd);
        row2[c] = m.sub(even, odd);
        b[c] = m.sub(u(0), u(2));
        d[c] = m.sub(u(1), u(3));
    }
    const Three e = three(m, row0);
    const Three f = three(m, row2);
    const Three B = three(m, b);
    const Three D = three(m, d);
    const ComplexVector Bp = m.scaled(B.difference, sine3);
    const ComplexVector Dp = m.scaled(D.difference, sine3);

    const auto real_part = [&](int k) { return rader_spectrum(kPrime, g, k).re; };
    const ComplexVector V0 = m.add(m.scaled(e.sum, real_part(0)), x[0]);
    const ComplexVector V6 = m.scaled(f.sum, real_part(6));
    const Pair V4 = under_folded_spectrum(m, {e.even, e.difference}, 4);
    const Pair V10 = under_folded_spectrum(m, {f.even, f.difference}, 10);
    const Pair V9 = under_spectrum(m, {B.sum, D.sum}, 9);
    const Pair V1 = under_spectrum(m, {m.sub(B.even, Dp), m.add(D.even, Bp)}, 1);
    const Pair V5 = under_spectrum(m, {m.add(B.even, Dp), m.sub(D.even, Bp)}, 5);

    ComplexVector E[3], F[3], M[3], N[3];
    back_three(m, V0, V4.a, V4.b, E);
    back_three(m, V6, V10.a, V10.b, F);
    back_three(m, V9.b, m.add(V1.b, V5.b), m.scaled(m.sub(V5.a, V1.a), sine3), M);
    back_three(m, V9.a, m.add(V1.a, V5.a), m.scaled(m.sub(V1.b, V5.b), sine3), N);

    Points y(at(kPrime));
    y[0] = m.add(x[0], e.sum);
    for (int j = 0; j < kInner; ++j) {
        const int c = j % 3;
        const int t = 3 * j % 4;
        const ComplexVector turned = m.turned(t % 2 == 0 ? M[c] : N[c]);
        const ComplexVector plain = t % 2 == 0 ? m.add(E[c], F[c]) : m.sub(E[c], F[c]);
        const bool minus = t == 1 || t == 2;
        y[at(power_modulo(g, (kInner - j) % kInner, kPrime))] =
            minus ? m.sub(plain, turned) : m.add(plain, turned);
    }
    return y;
}

}  // namespace dft_complex
