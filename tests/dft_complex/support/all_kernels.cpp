#include "tests/dft_complex/support/all_kernels.hpp"

#include <gtest/gtest.h>

#include <map>
#include <utility>

namespace dft_complex_test {

const Kernel& kernel(int length, Direction direction) {
    static std::map<std::pair<int, Direction>, Kernel> known;
    const std::pair<int, Direction> key{length, direction};
    auto found = known.find(key);
    if (found == known.end())
        found = known.emplace(key, dft_complex::single_precision_kernel(length, direction)).first;
    return found->second;
}

void for_each_kernel(const std::function<void(const Kernel&)>& check) {
    for (Direction direction : {Direction::Forward, Direction::Inverse}) {
        for (int length = 2; length <= 64; ++length) {
            SCOPED_TRACE(std::string(name_of(direction)) + ", length " + std::to_string(length));
            check(kernel(length, direction));
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

const char* name_of(Direction direction) {
    return direction == Direction::Forward ? "forward" : "inverse";
}

}  // namespace dft_complex_test
