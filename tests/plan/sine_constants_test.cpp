/** @file @brief The constants of sines and cosines, evaluated again. */

#include "plan/sine_constants.hpp"

#include <gtest/gtest.h>
#include <mpfr.h>

#include <cmath>
#include <iterator>
#include <limits>

namespace {

using plan::DoubleDouble;

/** A number with far more bits than any constant. */
class Exact {
  public:
    Exact() { mpfr_init2(value_, 600); }
    ~Exact() { mpfr_clear(value_); }
    Exact(const Exact&) = delete;
    Exact& operator=(const Exact&) = delete;

    mpfr_ptr value() { return value_; }
    /** Takes the value rounded to `bits` away from it. */
    double taken(int bits) {
        Exact rounded;
        mpfr_set_prec(rounded.value(), bits);
        mpfr_set(rounded.value(), value_, MPFR_RNDN);
        mpfr_sub(value_, value_, rounded.value(), MPFR_RNDN);
        return mpfr_get_d(rounded.value(), MPFR_RNDN);
    }

  private:
    mpfr_t value_;
};

void expect_nearest(Exact& exact, const DoubleDouble& constant, const char* what, int index) {
    EXPECT_EQ(exact.taken(53), constant.high) << what << " " << index << ", high part";
    EXPECT_EQ(exact.taken(53), constant.low) << what << " " << index << ", low part";
}

TEST(SineConstants, PartsOfPiAreItsBitsInTurn) {
    Exact pi;
    mpfr_const_pi(pi.value(), MPFR_RNDN);
    ASSERT_EQ(4U, std::size(plan::kPartsOfPi));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(pi.taken(43), plan::kPartsOfPi[i]) << "part " << i;
    EXPECT_EQ(pi.taken(53), plan::kPartsOfPi[3]);
    EXPECT_LT(std::fabs(mpfr_get_d(pi.value(), MPFR_RNDN)), 0x1p-182);
}

// Halves and 128ths of them are taken times 0 to 512.
TEST(SineConstants, PartsOfPiGiveExactProductsWithTheMultiplesOfTheReduction) {
    for (int i = 0; i < 3; ++i) {
        for (int multiple = 0; multiple <= 1024; ++multiple) {
            const double part = plan::kPartsOfPi[i] / plan::kStepsOfHalfTurn;
            EXPECT_EQ(0, std::fma(part, multiple, -(part * multiple)))
                << "part " << i << ", " << multiple;
        }
    }
}

TEST(SineConstants, ReciprocalsOfFactorialsAreTheNearest) {
    for (int n = 0; n < static_cast<int>(std::size(plan::kReciprocalsOfFactorials)); ++n) {
        Exact exact;
        mpfr_fac_ui(exact.value(), static_cast<unsigned long>(n), MPFR_RNDN);
        mpfr_ui_div(exact.value(), 1, exact.value(), MPFR_RNDN);
        expect_nearest(exact, plan::kReciprocalsOfFactorials[n], "1/n! of", n);
    }
}

TEST(SineConstants, SinesOfStepsAreTheNearest) {
    ASSERT_EQ(plan::kStepsOfHalfTurn / 2 + 1, static_cast<int>(std::size(plan::kSines)));
    for (int k = 0; k <= plan::kStepsOfHalfTurn / 2; ++k) {
        Exact exact;
        mpfr_const_pi(exact.value(), MPFR_RNDN);
        mpfr_mul_si(exact.value(), exact.value(), k, MPFR_RNDN);
        mpfr_div_si(exact.value(), exact.value(), plan::kStepsOfHalfTurn, MPFR_RNDN);
        // Of the quarter turn the cosine is no zero, but the sine is one to all bits there are.
        mpfr_sin(exact.value(), exact.value(), MPFR_RNDN);
        expect_nearest(exact, plan::kSines[k], "sine of step", k);
    }
}

}  // namespace
