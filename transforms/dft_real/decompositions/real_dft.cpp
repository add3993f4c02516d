#include <stdexcept>

#include "transforms/dft_real/decompositions/rader_parts.hpp"

namespace dft_real {
namespace {

Complex exchanged(const Complex& x) {
    return {x.im, x.re};
}

Complexes exchanged(const Complexes& x) {
    Complexes y;
    for (const Complex& value : x) y.push_back(exchanged(value));
    return y;
}

// The order of a prime's convolution is that of the table.
const Order& inner_order(int p, Kind kind) {
    return row_of(p).order_of(kind);
}

}  // namespace

Complex bin(const HalfSpectrum& X, int n, int k) {
    return 2 * k <= n ? X[at(k)] : conjugate(X[at(n - k)]);
}

void set_bin(HalfSpectrum& X, int n, int k, const Complex& value) {
    if (2 * k <= n)
        X[at(k)] = value;
    else
        X[at(n - k)] = conjugate(value);
}

Method method_of_real_dft(const Order& order) {
    const bool between_twos =
        order.size() > 2 && order.front() == 2 && order[1] % 2 != 0 && order.back() == 2;
    if (between_twos) return Method::BetweenTwos;
    if (!coprime_parts(order).second.empty()) return Method::Coprime;
    if (order.front() % 2 == 0) return Method::PowerOfTwo;
    if (order.size() > 1) return Method::PowerOfOddPrime;
    return order.front() <= 11 ? Method::Dense : Method::Rader;
}

Method method_of_inverse(const Order& order, ElevenPoints eleven) {
    if (!coprime_parts(order).second.empty()) return Method::Coprime;
    if (order.front() % 2 == 0) return Method::PowerOfTwo;
    if (order.size() > 1) return Method::PowerOfOddPrime;
    const int longest_dense = eleven == ElevenPoints::Dense ? 11 : 7;
    return order.front() <= longest_dense ? Method::Dense : Method::Rader;
}

HalfSpectrum real_dft(RowArithmetic& m, const Order& order, const Reals& x) {
    switch (method_of_real_dft(order)) {
        case Method::BetweenTwos:
            return real_dft_between_twos(m, {order.begin() + 1, order.end() - 1}, x);
        case Method::Coprime:
            return coprime_real_dft(m, coprime_parts(order), x);
        case Method::PowerOfTwo:
            return radix_two_real_dft(m, x);
        case Method::PowerOfOddPrime:
            return power_real_dft(m, order, x);
        case Method::Dense:
            return dense_real_dft(m, x);
        case Method::Rader:
            break;
    }
    const int prime = order.front();
    return convolution_form(prime) == ConvolutionForm::SineWaits
               ? rader_of_thirteen(m, x)
               : rader_real_dft(m, inner_order(prime, Kind::Forward), x);
}

Reals inverse_real_dft(RowArithmetic& m, const Order& order, const HalfSpectrum& X,
                       ElevenPoints eleven) {
    switch (method_of_inverse(order, eleven)) {
        case Method::BetweenTwos:
            throw std::logic_error("no inverse transform stands between twos");
        case Method::Coprime:
            return coprime_inverse(m, coprime_parts(order), X, eleven);
        case Method::PowerOfTwo:
            return split_radix_inverse(m, X);
        case Method::PowerOfOddPrime:
            return power_inverse(m, order, X);
        case Method::Dense:
            return dense_inverse(m, X);
        case Method::Rader:
            break;
    }
    return rader_inverse(m, inner_order(order.front(), Kind::Inverse), X);
}

Complexes complex_dft(RowArithmetic& m, const Order& order, const Complexes& x) {
    const CoprimeParts parts = coprime_parts(order);
    if (!parts.second.empty()) return coprime_complex_dft(m, parts, x);
    if (order.front() % 2 == 0) return split_radix_complex_dft(m, x);
    return order.size() > 1 ? power_complex_dft(m, order, x) : dense_complex_dft(m, x);
}

Complexes complex_inverse_dft(RowArithmetic& m, const Order& order, const Complexes& x) {
    return exchanged(complex_dft(m, order, exchanged(x)));
}

}  // namespace dft_real
