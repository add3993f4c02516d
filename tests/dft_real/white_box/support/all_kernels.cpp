#include "tests/dft_real/white_box/support/all_kernels.hpp"

#include <gtest/gtest.h>

#include <map>
#include <tuple>

namespace dft_real_test {

const RealKernel& kernel(int length, Direction direction, Layout layout, Element element) {
    static std::map<std::tuple<int, Direction, Layout, Element>, RealKernel> known;
    const std::tuple key{length, direction, layout, element};
    auto found = known.find(key);
    if (found == known.end()) {
        RealKernel made = dft_real::dft_kernel(length, direction, layout, element);
        found = known.emplace(key, std::move(made)).first;
    }
    return found->second;
}

int Kernel::inputs() const {
    return direction == Direction::Forward ? length : array_length(layout, length);
}

int Kernel::outputs() const {
    return direction == Direction::Forward ? array_length(layout, length) : length;
}

void for_each_kernel(const std::function<void(const Kernel&)>& check) {
    for (Direction direction : kDirections) for_each_kernel(direction, check);
}

void for_each_kernel(Direction direction, const std::function<void(const Kernel&)>& check) {
    for (Element element : kElements) {
        for (Layout layout : kLayouts) {
            for (int length : dft_real::lengths()) {
                const Kernel one{length, direction, layout, element};
                SCOPED_TRACE(one.made().name());
                check(one);
                if (testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

}  // namespace dft_real_test
