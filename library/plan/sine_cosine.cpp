#include "plan/sine_cosine.hpp"

#include <cmath>

namespace {

constexpr Real64 kPi = 3.141592653589793;  // 0x400921FB54442D18

}  // namespace

// Each calls one function of the C library: a sine beside a cosine would become a third.
extern "C" {

Real32 qsvgCosPi_32f(Real32 x) {
    return ::cosf(static_cast<Real32>(kPi * x));
}

Real32 qsvgSinPi_32f(Real32 x) {
    return ::sinf(static_cast<Real32>(kPi * x));
}

Real64 qsvgCosPi_64f(Real64 x) {
    return ::cos(kPi * x);
}

Real64 qsvgSinPi_64f(Real64 x) {
    return ::sin(kPi * x);
}
}
