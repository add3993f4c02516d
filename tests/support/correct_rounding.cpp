#include "support/correct_rounding.hpp"

#include <mpfr.h>

#include <limits>

namespace qsvgen_test {
namespace {

/** One number of MPFR with as many bits as the element type. */
template <class Real>
class Rounded {
  public:
    Rounded() { mpfr_init2(value_, std::numeric_limits<Real>::digits); }
    ~Rounded() { mpfr_clear(value_); }
    Rounded(const Rounded&) = delete;
    Rounded& operator=(const Rounded&) = delete;

    template <class Function>
    Real of(const Function& function, Real angle) {
        mpfr_set_d(value_, static_cast<double>(angle), MPFR_RNDN);
        function(value_, value_, MPFR_RNDN);
        return static_cast<Real>(mpfr_get_d(value_, MPFR_RNDN));
    }

  private:
    mpfr_t value_;
};

}  // namespace

Real32 correctly_rounded_sine(Real32 angle) {
    return Rounded<Real32>().of(mpfr_sin, angle);
}
Real32 correctly_rounded_cosine(Real32 angle) {
    return Rounded<Real32>().of(mpfr_cos, angle);
}
Real64 correctly_rounded_sine(Real64 angle) {
    return Rounded<Real64>().of(mpfr_sin, angle);
}
Real64 correctly_rounded_cosine(Real64 angle) {
    return Rounded<Real64>().of(mpfr_cos, angle);
}

}  // namespace qsvgen_test
