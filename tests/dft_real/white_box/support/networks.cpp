#include "tests/dft_real/white_box/support/networks.hpp"

#include "tests/dft_real/white_box/support/all_kernels.hpp"
#include "tests/hartley/white_box/support/all_kernels.hpp"

namespace dft_real_test {

const RealKernel& kernel(int length, Kind kind, Element element) {
    if (kind == Kind::Hartley) return hartley_test::kernel(length, element);
    const Direction direction = kind == Kind::Forward ? Direction::Forward : Direction::Inverse;
    return kernel(length, direction, Layout::CCS, element);
}

}  // namespace dft_real_test
