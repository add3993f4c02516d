/** @file @brief Complex DFTs of four points each, the columns of an array in one call. */

#include <array>
#include <complex>
#include <cstdio>
#include <qsvgen.hpp>

int main() {
    using Row = std::array<std::complex<float>, 2>;
    const std::array<Row, 4> x = {Row{1, 5}, Row{2, 5}, Row{3, 5}, Row{4, 5}};
    std::array<Row, 4> y{};
    if (qsvgen::dft(qsvgen::columns(x), qsvgen::columns(y)) != qsvStatusOk) return 1;
    for (const Row& row : y) std::printf("%g %g\n", row[0].real(), row[0].imag());
}
