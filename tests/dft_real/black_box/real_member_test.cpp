/** @file @brief Short real transforms to the bit: operations, their precision and their order. */

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "support/bits.hpp"
#include "support/real_layout.hpp"
#include "support/real_members.hpp"
#include "support/scale.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr std::uint32_t kSignals = 1000;

/** Zeros of both signs and values that cancel, underflow or overflow. */
template <class E>
std::vector<typename E::Real> edge_signal(int length, std::uint32_t seed) {
    using Limits = std::numeric_limits<typename E::Real>;
    const std::vector<typename E::Real> values = {
        0,
        -0.0f,
        0,
        -0.0f,
        1,
        -1,
        1,
        -1,
        Limits::min(),
        -Limits::min(),
        3 * Limits::denorm_min(),
        Limits::max() / 3,
        Limits::max() / 2 * static_cast<typename E::Real>(1.1),
        -Limits::max() / 3};
    std::mt19937 choice(seed);
    std::vector<typename E::Real> signal;
    for (int n = 0; n < length; ++n) signal.push_back(values[choice() % values.size()]);
    return signal;
}

template <class E>
typename E::Real without_nan_sign(typename E::Real value) {
    return value != value ? std::numeric_limits<typename E::Real>::quiet_NaN() : value;
}

// Which of two infinities of opposite signs stands first decides a NaN's sign, and nothing else.
template <class E>
std::vector<typename E::Real> without_nan_signs(std::vector<typename E::Real> signal) {
    for (auto& value : signal) value = without_nan_sign<E>(value);
    return signal;
}

template <class E>
class RealMember : public testing::Test {
  protected:
    using Members = RealMembers<E>;
    using Signal = typename Members::Signal;

    // The member knows the Pack layout; the kernels of the other two are held to it as well.
    static void expect_bits(int length, Direction direction, typename Members::Member member) {
        for (const auto& kernel : kernels<E>()) {
            if (kernel.length != length || kernel.direction != direction) continue;
            for (const auto flag : kFlags) {
                for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                    expect_bits(kernel, flag, member,
                                random_signal<E>(static_cast<std::size_t>(length), seed), seed);
                    expect_bits(kernel, flag, member, edge_signal<E>(length, seed), seed);
                }
            }
        }
    }

  private:
    static void expect_bits(const Kernel<E>& kernel, std::int32_t flag,
                            typename Members::Member member, const Signal& x, std::uint32_t seed) {
        auto source = x;
        if (kernel.direction == Direction::Inverse) {
            source = rearranged(x, Layout::Pack, kernel.layout, kernel.length);
        }
        auto expected = member(x, scale_factor(kernel, flag));
        if (kernel.direction == Direction::Forward) {
            expected = rearranged(expected, Layout::Pack, kernel.layout, kernel.length);
        }
        ASSERT_TRUE(same_bits<E>(without_nan_signs<E>(expected),
                                 without_nan_signs<E>(transform(kernel, source, flag))))
            << describe(kernel, flag) << ", signal " << seed;
    }
};
TYPED_TEST_SUITE(RealMember, RealTypes, ElementNames);

TYPED_TEST(RealMember, ForwardTwoHasTheBitsOfItsOperations) {
    this->expect_bits(2, Direction::Forward, TestFixture::Members::forward2);
}
TYPED_TEST(RealMember, ForwardThreeHasTheBitsOfItsOperations) {
    this->expect_bits(3, Direction::Forward, TestFixture::Members::forward3);
}
TYPED_TEST(RealMember, ForwardFourHasTheBitsOfItsOperations) {
    this->expect_bits(4, Direction::Forward, TestFixture::Members::forward4);
}
TYPED_TEST(RealMember, ForwardSevenHasTheBitsOfItsOperations) {
    this->expect_bits(7, Direction::Forward, TestFixture::Members::forward7);
}
TYPED_TEST(RealMember, ForwardEightHasTheBitsOfItsOperations) {
    this->expect_bits(8, Direction::Forward, TestFixture::Members::forward8);
}
TYPED_TEST(RealMember, InverseTwoHasTheBitsOfItsOperations) {
    this->expect_bits(2, Direction::Inverse, TestFixture::Members::inverse2);
}
TYPED_TEST(RealMember, InverseThreeHasTheBitsOfItsOperations) {
    this->expect_bits(3, Direction::Inverse, TestFixture::Members::inverse3);
}
TYPED_TEST(RealMember, InverseFourHasTheBitsOfItsOperations) {
    this->expect_bits(4, Direction::Inverse, TestFixture::Members::inverse4);
}
TYPED_TEST(RealMember, InverseSevenHasTheBitsOfItsOperations) {
    this->expect_bits(7, Direction::Inverse, TestFixture::Members::inverse7);
}
TYPED_TEST(RealMember, HartleyTwoHasTheBitsOfItsOperations) {
    this->expect_bits(2, Direction::Both, TestFixture::Members::hartley2);
}
TYPED_TEST(RealMember, HartleyThreeHasTheBitsOfItsOperations) {
    this->expect_bits(3, Direction::Both, TestFixture::Members::hartley3);
}
TYPED_TEST(RealMember, HartleyFourHasTheBitsOfItsOperations) {
    this->expect_bits(4, Direction::Both, TestFixture::Members::hartley4);
}
TYPED_TEST(RealMember, HartleySevenHasTheBitsOfItsOperations) {
    this->expect_bits(7, Direction::Both, TestFixture::Members::hartley7);
}
TYPED_TEST(RealMember, HartleyEightHasTheBitsOfItsOperations) {
    this->expect_bits(8, Direction::Both, TestFixture::Members::hartley8);
}

