#include "transforms/dft_complex/decompositions/decompositions.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <numbers>
#include <set>

#include "tests/dft_complex/white_box/support/network_evaluation.hpp"

namespace {

using dft_complex::double_precision_table;
using dft_complex::ExactComplex;
using dft_complex::Network;
using dft_complex::P;
using dft_complex::primitive_root;
using dft_complex::R;
using dft_complex::rader_spectrum;
using dft_complex::Residues;
using dft_complex::Rule;
using dft_complex::S;
using dft_complex::Signal;
using dft_complex::single_precision_table;
using dft_complex::small;
using dft_complex::SmallForm;
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

std::vector<SmallTransform> transforms_of(const Rule& rule) {
    return decompose(rule).net.transforms();
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

void for_each_row(const std::function<void(const TableRow&)>& check) {
    for (const auto* table : {&single_precision_table(), &double_precision_table()}) {
        for (const TableRow& row : *table) {
            SCOPED_TRACE((table == &single_precision_table() ? "32fc, length " : "64fc, length ") +
                         std::to_string(row.length));
            check(row);
        }
    }
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

TEST(Decomposition, SplitRadixEqualsTheDefinition) {
    for (int length : {8, 16, 32, 64}) expect_definition(S(length));
}

/** Transforms of a network by radix. */
std::map<int, int> radices(const Rule& rule) {
    std::map<int, int> number;
    for (const SmallTransform& transform : transforms_of(rule)) ++number[transform.radix];
    return number;
}

// Each step of length N takes N/2 pairs, N/4 more, and ends at 8 and 4. Its even half is one
// transform of length 8 at 16; from 32 on N/4 pairs lead it to two transforms of length N/4.
TEST(Decomposition, SplitRadixRecursesIntoEightFourAndTwoPoints) {
    using Radices = std::map<int, int>;
    EXPECT_EQ(radices(S(8)), (Radices{{8, 1}}));
    EXPECT_EQ(radices(S(16)), (Radices{{8, 1}, {4, 2}, {2, 12}}));
    EXPECT_EQ(radices(S(32)), (Radices{{8, 4}, {2, 32}}));
    EXPECT_EQ(radices(S(64)), (Radices{{8, 4}, {4, 8}, {2, 112}}));
}

TEST(Decomposition, SplitRadixPassesTheFirstOfAQuarterWithoutAFactor) {
    for (const SmallTransform& transform : transforms_of(S(32)))
        EXPECT_TRUE(transform.inputs.front().factor.is_one()) << "radix " << transform.radix;
}

TEST(Decomposition, EachRowOfTheTablesEqualsTheDefinition) {
    for_each_row([](const TableRow& row) { expect_definition(row.rule); });
}

TEST(Decomposition, APrimeFactorRuleMayTakeTheFirstOfItsSecondStageByARuleOfItsOwn) {
    const Rule r7 = small(7, SmallForm::RaderOfSeven);
    const Rule rule = P(small(5), small(7), r7);
    expect_definition(rule);
    std::vector<SmallForm> forms_of_seven;
    for (const SmallTransform& transform : transforms_of(rule)) {
        if (transform.radix == 7) forms_of_seven.push_back(transform.form);
    }
    std::vector<SmallForm> wanted(5, SmallForm::Usual);
    wanted.front() = SmallForm::RaderOfSeven;
    EXPECT_EQ(forms_of_seven, wanted);
}

TEST(Decomposition, TheFormOfASmallTransformReachesTheNetwork) {
    const Rule rule = P(small(5, SmallForm::HalfSumOfTwo), small(2));
    for (const SmallTransform& transform : transforms_of(rule))
        EXPECT_EQ(transform.form,
                  transform.radix == 5 ? SmallForm::HalfSumOfTwo : SmallForm::Usual);
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
    for_each_row([&](const TableRow& row) {
        if (!uses_prime_factor_only(row.rule)) return;
        EXPECT_EQ(factors_other_than_one(decompose(row.rule)), 0);
        networks += row.rule.form == Rule::Form::PrimeFactor;
    });
    EXPECT_GE(networks, 45);
}

TEST(Decomposition, ACooleyTukeyStepHasATwiddleFactorForEachPairOfNonzeroIndices) {
    EXPECT_EQ(factors_other_than_one(decompose(T(small(4), small(4)))), 9);
    EXPECT_EQ(factors_other_than_one(decompose(T(small(5), small(3)))), 8);
}

/** Whether the factors of each three points of the second stage stand in conjugate pairs. */
bool holds_conjugate_pairs(const Rule& rule) {
    const Decomposed d = decompose(rule);
    for (const SmallTransform& transform : d.net.transforms()) {
        if (transform.radix != 3) continue;
        const ExactComplex& f = transform.inputs[1].factor;
        const ExactComplex& g = transform.inputs[2].factor;
        if (f.re.key() != g.re.key() || f.im.key() != (-g.im).key()) return false;
    }
    return true;
}

TEST(Decomposition, ResiduesAroundZeroMakeTheTwiddleFactorsConjugateInPairs) {
    EXPECT_TRUE(holds_conjugate_pairs(T(small(5), small(3), Residues::AroundZero)));
    EXPECT_FALSE(holds_conjugate_pairs(T(small(5), small(3), Residues::FromZero)));
}

TEST(Decomposition, CooleyTukeyEqualsTheDefinitionWithResiduesOfEitherKind) {
    for (Residues residues : {Residues::FromZero, Residues::AroundZero}) {
        expect_definition(T(small(5), small(3), residues));
        expect_definition(T(small(3), small(7), residues));
        expect_definition(T(small(3), small(4), residues));
    }
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
    for_each_row([](const TableRow& row) {
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
                    EXPECT_TRUE(done.contains(value.source.transform)) << "transform " << t;
                }
            }
            for (int t : batch) EXPECT_TRUE(done.insert(t).second) << "transform " << t;
        }
        EXPECT_EQ(done.size(), d.net.transforms().size());
    });
}

}  // namespace
