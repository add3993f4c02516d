/** @file @brief Compares an added kernel with the definition of the DFT: exits with 0 if it is
 * that. */
#include <cmath>
#include <complex>
#include <cstdio>
#include <vector>

#include "qsvgen.h"

// Of itself it is about a length that is there.
#ifndef QSVG_ADDED_LENGTH
#define QSVG_ADDED_LENGTH 64
#define QSVG_ADDED_BITS 32
#endif

#define QSVG_JOINED_(a, n, b) a##n##b
#define QSVG_JOINED(a, n, b) QSVG_JOINED_(a, n, b)
#if QSVG_ADDED_BITS == 32
using Complex = Complex32;
#define QSVG_ADDED(family) QSVG_JOINED(family, QSVG_ADDED_LENGTH, _32fc)
#else
using Complex = Complex64;
#define QSVG_ADDED(family) QSVG_JOINED(family, QSVG_ADDED_LENGTH, _64fc)
#endif
extern "C" {
QsvStatus QSVG_ADDED(qsvgDFTFwd_CToC_)(const Complex*, Complex*, int32_t);
QsvStatus QSVG_ADDED(qsvgDFTInv_CToC_)(const Complex*, Complex*, int32_t);
}

namespace {

constexpr int kLength = QSVG_ADDED_LENGTH;

double largest_error(QsvStatus (*transform)(const Complex*, Complex*, int32_t), int sign) {
    std::vector<Complex> x(kLength), y(kLength);
    for (int n = 0; n < kLength; ++n) {
        const auto t = static_cast<float>(n);
        x[n] = {std::sin(3 * t + 1), std::cos(7 * t)};
    }
    if (transform(x.data(), y.data(), qsvScaleNone) != qsvStatusOk) return 1e9;
    double worst = 0;
    for (int k = 0; k < kLength; ++k) {
        std::complex<double> sum = 0;
        for (int n = 0; n < kLength; ++n)
            sum += std::complex<double>(x[n].re, x[n].im) *
                   std::polar(1.0, sign * 2 * M_PI * (n * k % kLength) / kLength);
        worst = std::max(worst, std::abs(sum - std::complex<double>(y[k].re, y[k].im)));
    }
    return worst;
}

}  // namespace

int main() {
    // Far above what rounding leaves of sums of this length, far below any wrong term.
    const double limit = QSVG_ADDED_BITS == 32 ? 1e-4 : 1e-12;
    const double forward = largest_error(QSVG_ADDED(qsvgDFTFwd_CToC_), -1);
    const double inverse = largest_error(QSVG_ADDED(qsvgDFTInv_CToC_), 1);
    std::printf("length %d, %d bits: errors %g forward, %g inverse\n", kLength, QSVG_ADDED_BITS,
                forward, inverse);
    return forward < limit && inverse < limit ? 0 : 1;
}
