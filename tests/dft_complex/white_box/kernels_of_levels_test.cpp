/** @file @brief Which kernels a level has for itself, and what it takes from the level below. */
#include <gtest/gtest.h>

#include <algorithm>

#include "transforms/dft_complex/kernels/complex_kernel.hpp"

namespace {

using dft_complex::described_kernel;
using dft_complex::Direction;
using dft_complex::Element;
using dft_complex::Kernel;
using dft_complex::Target;

/** Calls `check` with each forward kernel of a level and that of the level below. */
template <class Check>
void for_each_kernel_of_levels(const Check& check) {
    for (const Target& level : {kernelgen::kX86_64_v3, kernelgen::kX86_64_v4}) {
        for (Element element : {Element::Complex32, Element::Complex64}) {
            for (int length : dft_complex::lengths()) {
                SCOPED_TRACE(std::to_string(length) + " " + suffix(element) + ", " +
                             std::string(level.name));
                check(level, described_kernel(length, Direction::Forward, element, level),
                      described_kernel(length, Direction::Forward, element, *level.level_below));
            }
        }
    }
}

bool is_own(const Target& target, const Kernel& kernel) {
    const std::vector<int> own = dft_complex::own_lengths(kernel.element, target);
    return std::count(own.begin(), own.end(), kernel.length) > 0;
}

TEST(KernelsOfLevels, AreAllOfATargetThatIsNoLevel) {
    for (const Target& target : {kernelgen::kIa32, kernelgen::kX86_64, kernelgen::kAarch64}) {
        EXPECT_EQ(dft_complex::lengths(), dft_complex::own_lengths(Element::Complex32, target));
        EXPECT_EQ(dft_complex::lengths(), dft_complex::own_lengths(Element::Complex64, target));
    }
}

TEST(KernelsOfLevels, AreSomeOfThoseThatFindFasterOnes) {
    for (const Target& level : {kernelgen::kX86_64_v3, kernelgen::kX86_64_v4}) {
        const auto own = dft_complex::own_lengths(Element::Complex64, level).size();
        EXPECT_GT(own, 0U) << level.name;
        EXPECT_LT(own, dft_complex::lengths().size()) << level.name;
    }
}

TEST(KernelsOfLevels, AreWrittenForTheLevelThatHasThemForItself) {
    for_each_kernel_of_levels([](const Target& level, const Kernel& kernel, const Kernel& below) {
        EXPECT_EQ(is_own(level, kernel) ? level.name : below.target.name, kernel.target.name);
    });
}

TEST(KernelsOfLevels, AreThoseOfTheLevelBelowWhereNoneIsTheirOwn) {
    for_each_kernel_of_levels([](const Target& level, const Kernel& kernel, const Kernel& below) {
        if (is_own(level, kernel)) return;
        EXPECT_EQ(below.order, kernel.order);
        EXPECT_EQ(below.option, kernel.option);
        EXPECT_EQ(below.packs, kernel.packs);
    });
}

TEST(KernelsOfLevels, HaveThePacksOfTheLevelBelowWhereNoneAreTheirOwn) {
    for_each_kernel_of_levels([](const Target& level, const Kernel& kernel, const Kernel& below) {
        if (level.name != kernelgen::kX86_64_v4.name) return;
        EXPECT_EQ(below.packs, kernel.packs);
    });
}

}  // namespace
