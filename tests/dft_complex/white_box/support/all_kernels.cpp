#include "tests/dft_complex/white_box/support/all_kernels.hpp"

#include <gtest/gtest.h>

#include <map>
#include <tuple>

namespace dft_complex_test {

const Kernel& kernel(int length, Direction direction, Element element) {
    static std::map<std::tuple<int, Direction, Element>, Kernel> known;
    const std::tuple key{length, direction, element};
    auto found = known.find(key);
    if (found == known.end()) {
        Kernel made = dft_complex::proven_kernel(length, direction, element);
        found = known.emplace(key, std::move(made)).first;
    }
    return found->second;
}

void for_each_kernel(const std::function<void(const Kernel&)>& check) {
    for (Element element : kElements) for_each_kernel(element, check);
}

void for_each_kernel(Element element, const std::function<void(const Kernel&)>& check) {
    for (Direction direction : kDirections) {
        for (int length : dft_complex::lengths()) {
            SCOPED_TRACE(describe(length, direction, element));
            check(kernel(length, direction, element));
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

const char* name_of(Direction direction) {
    return direction == Direction::Forward ? "forward" : "inverse";
}

std::string describe(int length, Direction direction, Element element) {
    return std::string(name_of(direction)) + ", " + suffix(element) + ", length " +
           std::to_string(length);
}

}  // namespace dft_complex_test
