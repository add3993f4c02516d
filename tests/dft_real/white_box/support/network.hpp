#pragma once

/**
 * @file
 * @brief A transform of real or complex values as a graph of its own, and its deviation from the
 * matrix that defines it.
 *
 * Complex value n stands in elements 2 n and 2 n + 1. An input that is absent has no load, so that
 * its column must be zero.
 */

#include <functional>
#include <string>

#include "kernelgen/proof/proof.hpp"
#include "transforms/dft_real/decompositions/real_dft.hpp"

namespace dft_real_test {

using dft_real::at;
using dft_real::Complexes;
using dft_real::Reals;
using dft_real::Ref;
using dft_real::RowArithmetic;
using kernelgen::ExactComplex;
using kernelgen::Graph;
using kernelgen::Wide;

/** Which real elements of the source are present. */
using Presence = std::function<bool(int element)>;

inline bool all_present(int) {
    return true;
}

inline void store(RowArithmetic& m, Ref value, int element) {
    if (value.is_zero())
        m.store_zero(element);
    else
        m.store_scaled(value, element);
}

inline void store(RowArithmetic& m, const Complexes& values) {
    for (std::size_t k = 0; k < values.size(); ++k) {
        store(m, values[k].re, static_cast<int>(2 * k));
        store(m, values[k].im, static_cast<int>(2 * k + 1));
    }
}

inline Ref load(RowArithmetic& m, int element, const Presence& present) {
    return present(element) ? m.load(element) : Ref{};
}

using RealToSpectrum = std::function<Complexes(RowArithmetic&, const Reals&)>;
using SpectrumToReal = std::function<Reals(RowArithmetic&, const Complexes&)>;
using ComplexToComplex = std::function<Complexes(RowArithmetic&, const Complexes&)>;

/** N real points to bins 0 to floor(N / 2). */
inline Graph forward_network(int N, const RealToSpectrum& transform,
                             const Presence& present = all_present) {
    Graph graph;
    RowArithmetic m(graph);
    Reals x;
    for (int n = 0; n < N; ++n) x.push_back(load(m, n, present));
    store(m, transform(m, x));
    return graph;
}

/** The same backwards; the bins are not doubled. */
inline Graph inverse_network(int N, const SpectrumToReal& transform,
                             const Presence& present = all_present) {
    Graph graph;
    RowArithmetic m(graph);
    Complexes X;
    for (int k = 0; 2 * k <= N; ++k) {
        X.push_back({load(m, 2 * k, present), {}});
        if (k > 0 && 2 * k < N) X.back().im = load(m, 2 * k + 1, present);
    }
    const Reals x = transform(m, X);
    for (int n = 0; n < N; ++n) store(m, x[at(n)], n);
    return graph;
}

/** N complex points to as many bins. */
inline Graph complex_network(int N, const ComplexToComplex& transform,
                             const Presence& present = all_present) {
    Graph graph;
    RowArithmetic m(graph);
    Complexes x;
    for (int n = 0; n < N; ++n) {
        const Ref re = load(m, 2 * n, present);
        x.push_back({re, load(m, 2 * n + 1, present)});
    }
    store(m, transform(m, x));
    return graph;
}

inline bool has_imaginary_part(int N, int k) {
    return k > 0 && 2 * k < N;
}

inline Wide forward_deviation(int N, const Graph& graph, const Presence& present = all_present) {
    return kernelgen::deviation(graph, N, 2 * (N / 2) + 2, [&](int row, int n) -> Wide {
        const int k = row / 2;
        if (!present(n) || (row % 2 != 0 && !has_imaginary_part(N, k))) return 0;
        const ExactComplex w = ExactComplex::forward_root(static_cast<long>(k) * n, N);
        return row % 2 == 0 ? w.re.value() : w.im.value();
    });
}

inline Wide inverse_deviation(int N, const Graph& graph, const Presence& present = all_present) {
    return kernelgen::deviation(graph, 2 * (N / 2) + 2, N, [&](int n, int column) -> Wide {
        const int k = column / 2;
        if (!present(column) || (column % 2 != 0 && !has_imaginary_part(N, k))) return 0;
        const ExactComplex w = ExactComplex::forward_root(static_cast<long>(k) * n, N);
        // re X cos - im X sin, where im w is -sin.
        return column % 2 == 0 ? w.re.value() : w.im.value();
    });
}

/** `sign` is -1 for the forward transform's exponent. */
inline Wide complex_deviation(int N, const Graph& graph, int sign,
                              const Presence& present = all_present) {
    return kernelgen::deviation(graph, 2 * N, 2 * N, [&](int row, int column) -> Wide {
        if (!present(column)) return 0;
        const ExactComplex w =
            ExactComplex::forward_root(-sign * static_cast<long>(row / 2) * (column / 2), N);
        if (row % 2 == column % 2) return w.re.value();
        return row % 2 != 0 ? w.im.value() : Wide(-w.im.value());
    });
}

inline std::string in_words(const dft_real::Order& order) {
    std::string text = "order {";
    for (std::size_t i = 0; i < order.size(); ++i)
        text += (i == 0 ? "" : ", ") + std::to_string(order[i]);
    return text + "}";
}

/** Where a right graph agrees, apart from the last of some 60 digits. */
inline const Wide kExact = Wide("1e-28");

}  // namespace dft_real_test
