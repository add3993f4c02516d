/**
 * @file
 * @brief Lengths 2 to 5 to the bit: which operations they do, in which precision and order.
 *
 * The references below are parts of the interface as much as the status codes are. Lengths 3 and 5
 * do the products with their irrational constants in binary64 and round each result to binary32.
 */

#include <gtest/gtest.h>

#include <vector>

#include "support/bits.hpp"
#include "support/scale.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

using Signal = std::vector<Complex32>;

constexpr int kSignals = 2000;

Complex32 add(Complex32 a, Complex32 b) {
    return {a.re + b.re, a.im + b.im};
}
Complex32 sub(Complex32 a, Complex32 b) {
    return {a.re - b.re, a.im - b.im};
}
Complex32 scaled(Complex32 a, float s) {
    return {a.re * s, a.im * s};
}
// a - i*b and a + i*b, with the imaginary unit folded into the sums
Complex32 sub_i(Complex32 a, Complex32 b) {
    return {a.re + b.im, a.im - b.re};
}
Complex32 add_i(Complex32 a, Complex32 b) {
    return {a.re - b.im, a.im + b.re};
}

Signal forward_2(const Signal& x, float s) {
    return {scaled(add(x[0], x[1]), s), scaled(sub(x[0], x[1]), s)};
}

Signal forward_4(const Signal& x, float s) {
    const auto a = add(x[0], x[2]);
    const auto b = sub(x[0], x[2]);
    const auto c = add(x[1], x[3]);
    const auto d = sub(x[1], x[3]);
    return {scaled(add(a, c), s), scaled(sub_i(b, d), s), scaled(sub(a, c), s),
            scaled(add_i(b, d), s)};
}

// Inner is the precision of the products; anything but double is not the interface's.
template <class Inner>
Signal forward_3(const Signal& x, float s) {
    const Inner half = static_cast<Inner>(0.5);
    const Inner sine = static_cast<Inner>(0.8660254037844386);
    const auto u = add(x[1], x[2]);
    const auto d = sub(x[1], x[2]);
    const auto center = [half](float x0, float sum) {
        return static_cast<float>(Inner{x0} - Inner{sum} * half);
    };
    const Complex32 w = {center(x[0].re, u.re), center(x[0].im, u.im)};
    const float p = static_cast<float>(Inner{d.im} * sine);
    const float q = static_cast<float>(Inner{d.re} * sine);
    return {scaled(add(x[0], u), s),
            {(w.re + p) * s, (w.im - q) * s},
            {(w.re - p) * s, (w.im + q) * s}};
}

template <class Inner>
Signal forward_5(const Signal& x, float s) {
    const Inner cos1 = static_cast<Inner>(0.30901699437494745);
    const Inner cos2 = static_cast<Inner>(0.8090169943749475);
    const Inner sin1 = static_cast<Inner>(0.9510565162951535);
    const Inner sin2 = static_cast<Inner>(0.5877852522924731);
    const auto a = add(x[1], x[4]);
    const auto b = add(x[3], x[2]);
    const auto c = sub(x[1], x[4]);
    const auto d = sub(x[3], x[2]);
    const auto near = [=](float x0, float sum_a, float sum_b) {
        return static_cast<float>((cos1 * Inner{sum_a} + Inner{x0}) - cos2 * Inner{sum_b});
    };
    const auto far = [=](float x0, float sum_a, float sum_b) {
        return static_cast<float>((Inner{x0} - cos2 * Inner{sum_a}) + cos1 * Inner{sum_b});
    };
    const Complex32 P = {near(x[0].re, a.re, b.re), near(x[0].im, a.im, b.im)};
    const Complex32 Q = {far(x[0].re, a.re, b.re), far(x[0].im, a.im, b.im)};
    const float R = static_cast<float>(sin1 * Inner{c.im} - sin2 * Inner{d.im});
    const float T = static_cast<float>(sin2 * Inner{c.im} + sin1 * Inner{d.im});
    const float U = static_cast<float>(sin2 * Inner{d.re} - sin1 * Inner{c.re});
    const float V = static_cast<float>(sin2 * Inner{c.re} + sin1 * Inner{d.re});
    return {scaled(add(add(x[0], a), b), s),
            {(P.re + R) * s, (P.im + U) * s},
            {(Q.re + T) * s, (Q.im - V) * s},
            {(Q.re - T) * s, (Q.im + V) * s},
            {(P.re - R) * s, (P.im - U) * s}};
}

// The inverse is the forward transform read backwards: y[k] and y[N-k] exchanged.
Signal read_backwards(const Signal& y) {
    Signal reversed = {y[0]};
    reversed.insert(reversed.end(), y.rbegin(), y.rend() - 1);
    return reversed;
}

using Reference = Signal (*)(const Signal& x, float s);

void expect_reference_bits(int length, Reference forward) {
    for (const auto direction : {Direction::Forward, Direction::Inverse}) {
        const auto& kernel = kernel_of<Single>(length, direction);
        for (const auto flag : kFlags) {
            const float s = scale_factor<Single>(length, direction, flag);
            for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                const auto x = random_signal<Single>(length, seed);
                auto expected = forward(x, s);
                if (direction == Direction::Inverse) expected = read_backwards(expected);
                ASSERT_TRUE(same_bits<Single>(expected, transform(kernel, x, flag)))
                    << describe(kernel, flag) << ", signal " << seed;
            }
        }
    }
}

int signals_that_differ(int length, Reference forward) {
    const auto& kernel = kernel_of<Single>(length, Direction::Forward);
    int count = 0;
    for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
        const auto x = random_signal<Single>(length, seed);
        const auto y = transform(kernel, x, qsvScaleNone);
        if (first_difference<Single>(forward(x, 1.0f), y) >= 0) ++count;
    }
    return count;
}

TEST(ShortLengths, TwoHasTheBitsOfItsReference) {
    expect_reference_bits(2, forward_2);
}
TEST(ShortLengths, ThreeHasTheBitsOfItsReference) {
    expect_reference_bits(3, forward_3<double>);
}
TEST(ShortLengths, FourHasTheBitsOfItsReference) {
    expect_reference_bits(4, forward_4);
}
TEST(ShortLengths, FiveHasTheBitsOfItsReference) {
    expect_reference_bits(5, forward_5<double>);
}

TEST(ShortLengths, ThreeIsNotDoneInSinglePrecisionThroughout) {
    EXPECT_GT(signals_that_differ(3, forward_3<float>), 0);
}
TEST(ShortLengths, FiveIsNotDoneInSinglePrecisionThroughout) {
    EXPECT_GT(signals_that_differ(5, forward_5<float>), 0);
}

TEST(ShortLengths, TheInverseIsTheForwardTransformReadBackwards) {
    for (const int length : {2, 3, 4, 5}) {
        const auto& forward = kernel_of<Single>(length, Direction::Forward);
        const auto& inverse = kernel_of<Single>(length, Direction::Inverse);
        for (const auto flag : {qsvScaleBySqrtN, qsvScaleNone}) {
            for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                const auto x = random_signal<Single>(length, seed);
                ASSERT_TRUE(same_bits<Single>(read_backwards(transform(forward, x, flag)),
                                              transform(inverse, x, flag)))
                    << describe(inverse, flag) << ", signal " << seed;
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
