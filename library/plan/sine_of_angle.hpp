#pragma once

/**
 * @file
 * @brief Sines of angles from 0 to 4 pi, and of angles a quarter turn further, which are cosines,
 * by sums and products alone, before they are rounded to an element type.
 *
 * All of it presumes rounding to nearest. Reduction in parts of pi: W. J. Cody and W. Waite,
 * "Software Manual for the Elementary Functions", 1980. Then Taylor's series, for Real64 around the
 * nearest sine of a table: P. T. P. Tang, "Table-lookup algorithms for elementary functions and
 * their error analysis", 10th IEEE Symposium on Computer Arithmetic, 1991.
 */

#include <cmath>
#include <cstdint>

#include "plan/double_double.hpp"
#include "plan/sine_constants.hpp"

namespace plan {

constexpr Real64 kPi = 3.141592653589793;  // 0x400921FB54442D18

/** The integer nearest to x, which is not negative; to either side where two are near alike. */
inline std::int32_t nearest_integer(Real64 x) {
    const Real64 shifted = x + 0.5;
    return static_cast<std::int32_t>(shifted);
}

/** The sum of (-square)^i / (first + 2i)! up to the order `last`. */
template <int first, int last>
Real64 alternating_series(Real64 square) {
    constexpr Real64 kTerm = kReciprocalsOfFactorials[first].high;
    if constexpr (first == last) {
        return kTerm;
    } else {
        return kTerm - square * alternating_series<first + 2, last>(square);
    }
}

/** In binary64, the error below 2^-51 of the sine where `angle` is one of binary32. */
inline Real64 sine_for_32f(Real64 angle, std::int32_t quarter_turns) {
    const std::int32_t quarters = nearest_integer(angle * (2 / kPi));
    const Real64 h = angle - quarters * (kPartsOfPi[0] / 2) - quarters * (kPartsOfPi[1] / 2);
    const Real64 square = h * h;
    const std::int32_t turned = quarters + quarter_turns;
    const Real64 magnitude = turned % 2 != 0 ? 1 - square * alternating_series<2, 16>(square)
                                             : h - h * square * alternating_series<3, 17>(square);
    return turned % 4 >= 2 ? -magnitude : magnitude;
}

/** An angle as a whole number of steps, of which this has sine and cosine, and a rest. */
struct SteppedAngle {
    DoubleDouble sine;
    DoubleDouble cosine;
    DoubleDouble rest;  ///< pi/256 at most in magnitude
};

/** sin(k pi / 128) of any k that is not negative. */
inline DoubleDouble sine_of_steps(std::int32_t k) {
    const std::int32_t in_half_turn = k % kStepsOfHalfTurn;
    const bool falls = in_half_turn > kStepsOfHalfTurn / 2;
    const DoubleDouble sine = kSines[falls ? kStepsOfHalfTurn - in_half_turn : in_half_turn];
    return k / kStepsOfHalfTurn % 2 != 0 ? -sine : sine;
}

/** What `steps` leave of the angle. The first difference is exact, since both are within a factor
 * of two of each other, or steps is 0; what follows is wanted where it cancels. */
inline DoubleDouble without_steps(Real64 angle, std::int32_t steps) {
    const auto part = [&](int i) { return steps * (kPartsOfPi[i] / kStepsOfHalfTurn); };
    const DoubleDouble first = exact_sum(angle - part(0), -part(1));
    const DoubleDouble second = exact_sum(first.high, -part(2));
    return exact_sum_of_descending(second.high, first.low + (second.low - part(3)));
}

inline SteppedAngle in_steps(Real64 angle, std::int32_t quarter_turns) {
    constexpr std::int32_t kQuarter = kStepsOfHalfTurn / 2;
    const std::int32_t steps = nearest_integer(angle * (kStepsOfHalfTurn / kPi));
    const std::int32_t turned = steps + quarter_turns * kQuarter;
    return {sine_of_steps(turned), sine_of_steps(turned + kQuarter), without_steps(angle, steps)};
}

constexpr Real64 kErrorOfEstimate = 0x1p-62;

/** The error is below kErrorOfEstimate times the sine: but for the sum and the one product that
 * lead, it is formed in binary64. */
inline DoubleDouble estimated_sine(const SteppedAngle& angle) {
    const Real64 h = angle.rest.high;
    const Real64 square = h * h;
    const Real64 sine_less_h = angle.rest.low - h * square * alternating_series<3, 9>(square);
    const Real64 cosine_less_one =
        -(square * alternating_series<2, 8>(square)) - h * angle.rest.low;
    const DoubleDouble product = exact_product(angle.cosine.high, h);
    const DoubleDouble sum = exact_sum(angle.sine.high, product.high);
    const Real64 small = angle.sine.low + product.low + angle.cosine.low * h;
    return exact_sum_of_descending(
        sum.high,
        sum.low + small + (angle.sine.high * cosine_less_one + angle.cosine.high * sine_less_h));
}

/** The error is below 2^-98 of the sine. */
inline DoubleDouble refined_sine(const SteppedAngle& angle) {
    const DoubleDouble h = angle.rest;
    const DoubleDouble square = h * h;
    // Terms from the sixth order on are so small that binary64 holds enough of their bits.
    const Real64 x = square.high;
    const DoubleDouble fifth = kReciprocalsOfFactorials[5] + -x * alternating_series<7, 11>(x);
    const DoubleDouble third = square * fifth + -kReciprocalsOfFactorials[3];
    const DoubleDouble sine = h + h * square * third;
    const DoubleDouble fourth = kReciprocalsOfFactorials[4] + -x * alternating_series<6, 12>(x);
    const DoubleDouble cosine_less_one = square * (square * fourth + -0.5);
    return angle.sine + (angle.cosine * sine + angle.sine * cosine_less_one);
}

/** The sine rounded: of the estimate, where all that it may stand for rounds alike. */
inline Real64 sine_for_64f(Real64 angle, std::int32_t quarter_turns) {
    const SteppedAngle stepped = in_steps(angle, quarter_turns);
    const DoubleDouble estimate = estimated_sine(stepped);
    const Real64 error = std::fabs(estimate.high) * kErrorOfEstimate;
    const Real64 rounded = estimate.high + (estimate.low - error);
    if (rounded == estimate.high + (estimate.low + error)) return rounded;
    return refined_sine(stepped).high;
}

}  // namespace plan
