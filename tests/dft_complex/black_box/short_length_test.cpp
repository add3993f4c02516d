/**
 * @file
 * @brief Lengths 2 to 5 to the bit: which operations they do, in which precision and order.
 *
 * The references below are parts of the interface as much as the status codes are. Lengths 3 and 5
 * do the products with their irrational constants in binary64: of a binary32 signal each result is
 * rounded to binary32, of a binary64 signal all is binary64.
 */

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "support/bits.hpp"
#include "support/scale.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr int kSignals = 2000;

template <class Complex>
Complex add(Complex a, Complex b) {
    return {a.re + b.re, a.im + b.im};
}
template <class Complex>
Complex sub(Complex a, Complex b) {
    return {a.re - b.re, a.im - b.im};
}
template <class Complex, class Real>
Complex scaled(Complex a, Real s) {
    return {a.re * s, a.im * s};
}
// a - i*b and a + i*b, with the imaginary unit folded into the sums
template <class Complex>
Complex sub_i(Complex a, Complex b) {
    return {a.re + b.im, a.im - b.re};
}
template <class Complex>
Complex add_i(Complex a, Complex b) {
    return {a.re - b.im, a.im + b.re};
}

/** The forward transforms. Inner is the precision of the products; the interface's is double. */
template <class E, class Inner>
struct Reference {
    using Complex = typename E::Complex;
    using Real = typename E::Real;
    using Signal = std::vector<Complex>;

    static Signal two(const Signal& x, Real s) {
        return {scaled(add(x[0], x[1]), s), scaled(sub(x[0], x[1]), s)};
    }

    static Signal three(const Signal& x, Real s) {
        const Inner half = static_cast<Inner>(0.5);
        const Inner sine = static_cast<Inner>(0.8660254037844386);
        const auto u = add(x[1], x[2]);
        const auto d = sub(x[1], x[2]);
        const auto center = [half](Real x0, Real sum) {
            return static_cast<Real>(Inner{x0} - Inner{sum} * half);
        };
        const Complex w = {center(x[0].re, u.re), center(x[0].im, u.im)};
        const Real p = static_cast<Real>(Inner{d.im} * sine);
        const Real q = static_cast<Real>(Inner{d.re} * sine);
        return {scaled(add(x[0], u), s),
                {(w.re + p) * s, (w.im - q) * s},
                {(w.re - p) * s, (w.im + q) * s}};
    }

    static Signal four(const Signal& x, Real s) {
        const auto a = add(x[0], x[2]);
        const auto b = sub(x[0], x[2]);
        const auto c = add(x[1], x[3]);
        const auto d = sub(x[1], x[3]);
        return {scaled(add(a, c), s), scaled(sub_i(b, d), s), scaled(sub(a, c), s),
                scaled(add_i(b, d), s)};
    }

    static Signal five(const Signal& x, Real s) {
        const Inner cos1 = static_cast<Inner>(0.30901699437494745);
        const Inner cos2 = static_cast<Inner>(0.8090169943749475);
        const Inner sin1 = static_cast<Inner>(0.9510565162951535);
        const Inner sin2 = static_cast<Inner>(0.5877852522924731);
        const auto a = add(x[1], x[4]);
        const auto b = add(x[3], x[2]);
        const auto c = sub(x[1], x[4]);
        const auto d = sub(x[3], x[2]);
        const auto near = [=](Real x0, Real sum_a, Real sum_b) {
            return static_cast<Real>((cos1 * Inner{sum_a} + Inner{x0}) - cos2 * Inner{sum_b});
        };
        const auto far = [=](Real x0, Real sum_a, Real sum_b) {
            return static_cast<Real>((Inner{x0} - cos2 * Inner{sum_a}) + cos1 * Inner{sum_b});
        };
        const Complex P = {near(x[0].re, a.re, b.re), near(x[0].im, a.im, b.im)};
        const Complex Q = {far(x[0].re, a.re, b.re), far(x[0].im, a.im, b.im)};
        const Real R = static_cast<Real>(sin1 * Inner{c.im} - sin2 * Inner{d.im});
        const Real T = static_cast<Real>(sin2 * Inner{c.im} + sin1 * Inner{d.im});
        const Real U = static_cast<Real>(sin2 * Inner{d.re} - sin1 * Inner{c.re});
        const Real V = static_cast<Real>(sin2 * Inner{c.re} + sin1 * Inner{d.re});
        return {scaled(add(add(x[0], a), b), s),
                {(P.re + R) * s, (P.im + U) * s},
                {(Q.re + T) * s, (Q.im - V) * s},
                {(Q.re - T) * s, (Q.im + V) * s},
                {(P.re - R) * s, (P.im - U) * s}};
    }
};

