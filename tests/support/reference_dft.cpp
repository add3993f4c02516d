#include "support/reference_dft.hpp"

#include <cmath>
#include <numbers>
#include <utility>

namespace qsvgen_test {

Wide root_of_unity(int numerator, int denominator) {
    // The angle is folded into the first octant while it is still a whole number of eighths of a
    // step, so that cosl and sinl see an angle with one rounding and at most pi/4 large.
    const int circle = 8 * denominator;
    int angle = (8 * numerator) % circle;
    if (angle < 0) angle += circle;
    const bool below_axis = angle > circle / 2;
    if (below_axis) angle = circle - angle;
    const bool left_of_axis = angle > circle / 4;
    if (left_of_axis) angle = circle / 2 - angle;
    const bool above_diagonal = angle > circle / 8;
    if (above_diagonal) angle = circle / 4 - angle;

    const long double radians = 2 * std::numbers::pi_v<long double> * angle / circle;
    Wide root = {std::cos(radians), std::sin(radians)};
    if (above_diagonal) std::swap(root.re, root.im);
    if (left_of_axis) root.re = -root.re;
    if (below_axis) root.im = -root.im;
    return root;
}

std::vector<Wide> reference_dft(const std::vector<Wide>& x, Direction direction) {
    const int length = static_cast<int>(x.size());
    const int sign = direction == Direction::Forward ? -1 : 1;
    std::vector<Wide> roots;
    roots.reserve(x.size());
    for (int j = 0; j < length; ++j) roots.push_back(root_of_unity(sign * j, length));

    std::vector<Wide> y(x.size());
    for (int k = 0; k < length; ++k) {
        Wide sum;
        for (int n = 0; n < length; ++n) {
            sum = sum +
                  x[static_cast<std::size_t>(n)] * roots[static_cast<std::size_t>(n * k % length)];
        }
        y[static_cast<std::size_t>(k)] = sum;
    }
    return y;
}

}  // namespace qsvgen_test
