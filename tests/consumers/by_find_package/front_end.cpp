/** @file @brief Spectrum of three real points in the Pack layout, by the front end for C++. */

#include <array>
#include <cstdio>
#include <qsvgen.hpp>

int main() {
    const std::array<double, 3> x = {2, 1, 1};
    std::array<double, 3> X = {};
    qsvgen::real_dft<3>(x, X, qsvgen::pack);
    for (const double part : X) std::printf("%g\n", part);
}
