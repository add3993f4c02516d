#include "transforms/dft_real/layouts/layouts.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

using dft_real::array_length;
using dft_real::imaginary_element;
using dft_real::is_complex;
using dft_real::kLayouts;
using dft_real::Layout;
using dft_real::real_element;

/** Contents of an array: "R1" is the real part of bin 1, "0" an element that holds no part. */
std::vector<std::string> contents(Layout layout, int N) {
    std::vector<std::string> elements(static_cast<std::size_t>(array_length(layout, N)), "0");
    for (int k = 0; 2 * k <= N; ++k) {
        elements.at(static_cast<std::size_t>(real_element(layout, N, k))) = "R" + std::to_string(k);
        if (is_complex(N, k))
            elements.at(static_cast<std::size_t>(imaginary_element(layout, N, k))) =
                "I" + std::to_string(k);
    }
    return elements;
}

using Contents = std::vector<std::string>;

TEST(Layouts, CcsOfSixPointsEndsWithTheMiddleBinAndAZero) {
    EXPECT_EQ(contents(Layout::CCS, 6), (Contents{"R0", "0", "R1", "I1", "R2", "I2", "R3", "0"}));
}

TEST(Layouts, CcsOfSevenPointsHasOneZero) {
    EXPECT_EQ(contents(Layout::CCS, 7), (Contents{"R0", "0", "R1", "I1", "R2", "I2", "R3", "I3"}));
}

TEST(Layouts, PackOfSixPointsEndsWithTheMiddleBin) {
    EXPECT_EQ(contents(Layout::Pack, 6), (Contents{"R0", "R1", "I1", "R2", "I2", "R3"}));
}

TEST(Layouts, PackOfSevenPointsEndsWithAnImaginaryPart) {
    EXPECT_EQ(contents(Layout::Pack, 7), (Contents{"R0", "R1", "I1", "R2", "I2", "R3", "I3"}));
}

TEST(Layouts, PermOfSixPointsHasTheMiddleBinSecond) {
    EXPECT_EQ(contents(Layout::Perm, 6), (Contents{"R0", "R3", "R1", "I1", "R2", "I2"}));
}

TEST(Layouts, PermOfSevenPointsIsPack) {
    EXPECT_EQ(contents(Layout::Perm, 7), contents(Layout::Pack, 7));
}

TEST(Layouts, OfTwoPointsHoldTheirTwoRealBins) {
    EXPECT_EQ(contents(Layout::CCS, 2), (Contents{"R0", "0", "R1", "0"}));
    EXPECT_EQ(contents(Layout::Pack, 2), (Contents{"R0", "R1"}));
    EXPECT_EQ(contents(Layout::Perm, 2), (Contents{"R0", "R1"}));
}

TEST(Layouts, EveryPartOfASpectrumHasAnElementOfItsOwn) {
    for (Layout layout : kLayouts) {
        for (int N = 2; N <= 64; ++N) {
            std::multiset<std::string> parts;
            for (const std::string& part : contents(layout, N)) {
                if (part != "0") parts.insert(part);
            }
            EXPECT_EQ(parts.size(), static_cast<std::size_t>(N))
                << to_string(layout) << ", length " << N;
            EXPECT_EQ((std::set<std::string>{parts.begin(), parts.end()}).size(), parts.size())
                << to_string(layout) << ", length " << N;
        }
    }
}

TEST(Layouts, PackAndPermLeaveNoElementEmpty) {
    for (Layout layout : {Layout::Pack, Layout::Perm}) {
        for (int N = 2; N <= 64; ++N) {
            const Contents elements = contents(layout, N);
            EXPECT_EQ(std::count(elements.begin(), elements.end(), "0"), 0)
                << to_string(layout) << ", length " << N;
        }
    }
}

TEST(Layouts, CcsHoldsAZeroBesideEveryRealBin) {
    for (int N = 2; N <= 64; ++N) {
        const Contents elements = contents(Layout::CCS, N);
        EXPECT_EQ(std::count(elements.begin(), elements.end(), "0"), N % 2 == 0 ? 2 : 1)
            << "length " << N;
        EXPECT_EQ(elements[1], "0") << "length " << N;
        if (N % 2 == 0) {
            EXPECT_EQ(elements.back(), "0") << "length " << N;
            EXPECT_EQ(imaginary_element(Layout::CCS, N, N / 2), N + 1) << "length " << N;
        }
    }
}

TEST(Layouts, AnImaginaryPartFollowsItsRealPart) {
    for (Layout layout : kLayouts) {
        for (int N = 2; N <= 64; ++N) {
            for (int k = 1; 2 * k < N; ++k)
                EXPECT_EQ(imaginary_element(layout, N, k), real_element(layout, N, k) + 1)
                    << to_string(layout) << ", length " << N << ", bin " << k;
        }
    }
}

TEST(Layouts, AreNamedAsInTheNamesOfKernels) {
    EXPECT_EQ(to_string(Layout::CCS), "CCS");
    EXPECT_EQ(to_string(Layout::Pack), "Pack");
    EXPECT_EQ(to_string(Layout::Perm), "Perm");
}

}  // namespace
