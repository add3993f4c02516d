#include "tests/hartley/white_box/support/all_kernels.hpp"

#include <gtest/gtest.h>

#include <map>

namespace hartley_test {

using dft_real::Element;
using dft_real::RealKernel;

const RealKernel& kernel(int length, Element element) {
    static std::map<std::pair<int, Element>, RealKernel> known;
    const std::pair key{length, element};
    auto found = known.find(key);
    if (found == known.end()) {
        RealKernel made = hartley::hartley_kernel(length, element);
        found = known.emplace(key, std::move(made)).first;
    }
    return found->second;
}

void for_each_kernel(Element element, const std::function<void(const RealKernel&)>& check) {
    for (int length : dft_real::lengths()) {
        const RealKernel& one = kernel(length, element);
        SCOPED_TRACE(one.name());
        check(one);
        if (testing::Test::HasFatalFailure()) return;
    }
}

void for_each_kernel(const std::function<void(const RealKernel&)>& check) {
    for (Element element : dft_real::kElements) for_each_kernel(element, check);
}

}  // namespace hartley_test
