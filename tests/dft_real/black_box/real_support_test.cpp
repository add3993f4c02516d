/** @file @brief The yardsticks of the tests of real transforms, against something independent. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/real_layout.hpp"
#include "support/real_reference.hpp"
#include "support/reference_dft.hpp"
#include "support/signals.hpp"

namespace qsvgen_test {
namespace {

std::string show(Layout layout, int length) {
    std::string text;
    for (const auto& slot : slots_of(layout, length)) text += to_string(slot) + " ";
    return text;
}

TEST(RealLayout, IsTheOneWrittenOutForShortLengths) {
    EXPECT_EQ("R0 0 R1 0 ", show(Layout::Ccs, 2));
    EXPECT_EQ("R0 R1 ", show(Layout::Pack, 2));
    EXPECT_EQ("R0 R1 ", show(Layout::Perm, 2));
    EXPECT_EQ("R0 0 R1 I1 ", show(Layout::Ccs, 3));
    EXPECT_EQ("R0 R1 I1 ", show(Layout::Pack, 3));
    EXPECT_EQ("R0 R1 I1 ", show(Layout::Perm, 3));
    EXPECT_EQ("R0 R1 I1 R2 ", show(Layout::Pack, 4));
    EXPECT_EQ("R0 R2 R1 I1 ", show(Layout::Perm, 4));
    EXPECT_EQ("R0 0 R1 I1 R2 I2 R3 0 ", show(Layout::Ccs, 6));
    EXPECT_EQ("R0 R1 I1 R2 I2 R3 ", show(Layout::Pack, 6));
    EXPECT_EQ("R0 R3 R1 I1 R2 I2 ", show(Layout::Perm, 6));
    EXPECT_EQ("R0 0 R1 I1 R2 I2 R3 I3 ", show(Layout::Ccs, 7));
    EXPECT_EQ("R0 R1 I1 R2 I2 R3 I3 ", show(Layout::Pack, 7));
    EXPECT_EQ("R0 R1 I1 R2 I2 R3 I3 ", show(Layout::Perm, 7));
}

TEST(RealLayout, HasTheSizeThatItsSlotsFill) {
    for (int length : kHeaderLengths) {
        for (const auto layout : kRealLayouts) {
            EXPECT_EQ(spectrum_size(layout, length), slots_of(layout, length).size())
                << "length " << length;
        }
        EXPECT_EQ(static_cast<std::size_t>(length), spectrum_size(Layout::Perm, length));
        EXPECT_EQ(static_cast<std::size_t>(length + (length % 2 == 0 ? 2 : 1)),
                  spectrum_size(Layout::Ccs, length));
    }
}

TEST(RealLayout, HasElementsWhereTheTablesOfAllLengthsPutThem) {
    for (int length : kHeaderLengths) {
        const auto at = [length](Part part, int bin, Layout layout) {
            return static_cast<int>(element_of({part, bin}, layout, length));
        };
        const bool is_even = length % 2 == 0;
        for (int k = 1; k <= last_complex_bin(length); ++k) {
            EXPECT_EQ(2 * k, at(Part::Real, k, Layout::Ccs)) << length;
            EXPECT_EQ(2 * k + 1, at(Part::Imaginary, k, Layout::Ccs)) << length;
            EXPECT_EQ(2 * k - 1, at(Part::Real, k, Layout::Pack)) << length;
            EXPECT_EQ(2 * k, at(Part::Imaginary, k, Layout::Pack)) << length;
            EXPECT_EQ(is_even ? 2 * k : 2 * k - 1, at(Part::Real, k, Layout::Perm)) << length;
            EXPECT_EQ(is_even ? 2 * k + 1 : 2 * k, at(Part::Imaginary, k, Layout::Perm)) << length;
        }
        if (!is_even) continue;
        EXPECT_EQ(length, at(Part::Real, length / 2, Layout::Ccs));
        EXPECT_EQ(length - 1, at(Part::Real, length / 2, Layout::Pack));
        EXPECT_EQ(1, at(Part::Real, length / 2, Layout::Perm));
    }
}

TEST(RealLayout, RearrangedKeepsEveryValueAndPutsZerosBetween) {
    const std::vector<double> ccs = {10, -1, 11, 21, 12, 22, 13, -1};
    const std::vector<double> perm = {10, 13, 11, 21, 12, 22};
    EXPECT_EQ((std::vector<double>{10, 11, 21, 12, 22, 13}),
              rearranged(ccs, Layout::Ccs, Layout::Pack, 6));
    EXPECT_EQ(perm, rearranged(ccs, Layout::Ccs, Layout::Perm, 6));
    EXPECT_EQ((std::vector<double>{10, 0, 11, 21, 12, 22, 13, 0}),
              rearranged(perm, Layout::Perm, Layout::Ccs, 6));
}

std::vector<Wide> as_complex(const std::vector<double>& x) {
    std::vector<Wide> wide;
    for (const double value : x) wide.push_back({value, 0});
    return wide;
}

long double part_of(const Wide& value, Part part) {
    return part == Part::Real ? value.re : value.im;
}

constexpr long double kSmall = 1e-17L;

TEST(RealReference, ForwardHoldsTheComplexTransformOfTheSignal) {
    for (int length : kHeaderLengths) {
        const auto x = random_signal<RealDouble>(static_cast<std::size_t>(length), 1);
        const auto bins = reference_dft(as_complex(x), Direction::Forward);
        for (const auto layout : kRealLayouts) {
            const auto spectrum = RealReference(Direction::Forward, layout, length)(x);
            const auto slots = slots_of(layout, length);
            ASSERT_EQ(slots.size(), spectrum.size());
            for (std::size_t i = 0; i < slots.size(); ++i) {
                const long double expected =
                    slots[i].part == Part::Zero
                        ? 0
                        : part_of(bins[static_cast<std::size_t>(slots[i].bin)], slots[i].part);
                EXPECT_LE(std::abs(spectrum[i] - expected), kSmall * length)
                    << "length " << length << ", element " << i;
            }
        }
    }
}

TEST(RealReference, InverseIsTheComplexTransformOfTheSpectrumWithItsConjugates) {
    for (int length : kHeaderLengths) {
        for (const auto layout : kRealLayouts) {
            const auto spectrum = random_signal<RealDouble>(spectrum_size(layout, length), 2);
            const auto slots = slots_of(layout, length);
            std::vector<Wide> bins(static_cast<std::size_t>(length));
            for (std::size_t i = 0; i < slots.size(); ++i) {
                if (slots[i].part == Part::Zero) continue;
                auto& bin = bins[static_cast<std::size_t>(slots[i].bin)];
                (slots[i].part == Part::Real ? bin.re : bin.im) = spectrum[i];
            }
            for (std::size_t k = 1; 2 * k < bins.size(); ++k) {
                bins[bins.size() - k] = {bins[k].re, -bins[k].im};
            }
            const auto expected = reference_dft(bins, Direction::Inverse);
            const auto x = RealReference(Direction::Inverse, layout, length)(spectrum);
            ASSERT_EQ(expected.size(), x.size());
            for (std::size_t n = 0; n < x.size(); ++n) {
                EXPECT_LE(std::abs(x[n] - expected[n].re), kSmall * length)
                    << "length " << length << ", element " << n;
            }
        }
    }
}

TEST(RealReference, HartleyIsTheRealMinusTheImaginaryPartOfTheComplexTransform) {
    for (int length : kHeaderLengths) {
        const auto x = random_signal<RealDouble>(static_cast<std::size_t>(length), 3);
        const auto bins = reference_dft(as_complex(x), Direction::Forward);
        const auto y = RealReference(Direction::Both, Layout::Natural, length)(x);
        for (std::size_t k = 0; k < y.size(); ++k) {
            EXPECT_LE(std::abs(y[k] - (bins[k].re - bins[k].im)), kSmall * length)
                << "length " << length << ", element " << k;
        }
    }
}

// Written out with functions that know nothing of the tables above.
TEST(RealReference, FollowsTheFormulaeOfTheThreeTransforms) {
    constexpr int kLength = 6;
    const double turn = 2 * std::acos(-1.0) / kLength;
    for (int n = 0; n < kLength; ++n) {
        const auto sample = static_cast<std::size_t>(n);
        for (int k = 0; k < kLength; ++k) {
            const auto bin = static_cast<std::size_t>(k);
            EXPECT_NEAR(
                std::cos(turn * n * k) + std::sin(turn * n * k),
                RealReference(Direction::Both, Layout::Natural, kLength).coefficient(sample, bin),
                1e-14);
        }
        const RealReference forward(Direction::Forward, Layout::Perm, kLength);
        const RealReference inverse(Direction::Inverse, Layout::Perm, kLength);
        EXPECT_NEAR(n % 2 == 0 ? 1 : -1, forward.coefficient(sample, 1), 1e-14);
        EXPECT_NEAR(-std::sin(turn * n * 2), forward.coefficient(sample, 5), 1e-14);
        EXPECT_NEAR(n % 2 == 0 ? 1 : -1, inverse.coefficient(1, sample), 1e-14);
        EXPECT_NEAR(2 * std::cos(turn * n), inverse.coefficient(2, sample), 1e-14);
        EXPECT_NEAR(-2 * std::sin(turn * n * 2), inverse.coefficient(5, sample), 1e-14);
    }
}

}  // namespace
}  // namespace qsvgen_test
