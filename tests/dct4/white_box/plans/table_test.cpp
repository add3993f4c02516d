/**
 * @file
 * @brief Contents of the tables to the bit. What is expected comes from the angles that the stages
 * rotate by and from MPFR's functions, not from coefficient objects. What is named thorough takes
 * long: scripts/test --thorough sines.
 */

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <numbers>

#include "support/correct_rounding.hpp"
#include "support/plan_buffer.hpp"

namespace qsvgen_test {
namespace {

/** The multiple of pi that a table's entry is of; volatile, so that each step rounds. */
Real angle_of(Real x) {
    const volatile double wide = std::numbers::pi * static_cast<double>(x);
    const volatile Real angle = static_cast<Real>(wide);
    return angle;
}
Real cosine(Real x) {
    return correctly_rounded_cosine(angle_of(x));
}
Real sine(Real x) {
    return correctly_rounded_sine(angle_of(x));
}

bool same_bits(Real a, Real b) {
    return a == b && std::signbit(a) == std::signbit(b);
}

/** Compares a table slot by slot. */
class Slots {
  public:
    Slots(const Real* table, std::int32_t length) : table_(table), length_(length) {}

    void expect(std::int32_t lane, Real value, const char* what) const {
        const Real found = table_[kLanes * slot_ + lane];
        EXPECT_TRUE(same_bits(value, found))
            << "length " << length_ << ", " << what << ", slot " << slot_ << ", lane " << lane
            << ": " << value << " expected, " << found << " found";
    }
    void expect_in_all_lanes(Real value, const char* what) const {
        for (std::int32_t lane = 0; lane < kLanes; ++lane) expect(lane, value, what);
    }
    /** Cosine and sine of one multiple of pi in all lanes. */
    void expect_pair(Real x) {
        expect_in_all_lanes(cosine(x), "cosine");
        next();
        expect_in_all_lanes(sine(x), "sine");
        next();
    }
    void next() { ++slot_; }
    std::int32_t bytes() const { return 16 * slot_; }

