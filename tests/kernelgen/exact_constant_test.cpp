#include "kernelgen/graph/exact_constant.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "tests/kernelgen/support/independent_value.hpp"

namespace {

using kernelgen::Exact;
using kernelgen::ExactComplex;
using kernelgen_test::Independent;
using kernelgen_test::IndependentEvaluator;
using kernelgen_test::is_nearest;

struct Trigonometric {
    long numerator;
    long denominator;
    Exact value;
};

TEST(ExactConstant, CosinesWithARationalValueAreThatRational) {
    const Exact zero = Exact::rational(0);
    const Exact one = Exact::rational(1);
    const Exact half = Exact::rational(1, 2);
    const Trigonometric cases[] = {{0, 1, one},    {1, 4, zero},   {3, 4, zero},  {1, 2, -one},
                                   {1, 6, half},   {5, 6, half},   {-1, 6, half}, {1, 3, -half},
                                   {2, 3, -half},  {-1, 3, -half}, {7, 6, half},  {2, 8, zero},
                                   {-9, 12, zero}, {64, 64, one},  {96, 64, -one}};
    for (const Trigonometric& c : cases) {
        const Exact cosine = Exact::cosine(c.numerator, c.denominator);
        EXPECT_EQ(cosine.expression().kind, Exact::Kind::Rational)
            << "cosine of turn " << c.numerator << "/" << c.denominator;
        EXPECT_EQ(cosine.key(), c.value.key())
            << "cosine of turn " << c.numerator << "/" << c.denominator;
    }
}

TEST(ExactConstant, SinesWithARationalValueAreThatRational) {
    const Trigonometric cases[] = {{0, 1, Exact::rational(0)},     {1, 2, Exact::rational(0)},
                                   {1, 4, Exact::rational(1)},     {3, 4, Exact::rational(-1)},
                                   {-1, 4, Exact::rational(-1)},   {1, 12, Exact::rational(1, 2)},
                                   {5, 12, Exact::rational(1, 2)}, {7, 12, Exact::rational(-1, 2)}};
    for (const Trigonometric& c : cases) {
        const Exact sine = Exact::sine(c.numerator, c.denominator);
        EXPECT_EQ(sine.expression().kind, Exact::Kind::Rational)
            << "sine of turn " << c.numerator << "/" << c.denominator;
        EXPECT_EQ(sine.key(), c.value.key())
            << "sine of turn " << c.numerator << "/" << c.denominator;
    }
}

TEST(ExactConstant, CosinesAreReducedToTheFirstQuadrant) {
    for (long q = 1; q <= 64; ++q) {
        for (long p = -q; p <= 2 * q; ++p) {
            const Exact cosine = Exact::cosine(p, q);
            const Exact positive = cosine.is_negative() ? -cosine : cosine;
            const Exact::Expression& e = positive.expression();
            if (e.kind == Exact::Kind::Rational) continue;
            ASSERT_EQ(e.kind, Exact::Kind::CosineOfTurn) << "turn " << p << "/" << q;
            EXPECT_TRUE(0 < e.numerator && 4 * e.numerator < e.denominator)
                << "turn " << p << "/" << q << " became " << e.numerator << "/" << e.denominator;
        }
    }
}

TEST(ExactConstant, CosinesAndSinesHaveTheValueOfTheirTurn) {
    IndependentEvaluator evaluator;
    const Independent& two_pi = boost::math::constants::two_pi<Independent>();
    const Independent tolerance("1e-55");
    for (long q = 1; q <= 64; ++q) {
        for (long p = -q; p <= 2 * q; ++p) {
            const Independent turn = two_pi * p / q;
            EXPECT_LT(abs(evaluator.ideal(Exact::cosine(p, q)) - cos(turn)), tolerance)
                << "cosine of turn " << p << "/" << q;
            EXPECT_LT(abs(evaluator.ideal(Exact::sine(p, q)) - sin(turn)), tolerance)
                << "sine of turn " << p << "/" << q;
        }
    }
}

TEST(ExactConstant, RationalsAreReduced) {
    const Exact fraction = Exact::rational(-6, 8);
    const Exact::Expression& e = fraction.expression();
    EXPECT_EQ(e.numerator, -3);
    EXPECT_EQ(e.denominator, 4);
}

TEST(ExactConstant, ADefaultConstantIsZero) {
    EXPECT_TRUE(Exact().is_zero());
}

TEST(ExactConstant, MinusChangesTheSignOfEveryKind) {
    const Exact constants[] = {Exact::rational(3, 7), Exact::cosine(1, 5), Exact::square_root(2),
                               Exact::sum({Exact::cosine(1, 5), Exact::rational(1)}),
                               Exact::product({Exact::cosine(1, 7), Exact::square_root(3)})};
    for (const Exact& c : constants) {
        EXPECT_EQ((-c).to_binary64(), -c.to_binary64()) << c.key();
        EXPECT_EQ((-c).to_binary32(), -c.to_binary32()) << c.key();
        EXPECT_EQ((-c).value(), -c.value()) << c.key();
        EXPECT_TRUE((-c).is_negative()) << c.key();
    }
}

TEST(ExactConstant, MinusTwiceGivesTheConstantBack) {
    const Exact c = Exact::cosine(1, 5);
    EXPECT_EQ((-(-c)).expression().kind, Exact::Kind::CosineOfTurn);
    EXPECT_EQ((-(-c)).key(), c.key());
    EXPECT_NE((-c).key(), c.key());
}

TEST(ExactConstant, EqualValuesOfDifferentExpressionsHaveOneKey) {
    const Exact half_root = Exact::product({Exact::rational(1, 2), Exact::square_root(3)});
    EXPECT_EQ(half_root.key(), Exact::sine(1, 3).key());
    EXPECT_EQ(Exact::cosine(1, 8).key(),
              Exact::product({Exact::rational(1, 2), Exact::square_root(2)}).key());
    // cos(2 pi/5) = (sqrt(5) - 1) / 4
    EXPECT_EQ(Exact::cosine(1, 5).key(),
              Exact::sum({Exact::product({Exact::rational(1, 4), Exact::square_root(5)}),
                          Exact::rational(-1, 4)})
                  .key());
}

TEST(ExactConstant, NeighbouringValuesHaveDifferentKeys) {
    const Exact tiny =
        Exact::product({Exact::rational(1, 1000000000), Exact::rational(1, 1000000000),
                        Exact::rational(1, 1000000000), Exact::rational(1, 1000)});
    EXPECT_NE(Exact::sum({Exact::cosine(1, 5), tiny}).key(), Exact::cosine(1, 5).key());
}

TEST(ExactConstant, ASumThatCancelsIsZero) {
    const Exact sum = Exact::sum({Exact::cosine(0, 5), Exact::cosine(1, 5), Exact::cosine(2, 5),
                                  Exact::cosine(3, 5), Exact::cosine(4, 5)});
    EXPECT_TRUE(sum.is_zero()) << sum.key();
    EXPECT_EQ(sum.key(), Exact().key());
}

TEST(ExactConstant, APinnedConstantKeepsItsDecimalInBinary64) {
    const Exact pinned = Exact::pinned("0.8660254037844385", Exact::sine(1, 3));
    EXPECT_EQ(pinned.to_binary64(), 0.8660254037844385);
    EXPECT_EQ((-pinned).to_binary64(), -0.8660254037844385);
    EXPECT_NE(pinned.to_binary64(), Exact::sine(1, 3).to_binary64());
}

TEST(ExactConstant, APinnedConstantKeepsItsIdealValueInProofs) {
    const Exact pinned = Exact::pinned("0.8660254037844385", Exact::sine(1, 3));
    EXPECT_EQ(pinned.value(), Exact::sine(1, 3).value());
}

TEST(ExactConstant, APinnedConstantIsNotTakenForItsIdeal) {
    const Exact pinned = Exact::pinned("0.8660254037844386", Exact::sine(1, 3));
    EXPECT_NE(pinned.key(), Exact::sine(1, 3).key());
}

TEST(ExactConstant, TheReferenceOfTheseTestsRoundsTiesToEven) {
    const Independent half_ulp = ldexp(Independent(1), -24);
    const Independent beyond = half_ulp + ldexp(Independent(1), -90);
    EXPECT_TRUE(is_nearest(1.0F, 1 + half_ulp));
    EXPECT_FALSE(is_nearest(0x1.000002p0F, 1 + half_ulp));
    EXPECT_FALSE(is_nearest(0x1.000002p0F, 1 + 3 * half_ulp));
    EXPECT_TRUE(is_nearest(0x1.000004p0F, 1 + 3 * half_ulp));
    EXPECT_FALSE(is_nearest(1.0F, 1 + beyond));
    EXPECT_TRUE(is_nearest(0x1.000002p0F, 1 + beyond));
}

// A third of the sums lie on a tie and the others one part in 2^60 off it, where a second rounding
// would show.
TEST(ExactConstant, RationalsRoundToTheNearestOfBothFormats) {
    IndependentEvaluator evaluator;
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        const long mantissa = static_cast<long>((1U << 23U) + random() % (1U << 23U));
        const Exact odd_half =
            Exact::product({Exact::rational(2 * mantissa + 1), Exact::rational(1, 1 << 24)});
        const Exact shift =
            Exact::product({Exact::rational(static_cast<long>(i % 3) - 1),
                            Exact::rational(1, 1 << 30), Exact::rational(1, 1 << 30)});
        const Exact beside_tie = Exact::sum({odd_half, shift});
        const Exact plain = Exact::rational(mantissa, 1 + static_cast<long>(random() % 1000000));
        for (const Exact& c : {beside_tie, plain}) {
            const Independent value = evaluator.ideal(c);
            EXPECT_TRUE(is_nearest(c.to_binary32(), value))
                << "case " << i << ", " << c.key() << " became " << c.to_binary32();
            EXPECT_TRUE(is_nearest(c.to_binary64(), value))
                << "case " << i << ", " << c.key() << " became " << c.to_binary64();
        }
    }
}

