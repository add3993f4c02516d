#include <stdexcept>

#include "transforms/dft_real/decompositions/rader_parts.hpp"
#include "transforms/dft_real/rules/stage_orders.hpp"

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

int length_of(const Order& order) {
    int length = 1;
    for (int factor : order) length *= factor;
    return length;
}

Complex bin(const HalfSpectrum& X, int n, int k) {
    return 2 * k <= n ? X[at(k)] : conjugate(X[at(n - k)]);
}

void set_bin(HalfSpectrum& X, int n, int k, const Complex& value) {
    if (2 * k <= n)
        X[at(k)] = value;
    else
        X[at(n - k)] = conjugate(value);
}

HalfSpectrum real_dft(RowArithmetic& m, const Order& order, const Reals& x) {
    const bool between_twos =
        order.size() > 2 && order.front() == 2 && order[1] % 2 != 0 && order.back() == 2;
    if (between_twos) return real_dft_between_twos(m, {order.begin() + 1, order.end() - 1}, x);
    const CoprimeParts parts = coprime_parts(order);
    if (!parts.second.empty()) return coprime_real_dft(m, parts, x);
    const int prime = order.front();
    if (prime % 2 == 0) return radix_two_real_dft(m, x);
    if (order.size() > 1) return power_real_dft(m, order, x);
    if (prime <= 11) return dense_real_dft(m, x);
    if (prime == 13) return rader_of_thirteen(m, x);
    return rader_real_dft(m, inner_order(prime, Kind::Forward), x);
}

Reals inverse_real_dft(RowArithmetic& m, const Order& order, const HalfSpectrum& X,
                       ElevenPoints eleven) {
    const CoprimeParts parts = coprime_parts(order);
    if (!parts.second.empty()) return coprime_inverse(m, parts, X, eleven);
    const int prime = order.front();
    if (prime % 2 == 0) return split_radix_inverse(m, X);
    if (order.size() > 1) return power_inverse(m, order, X);
    const bool dense = eleven == ElevenPoints::Dense ? prime <= 11 : prime < 11;
    return dense ? dense_inverse(m, X) : rader_inverse(m, inner_order(prime, Kind::Inverse), X);
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
