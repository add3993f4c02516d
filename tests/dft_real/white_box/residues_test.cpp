#include "transforms/residues/residues.hpp"

#include <gtest/gtest.h>

#include <map>
#include <numeric>
#include <stdexcept>

namespace {

using kernelgen::ExactComplex;
using kernelgen::Wide;
using residues::from_remainders;
using residues::power_modulo;
using residues::primitive_root;
using residues::rader_spectrum;

// From tables of primitive roots.
const std::map<int, int> kRoots = {{3, 2},  {5, 2},  {7, 3},  {11, 2}, {13, 2}, {17, 3},
                                   {19, 2}, {23, 5}, {29, 2}, {31, 3}, {37, 2}, {41, 6},
                                   {43, 3}, {47, 5}, {53, 2}, {59, 2}, {61, 2}};

TEST(Residues, PowersAreReduced) {
    EXPECT_EQ(power_modulo(2, 10, 13), 10);  // 1024 = 78 * 13 + 10
    EXPECT_EQ(power_modulo(3, 5, 7), 5);     // 243 = 34 * 7 + 5
    EXPECT_EQ(power_modulo(60, 2, 61), 1);
}

TEST(Residues, ThePowerZeroIsOne) {
    for (int base : {1, 2, 12}) EXPECT_EQ(power_modulo(base, 0, 13), 1) << "base " << base;
}

TEST(Residues, ThePowersOfZeroAreZero) {
    EXPECT_EQ(power_modulo(0, 3, 13), 0);
}

TEST(Residues, ThePowerOfAPrimeLessOneIsOne) {
    for (const auto& [p, root] : kRoots) {
        for (int base = 1; base < p; ++base)
            EXPECT_EQ(power_modulo(base, p - 1, p), 1) << base << " modulo " << p;
    }
}

TEST(Residues, PrimitiveRootsAreTheSmallestOnes) {
    for (const auto& [p, root] : kRoots) EXPECT_EQ(primitive_root(p), root) << "prime " << p;
}

TEST(Residues, ANumberIsFoundFromItsRemainders) {
    for (int a = 2; a <= 32; ++a) {
        for (int b = 2; a * b <= 128; ++b) {
            if (std::gcd(a, b) != 1) continue;
            for (int k = 0; k < a * b; ++k)
                EXPECT_EQ(from_remainders(k % a, a, k % b, b), k) << "modulo " << a << " and " << b;
        }
    }
}

TEST(Residues, RemaindersThatNoNumberHasAreRefused) {
    EXPECT_THROW(from_remainders(0, 2, 1, 4), std::invalid_argument);
    EXPECT_THROW(from_remainders(1, 6, 0, 9), std::invalid_argument);
}

TEST(Residues, ASpectrumOfRadersConvolutionBeginsWithMinusOneShared) {
    for (const auto& [p, g] : kRoots) {
        const ExactComplex S = rader_spectrum(p, g, 0);
        EXPECT_LT(abs(Wide(S.re.value() * (p - 1) + 1)), Wide("1e-50")) << "prime " << p;
        EXPECT_LT(abs(S.im.value()), Wide("1e-50")) << "prime " << p;
    }
}

// A Gauss sum of a character other than the trivial one has the modulus sqrt(p).
TEST(Residues, AllOtherBinsOfASpectrumHaveTheModulusOfAGaussSum) {
    for (const auto& [p, g] : kRoots) {
        for (int k = 1; k < p - 1; ++k) {
            const ExactComplex S = rader_spectrum(p, g, k);
            const Wide re = S.re.value() * (p - 1);
            const Wide im = S.im.value() * (p - 1);
            EXPECT_LT(abs(Wide(re * re + im * im - p)), Wide("1e-48"))
                << "prime " << p << ", bin " << k;
        }
    }
}

// With w[j] = exp(-2 pi i g^(-j) / p), w[j + (p - 1) / 2] is the conjugate of w[j].
TEST(Residues, EvenBinsOfASpectrumAreRealSymmetricAndOddOnesImaginary) {
    for (const auto& [p, g] : kRoots) {
        for (int k = 1; k < p - 1; ++k) {
            const ExactComplex S = rader_spectrum(p, g, k);
            const ExactComplex R = rader_spectrum(p, g, p - 1 - k);
            const int sign = k % 2 == 0 ? 1 : -1;
            EXPECT_LT(abs(Wide(S.re.value() - sign * R.re.value())), Wide("1e-50"))
                << "prime " << p << ", bin " << k;
            EXPECT_LT(abs(Wide(S.im.value() + sign * R.im.value())), Wide("1e-50"))
                << "prime " << p << ", bin " << k;
        }
    }
}

}  // namespace