TEST(ExactConstant, AForwardRootTurnsClockwise) {
    const ExactComplex w = ExactComplex::forward_root(1, 4);
    EXPECT_TRUE(w.re.is_zero());
    EXPECT_EQ(w.im.key(), Exact::rational(-1).key());
}

TEST(ExactConstant, RootsMultiplyByAddingTheirTurns) {
    const ExactComplex product =
        ExactComplex::forward_root(3, 16) * ExactComplex::forward_root(5, 12);
    const ExactComplex wanted = ExactComplex::forward_root(29, 48);
    EXPECT_EQ(product.re.key(), wanted.re.key());
    EXPECT_EQ(product.im.key(), wanted.im.key());
}

TEST(ExactConstant, OnlyOneIsOne) {
    EXPECT_TRUE(ExactComplex::forward_root(0, 7).is_one());
    EXPECT_TRUE(ExactComplex::forward_root(7, 7).is_one());
    EXPECT_FALSE(ExactComplex::forward_root(1, 7).is_one());
    EXPECT_FALSE((ExactComplex{Exact::rational(1), Exact::rational(1)}.is_one()));
}

TEST(ExactConstant, TheNegativeOfAPinnedConstantKeepsItsDecimal) {
    const Exact pinned = Exact::pinned("0.75", Exact::sine(1, 3));
    EXPECT_EQ((-pinned).to_binary32(), -0.75F);
    EXPECT_EQ((-pinned).to_binary64(), -0.75);
    EXPECT_NE((-pinned).key(), (-Exact::sine(1, 3)).key());
    EXPECT_EQ((-(-pinned)).to_binary64(), 0.75);
}

}  // namespace
