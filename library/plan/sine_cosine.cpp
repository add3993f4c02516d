#include "plan/sine_cosine.hpp"

#include <cmath>
#include <cstdint>
#include <limits>

#include "plan/sine_of_angle.hpp"

namespace plan {
namespace {

/** Up to twice as much the products of the reduction are exact. */
constexpr Real64 kLargestMultipleOfPi = 4;

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
    return static_cast<Real32>(sine_for_32f(angle, quarter_turns));
}

Real64 of_multiple_of_pi(Real64 x, std::int32_t quarter_turns) {
    if (!is_in_range(x)) return std::numeric_limits<Real64>::quiet_NaN();
    return sine_for_64f(kPi * std::fabs(x), quarter_turns);
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
