/** @file @brief Which NaN comes out is nobody's to rely on; that one does, and where, is. */

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "support/bits.hpp"
#include "support/every_transform.hpp"
#include "support/placed_array.hpp"
#include "support/signals.hpp"

namespace qsvgen_test {
namespace {

// Compilers order the operands of sums and products of each copy of a kernel as they like, and of
// two NaNs the first operand's comes out.
template <class E>
class NanPlaces : public testing::Test {
  protected:
    using Element = typename E::Element;
    using Real = typename E::Real;
    using Limits = std::numeric_limits<Real>;
    using Signal = std::vector<Element>;

    /** Number `i` of the real numbers that a signal consists of. */
    static Real& number(Signal& x, std::size_t i) {
        if constexpr (kIsReal<E>) {
            return x[i];
        } else {
            return i % 2 == 0 ? x[i / 2].re : x[i / 2].im;
        }
    }
    static std::size_t numbers(std::size_t elements) {
        return kIsReal<E> ? elements : 2 * elements;
    }

    /** All of them, or of a longer signal some from one end to the other. */
    static std::vector<std::size_t> places(std::size_t count) {
        const std::size_t wanted = count <= 24 ? count : count <= 256 ? 16 : 4;
        std::vector<std::size_t> chosen;
        for (std::size_t k = 0; k < wanted; ++k) chosen.push_back(k * (count - 1) / (wanted - 1));
        return chosen;
    }

    static Signal out_of_place(const AnyTransform<E>& transform, const Signal& x, std::size_t from,
                               std::size_t to) {
        PlacedArray<Element> source(x.size(), from);
        PlacedArray<Element> destination(transform.destination_size, to);
        source.set(x);
        EXPECT_EQ(qsvStatusOk, transform.run(source.data(), destination.data())) << transform.name;
        return destination.get();
    }

    static Signal in_place(const AnyTransform<E>& transform, const Signal& x, std::size_t offset) {
        PlacedArray<Element> array(std::max(x.size(), transform.destination_size), offset);
        array.set(x);
        EXPECT_EQ(qsvStatusOk, transform.run(array.data(), array.data())) << transform.name;
        return array.get(transform.destination_size);
    }

    static void expect_the_same_of_all_ways(const AnyTransform<E>& transform, const Signal& x,
                                            const std::string& input) {
        const Signal aligned = out_of_place(transform, x, 0, 0);
        constexpr std::pair<std::size_t, std::size_t> kOffsets[] = {{4, 0}, {0, 4}, {8, 12}};
        for (const auto& [from, to] : kOffsets) {
            EXPECT_TRUE(same_bits_or_nan<E>(aligned, out_of_place(transform, x, from, to)))
                << transform.name << " of " << input << " at offsets " << from << " and " << to;
        }
        for (const std::size_t offset : {0, 4, 8}) {
            EXPECT_TRUE(same_bits_or_nan<E>(aligned, in_place(transform, x, offset)))
                << transform.name << " of " << input << " in place at offset " << offset;
        }
    }

    /** Random signals with `values` at two places, the second one half a signal behind the first.
     */
    static void expect_the_same_with(const std::pair<Real, Real>& values) {
        for_each_transform<E>([&](const AnyTransform<E>& transform) {
            const std::size_t count = numbers(transform.source_size);
            for (const std::size_t first : places(count)) {
                const std::size_t second = (first + count / 2) % count;
                Signal x = random_signal<E>(transform.source_size, 61);
                number(x, second) = values.second;
                number(x, first) = values.first;
                expect_the_same_of_all_ways(
                    transform, x,
                    show<E>(values.first) + " in number " + std::to_string(first) + " and " +
                        show<E>(values.second) + " in number " + std::to_string(second));
            }
        });
    }
};
TYPED_TEST_SUITE(NanPlaces, ElementTypes, ElementNames);

TYPED_TEST(NanPlaces, ANanComesOutAtTheSamePlacesInAllWaysOfCalling) {
    this->expect_the_same_with({TestFixture::Limits::quiet_NaN(), 1});
}

TYPED_TEST(NanPlaces, NansOfTwoSignsComeOutAtTheSamePlacesInAllWaysOfCalling) {
    const auto nan = TestFixture::Limits::quiet_NaN();
    this->expect_the_same_with({nan, -nan});
}

TYPED_TEST(NanPlaces, ASignallingNanComesOutAtTheSamePlacesInAllWaysOfCalling) {
    // A constant, since a function's result passes the x87 registers, which quiet it.
    static constexpr auto kSignalling = TestFixture::Limits::signaling_NaN();
    this->expect_the_same_with({kSignalling, 1});
}

TYPED_TEST(NanPlaces, InfinitiesMeetAsNansAtTheSamePlacesInAllWaysOfCalling) {
    const auto infinity = TestFixture::Limits::infinity();
    this->expect_the_same_with({infinity, 1});
    this->expect_the_same_with({infinity, -infinity});
}

TYPED_TEST(NanPlaces, AnInfinityBesideANanComesOutAtTheSamePlacesInAllWaysOfCalling) {
    this->expect_the_same_with(
        {TestFixture::Limits::quiet_NaN(), -TestFixture::Limits::infinity()});
}

}  // namespace
}  // namespace qsvgen_test
