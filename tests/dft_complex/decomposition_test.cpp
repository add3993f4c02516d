#include "dft_complex/decompositions.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

#include "tests/dft_complex/support/network_evaluation.hpp"

namespace {

using dft_complex::ExactComplex;
using dft_complex::Network;
using dft_complex::P;
using dft_complex::primitive_root;
using dft_complex::R;
using dft_complex::rader_spectrum;
using dft_complex::Rule;
using dft_complex::Signal;
using dft_complex::single_precision_table;
using dft_complex::small;
using dft_complex::SmallTransform;
using dft_complex::T;
using dft_complex::TableRow;
using dft_complex::Value;
using dft_complex_test::Complexes;
using kernelgen::Exact;

constexpr int kRaderPrimes[] = {7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 61};

struct Decomposed {
    Network net;
    Signal outputs;
};

Decomposed decompose(const Rule& rule) {
    Decomposed d;
    d.outputs = dft(d.net, rule, d.net.input(rule.length));
    return d;
}

void expect_definition(const Rule& rule) {
    const Decomposed d = decompose(rule);
    const Complexes x = dft_complex_test::random_signal(rule.length);
    const Complexes y = dft_complex_test::evaluate(d.net, d.outputs, x);
    const Complexes wanted = dft_complex_test::definition(x);
    ASSERT_EQ(y.size(), wanted.size());
    for (std::size_t k = 0; k < y.size(); ++k)
        EXPECT_LT(std::abs(y[k] - wanted[k]), 1e-12) << to_string(rule) << " output " << k;
}

TEST(Decomposition, ASmallTransformIsItself) {
    expect_definition(small(7));
}

TEST(Decomposition, PrimeFactorEqualsTheDefinition) {
    expect_definition(P(small(5), small(3)));
    expect_definition(P(small(3), small(5)));
    expect_definition(P(small(4), P(small(3), small(5))));
}

TEST(Decomposition, CooleyTukeyEqualsTheDefinition) {
    expect_definition(T(small(4), small(2)));
    expect_definition(T(small(2), small(4)));
    expect_definition(T(small(5), small(5)));
    expect_definition(T(T(small(4), small(3)), small(4)));
}

TEST(Decomposition, RaderEqualsTheDefinition) {
    expect_definition(R(P(small(2), small(3))));
    expect_definition(R(T(small(4), small(4))));
    expect_definition(R(P(small(4), T(small(3), small(3)))));
}

TEST(Decomposition, ChirpEqualsTheDefinition) {
    expect_definition(dft_complex::C(7, T(small(4), small(4))));
    expect_definition(dft_complex::C(6, small(11)));
    expect_definition(dft_complex::C(11, T(small(8), small(4))));
}

TEST(Decomposition, EachRowOfTheTableEqualsTheDefinition) {
    for (const TableRow& row : single_precision_table()) expect_definition(row.rule);
}

bool uses_prime_factor_only(const Rule& rule) {
    return rule.form == Rule::Form::Small ||
           (rule.form == Rule::Form::PrimeFactor &&
            std::all_of(rule.parts.begin(), rule.parts.end(), uses_prime_factor_only));
}

int factors_other_than_one(const Decomposed& d) {
    int count = 0;
    const auto look = [&](const Signal& signal) {
        for (const Value& value : signal) count += !value.absent && !value.factor.is_one();
    };
    for (const SmallTransform& transform : d.net.transforms()) look(transform.inputs);
    look(d.outputs);
    return count;
}

TEST(Decomposition, NetworksOfPrimeFactorRulesHoldNoFactor) {
    int networks = 0;
    for (const TableRow& row : single_precision_table()) {
        if (!uses_prime_factor_only(row.rule)) continue;
        EXPECT_EQ(factors_other_than_one(decompose(row.rule)), 0) << "length " << row.length;
        networks += row.rule.form == Rule::Form::PrimeFactor;
    }
    EXPECT_GE(networks, 10);
}

TEST(Decomposition, ACooleyTukeyStepHasATwiddleFactorForEachPairOfNonzeroIndices) {
    EXPECT_EQ(factors_other_than_one(decompose(T(small(4), small(4)))), 9);
    EXPECT_EQ(factors_other_than_one(decompose(T(small(5), small(3)))), 8);
}

/** Distinct magnitudes among the parts of a spectrum, by key; zero does not count. */
std::set<std::string> magnitudes(const std::vector<ExactComplex>& spectrum) {
    std::set<std::string> keys;
    for (const ExactComplex& S : spectrum) {
        for (const Exact& part : {S.re, S.im}) {
            if (!part.is_zero()) keys.insert((part.is_negative() ? -part : part).key());
        }
    }
    return keys;
}

std::vector<ExactComplex> rader_spectrum_of(int p) {
    std::vector<ExactComplex> spectrum;
    for (int k = 0; k < p - 1; ++k) spectrum.push_back(rader_spectrum(p, primitive_root(p), k));
    return spectrum;
}

TEST(Decomposition, ARaderSpectrumHoldsAsManyMagnitudesAsItsConvolutionIsLong) {
    for (int p : kRaderPrimes)
        EXPECT_EQ(magnitudes(rader_spectrum_of(p)).size(), static_cast<std::size_t>(p - 1))
            << "prime " << p;
}

TEST(Decomposition, ARaderSpectrumStartsWithMinusOneOverItsLength) {
    for (int p : kRaderPrimes) {
        const ExactComplex S = rader_spectrum(p, primitive_root(p), 0);
        EXPECT_EQ(S.re.key(), Exact::rational(-1, p - 1).key()) << "prime " << p;
        EXPECT_TRUE(S.im.is_zero()) << "prime " << p;
    }
}

TEST(Decomposition, TheOtherValuesOfARaderSpectrumHaveTheMagnitudeOfAGaussSum) {
    for (int p : kRaderPrimes) {
        const auto spectrum = rader_spectrum_of(p);
        for (int k = 1; k < p - 1; ++k) {
            const ExactComplex& S = spectrum[static_cast<std::size_t>(k)];
            const double magnitude = std::hypot(S.re.to_binary64(), S.im.to_binary64());
            EXPECT_NEAR(magnitude, std::sqrt(p) / (p - 1), 1e-15) << "prime " << p << ", k " << k;
        }
    }
}

TEST(Decomposition, TheSpectrumOfSevenHoldsItsSixKnownMagnitudes) {
    std::set<float> found;
    for (const ExactComplex& S : rader_spectrum_of(7)) {
        for (const Exact& part : {S.re, S.im}) {
            if (!part.is_zero()) found.insert(std::fabs(part.to_binary32()));
        }
    }
    EXPECT_EQ(found, (std::set<float>{0.16666667F, 0.17043647F, 0.19585104F, 0.39507824F,
                                      0.4066889F, 0.44095856F}));
}

TEST(Decomposition, PrimitiveRootsAreTheSmallestOnes) {
    const int roots[][2] = {{3, 2},  {5, 2},  {7, 3},  {11, 2}, {13, 2}, {17, 3},
                            {19, 2}, {23, 5}, {29, 2}, {31, 3}, {37, 2}, {41, 6},
                            {43, 3}, {47, 5}, {53, 2}, {59, 2}, {61, 2}};
    for (const auto& [p, g] : roots) EXPECT_EQ(primitive_root(p), g) << "prime " << p;
}

TEST(Decomposition, PowersAreTakenModuloThePrime) {
    EXPECT_EQ(dft_complex::power_modulo(5, 0, 23), 1);
    EXPECT_EQ(dft_complex::power_modulo(5, 3, 23), 10);
    for (int p : kRaderPrimes) EXPECT_EQ(dft_complex::power_modulo(2, p - 1, p), 1) << p;
}

/** The factors between the two inner transforms of a chirp network: its spectrum. */
std::vector<ExactComplex> chirp_spectrum(const Rule& rule) {
    const Decomposed d = decompose(rule);
    const std::size_t first_half = d.net.transforms().size() / 2;
    std::vector<ExactComplex> spectrum;
    for (std::size_t t = first_half; t < d.net.transforms().size(); ++t) {
        for (const Value& value : d.net.transforms()[t].inputs) {
            if (value.source.transform < static_cast<int>(first_half))
                spectrum.push_back(value.factor);
        }
    }
    return spectrum;
}

// The chirp is even, so its spectrum of length M is, and has M/2 + 1 values of two parts. Of these
// M + 2 parts the first value's imaginary one is zero, and its real one comes again with the other
// sign halfway where p is 3 modulo 4, as both primes with a chirp are.
TEST(Decomposition, AChirpSpectrumHoldsAsManyMagnitudesAsItIsLong) {
    for (int p : {47, 59}) {
        const Rule& rule = single_precision_table()[static_cast<std::size_t>(p - 2)].rule;
        const auto M = static_cast<std::size_t>(rule.parts[0].length);
        const auto spectrum = chirp_spectrum(rule);
        EXPECT_EQ(spectrum.size(), M) << "prime " << p;
        EXPECT_EQ(magnitudes(spectrum).size(), M) << "prime " << p;
    }
}

TEST(Decomposition, AChirpSpectrumHoldsOneOverItsLengthAndAGaussSum) {
    for (int p : {47, 59}) {
        const Rule& rule = single_precision_table()[static_cast<std::size_t>(p - 2)].rule;
        const int M = rule.parts[0].length;
        const std::string share = Exact::rational(1, M).key();
        bool first = false;
        bool halfway = false;
        for (const ExactComplex& H : chirp_spectrum(rule)) {
            first = first || (H.re.key() == share && H.im.is_zero());
            halfway = halfway || ((-H.re).key() == share && std::abs(std::abs(H.im.to_binary64()) -
                                                                     2 * std::sqrt(p) / M) < 1e-15);
        }
        EXPECT_TRUE(first) << "prime " << p;
        EXPECT_TRUE(halfway) << "prime " << p;
    }
}

TEST(Decomposition, BatchesHoldEachTransformOnceAfterItsSources) {
    for (const TableRow& row : single_precision_table()) {
        const Decomposed d = decompose(row.rule);
        std::set<int> done;
        for (const auto& batch : d.net.batches()) {
            for (int t : batch) {
                const SmallTransform& transform = d.net.transforms()[static_cast<std::size_t>(t)];
                EXPECT_EQ(transform.radix,
                          d.net.transforms()[static_cast<std::size_t>(batch.front())].radix);
                for (const Value& value : transform.inputs) {
                    if (value.absent || value.source.transform == dft_complex::Source::kInput)
                        continue;
                    EXPECT_TRUE(done.contains(value.source.transform))
                        << "length " << row.length << ", transform " << t;
                }
            }
            for (int t : batch) EXPECT_TRUE(done.insert(t).second) << "length " << row.length;
        }
        EXPECT_EQ(done.size(), d.net.transforms().size()) << "length " << row.length;
    }
}

}  // namespace
