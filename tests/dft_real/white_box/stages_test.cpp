#include <gtest/gtest.h>

#include "tests/dft_real/white_box/support/network.hpp"
#include "transforms/dft_real/decompositions/rader_parts.hpp"
#include "transforms/residues/residues.hpp"

// What the transforms by order are made of, called by itself.

namespace {

using dft_real::at;
using dft_real::ElevenPoints;
using dft_real::ImaginarySign;
using dft_real::Order;
using dft_real_test::complex_deviation;
using dft_real_test::complex_network;
using dft_real_test::Complexes;
using dft_real_test::forward_deviation;
using dft_real_test::forward_network;
using dft_real_test::in_words;
using dft_real_test::inverse_deviation;
using dft_real_test::inverse_network;
using dft_real_test::kExact;
using dft_real_test::Reals;
using dft_real_test::RowArithmetic;
using dft_real_test::Wide;

TEST(Stages, DenseRealDftIsItsDefinitionWithEitherSignOfItsRows) {
    for (int p : {3, 5, 7, 11}) {
        for (ImaginarySign sign : {ImaginarySign::Positive, ImaginarySign::Negative}) {
            const auto graph = forward_network(
                p, [&](RowArithmetic& m, const Reals& x) { return dense_real_dft(m, x, sign); });
            EXPECT_LT(forward_deviation(p, graph), kExact) << "length " << p;
        }
    }
}

TEST(Stages, RowsForOppositesGiveImaginaryPartsThatAreToBeSubtracted) {
    dft_real::Graph graph;
    RowArithmetic m(graph);
    Reals x;
    for (int n = 0; n < 3; ++n) x.push_back(m.load(n));
    EXPECT_TRUE(dense_real_dft(m, x, ImaginarySign::Negative)[1].im.negative);
}

TEST(Stages, DenseInverseIsItsDefinition) {
    for (int p : {3, 5, 7, 11, 13, 17}) {
        const auto graph = inverse_network(
            p, [](RowArithmetic& m, const Complexes& X) { return dense_inverse(m, X); });
        EXPECT_LT(inverse_deviation(p, graph), kExact) << "length " << p;
    }
}

TEST(Stages, DenseComplexDftIsItsDefinitionOfAnyOddPrime) {
    for (int p : {3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53, 59, 61}) {
        const auto graph = complex_network(
            p, [](RowArithmetic& m, const Complexes& x) { return dense_complex_dft(m, x); });
        EXPECT_LT(complex_deviation(p, graph, -1), kExact) << "length " << p;
    }
}

TEST(Stages, RadixTwoRealDftIsItsDefinition) {
    for (int N = 2; N <= 256; N *= 2) {
        const auto graph = forward_network(
            N, [](RowArithmetic& m, const Reals& x) { return radix_two_real_dft(m, x); });
        EXPECT_LT(forward_deviation(N, graph), kExact) << "length " << N;
    }
}

TEST(Stages, SplitRadixInverseIsItsDefinition) {
    for (int N = 2; N <= 256; N *= 2) {
        const auto graph = inverse_network(
            N, [](RowArithmetic& m, const Complexes& X) { return split_radix_inverse(m, X); });
        EXPECT_LT(inverse_deviation(N, graph), kExact) << "length " << N;
    }
}

TEST(Stages, SplitRadixComplexDftIsItsDefinition) {
    for (int N = 1; N <= 64; N *= 2) {
        const auto graph = complex_network(
            N, [](RowArithmetic& m, const Complexes& x) { return split_radix_complex_dft(m, x); });
        EXPECT_LT(complex_deviation(N, graph, -1), kExact) << "length " << N;
    }
}

struct Convolution {
    int prime;
    Order inner;
};

// Primes beyond the table take those of its lengths that half of their convolution has.
const std::vector<Convolution> kConvolutions = {
    {5, {2, 2}},      {7, {2, 3}},        {7, {3, 2}},        {11, {2, 5}},       {11, {5, 2}},
    {13, {3, 2, 2}},  {13, {2, 2, 3}},    {13, {4, 3}},       {17, {2, 2, 2, 2}}, {19, {3, 3, 2}},
    {19, {2, 3, 3}},  {23, {2, 11}},      {23, {11, 2}},      {29, {2, 2, 7}},    {31, {5, 3, 2}},
    {31, {2, 3, 5}},  {37, {3, 3, 2, 2}}, {41, {2, 2, 2, 5}}, {43, {2, 3, 7}},    {47, {2, 23}},
    {53, {13, 2, 2}}, {59, {2, 29}},      {61, {2, 2, 5, 3}}, {67, {2, 3, 11}},   {71, {7, 5, 2}},
    {79, {2, 3, 13}}, {83, {2, 41}}};

std::string in_words(const Convolution& c) {
    return "prime " + std::to_string(c.prime) + ", inner " + in_words(c.inner);
}

TEST(Stages, RadersRealDftIsItsDefinitionWithAnyInnerOrder) {
    for (const Convolution& c : kConvolutions) {
        for (ElevenPoints eleven : {ElevenPoints::Rader, ElevenPoints::Dense}) {
            const auto graph = forward_network(c.prime, [&](RowArithmetic& m, const Reals& x) {
                return rader_real_dft(m, c.inner, x, eleven);
            });
            EXPECT_LT(forward_deviation(c.prime, graph), kExact) << in_words(c);
        }
    }
}

TEST(Stages, RadersInverseIsItsDefinitionWithAnyInnerOrder) {
    for (const Convolution& c : kConvolutions) {
        const auto graph = inverse_network(c.prime, [&](RowArithmetic& m, const Complexes& X) {
            return rader_inverse(m, c.inner, X);
        });
        EXPECT_LT(inverse_deviation(c.prime, graph), kExact) << in_words(c);
    }
}

// The order of the table with the twos at its ends serves the convolution as well.
TEST(Stages, RadersRealDftIsItsDefinitionWithAnOrderBetweenTwos) {
    for (const Convolution& c : {Convolution{13, {2, 3, 2}}, Convolution{53, {2, 13, 2}}}) {
        const auto graph = forward_network(c.prime, [&](RowArithmetic& m, const Reals& x) {
            return rader_real_dft(m, c.inner, x);
        });
        EXPECT_LT(forward_deviation(c.prime, graph), kExact) << in_words(c);
    }
}

TEST(Stages, ThirteenPointsInTheirOwnFormAreTheDefinition) {
    const auto graph = forward_network(
        13, [](RowArithmetic& m, const Reals& x) { return rader_of_thirteen(m, x); });
    EXPECT_LT(forward_deviation(13, graph), kExact);
}

TEST(Stages, InverseOfOddBinsIsTheFirstHalfOfTheInverse) {
    for (int q : {2, 3, 4, 5, 6, 8, 9, 10, 11, 14, 15, 16, 18, 20, 21, 23, 26, 28, 30}) {
        const int L = 2 * q;
        const auto graph = inverse_network(L, [&](RowArithmetic& m, const Complexes& X) {
            Complexes odd(X.size());
            for (int k = 1; k <= q; k += 2) odd[at(k)] = X[at(k)];
            Reals x = inverse_of_odd_bins(m, odd, ElevenPoints::Rader);
            x.resize(at(q));
            // The other half is the opposite of this one.
            for (int n = 0; n < q; ++n) x.push_back(-x[at(n)]);
            return x;
        });
        const auto odd_bins = [](int element) { return element / 2 % 2 != 0; };
        EXPECT_LT(inverse_deviation(L, graph, odd_bins), kExact) << "length " << L;
    }
}

TEST(Stages, ConvolutionConstantsAreTheSpectrumDoubledButForTheMiddleBin) {
    for (int p : {7, 11, 13, 17, 23, 61}) {
        const int g = residues::primitive_root(p);
        for (int k = 1; 2 * k <= p - 1; ++k) {
            const auto W = dft_real::convolution_constant(p, g, k);
            const auto S = residues::rader_spectrum(p, g, k);
            const int weight = 2 * k == p - 1 ? 1 : 2;
            const Wide re = k % 2 == 0 ? S.re.value() : S.im.value();
            const Wide im = k % 2 == 0 ? S.im.value() : Wide(-S.re.value());
            EXPECT_LT(abs(Wide(W.re.value() - weight * re)), Wide("1e-50"))
                << "prime " << p << ", bin " << k;
            EXPECT_LT(abs(Wide(W.im.value() - weight * im)), Wide("1e-50"))
                << "prime " << p << ", bin " << k;
        }
    }
}

TEST(Stages, ABinBeyondTheMiddleIsTheConjugateOfItsMirrorImage) {
    const dft_real::HalfSpectrum X = {{{0}, {}}, {{1}, {2}}, {{3}, {4}}};
    EXPECT_EQ(bin(X, 5, 2).im, (dft_real::Ref{4}));
    EXPECT_EQ(bin(X, 5, 3).re, (dft_real::Ref{3}));
    EXPECT_EQ(bin(X, 5, 3).im, (dft_real::Ref{4, true}));
    EXPECT_EQ(bin(X, 5, 4).im, (dft_real::Ref{2, true}));
}

TEST(Stages, ABinThatIsSetReadsBack) {
    for (int n : {5, 6}) {
        for (int k = 0; k < n; ++k) {
            dft_real::HalfSpectrum X(at(n / 2 + 1));
            set_bin(X, n, k, {{1}, {2, true}});
            EXPECT_EQ(bin(X, n, k).re, (dft_real::Ref{1})) << "length " << n << ", bin " << k;
            EXPECT_EQ(bin(X, n, k).im, (dft_real::Ref{2, true})) << "length " << n << ", bin " << k;
        }
    }
}

}  // namespace