// The inverse is the forward transform read backwards: y[k] and y[N-k] exchanged.
template <class Complex>
std::vector<Complex> read_backwards(const std::vector<Complex>& y) {
    std::vector<Complex> reversed = {y[0]};
    reversed.insert(reversed.end(), y.rbegin(), y.rend() - 1);
    return reversed;
}

template <class E>
class ShortLengths : public testing::Test {
  protected:
    using Interface = Reference<E, double>;
    using Signal = std::vector<typename E::Complex>;
    using Forward = Signal (*)(const Signal& x, typename E::Real s);

    static void expect_reference_bits(int length, Forward forward) {
        for (const auto direction : {Direction::Forward, Direction::Inverse}) {
            const auto& kernel = kernel_of<E>(length, direction);
            for (const auto flag : kFlags) {
                const auto s = scale_factor<E>(length, direction, flag);
                for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                    const auto x = random_signal<E>(length, seed);
                    auto expected = forward(x, s);
                    if (direction == Direction::Inverse) expected = read_backwards(expected);
                    ASSERT_TRUE(same_bits<E>(expected, transform(kernel, x, flag)))
                        << describe(kernel, flag) << ", signal " << seed;
                }
            }
        }
    }

    // The flags of both directions are those of one factor.
    static void expect_inverse_read_backwards(std::int32_t forward_flag,
                                              std::int32_t inverse_flag) {
        for (const int length : {2, 3, 4, 5}) {
            const auto& forward = kernel_of<E>(length, Direction::Forward);
            const auto& inverse = kernel_of<E>(length, Direction::Inverse);
            for (const auto& placement : kPlacements) {
                for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                    const auto x = random_signal<E>(length, seed);
                    ASSERT_TRUE(
                        same_bits<E>(read_backwards(transform(forward, x, forward_flag, placement)),
                                     transform(inverse, x, inverse_flag, placement)))
                        << describe(inverse, inverse_flag) << ", signal " << seed << ", offsets "
                        << placement.source << " and " << placement.destination;
                }
            }
        }
    }
};
TYPED_TEST_SUITE(ShortLengths, ComplexTypes, ElementNames);

TYPED_TEST(ShortLengths, TwoHasTheBitsOfItsReference) {
    this->expect_reference_bits(2, TestFixture::Interface::two);
}
TYPED_TEST(ShortLengths, ThreeHasTheBitsOfItsReference) {
    this->expect_reference_bits(3, TestFixture::Interface::three);
}
TYPED_TEST(ShortLengths, FourHasTheBitsOfItsReference) {
    this->expect_reference_bits(4, TestFixture::Interface::four);
}
TYPED_TEST(ShortLengths, FiveHasTheBitsOfItsReference) {
    this->expect_reference_bits(5, TestFixture::Interface::five);
}

TYPED_TEST(ShortLengths, TheUnscaledInverseIsTheForwardTransformReadBackwards) {
    this->expect_inverse_read_backwards(qsvScaleNone, qsvScaleNone);
    this->expect_inverse_read_backwards(qsvScaleInvByN, qsvScaleFwdByN);
}
TYPED_TEST(ShortLengths, TheInverseByTheLengthIsTheForwardTransformReadBackwards) {
    this->expect_inverse_read_backwards(qsvScaleFwdByN, qsvScaleInvByN);
}
TYPED_TEST(ShortLengths, TheInverseByTheRootOfTheLengthIsTheForwardTransformReadBackwards) {
    this->expect_inverse_read_backwards(qsvScaleBySqrtN, qsvScaleBySqrtN);
}

// With these the tests of bits above show that they would notice another inner precision.
template <class E>
int signals_that_differ(int length,
                        std::vector<typename E::Complex> (*forward)(
                            const std::vector<typename E::Complex>& x, typename E::Real s)) {
    const auto& kernel = kernel_of<E>(length, Direction::Forward);
    int count = 0;
    for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
        const auto x = random_signal<E>(length, seed);
        const auto y = transform(kernel, x, qsvScaleNone);
        if (first_difference<E>(forward(x, 1), y) >= 0) ++count;
    }
    return count;
}

TEST(ShortLengthsOf32fc, ThreeIsNotDoneInSinglePrecisionThroughout) {
    EXPECT_GT(signals_that_differ<Single>(3, Reference<Single, float>::three), 0);
}
TEST(ShortLengthsOf32fc, FiveIsNotDoneInSinglePrecisionThroughout) {
    EXPECT_GT(signals_that_differ<Single>(5, Reference<Single, float>::five), 0);
}
// At length 3 no two inner operations follow each other but with a product by 1/2, which is exact.
TEST(ShortLengthsOf64fc, FiveRoundsEachProductToDoublePrecision) {
    EXPECT_GT(signals_that_differ<Double>(5, Reference<Double, long double>::five), 0);
}

}  // namespace
}  // namespace qsvgen_test
