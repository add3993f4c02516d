#include "plan/sine_cosine.hpp"

#include <cmath>
#include <cstdint>
#include <limits>

#include "plan/sine_constants.hpp"

namespace plan {
namespace {

constexpr Real64 kPi = 3.141592653589793;  // 0x400921FB54442D18
/** Beyond it the products of the reduction were no longer exact. */
constexpr Real64 kLargestMultipleOfPi = 4;

constexpr Real64 reciprocal_of_factorial(int n) {
    return kReciprocalsOfFactorials[n].high;
}

/** The integer nearest to x, which is not negative; to either side where two are near alike. */
std::int32_t nearest_integer(Real64 x) {
    return static_cast<std::int32_t>(x + 0.5);
}

/** sum of (-1)^i square^i / (first + 2i)! up to the order `last`. */
template <int first, int last>
Real64 alternating_series(Real64 square) {
    if constexpr (first == last) {
        return reciprocal_of_factorial(first);
    } else {
        return reciprocal_of_factorial(first) -
               square * alternating_series<first + 2, last>(square);
    }
}

/** Sine of `angle`, 0 to 4 pi, and `quarter_turns` more. */
Real64 sine_32f(Real64 angle, std::int32_t quarter_turns) {
    const std::int32_t quarters = nearest_integer(angle * (2 / kPi));
    const Real64 h = angle - quarters * (kPartsOfPi[0] / 2) - quarters * (kPartsOfPi[1] / 2);
    const Real64 square = h * h;
    const std::int32_t turned = quarters + quarter_turns;
    const Real64 magnitude = turned % 2 != 0 ? 1 - square * alternating_series<2, 16>(square)
                                             : h - h * square * alternating_series<3, 17>(square);
    return turned % 4 >= 2 ? -magnitude : magnitude;
}

/** sin(k pi / 128) of any k that is not negative. */
DoubleDouble sine_of_steps(std::int32_t k) {
    const std::int32_t in_half_turn = k % kStepsOfHalfTurn;
    const bool falls = in_half_turn > kStepsOfHalfTurn / 2;
    const DoubleDouble sine = kSines[falls ? kStepsOfHalfTurn - in_half_turn : in_half_turn];
    return k / kStepsOfHalfTurn % 2 != 0 ? -sine : sine;
}

/** What `steps` times pi/128 leave of the angle. The first difference is exact, since both are
 * within a factor of two of each other, or steps is 0; what follows is wanted where it cancels. */
DoubleDouble without_steps(Real64 angle, std::int32_t steps) {
    const auto part = [&](int i) { return steps * (kPartsOfPi[i] / kStepsOfHalfTurn); };
    const DoubleDouble first = exact_sum(angle - part(0), -part(1));
    const DoubleDouble second = exact_sum(first.high, -part(2));
    return exact_sum_of_descending(second.high, first.low + (second.low - part(3)));
}

/** Sine of `angle`, 0 to 4 pi, and `quarter_turns` more. */
Real64 sine_64f(Real64 angle, std::int32_t quarter_turns) {
    const std::int32_t steps = nearest_integer(angle * (kStepsOfHalfTurn / kPi));
    const std::int32_t turned = steps + quarter_turns * (kStepsOfHalfTurn / 2);
    const DoubleDouble sine = sine_of_steps(turned);
    const DoubleDouble cosine = sine_of_steps(turned + kStepsOfHalfTurn / 2);

    const DoubleDouble h = without_steps(angle, steps);
    const DoubleDouble square = h * h;
    // Terms from the sixth order on are so small that binary64 holds enough of their bits.
    const Real64 x = square.high;
    const DoubleDouble fifth = kReciprocalsOfFactorials[5] + -x * alternating_series<7, 11>(x);
    const DoubleDouble third = square * fifth + -kReciprocalsOfFactorials[3];
    const DoubleDouble sine_of_h = h + h * square * third;
    const DoubleDouble fourth = kReciprocalsOfFactorials[4] + -x * alternating_series<6, 12>(x);
    const DoubleDouble cosine_of_h_less_one = square * (square * fourth + -0.5);

    return (sine + (cosine * sine_of_h + sine * cosine_of_h_less_one)).high;
}

constexpr std::int32_t kSine = 0;
/** A cosine is the sine a quarter turn further. */
constexpr std::int32_t kCosine = 1;

template <class Real>
bool is_in_range(Real x) {
    return std::fabs(x) <= kLargestMultipleOfPi;
}

Real32 of_multiple_of_pi(Real32 x, std::int32_t quarter_turns) {
    if (!is_in_range(x)) return std::numeric_limits<Real32>::quiet_NaN();
    const auto angle = static_cast<Real32>(kPi * std::fabs(x));
    return static_cast<Real32>(sine_32f(angle, quarter_turns));
}

Real64 of_multiple_of_pi(Real64 x, std::int32_t quarter_turns) {
    if (!is_in_range(x)) return std::numeric_limits<Real64>::quiet_NaN();
    return sine_64f(kPi * std::fabs(x), quarter_turns);
}

template <class Real>
Real with_sign_of(Real x, Real value) {
    return std::signbit(x) ? -value : value;
}

}  // namespace
}  // namespace plan

extern "C" {

Real32 qsvgCosPi_32f(Real32 x) {
    return plan::of_multiple_of_pi(x, plan::kCosine);
}

Real32 qsvgSinPi_32f(Real32 x) {
    return plan::with_sign_of(x, plan::of_multiple_of_pi(x, plan::kSine));
}

Real64 qsvgCosPi_64f(Real64 x) {
    return plan::of_multiple_of_pi(x, plan::kCosine);
}

Real64 qsvgSinPi_64f(Real64 x) {
    return plan::with_sign_of(x, plan::of_multiple_of_pi(x, plan::kSine));
}
}
