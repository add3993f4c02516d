/** @file @brief Walsh-Hadamard transform of 256 points, which takes memory of the core library. */

#include <qsvgen.h>

#include <cstdio>
#include <vector>

int main() {
    std::vector<Real32> x(256, 1);
    if (qsvgWHT_32f(x.data(), x.data(), 8, qsvScaleNone, nullptr) != qsvStatusOk) return 1;
    std::printf("%g %g %g\n", x[0], x[1], x[255]);
}