// Forward 2 and inverse 2 are one operation, up to what the flags mean.
TYPED_TEST(RealMember, LengthTwoIsItsOwnInverseUpToTheFlags) {
    const auto& forward = kernel_of<TypeParam>(2, Direction::Forward, Layout::Pack);
    const auto& inverse = kernel_of<TypeParam>(2, Direction::Inverse, Layout::Pack);
    const auto exchanged = [](std::int32_t flag) {
        if (flag == qsvScaleFwdByN) return std::int32_t{qsvScaleInvByN};
        return flag == qsvScaleInvByN ? std::int32_t{qsvScaleFwdByN} : flag;
    };
    for (const auto flag : kFlags) {
        for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
            const auto x = random_signal<TypeParam>(2, seed);
            EXPECT_TRUE(same_bits<TypeParam>(transform(forward, x, flag),
                                             transform(inverse, x, exchanged(flag))))
                << describe(inverse, flag) << ", signal " << seed;
        }
    }
}

// With these the tests of bits above show that they would notice another inner precision.
template <class E, class Row, class Member>
int signals_that_differ(Direction direction, Member member) {
    const Layout layout = direction == Direction::Both ? Layout::Natural : Layout::Pack;
    const auto& kernel = kernel_of<E>(7, direction, layout);
    int count = 0;
    for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
        const auto x = random_signal<E>(7, seed);
        const auto wide = std::vector<Row>(x.begin(), x.end());
        std::vector<typename E::Real> rounded;
        for (const auto value : member(wide, Row{1})) {
            rounded.push_back(static_cast<typename E::Real>(value));
        }
        if (first_difference<E>(rounded, transform(kernel, x, qsvScaleNone)) >= 0) ++count;
    }
    return count;
}

TEST(RealMemberOf32f, SevenIsNotDoneInSinglePrecisionThroughout) {
    using AllSingle = RealMembers<RealSingle, float>;
    const auto differ = [](Direction direction, auto member) {
        return signals_that_differ<RealSingle, float>(direction, member);
    };
    EXPECT_GT(differ(Direction::Forward, AllSingle::forward7), 0);
    EXPECT_GT(differ(Direction::Inverse, AllSingle::inverse7), 0);
    EXPECT_GT(differ(Direction::Both, AllSingle::hartley7), 0);
}

TEST(RealMemberOf32f, SevenIsNotDoneInDoublePrecisionAndRoundedAtTheEnd) {
    using AllDouble = RealMembers<RealDouble>;
    const auto differ = [](Direction direction, auto member) {
        return signals_that_differ<RealSingle, double>(direction, member);
    };
    EXPECT_GT(differ(Direction::Forward, AllDouble::forward7), 0);
    EXPECT_GT(differ(Direction::Inverse, AllDouble::inverse7), 0);
    EXPECT_GT(differ(Direction::Both, AllDouble::hartley7), 0);
}

TEST(RealMemberOf64f, SevenRoundsEachProductToDoublePrecision) {
    using Wider = RealMembers<RealDouble, long double>;
    const auto differ = [](Direction direction, auto member) {
        return signals_that_differ<RealDouble, double>(direction, member);
    };
    EXPECT_GT(differ(Direction::Forward, Wider::forward7), 0);
    EXPECT_GT(differ(Direction::Inverse, Wider::inverse7), 0);
    EXPECT_GT(differ(Direction::Both, Wider::hartley7), 0);
}

// These are formed as 0.0 minus the scaled rest, of which a zero of either sign leaves +0.0.
struct SubtractedFromZero {
    int length;
    int bin;
};
constexpr SubtractedFromZero kSubtractedFromZero[] = {{3, 1}, {4, 1}, {7, 2}};

TYPED_TEST(RealMember, AnImaginaryPartSubtractedFromZeroIsNeverANegativeZero) {
    using Real = typename TypeParam::Real;
    for (const auto& [length, bin] : kSubtractedFromZero) {
        const auto& kernel = kernel_of<TypeParam>(length, Direction::Forward, Layout::Pack);
        const auto element = element_of({Part::Imaginary, bin}, Layout::Pack, length);
        const auto size = static_cast<std::size_t>(length);
        for (const Real early : {Real{0.0}, Real{-0.0}}) {
            for (const Real late : {Real{0.0}, Real{-0.0}}) {
                auto x = constant_signal<TypeParam>(size, late);
                for (std::size_t n = 1; 2 * n < size; ++n) x[n] = early;
                for (const auto flag : kFlags) {
                    const auto y = transform(kernel, x, flag);
                    EXPECT_TRUE(same_number_bits(y[element], Real{0}))
                        << describe(kernel, flag) << ", output " << name_output(kernel, element)
                        << ": " << show<TypeParam>(y[element]) << ", halves of "
                        << show<TypeParam>(early) << " and " << show<TypeParam>(late);
                }
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
