/** @file @brief Sines before they are rounded are as close as they are told to be. */

#include "plan/sine_of_angle.hpp"

#include <gtest/gtest.h>
#include <mpfr.h>

#include <cmath>
#include <random>

namespace {

using plan::DoubleDouble;

/** The sine of `angle`, or its cosine, and how far a value is from it. */
class ExactSine {
  public:
    ExactSine(double angle, int quarter_turns) {
        mpfr_inits2(300, sine_, error_, nullptr);
        mpfr_set_d(sine_, angle, MPFR_RNDN);
        const auto function = quarter_turns == 0 ? mpfr_sin : mpfr_cos;
        function(sine_, sine_, MPFR_RNDN);
    }
    ~ExactSine() { mpfr_clears(sine_, error_, nullptr); }
    ExactSine(const ExactSine&) = delete;
    ExactSine& operator=(const ExactSine&) = delete;

    double relative_error_of(DoubleDouble value) {
        mpfr_set_d(error_, value.high, MPFR_RNDN);
        mpfr_add_d(error_, error_, value.low, MPFR_RNDN);
        mpfr_sub(error_, error_, sine_, MPFR_RNDN);
        mpfr_div(error_, error_, sine_, MPFR_RNDN);
        return std::fabs(mpfr_get_d(error_, MPFR_RNDN));
    }

  private:
    mpfr_t sine_;
    mpfr_t error_;
};

/** Calls `use(angle, quarter_turns)`: random angles, multiples of pi/128, those in the middle of
 * two of them, and neighbours of all of these. */
template <class Use>
void for_each_angle(const Use& use) {
    const auto use_neighbours = [&](double angle) {
        for (const double at : {angle, std::nextafter(angle, 0), std::nextafter(angle, 13)}) {
            for (int quarter_turns = 0; quarter_turns < 2; ++quarter_turns) use(at, quarter_turns);
        }
    };
    for (int k = 1; k < 1024; ++k) use_neighbours(plan::kPi / 256 * k);
    std::mt19937_64 random(5);
    std::uniform_real_distribution<double> angles(0, 4 * plan::kPi);
    for (int i = 0; i < 5000; ++i) use_neighbours(angles(random));
    for (int exponent = 0; exponent > -100; --exponent)
        use_neighbours(std::ldexp(angles(random), exponent));
}

TEST(SineOfAngle, EstimatesAreAsCloseAsTold) {
    for_each_angle([&](double angle, int quarter_turns) {
        const DoubleDouble sine = plan::estimated_sine(plan::in_steps(angle, quarter_turns));
        const double error = ExactSine(angle, quarter_turns).relative_error_of(sine);
        EXPECT_LT(error, plan::kErrorOfEstimate)
            << std::hexfloat << angle << " and " << quarter_turns << " quarter turns";
    });
}

TEST(SineOfAngle, RefinedOnesAreAsCloseAsTold) {
    for_each_angle([&](double angle, int quarter_turns) {
        const DoubleDouble sine = plan::refined_sine(plan::in_steps(angle, quarter_turns));
        const double error = ExactSine(angle, quarter_turns).relative_error_of(sine);
        EXPECT_LT(error, 0x1p-98) << std::hexfloat << angle << " and " << quarter_turns
                                  << " quarter turns";
    });
}

TEST(SineOfAngle, ThoseForFloatsAreAsCloseAsTold) {
    for_each_angle([&](double wide, int quarter_turns) {
        const auto angle = static_cast<double>(static_cast<float>(wide));
        const double sine = plan::sine_for_32f(angle, quarter_turns);
        const double error = ExactSine(angle, quarter_turns).relative_error_of({sine, 0});
        EXPECT_LT(error, 0x1p-51) << std::hexfloat << angle << " and " << quarter_turns
                                  << " quarter turns";
    });
}

// An estimate close to the middle of two numbers must not decide, and there are some.
TEST(SineOfAngle, WhereTheEstimateDoesNotDecideTheRefinedOneDoes) {
    int undecided = 0;
    for_each_angle([&](double angle, int quarter_turns) {
        const plan::SteppedAngle stepped = plan::in_steps(angle, quarter_turns);
        const DoubleDouble estimate = plan::estimated_sine(stepped);
        const double error = std::fabs(estimate.high) * plan::kErrorOfEstimate;
        if (estimate.high + (estimate.low - error) == estimate.high + (estimate.low + error))
            return;
        ++undecided;
        EXPECT_EQ(plan::refined_sine(stepped).high, plan::sine_for_64f(angle, quarter_turns))
            << std::hexfloat << angle;
    });
    EXPECT_GT(undecided, 10);
}

}  // namespace
