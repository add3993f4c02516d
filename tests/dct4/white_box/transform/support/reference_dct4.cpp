#include "support/reference_dct4.hpp"

#include <cmath>
#include <complex>
#include <numbers>

namespace qsvgen_test {
namespace {

using Complex = std::complex<long double>;
constexpr long double kPi = std::numbers::pi_v<long double>;

/** exp(-i pi numerator / denominator) */
Complex root(long double numerator, long double denominator) {
    return {std::cos(kPi * numerator / denominator), -std::sin(kPi * numerator / denominator)};
}

/** Forward, by halves. */
void fourier_transform(std::vector<Complex>& a) {
    const std::size_t half = a.size() / 2;
    if (half == 0) return;
    std::vector<Complex> even(half);
    std::vector<Complex> odd(half);
    for (std::size_t i = 0; i < half; ++i) {
        even[i] = a[2 * i];
        odd[i] = a[2 * i + 1];
    }
    fourier_transform(even);
    fourier_transform(odd);
    for (std::size_t k = 0; k < half; ++k) {
        const Complex turned =
            odd[k] * root(static_cast<long double>(k), static_cast<long double>(half));
        a[k] = even[k] + turned;
        a[k + half] = even[k] - turned;
    }
}

}  // namespace

Dct4Matrix::Dct4Matrix(int length) : length_(length) {
    for (int t = 0; t < 8 * length; ++t)
        cosines_.push_back(
            std::cos(kPi * static_cast<long double>(t) / (4 * static_cast<long double>(length))));
}

std::vector<long double> dct4_by_definition(const std::vector<long double>& x) {
    const int length = static_cast<int>(x.size());
    const Dct4Matrix matrix(length);
    std::vector<long double> y(x.size(), 0);
    for (int k = 0; k < length; ++k) {
        for (int n = 0; n < length; ++n)
            y[static_cast<std::size_t>(k)] += matrix.at(k, n) * x[static_cast<std::size_t>(n)];
    }
    return y;
}

std::vector<long double> fast_dct4(const std::vector<long double>& x) {
    const std::size_t N = x.size();
    const auto size = static_cast<long double>(N);
    std::vector<Complex> z(N / 2);
    for (std::size_t n = 0; n < N / 2; ++n) {
        const auto index = static_cast<long double>(n);
        z[n] = Complex(x[2 * n], x[N - 1 - 2 * n]) * root(4 * index + 1, 4 * size);
    }
    fourier_transform(z);
    std::vector<long double> y(N);
    for (std::size_t k = 0; k < N / 2; ++k) {
        const Complex w = z[k] * root(static_cast<long double>(k), size);
        y[2 * k] = w.real();
        y[N - 1 - 2 * k] = -w.imag();
    }
    return y;
}

}  // namespace qsvgen_test
