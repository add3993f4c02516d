/** @file @brief Which kernels a level has for itself, and what it takes from the level below. */
#include <gtest/gtest.h>

#include <algorithm>

#include "transforms/dft_real/kernels/real_dft_kernel.hpp"

namespace {

using dft_real::Direction;
using dft_real::Element;
using dft_real::Kind;
using dft_real::Layout;
using dft_real::RealKernel;
using dft_real::Target;

constexpr int kLengths[] = {2, 16, 23, 47, 48, 60, 64};

/** Calls `check` with kernels of a level and those of the level below. */
template <class Check>
void for_kernels_of_levels(const Check& check) {
    for (const Target& level : {kernelgen::kX86_64_v3, kernelgen::kX86_64_v4}) {
        for (Element element : dft_real::kElements) {
            for (Direction direction : dft_real::kDirections) {
                for (int length : kLengths) {
                    const auto described = [&](const Target& target) {
                        return described_dft_kernel(length, direction, Layout::CCS, element,
                                                    target);
                    };
                    const RealKernel kernel = described(level);
                    SCOPED_TRACE(kernel.name() + ", " + std::string(level.name));
                    check(level, kernel, described(*level.level_below));
                }
            }
        }
    }
}

bool is_own(const Target& target, const RealKernel& kernel) {
    const std::vector<int> own = dft_real::own_lengths(kernel.family.kind, kernel.element, target);
    return std::count(own.begin(), own.end(), kernel.length) > 0;
}

TEST(KernelsOfLevels, AreAllOfATargetThatIsNoLevel) {
    for (const Target& target : {kernelgen::kIa32, kernelgen::kX86_64, kernelgen::kAarch64}) {
        for (Kind kind : {Kind::Forward, Kind::Inverse, Kind::Hartley})
            EXPECT_EQ(dft_real::lengths(), dft_real::own_lengths(kind, Element::Real32, target));
    }
}

TEST(KernelsOfLevels, AreWrittenForTheLevelThatHasThemForItself) {
    for_kernels_of_levels(
        [](const Target& level, const RealKernel& kernel, const RealKernel& below) {
            EXPECT_EQ(is_own(level, kernel) ? level.name : below.target.name, kernel.target.name);
        });
}

TEST(KernelsOfLevels, AreThoseOfTheLevelBelowWhereNoneIsTheirOwn) {
    for_kernels_of_levels(
        [](const Target& level, const RealKernel& kernel, const RealKernel& below) {
            if (is_own(level, kernel)) return;
            EXPECT_EQ(below.tuning.order, kernel.tuning.order);
            EXPECT_EQ(below.tuning.option, kernel.tuning.option);
            EXPECT_EQ(below.tuning.packs, kernel.tuning.packs);
        });
}

TEST(KernelsOfLevels, HaveThePacksOfTheLevelBelowWhereNoneAreTheirOwn) {
    for_kernels_of_levels(
        [](const Target& level, const RealKernel& kernel, const RealKernel& below) {
            if (level.name != kernelgen::kX86_64_v4.name) return;
            EXPECT_EQ(below.tuning.packs, kernel.tuning.packs);
        });
}

}  // namespace
