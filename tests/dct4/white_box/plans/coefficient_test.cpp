/** @file @brief Coefficient objects as functions of their indices. */

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "dct4/operations.hpp"
#include "support/plan_buffer.hpp"

namespace qsvgen_test {
namespace {

/** Stands for any inner object: its value tells the indices it was asked for. */
Real indices_at(const CoefficientObject*, std::int32_t i, std::int32_t j, std::int32_t k) {
    return static_cast<Real>(10000 * i + 100 * j + k);
}

class Coefficients : public testing::Test {
  protected:
    ArenaBuffer buffer_{1024};

    envlambda lambda(std::int32_t numerator, std::int32_t denominator) {
        envlambda object;
        EXPECT_EQ(&object,
                  DCT4(envlambda___init__)(&object, buffer_.arena(), numerator, denominator));
        return object;
    }
    envfCompose compose(std::int32_t length, std::int32_t factor) {
        envfCompose object;
        EXPECT_EQ(&object, DCT4(envfCompose___init__)(&object, buffer_.arena(),
                                                      {.columns = 2 * factor,
                                                       .angleBase = 8 * length,
                                                       .rowCount = length / (2 * factor),
                                                       .factor = factor,
                                                       .rowStride = 2 * factor}));
        return object;
    }
};

TEST_F(Coefficients, LambdaIsTheMiddleOfABlock) {
    const envlambda object = lambda(128, 8);
    EXPECT_EQ(Real(0.03125), DCT4(envlambda_at)(&object, 0, 0, 0));
    EXPECT_EQ(Real(0.09375), DCT4(envlambda_at)(&object, 1, 0, 0));
    EXPECT_EQ(Real(0.96875), DCT4(envlambda_at)(&object, 15, 0, 0));
    EXPECT_EQ(Real(-0.03125), DCT4(envlambda_at)(&object, -1, 0, 0));
}

TEST_F(Coefficients, LambdaReadsItsFirstIndexAlone) {
    const envlambda object = lambda(128, 8);
    EXPECT_EQ(Real(0.21875), DCT4(envlambda_at)(&object, 3, 7, -9));
}

TEST_F(Coefficients, LambdaDividesItsFieldsAsIntegersAndTheRestInItsElement) {
    const envlambda object = lambda(23, 2);
    const volatile Real expected = Real(3.5) / Real(11);
    EXPECT_EQ(expected, DCT4(envlambda_at)(&object, 3, 0, 0));
}

TEST_F(Coefficients, FsplitTurnsAGroupAndALaneIntoARow) {
    CoefficientObject inner = {{nullptr, 0}, indices_at, buffer_.arena()};
    const envfsplit object = {{{nullptr, 0}, DCT4(envfsplit_at), buffer_.arena()}, 8, 4, &inner};
    for (std::int32_t k = 0; k < 8; ++k) {
        EXPECT_EQ(indices_at(nullptr, kSingle ? 6 : 4, k, 0), DCT4(envfsplit_at)(&object, 1, 2, k));
        EXPECT_EQ(indices_at(nullptr, 3, k, 0), DCT4(envfsplit_at)(&object, 0, 3, k));
    }
}

TEST_F(Coefficients, ComposeGivesCosineAndSineOfOneAngleInAPairOfColumns) {
    const envfCompose object = compose(64, 8);
    const auto at = [&](std::int32_t r, std::int32_t k) {
        return static_cast<double>(DCT4(envfCompose_at)(&object, r, k, 0));
    };
    constexpr double kPi = std::numbers::pi;
    const double tolerance = kSingle ? 1e-7 : 2e-16;
    EXPECT_NEAR(std::cos(kPi / 256), at(0, 0), tolerance);
    EXPECT_NEAR(std::sin(kPi / 256), at(0, 1), tolerance);
    EXPECT_NEAR(std::cos(kPi * 7 / 256), at(3, 0), tolerance);
    for (std::int32_t r = 0; r < 4; ++r) {
        for (std::int32_t v = 0; v < 8; ++v) {
            const double angle = kPi * (2 * r + 1) * (2 * v + 1) / 256;
            EXPECT_NEAR(std::cos(angle), at(r, 2 * v), tolerance) << r << ", " << v;
            EXPECT_NEAR(std::sin(angle), at(r, 2 * v + 1), tolerance) << r << ", " << v;
        }
    }
}

TEST_F(Coefficients, ComposeIgnoresItsThirdIndex) {
    const envfCompose object = compose(64, 8);
    EXPECT_EQ(DCT4(envfCompose_at)(&object, 1, 5, 0), DCT4(envfCompose_at)(&object, 1, 5, 1000));
}

TEST_F(Coefficients, AreReachedByOneDispatcherWhateverTheirClass) {
    const envlambda first = lambda(128, 8);
    const envfCompose second = compose(64, 8);
    const envfsplit third = {{{nullptr, 0}, DCT4(envfsplit_at), buffer_.arena()}, 16, 1, &second};
    EXPECT_EQ(DCT4(envlambda_at)(&first, 5, 0, 0), owng_TFunc_IIIR_at(&first, 5, 0, 0));
    EXPECT_EQ(DCT4(envfCompose_at)(&second, 2, 3, 0), owng_TFunc_IIIR_at(&second, 2, 3, 0));
    EXPECT_EQ(DCT4(envfCompose_at)(&second, 1, 3, 0), owng_TFunc_IIIR_at(&third, 0, 1, 3));
    CoefficientObject fourth = {{nullptr, 0}, indices_at, nullptr};
    EXPECT_EQ(Real(30507), owng_TFunc_IIIR_at(&fourth, 3, 5, 7));
}

TEST_F(Coefficients, AreDestroyedWithoutATrace) {
    envlambda first = lambda(128, 8);
    envfCompose second = compose(64, 8);
    envfsplit third = {{{nullptr, 28}, DCT4(envfsplit_at), buffer_.arena()}, 16, 1, &second};
    const auto used = buffer_.used();
    first.destroy(&first);
    second.destroy(&second);
    DCT4(envfsplit___del__)(&third);
    EXPECT_EQ(used, buffer_.used());
    EXPECT_EQ(128, first.numerator);
    EXPECT_EQ(512, second.angleBase);
    EXPECT_EQ(&second, third.inner);
}

}  // namespace
}  // namespace qsvgen_test
