/** @file @brief Numbers of twice the precision, against MPFR. */

#include "plan/double_double.hpp"

#include <gtest/gtest.h>
#include <mpfr.h>

#include <cmath>
#include <random>

namespace {

using plan::DoubleDouble;

class Exact {
  public:
    Exact() { mpfr_init2(value_, 2200); }
    explicit Exact(DoubleDouble x) : Exact() {
        mpfr_set_d(value_, x.high, MPFR_RNDN);
        mpfr_add_d(value_, value_, x.low, MPFR_RNDN);
    }
    ~Exact() { mpfr_clear(value_); }
    Exact(const Exact&) = delete;
    Exact& operator=(const Exact&) = delete;

    mpfr_ptr value() { return value_; }
    bool operator==(const Exact& other) const { return mpfr_equal_p(value_, other.value_) != 0; }
    /** How far `x` is from it, for its size. */
    double relative_error_of(DoubleDouble x) {
        Exact error(x);
        mpfr_sub(error.value(), error.value(), value_, MPFR_RNDN);
        mpfr_div(error.value(), error.value(), value_, MPFR_RNDN);
        return std::fabs(mpfr_get_d(error.value(), MPFR_RNDN));
    }

  private:
    mpfr_t value_;
};

/** Pairs of doubles of either sign with exponents from -30 to 30. */
class Pairs {
  public:
    double next() {
        const double x = std::ldexp(values_(random_), exponents_(random_));
        return random_() % 2 != 0 ? -x : x;
    }
    DoubleDouble next_double_double() {
        const double high = next();
        return plan::exact_sum(high, std::ldexp(high * values_(random_), -54));
    }

  private:
    std::mt19937 random_{11};
    std::uniform_real_distribution<double> values_{0.5, 1};
    std::uniform_int_distribution<int> exponents_{-30, 30};
};

constexpr int kTrials = 20000;

TEST(DoubleDoubles, SumsOfTwoDoublesAreExact) {
    Pairs pairs;
    for (int i = 0; i < kTrials; ++i) {
        const double a = pairs.next();
        const double b = pairs.next();
        Exact exact({a, 0});
        mpfr_add_d(exact.value(), exact.value(), b, MPFR_RNDN);
        const DoubleDouble sum = plan::exact_sum(a, b);
        ASSERT_EQ(a + b, sum.high) << a << " + " << b;
        ASSERT_TRUE(exact == Exact(sum)) << a << " + " << b;
    }
}

TEST(DoubleDoubles, SumsInDescendingOrderAreExact) {
    Pairs pairs;
    for (int i = 0; i < kTrials; ++i) {
        double a = pairs.next();
        double b = pairs.next();
        if (std::fabs(a) < std::fabs(b)) std::swap(a, b);
        const DoubleDouble expected = plan::exact_sum(a, b);
        const DoubleDouble sum = plan::exact_sum_of_descending(a, b);
        ASSERT_EQ(expected.high, sum.high) << a << " + " << b;
        ASSERT_EQ(expected.low, sum.low) << a << " + " << b;
    }
    EXPECT_EQ(0.75, plan::exact_sum_of_descending(0, 0.75).high);
    EXPECT_EQ(0, plan::exact_sum_of_descending(0, 0.75).low);
}

TEST(DoubleDoubles, ProductsOfTwoDoublesAreExact) {
    Pairs pairs;
    for (int i = 0; i < kTrials; ++i) {
        const double a = pairs.next();
        const double b = pairs.next();
        Exact exact({a, 0});
        mpfr_mul_d(exact.value(), exact.value(), b, MPFR_RNDN);
        const DoubleDouble product = plan::exact_product(a, b);
        ASSERT_EQ(a * b, product.high) << a << " * " << b;
        ASSERT_TRUE(exact == Exact(product)) << a << " * " << b;
    }
}

TEST(DoubleDoubles, SumsAreAsCloseAsTold) {
    Pairs pairs;
    for (int i = 0; i < kTrials; ++i) {
        DoubleDouble a = pairs.next_double_double();
        DoubleDouble b = pairs.next_double_double();
        // Of one sign, so that nothing cancels.
        if ((a.high < 0) != (b.high < 0)) b = -b;
        Exact exact(a);
        mpfr_add(exact.value(), exact.value(), Exact(b).value(), MPFR_RNDN);
        ASSERT_LT(exact.relative_error_of(a + b), 0x1p-104) << a.high << " + " << b.high;
        Exact exact_of_one(a);
        mpfr_add_d(exact_of_one.value(), exact_of_one.value(), b.high, MPFR_RNDN);
        ASSERT_LT(exact_of_one.relative_error_of(a + b.high), 0x1p-104)
            << a.high << " + " << b.high;
    }
}

TEST(DoubleDoubles, ProductsAreAsCloseAsTold) {
    Pairs pairs;
    for (int i = 0; i < kTrials; ++i) {
        const DoubleDouble a = pairs.next_double_double();
        const DoubleDouble b = pairs.next_double_double();
        Exact exact(a);
        mpfr_mul(exact.value(), exact.value(), Exact(b).value(), MPFR_RNDN);
        ASSERT_LT(exact.relative_error_of(a * b), 0x1p-101) << a.high << " * " << b.high;
    }
}

}  // namespace
