/** @file @brief Spectrum of three real points in the Pack layout. */

#include <qsvgen.h>

#include <array>
#include <cstdio>

int main() {
    const std::array<Real64, 3> x = {2, 1, 1};
    std::array<Real64, 3> X = {};
    if (qsvgDFTFwd_RToPack_3_64f(x.data(), X.data(), qsvScaleNone) != qsvStatusOk) return 1;
    for (const Real64 part : X) std::printf("%g\n", part);
}
