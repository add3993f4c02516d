/** @file @brief Plans of the DCT-IV as objects of C++. */

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

#include "qsvgen.hpp"
#include "support/bits.hpp"
#include "support/dct4_interface.hpp"
#include "support/signals.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class CppDct4Plan : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Plan = qsvgen::Dct4Plan<Real>;

    static std::vector<Real> expected(const std::vector<Real>& x) {
        using C = Dct4Interface<E>;
        typename C::Plan* plan = nullptr;
        std::vector<Real> y(x.size());
        EXPECT_EQ(qsvStatusOk, C::kInitAlloc(&plan, static_cast<std::int32_t>(x.size())));
        EXPECT_EQ(qsvStatusOk, C::kRun(x.data(), y.data(), plan));
        EXPECT_EQ(qsvStatusOk, C::kFree(plan));
        return y;
    }
};
TYPED_TEST_SUITE(CppDct4Plan, RealTypes, ElementNames);

TYPED_TEST(CppDct4Plan, GivesTheBitsOfThePlanOfC) {
    for (const std::int32_t length : kPlanLengths) {
        const auto x = random_signal<TypeParam>(static_cast<std::size_t>(length), 1);
        const typename TestFixture::Plan plan(length);
        ASSERT_EQ(qsvStatusOk, plan.status()) << length;
        EXPECT_TRUE(plan) << length;
        EXPECT_EQ(x.size(), plan.length());
        auto y = x;
        EXPECT_EQ(qsvStatusOk, plan(x, y)) << length;
        EXPECT_TRUE(same_bits<TypeParam>(this->expected(x), y)) << "length " << length;
        y = x;
        EXPECT_EQ(qsvStatusOk, plan(y, y)) << length;
        EXPECT_TRUE(same_bits<TypeParam>(this->expected(x), y)) << length << ", in place";
    }
}

TYPED_TEST(CppDct4Plan, IsEmptyOfALengthThatIsNone) {
    using Plan = typename TestFixture::Plan;
    constexpr std::int64_t kMost = Plan::kMaxLength;
    // The lengths of a power of two and one are those that the 32-bit library takes and overruns.
    for (const std::int64_t length :
         {INT64_MIN, std::int64_t{-64}, std::int64_t{0}, std::int64_t{1}, std::int64_t{3},
          std::int64_t{9}, std::int64_t{33}, std::int64_t{65}, 2 * kMost, std::int64_t{1} << 32,
          (std::int64_t{1} << 32) + 64}) {
        const Plan plan(length);
        EXPECT_EQ(qsvStatusBadLength, plan.status()) << length;
        EXPECT_FALSE(plan) << length;
        EXPECT_EQ(std::size_t{0}, plan.length()) << length;
        EXPECT_FALSE(Plan::is_length(length)) << length;
        std::vector<typename TypeParam::Real> x(64, 1);
        EXPECT_EQ(qsvStatusBadLength, plan(x, x)) << length;
    }
}

TYPED_TEST(CppDct4Plan, TellsItsLengthsToTheCompiler) {
    using Plan = typename TestFixture::Plan;
    static_assert(Plan::is_length(2) && Plan::is_length(64U) && Plan::is_length(Plan::kMaxLength));
    static_assert(!Plan::is_length(1) && !Plan::is_length(12) && !Plan::is_length(-2) &&
                  !Plan::is_length(2 * Plan::kMaxLength));
}

TYPED_TEST(CppDct4Plan, RefusesArraysOfAnotherSize) {
    using Real = typename TypeParam::Real;
    const typename TestFixture::Plan plan(64);
    const std::vector<Real> before(128, 1);
    for (const auto& [in, out] :
         {std::pair{63, 64}, {64, 63}, {65, 65}, {0, 64}, {64, 0}, {32, 32}, {128, 128}}) {
        auto x = before;
        EXPECT_EQ(qsvStatusBadLength, plan(std::span(x).first(static_cast<std::size_t>(in)),
                                           std::span(x).first(static_cast<std::size_t>(out))))
            << in << " to " << out;
        EXPECT_EQ(before, x);
    }
}

TYPED_TEST(CppDct4Plan, IsNotCopied) {
    using Plan = typename TestFixture::Plan;
    static_assert(!std::is_copy_constructible_v<Plan> && !std::is_copy_assignable_v<Plan>);
    static_assert(std::is_nothrow_move_constructible_v<Plan> &&
                  std::is_nothrow_move_assignable_v<Plan> && std::is_nothrow_swappable_v<Plan>);
}

TYPED_TEST(CppDct4Plan, LeavesAnEmptyOneWhereItIsMovedFrom) {
    using Plan = typename TestFixture::Plan;
    const auto x = random_signal<TypeParam>(64, 2);
    auto y = x;
    Plan first(64);
    const Plan second(std::move(first));
    EXPECT_EQ(qsvStatusOk, second(x, y));
    EXPECT_TRUE(same_bits<TypeParam>(this->expected(x), y));
    // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
    EXPECT_FALSE(first);
    EXPECT_EQ(qsvStatusNullPointer, first.status());
    EXPECT_EQ(std::size_t{0}, first.length());
    EXPECT_EQ(qsvStatusNullPointer, first(x, y));
}

TYPED_TEST(CppDct4Plan, IsReplacedByOneThatIsMovedIntoIt) {
    using Plan = typename TestFixture::Plan;
    const auto x = random_signal<TypeParam>(128, 3);
    auto y = x;
    Plan plan(64);
    plan = Plan(128);
    EXPECT_EQ(std::size_t{128}, plan.length());
    EXPECT_EQ(qsvStatusOk, plan(x, y));
    EXPECT_TRUE(same_bits<TypeParam>(this->expected(x), y));
    Plan& same = plan;
    plan = std::move(same);
    EXPECT_EQ(qsvStatusOk, plan(x, y)) << "moved into itself";
    plan = Plan();
    EXPECT_FALSE(plan);
}

TYPED_TEST(CppDct4Plan, ChangesPlacesWithAnother) {
    using Plan = typename TestFixture::Plan;
    Plan one(64);
    Plan other;
    swap(one, other);
    EXPECT_FALSE(one);
    EXPECT_EQ(qsvStatusNullPointer, one.status());
    EXPECT_EQ(std::size_t{64}, other.length());
}

TYPED_TEST(CppDct4Plan, TellsWhichLengthsManyThreadsMayRunAtOnce) {
    using Plan = typename TestFixture::Plan;
    for (const int length : {2, 4, 8, 16, 32}) EXPECT_TRUE(Plan(length).is_shareable()) << length;
    for (const int length : {64, 128, 4096}) EXPECT_FALSE(Plan(length).is_shareable()) << length;
}

}  // namespace
}  // namespace qsvgen_test
