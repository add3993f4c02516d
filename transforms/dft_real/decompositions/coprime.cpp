#include "transforms/dft_real/decompositions/real_dft.hpp"
#include "transforms/residues/residues.hpp"

namespace dft_real {
namespace {

int smallest_prime_factor(int n) {
    int prime = 2;
    while (n % prime != 0) ++prime;
    return prime;
}

}  // namespace

CoprimeParts coprime_parts(const Order& order) {
    const int last = smallest_prime_factor(order.back());
    auto cut = order.end();
    while (cut != order.begin() && *(cut - 1) % last == 0) --cut;
    if (cut == order.begin()) return {order, {}};
    return {Order(order.begin(), cut), Order(cut, order.end())};
}

// The two stages of four points stand at the ends, and the transforms of length b between them are
// of real values: X(r, s) = sum over i of (-i)^(r i) times bin s of x(i) + (-1)^r x(i + 2).
HalfSpectrum real_dft_between_twos(RowArithmetic& m, const Order& between, const Reals& x) {
    const int b = length_of(between);
    const int N = 4 * b;
    std::vector<HalfSpectrum> sums;
    std::vector<HalfSpectrum> differences;
    for (int i = 0; i < 2; ++i) {
        Reals u;
        Reals d;
        for (int c = 0; c < b; ++c) {
            const Ref first = x[at((b * i + 4 * c) % N)];
            const Ref third = x[at((b * (i + 2) + 4 * c) % N)];
            u.push_back(m.add(first, third));
            d.push_back(m.sub(first, third));
        }
        sums.push_back(real_dft(m, between, u));
        differences.push_back(real_dft(m, between, d));
    }
    HalfSpectrum X(at(N / 2 + 1));
    for (int s = 0; 2 * s < b; ++s) {
        const Complex turned{differences[1][at(s)].im, -differences[1][at(s)].re};
        const Complex of_row[] = {
            m.add(sums[0][at(s)], sums[1][at(s)]), m.add(differences[0][at(s)], turned),
            m.sub(sums[0][at(s)], sums[1][at(s)]), m.sub(differences[0][at(s)], turned)};
        for (int r = 0; r < 4; ++r) set_bin(X, N, residues::from_remainders(r, 4, s, b), of_row[r]);
    }
    return X;
}

// x[(b i + a c) mod N] in coset c gives, by a transform over i and one over c, the one bin k with
// k = r modulo a and k = s modulo b. Rows r and a - r are conjugate, so half of them are formed.
HalfSpectrum coprime_real_dft(RowArithmetic& m, const CoprimeParts& parts, const Reals& x) {
    const int a = length_of(parts.first);
    const int b = length_of(parts.second);
    const int N = a * b;
    std::vector<HalfSpectrum> cosets;
    for (int c = 0; c < b; ++c) {
        Reals coset;
        for (int i = 0; i < a; ++i) coset.push_back(x[at((b * i + a * c) % N)]);
        cosets.push_back(real_dft(m, parts.first, coset));
    }
    HalfSpectrum X(at(N / 2 + 1));
    for (int r = 0; 2 * r <= a; ++r) {
        const bool real_row = r == 0 || 2 * r == a;
        Complexes row;
        for (int c = 0; c < b; ++c) row.push_back(cosets[at(c)][at(r)]);
        if (real_row) {
            Reals reals;
            for (const Complex& value : row) reals.push_back(value.re);
            row = real_dft(m, parts.second, reals);
        } else {
            row = complex_dft(m, parts.second, row);
        }
        for (int s = 0; s < static_cast<int>(row.size()); ++s)
            set_bin(X, N, residues::from_remainders(r, a, s, b), row[at(s)]);
    }
    return X;
}

// The same backwards: columns s first, of which those of s and b - s are conjugate.
Reals coprime_inverse(RowArithmetic& m, const CoprimeParts& parts, const HalfSpectrum& X,
                      ElevenPoints eleven) {
    const int a = length_of(parts.first);
    const int b = length_of(parts.second);
    const int N = a * b;
    std::vector<HalfSpectrum> rows(at(a), HalfSpectrum(at(b / 2 + 1)));
    for (int s = 0; 2 * s <= b; ++s) {
        const bool real_column = s == 0 || 2 * s == b;
        Complexes column;
        for (int r = 0; r < a; ++r)
            column.push_back(bin(X, N, residues::from_remainders(r, a, s, b)));
        if (real_column) {
            column.resize(at(a / 2 + 1));
            const Reals reals = inverse_real_dft(m, parts.first, column, eleven);
            for (int i = 0; i < a; ++i) rows[at(i)][at(s)] = {reals[at(i)], {}};
        } else {
            column = complex_inverse_dft(m, parts.first, column);
            for (int i = 0; i < a; ++i) rows[at(i)][at(s)] = column[at(i)];
        }
    }
    Reals x(at(N));
    for (int i = 0; i < a; ++i) {
        const Reals row = inverse_real_dft(m, parts.second, rows[at(i)], eleven);
        for (int c = 0; c < b; ++c) x[at((b * i + a * c) % N)] = row[at(c)];
    }
    return x;
}

Complexes coprime_complex_dft(RowArithmetic& m, const CoprimeParts& parts, const Complexes& x) {
    const int a = length_of(parts.first);
    const int b = length_of(parts.second);
    const int N = a * b;
    std::vector<Complexes> cosets;
    for (int c = 0; c < b; ++c) {
        Complexes coset;
        for (int i = 0; i < a; ++i) coset.push_back(x[at((b * i + a * c) % N)]);
        cosets.push_back(complex_dft(m, parts.first, coset));
    }
    Complexes X(at(N));
    for (int r = 0; r < a; ++r) {
        Complexes row;
        for (int c = 0; c < b; ++c) row.push_back(cosets[at(c)][at(r)]);
        row = complex_dft(m, parts.second, row);
        for (int s = 0; s < b; ++s) X[at(residues::from_remainders(r, a, s, b))] = row[at(s)];
    }
    return X;
}

}  // namespace dft_real
