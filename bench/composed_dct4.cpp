#include "composed_dct4.hpp"

namespace bench {
namespace {

template <typename Real>
void Before(const Real* __restrict x, const Real* __restrict factors, Real* __restrict z,
            size_t size) {
    for (size_t i = 0; i < size / 2; ++i) {
        const Real re = x[2 * i];
        const Real im = x[size - 1 - 2 * i];
        const Real c = factors[2 * i];
        const Real s = factors[2 * i + 1];
        z[2 * i] = re * c - im * s;
        z[2 * i + 1] = re * s + im * c;
    }
}

template <typename Real>
void After(const Real* __restrict z, const Real* __restrict factors, Real* __restrict y,
           size_t size) {
    for (size_t i = 0; i < size / 2; ++i) {
        const Real re = z[2 * i];
        const Real im = z[2 * i + 1];
        const Real c = factors[2 * i];
        const Real s = factors[2 * i + 1];
        y[2 * i] = re * c - im * s;
        y[size - 1 - 2 * i] = -(re * s + im * c);
    }
}

}  // namespace

void TwiddleBeforeDft(const float* x, const float* factors, float* z, size_t size) {
    Before(x, factors, z, size);
}
void TwiddleBeforeDft(const double* x, const double* factors, double* z, size_t size) {
    Before(x, factors, z, size);
}
void TwiddleAfterDft(const float* z, const float* factors, float* y, size_t size) {
    After(z, factors, y, size);
}
void TwiddleAfterDft(const double* z, const double* factors, double* y, size_t size) {
    After(z, factors, y, size);
}

}  // namespace bench
