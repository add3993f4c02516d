/** @file @brief What calls of qsvgen.hpp take of memory, and that they give it back. */

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "qsvgen.hpp"
#include "support/elements.hpp"
#include "support/library_memory.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class CppMemory : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Complex = std::complex<Real>;
    using Plan = qsvgen::Dct4Plan<Real>;

    /** How often a call asks for memory. */
    template <class Call>
    static std::size_t times_taken(const Call& call) {
        library_memory() = {};
        const QsvStatus status = call();
        const std::size_t times = library_memory().sizes.size();
        const bool is_given_back = library_memory().blocks == library_memory().freed;
        // Blocks of others may come to lie where these were.
        library_memory() = {};
        EXPECT_EQ(qsvStatusOk, status);
        EXPECT_TRUE(is_given_back);
        return times;
    }
};
TYPED_TEST_SUITE(CppMemory, RealTypes, ElementNames);

TYPED_TEST(CppMemory, IsNotTakenByTransformsOfAnyKind) {
    static std::array<typename TestFixture::Complex, 64> x;
    static std::array<typename TestFixture::Real, 64> r;
    const auto c_rows = qsvgen::rows(x, 4, 16);
    const auto r_rows = qsvgen::rows(r, 4, 16);
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::dft<64>(x, x); }));
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::inverse_dft(x, x); }));
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::real_dft<64>(r, r, qsvgen::pack); }));
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::hartley(r, r); }));
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::walsh_hadamard<6>(r, r); }));
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::dft(c_rows, c_rows); }));
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::hartley(r_rows, r_rows); }));
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::walsh_hadamard(r_rows, r_rows); }));
}

TYPED_TEST(CppMemory, IsTakenByLongWalshHadamardTransformsWithoutAWorkBuffer) {
    static std::array<typename TestFixture::Real, 8192> x;
    const auto rows = qsvgen::rows(x, 8, 1024);
    EXPECT_EQ(1U, this->times_taken([&] { return qsvgen::walsh_hadamard<13>(x, x); }));
    EXPECT_EQ(1U, this->times_taken([&] { return qsvgen::walsh_hadamard(x, x); }));
    EXPECT_EQ(1U, this->times_taken([&] { return qsvgen::walsh_hadamard(rows, rows); }));
}

TYPED_TEST(CppMemory, IsNotTakenByLongWalshHadamardTransformsWithAWorkBuffer) {
    static std::array<typename TestFixture::Real, 8192> x;
    static qsvgen::WalshHadamardWork<typename TestFixture::Real> work;
    const auto rows = qsvgen::rows(x, 8, 1024);
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::walsh_hadamard<13>(x, x, work); }));
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::walsh_hadamard(x, x, work); }));
    EXPECT_EQ(0U, this->times_taken([&] { return qsvgen::walsh_hadamard(rows, rows, work); }));
}

TYPED_TEST(CppMemory, OfAPlanIsTakenOnceAndGivenBackOnce) {
    using Plan = typename TestFixture::Plan;
    EXPECT_EQ(2U, this->times_taken([] {
        Plan one(64);
        Plan other(std::move(one));
        Plan third(2048);
        other = std::move(third);
        return other.status();
    }));
}

TYPED_TEST(CppMemory, IsNotTakenByAPlanOfALengthThatIsNone) {
    using Plan = typename TestFixture::Plan;
    for (const int length : {-2, 0, 1, 33, 65})
        EXPECT_EQ(0U, this->times_taken([&] {
            return Plan(length).status() == qsvStatusBadLength ? qsvStatusOk : qsvStatusBadPlan;
        })) << length;
}

TYPED_TEST(CppMemory, IsNotTakenByAPlanThatRuns) {
    static std::array<typename TestFixture::Real, 4096> x;
    const auto plan = std::make_unique<typename TestFixture::Plan>(4096);
    EXPECT_EQ(0U, this->times_taken([&] { return (*plan)(x, x); }));
}

TYPED_TEST(CppMemory, ThatHasRunOutMakesAnEmptyPlan) {
    library_memory() = {};
    library_memory().refuses = true;
    const typename TestFixture::Plan plan(64);
    library_memory() = {};
    EXPECT_EQ(qsvStatusNullPointer, plan.status());
    EXPECT_FALSE(plan);
}

}  // namespace
}  // namespace qsvgen_test
