#include "transforms/dft_real/decompositions/real_dft.hpp"

namespace dft_real {
namespace {

// A quarter turn by -i.
Complex turned(const Complex& x) {
    return {x.im, -x.re};
}

Complexes four(RowArithmetic& m, const Complexes& x) {
    const Complex a = m.add(x[0], x[2]);
    const Complex b = m.sub(x[0], x[2]);
    const Complex c = m.add(x[1], x[3]);
    const Complex d = turned(m.sub(x[1], x[3]));
    const Complex y0 = m.add(a, c);
    const Complex y1 = m.add(b, d);
    const Complex y2 = m.sub(a, c);
    return {y0, y1, y2, m.sub(b, d)};
}

// Z[k] = sum of d[n] w^(n (2 k + 1)), w = exp(-2 pi i / (2 M)), k = 0 to M/2 - 1; the other half is
// Z[M - 1 - k] = conj(Z[k]). The index splits by 4: with G_c the same transform of d[c + 4 n], of
// length M/4, Z[j + m M/4] is the four-point transform over c of G_c[j] w^(c (2 j + 1)).
Complexes odd_frequencies(RowArithmetic& m, const Reals& d) {
    const int M = static_cast<int>(d.size());
    if (M == 2) return {{d[0], -d[1]}};
    Complexes Z(at(M / 2));
    if (M == 4) {
        const Exact c = Exact::cosine(1, 8);
        const Ref p = m.row({{c, d[1]}});
        const Ref q = m.row({{c, d[3]}});
        const Ref difference = m.sub(p, q);
        const Ref sum = m.add(p, q);
        Z[0] = {m.add(d[0], difference), -m.add(d[2], sum)};
        Z[1] = {m.sub(d[0], difference), m.sub(d[2], sum)};
        return Z;
    }
    std::vector<Complexes> G;
    for (int c = 0; c < 4; ++c) {
        Reals part;
        for (int n = c; n < M; n += 4) part.push_back(d[at(n)]);
        G.push_back(odd_frequencies(m, part));
    }
    for (int j = 0; j < M / 8; ++j) {
        Complexes points;
        for (int c = 0; c < 4; ++c)
            points.push_back(
                rotated(m, G[at(c)][at(j)], static_cast<long>(c) * (2 * j + 1), 2L * M));
        const Complexes joined = four(m, points);
        for (int i = 0; i < 4; ++i) {
            const int k = j + i * (M / 4);
            if (k < M / 2)
                Z[at(k)] = joined[at(i)];
            else
                Z[at(M - 1 - k)] = conjugate(joined[at(i)]);
        }
    }
    return Z;
}

}  // namespace

HalfSpectrum radix_two_real_dft(RowArithmetic& m, const Reals& x) {
    const int N = static_cast<int>(x.size());
    Reals u;
    Reals d;
    for (int n = 0; n < N / 2; ++n) {
        u.push_back(m.add(x[at(n)], x[at(n + N / 2)]));
        d.push_back(m.sub(x[at(n)], x[at(n + N / 2)]));
    }
    if (N == 2) return {{u[0], {}}, {d[0], {}}};
    const HalfSpectrum even = radix_two_real_dft(m, u);
    const Complexes odd = odd_frequencies(m, d);
    HalfSpectrum X(at(N / 2 + 1));
    for (int k = 0; k <= N / 4; ++k) X[at(2 * k)] = even[at(k)];
    for (int k = 0; k < N / 4; ++k) X[at(2 * k + 1)] = odd[at(k)];
    return X;
}

// Even bins give the halves' sum, whose inverse is u[n] = x[n] + x[n + N/2] of half the length. Odd
// bins 4 k + 1 hold, with their conjugates 4 (-k) - 1, all of the rest: with a the complex inverse
// of length N/4 over X[4 k + 1], turned by exp(+2 pi i n / N), x[n] - x[n + N/2] is 2 re a[n], and
// at n + N/4 it is -2 im a[n]. The factor 2 stands in the given bins already.
Reals split_radix_inverse(RowArithmetic& m, const HalfSpectrum& X) {
    const int N = 2 * (static_cast<int>(X.size()) - 1);
    if (N == 2) return {m.add(X[0].re, X[1].re), m.sub(X[0].re, X[1].re)};
    HalfSpectrum even(at(N / 4 + 1));
    for (int k = 0; k <= N / 4; ++k) even[at(k)] = X[at(2 * k)];
    const Reals u = split_radix_inverse(m, even);
    const int quarter = N / 4;
    Complexes ones(at(quarter));
    for (int k = 0; k < quarter; ++k) ones[at(k)] = bin(X, N, 4 * k + 1);
    const Complexes a = quarter == 1 ? ones : complex_inverse_dft(m, {quarter}, ones);
    Reals x(at(N));
    for (int n = 0; n < quarter; ++n) {
        const Complex v = rotated(m, a[at(n)], -n, N);
        x[at(n)] = m.add(u[at(n)], v.re);
        x[at(n + 2 * quarter)] = m.sub(u[at(n)], v.re);
        x[at(n + quarter)] = m.sub(u[at(n + quarter)], v.im);
        x[at(n + 3 * quarter)] = m.add(u[at(n + quarter)], v.im);
    }
    return x;
}

// As in the complex kernels: u and v the sums and differences of halves, the odd bins from
// (v[n] -+ i v[n + N/4]) w^n and w^(3 n).
Complexes split_radix_complex_dft(RowArithmetic& m, const Complexes& x) {
    const int N = static_cast<int>(x.size());
    if (N == 1) return x;
    if (N == 2) {
        const Complex sum = m.add(x[0], x[1]);
        return {sum, m.sub(x[0], x[1])};
    }
    if (N == 4) return four(m, x);
    const int half = N / 2;
    const int quarter = N / 4;
    Complexes u;
    Complexes v;
    for (int n = 0; n < half; ++n) {
        u.push_back(m.add(x[at(n)], x[at(n + half)]));
        v.push_back(m.sub(x[at(n)], x[at(n + half)]));
    }
    Complexes a;
    Complexes b;
    for (int n = 0; n < quarter; ++n) {
        const Complex r = turned(v[at(n + quarter)]);
        a.push_back(rotated(m, m.add(v[at(n)], r), n, N));
        b.push_back(rotated(m, m.sub(v[at(n)], r), 3L * n, N));
    }
    const Complexes even = split_radix_complex_dft(m, u);
    const Complexes first = split_radix_complex_dft(m, a);
    const Complexes third = split_radix_complex_dft(m, b);
    Complexes y(at(N));
    for (int k = 0; k < half; ++k) y[at(2 * k)] = even[at(k)];
    for (int k = 0; k < quarter; ++k) {
        y[at(4 * k + 1)] = first[at(k)];
        y[at(4 * k + 3)] = third[at(k)];
    }
    return y;
}

}  // namespace dft_real
