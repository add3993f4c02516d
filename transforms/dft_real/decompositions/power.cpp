#include "transforms/dft_real/decompositions/real_dft.hpp"

namespace dft_real {
namespace {

struct Split {
    int a;  ///< the prime
    int b;
    Order rest;  ///< of b
};

Split split(const Order& order) {
    const Order rest(order.begin() + 1, order.end());
    return {order.front(), length_of(rest), rest};
}

}  // namespace

// With n = c + b i and k = j + a m: transforms of length a over i, of which bin j is rotated by
// exp(-2 pi i j c / N), and then transforms of length b over c.
HalfSpectrum power_real_dft(RowArithmetic& m, const Order& order, const Reals& x) {
    const auto [a, b, rest] = split(order);
    const int N = a * b;
    std::vector<HalfSpectrum> cosets;
    for (int c = 0; c < b; ++c) {
        Reals coset;
        for (int i = 0; i < a; ++i) coset.push_back(x[at(c + b * i)]);
        cosets.push_back(dense_real_dft(m, coset));
    }
    HalfSpectrum X(at(N / 2 + 1));
    Reals real_row;
    for (int c = 0; c < b; ++c) real_row.push_back(cosets[at(c)][0].re);
    const HalfSpectrum zeroth = real_dft(m, rest, real_row);
    for (int k = 0; 2 * k <= b; ++k) X[at(a * k)] = zeroth[at(k)];
    for (int j = 1; 2 * j < a; ++j) {
        Complexes row;
        for (int c = 0; c < b; ++c)
            row.push_back(rotated(m, cosets[at(c)][at(j)], static_cast<long>(j) * c, N));
        row = complex_dft(m, rest, row);
        for (int k = 0; k < b; ++k) set_bin(X, N, j + a * k, row[at(k)]);
    }
    return X;
}

// The same backwards.
Reals power_inverse(RowArithmetic& m, const Order& order, const HalfSpectrum& X) {
    const auto [a, b, rest] = split(order);
    const int N = a * b;
    HalfSpectrum zeroth(at(b / 2 + 1));
    for (int k = 0; 2 * k <= b; ++k) zeroth[at(k)] = X[at(a * k)];
    const Reals real_row = inverse_real_dft(m, rest, zeroth);
    std::vector<Complexes> rows(1);
    for (int j = 1; 2 * j < a; ++j) {
        Complexes row;
        for (int k = 0; k < b; ++k) row.push_back(bin(X, N, j + a * k));
        rows.push_back(complex_inverse_dft(m, rest, row));
    }
    Reals x(at(N));
    for (int c = 0; c < b; ++c) {
        HalfSpectrum bins{{real_row[at(c)], {}}};
        for (int j = 1; 2 * j < a; ++j)
            bins.push_back(rotated(m, rows[at(j)][at(c)], -static_cast<long>(j) * c, N));
        const Reals coset = dense_inverse(m, bins);
        for (int i = 0; i < a; ++i) x[at(c + b * i)] = coset[at(i)];
    }
    return x;
}

Complexes power_complex_dft(RowArithmetic& m, const Order& order, const Complexes& x) {
    const auto [a, b, rest] = split(order);
    const int N = a * b;
    std::vector<Complexes> cosets;
    for (int c = 0; c < b; ++c) {
        Complexes coset;
        for (int i = 0; i < a; ++i) coset.push_back(x[at(c + b * i)]);
        cosets.push_back(dense_complex_dft(m, coset));
    }
    Complexes X(at(N));
    for (int j = 0; j < a; ++j) {
        Complexes row;
        for (int c = 0; c < b; ++c)
            row.push_back(rotated(m, cosets[at(c)][at(j)], static_cast<long>(j) * c, N));
        row = complex_dft(m, rest, row);
        for (int k = 0; k < b; ++k) X[at(j + a * k)] = row[at(k)];
    }
    return X;
}

}  // namespace dft_real