  private:
    const Real* table_;
    std::int32_t length_;
    std::int32_t slot_ = 0;
};

/** The columns of a rotation table in their order. */
std::vector<std::int32_t> column_order(std::int32_t columns) {
    if (columns == 1) return {0};
    std::vector<std::int32_t> lower;
    for (std::int32_t c = 0; c < columns / 2; ++c) lower.push_back(c);
    if (columns == 32) lower = {0, 16, 4, 20, 8, 24, 12, 28, 1, 17, 5, 21, 9, 25, 13, 29};
    std::vector<std::int32_t> order;
    for (const std::int32_t c : lower) {
        order.push_back(c);
        order.push_back(columns - 1 - c);
    }
    return order;
}

/** `table` for `rows` rows, the angles being (2 row + 1)(2 column + 1) / (4 length) times pi. */
std::int32_t expect_rotations(const Real* table, std::int32_t length, std::int32_t rows,
                              std::int32_t columns) {
    Slots slots(table, length);
    for (std::int32_t row = 0; row < rows; row += kLanes) {
        for (const std::int32_t column : column_order(columns)) {
            for (const bool is_sine : {false, true}) {
                for (std::int32_t lane = 0; lane < kLanes; ++lane) {
                    const std::int32_t product = (2 * (row + lane) + 1) * (2 * column + 1);
                    const volatile Real x =
                        static_cast<Real>(2 * product) / static_cast<Real>(8 * length);
                    slots.expect(lane, is_sine ? sine(x) : cosine(x), is_sine ? "sine" : "cosine");
                }
                slots.next();
            }
        }
    }
    return slots.bytes();
}

/** Multiples m / 2^shift of `x` as they are rounded. */
Real multiple(Real x, std::int32_t m, std::int32_t divisor) {
    const volatile Real product = x * (static_cast<Real>(m) / static_cast<Real>(divisor));
    return product;
}

/** `table` for the twiddle factors of n points split by f. */
std::int32_t expect_twiddles(const Real* table, std::int32_t length, std::int32_t n,
                             std::int32_t f) {
    Slots slots(table, length);
    const std::int32_t blocks = n / (2 * f);
    const std::int32_t quotient = n / f;
    const auto lambda = [&](std::int32_t block) {
        const volatile Real x =
            (static_cast<Real>(block) + Real(0.5)) / static_cast<Real>(quotient);
        return static_cast<Real>(x);
    };
    const std::int32_t outer = f <= 8 ? f : f / 4;
    for (std::int32_t block = 0; f > 8 && block < blocks; ++block) {
        for (std::int32_t k = 0; k < outer; ++k) {
            const volatile Real sum = lambda(block) + static_cast<Real>(k);
            for (const double half : {0.5, 1.0, 1.5}) {
                const double scale = f == 16 ? 0.25 : 0.125;
                const volatile Real x = static_cast<Real>(static_cast<double>(sum) * scale * half);
                slots.expect_pair(x);
            }
        }
    }
    for (std::int32_t block = 0; block < blocks; ++block) {
        for (std::int32_t m = 1; m < outer; ++m)
            slots.expect_pair(multiple(lambda(block), 2 * m, outer));
    }
    return slots.bytes();
}

void expect_tables_of(std::int32_t length) {
    PlanBuffer plan(length);
    if (plan.root().rule != 6) return;
    const env4& rotations = plan.rotations();
    const std::int32_t bytes =
        expect_rotations(rotations.table, length, rotations.blocks * kLanes, rotations.factor);
    EXPECT_EQ(32 * rotations.factor * rotations.blocks, bytes) << length;
    const std::int32_t power = length & ~1;
    EXPECT_EQ(power * static_cast<std::int32_t>(sizeof(Real)), bytes) << length;
    for (const env7* split : plan.splits()) {
        const env8& node = twiddles_of(*split);
        const std::int32_t bytes_of_twiddles =
            expect_twiddles(node.table, length, split->subLength, split->factor);
        EXPECT_EQ((2 * node.factor - 2) * 16 * node.blocks, bytes_of_twiddles) << length;
    }
}

TEST(Tables, HoldTheAnglesOfEachRowColumnAndBlockInTheOrderOfTheKernels) {
    for (const std::int32_t length : accepted_lengths(1 << 18)) expect_tables_of(length);
}

TEST(ThoroughTables, OfAllPlansTo2To20HoldCorrectlyRoundedSinesAndCosines) {
    for (const std::int32_t length : accepted_lengths((1 << 20) + 1)) expect_tables_of(length);
}

// The same angles as the run needs them: a block's theta is (2 block + 1) / (2n) times pi, n being
// half of the points. Everything is exact for powers of two.
TEST(Tables, OfTwiddlesAreWhatTheSplitMultipliesBy) {
    for (const std::int32_t length : accepted_lengths(1 << 18)) {
        PlanBuffer plan(length);
        if (plan.root().rule != 6) continue;
        for (const env7* split : plan.splits()) {
            const std::int32_t s = split->factor;
            const std::int32_t n = split->subLength / 2;
            Slots slots(twiddles_of(*split).table, length);
            const auto expect_angle = [&](std::int32_t r, std::int32_t block, std::int32_t t) {
                // r (theta + 2 pi t / s), as a multiple of pi.
                const std::int32_t turned = 4 * t * (n / s);
                const Real numerator = static_cast<Real>(r * (2 * block + 1 + turned));
                slots.expect_pair(numerator / static_cast<Real>(2 * n));
            };
            for (std::int32_t block = 0; s > 8 && block < n / s; ++block) {
                for (std::int32_t t = 0; t < s / 4; ++t) {
                    for (std::int32_t r = 1; r < 4; ++r) expect_angle(r, block, t);
                }
            }
            for (std::int32_t block = 0; block < n / s; ++block) {
                for (std::int32_t r = 1; r < (s > 8 ? s / 4 : s); ++r)
                    expect_angle(s > 8 ? 4 * r : r, block, 0);
            }
        }
    }
}

// No accepted length has them; rows that are no power of two round everywhere.
TEST(Tables, OfRotationsOfAnyFactorAndLength) {
    for (const std::int32_t factor : {1, 2, 4, 8, 16, 32}) {
        for (const std::int32_t groups : {1, 2, 3, 7}) {
            const std::int32_t rows = groups * kLanes;
            const std::int32_t length = 2 * factor * rows;
            ArenaBuffer buffer(1 << 16);
            envfCompose compose;
            DCT4(envfCompose___init__)
            (&compose, buffer.arena(),
             {.columns = 2 * factor,
              .angleBase = 8 * length,
              .rowCount = rows,
              .factor = factor,
              .rowStride = 2 * factor});
            env2 node;
            DCT4(env2___init__)
            (&node, buffer.arena(),
             {.factor = factor,
              .length = length,
              .twoFactor = 2 * factor,
              .blocks = rows,
              .length2 = length,
              .lastIndex = 2 * length - 1,
              .subLength = length / factor,
              .coefficients = &compose});
            ASSERT_EQ(0, DCT4(env2_plan)(&node)) << factor;
            const auto& rotations = *static_cast<env4*>(EnvList_get(node.stage, 0));
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(rotations.table) +
                          32U * word(factor) * word(groups),
                      buffer.arena()->bump);
            EXPECT_EQ(32 * factor * groups,
                      expect_rotations(rotations.table, length, rows, factor));
            node.destroy(&node);
            EXPECT_EQ(0U, buffer.used()) << factor;
        }
    }
}

TEST(Tables, OfTwiddlesOfAnyFactorAndLength) {
    for (const std::int32_t f : {2, 4, 8, 16, 32}) {
        for (const std::int32_t blocks : {1, 2, 3, 5, 11}) {
            const std::int32_t n = 2 * f * blocks;
            ArenaBuffer buffer(1 << 16);
            envlambda lambda;
            DCT4(envlambda___init__)(&lambda, buffer.arena(), n, f);
            env8 node;
            DCT4(env8___init__)
            (&node, buffer.arena(),
             {.factor = f,
              .scratchLength = 64,
              .step = 4,
              .span = 8 * f,
              .blocks = blocks,
              .scratchLength2 = 64,
              .halfLength = n / 2,
              .lastIndex = n - 1,
              .step2 = 4,
              .quotient = n / f,
              .coefficients = &lambda});
            ASSERT_EQ(0, DCT4(env8_plan)(&node)) << f;
            EXPECT_EQ((2 * f - 2) * 16 * blocks, expect_twiddles(node.table, n, n, f));
            node.destroy(&node);
            EXPECT_EQ(0U, buffer.used()) << f;
        }
    }
}

// That the expectations themselves are the angles meant.
TEST(Tables, AreWithinTheirRoundingOfTheTrueAngles) {
    const double tolerance = kSingle ? 4e-7 : 1e-15;
    for (const std::int32_t length : {64, 256, 1024, 65536}) {
        PlanBuffer plan(length);
        const env4& node = plan.rotations();
        const std::vector<std::int32_t> order = column_order(node.factor);
        const Real* pair = node.table;
        for (std::int32_t group = 0; group < node.blocks; ++group) {
            for (const std::int32_t column : order) {
                for (std::int32_t lane = 0; lane < kLanes; ++lane) {
                    const long double angle = (2.0L * (group * kLanes + lane) + 1) *
                                              (2.0L * column + 1) *
                                              std::numbers::pi_v<long double> / (4.0L * length);
                    EXPECT_NEAR(static_cast<double>(std::cos(angle)),
                                static_cast<double>(pair[lane]), tolerance);
                    EXPECT_NEAR(static_cast<double>(std::sin(angle)),
                                static_cast<double>(pair[kLanes + lane]), tolerance);
                }
                pair += 2 * kLanes;
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
