#include "transforms/hartley/hartley_transform.hpp"

#include <set>

namespace hartley {

using dft_real::at;
using dft_real::HalfSpectrum;
using dft_real::Kind;
using dft_real::Order;
using dft_real::Reals;
using dft_real::Ref;
using dft_real::RowArithmetic;

namespace {

// On the way back from the convolution that a prime's own order is of.
constexpr dft_real::ElevenPoints kElevenPointsOfPrimes = dft_real::ElevenPoints::Dense;

HalfSpectrum spectrum(RowArithmetic& m, const Reals& x) {
    const int N = static_cast<int>(x.size());
    const dft_real::TableRow& row = dft_real::row_of(N);
    const Order& order = row.order_of(Kind::Hartley);
    if (row.is_convolution(Kind::Hartley))
        return dft_real::rader_real_dft(m, order, x, kElevenPointsOfPrimes);
    // The closing stage takes the opposites of the imaginary parts as well.
    if (dft_real::method_of_real_dft(order) == dft_real::Method::Dense)
        return dft_real::dense_real_dft(m, x, dft_real::ImaginarySign::Negative);
    return dft_real::real_dft(m, order, x);
}

Reals closed(RowArithmetic& m, const Reals& x) {
    const int N = static_cast<int>(x.size());
    const HalfSpectrum X = spectrum(m, x);
    Reals y(at(N));
    y[0] = X[0].re;
    if (N % 2 == 0) y[at(N / 2)] = X[at(N / 2)].re;
    for (int k = 1; 2 * k < N; ++k) {
        y[at(k)] = m.sub(X[at(k)].re, X[at(k)].im);
        y[at(N - k)] = m.add(X[at(k)].re, X[at(k)].im);
    }
    return y;
}

Reals opened(RowArithmetic& m, const Reals& x) {
    const int N = static_cast<int>(x.size());
    HalfSpectrum X(at(N / 2 + 1));
    X[0].re = x[0];
    if (N % 2 == 0) X[at(N / 2)].re = x[at(N / 2)];
    for (int k = 1; 2 * k < N; ++k) {
        const Ref sum = m.add(x[at(k)], x[at(N - k)]);
        X[at(k)] = {sum, m.sub(x[at(N - k)], x[at(k)])};
    }
    const dft_real::TableRow& row = dft_real::row_of(N);
    const Order& order = row.order_of(Kind::Hartley);
    return row.is_convolution(Kind::Hartley) ? dft_real::rader_inverse(m, order, X)
                                             : dft_real::inverse_real_dft(m, order, X);
}

}  // namespace

PairStage pair_stage(int length) {
    // Powers of 3 with another factor and long powers of two have fewer products backwards.
    static const std::set<int> opening = {12, 15, 18, 20, 25, 27, 28, 30, 31, 32, 33, 34, 35, 36,
                                          40, 42, 43, 44, 45, 46, 48, 51, 54, 55, 56, 60, 62, 64};
    return opening.contains(length) ? PairStage::Opening : PairStage::Closing;
}

Reals hartley_transform(RowArithmetic& m, const Reals& x) {
    return pair_stage(static_cast<int>(x.size())) == PairStage::Closing ? closed(m, x)
                                                                        : opened(m, x);
}

dft_real::Decomposition decomposition(int length) {
    const dft_real::TableRow& row = dft_real::row_of(length);
    const bool is_forward = pair_stage(length) == PairStage::Closing;
    const Order& order = row.order_of(Kind::Hartley);
    if (!row.is_convolution(Kind::Hartley)) {
        return is_forward ? dft_real::decomposed_real_dft(order)
                          : dft_real::decomposed_inverse(order);
    }
    return is_forward ? dft_real::decomposed_rader(order, kElevenPointsOfPrimes)
                      : dft_real::decomposed_rader_inverse(order);
}

}  // namespace hartley
