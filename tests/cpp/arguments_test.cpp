/** @file @brief What may be handed to the functions of qsvgen.hpp as an array. */

#include <gtest/gtest.h>

#include <array>
#include <complex>
#include <span>
#include <vector>

#include "qsvgen.hpp"

namespace qsvgen_test {
namespace {

using Complex = std::complex<float>;

constexpr int kLength = 15;
using Points = std::array<Complex, kLength>;

/** An impulse one sample late, whose transform has no two bins that are alike. */
constexpr Points late_impulse() {
    Points x{};
    x[1] = 1;
    return x;
}

Points transform_of_impulse() {
    const auto x = late_impulse();
    Points y{};
    EXPECT_EQ(qsvStatusOk,
              qsvgDFTFwd_CToC_15_32fc(reinterpret_cast<const Complex32*>(x.data()),
                                      reinterpret_cast<Complex32*>(y.data()), qsvScaleNone));
    return y;
}

template <class Array>
void expect_transform(const Array& y) {
    const auto expected = transform_of_impulse();
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), std::begin(y), std::end(y)));
}

TEST(CppArguments, OfAFixedLengthAreStdArrays) {
    const auto x = late_impulse();
    Points y{};
    EXPECT_EQ(qsvStatusOk, qsvgen::dft<kLength>(x, y));
    expect_transform(y);
}

TEST(CppArguments, OfAFixedLengthAreArraysOfC) {
    Complex x[kLength] = {0, 1};
    Complex y[kLength];
    EXPECT_EQ(qsvStatusOk, qsvgen::dft<kLength>(x, y));
    expect_transform(y);
}

TEST(CppArguments, OfAFixedLengthAreSpansOfIt) {
    auto x = late_impulse();
    Points y{};
    const std::span<const Complex, kLength> in(x);
    const std::span<Complex, kLength> out(y);
    EXPECT_EQ(qsvStatusOk, qsvgen::dft<kLength>(in, out));
    expect_transform(y);
}

TEST(CppArguments, ToBeReadMayBeMutable) {
    auto x = late_impulse();
    Points y{};
    EXPECT_EQ(qsvStatusOk, qsvgen::dft<kLength>(std::span(x), std::span(y)));
    expect_transform(y);
}

TEST(CppArguments, MayBeOneArrayForBoth) {
    auto x = late_impulse();
    EXPECT_EQ(qsvStatusOk, qsvgen::dft<kLength>(x, x));
    expect_transform(x);
}

TEST(CppArguments, OfAFixedLengthMayBeVectorsOfThatSize) {
    const auto impulse = late_impulse();
    const std::vector<Complex> x(impulse.begin(), impulse.end());
    std::vector<Complex> y(kLength);
    EXPECT_EQ(qsvStatusOk, qsvgen::dft<kLength>(x, y));
    expect_transform(y);
    Points z{};
    EXPECT_EQ(qsvStatusOk, qsvgen::dft<kLength>(x, z));
    expect_transform(z);
    EXPECT_EQ(qsvStatusOk, qsvgen::dft<kLength>(impulse, y));
    expect_transform(y);
}

TEST(CppArguments, OfAFixedLengthAreRefusedWhereAVectorIsOfAnother) {
    const std::vector<float> x(kLength, 1);
    const std::vector<Complex> z(kLength + 1);
    std::vector<Complex> z_out(kLength);
    std::vector<float> y(kLength);
    std::vector<float> longer(kLength + 1);
    EXPECT_EQ(qsvStatusBadLength, qsvgen::dft<kLength>(z, z_out));
    EXPECT_EQ(qsvStatusBadLength, qsvgen::inverse_dft<kLength>(z, z_out));
    EXPECT_EQ(qsvStatusBadLength, qsvgen::hartley<kLength>(x, longer));
    EXPECT_EQ(qsvStatusBadLength, qsvgen::hartley<kLength>(longer, y));
    EXPECT_EQ(qsvStatusBadLength, qsvgen::real_dft<kLength>(x, y, qsvgen::ccs));
    EXPECT_EQ(qsvStatusBadLength, qsvgen::inverse_real_dft<kLength>(longer, y, qsvgen::perm));
    EXPECT_EQ(qsvStatusBadLength, qsvgen::walsh_hadamard<4>(x, longer));
    EXPECT_EQ(std::vector<float>(kLength), y);
    EXPECT_EQ(std::vector<float>(kLength + 1), longer);
}

TEST(CppArguments, OfARunTimeLengthAreWhateverBecomesASpan) {
    auto x = late_impulse();
    Complex y[kLength];
    std::vector<Complex> z(kLength);
    EXPECT_EQ(qsvStatusOk, qsvgen::dft(x, y));
    expect_transform(y);
    EXPECT_EQ(qsvStatusOk, qsvgen::dft(std::span(x), z));
    expect_transform(z);
    const std::vector<Complex> again(x.begin(), x.end());
    EXPECT_EQ(qsvStatusOk, qsvgen::dft(again, std::span(z)));
    expect_transform(z);
}

TEST(CppArguments, OfASpectrumAreAsLongAsItsLayoutTells) {
    static_assert(qsvgen::ccs.size(15) == 16 && qsvgen::ccs.size(16) == 18);
    static_assert(qsvgen::pack.size(15) == 15 && qsvgen::perm.size(16) == 16);
    const std::array<double, 4> x = {1, 2, 3, 4};
    std::array<double, qsvgen::ccs.size(4)> ccs{};
    std::array<double, 4> pack{};
    std::array<double, 4> perm{};
    EXPECT_EQ(qsvStatusOk, qsvgen::real_dft<4>(x, ccs, qsvgen::ccs));
    EXPECT_EQ(qsvStatusOk, qsvgen::real_dft<4>(x, pack, qsvgen::pack));
    EXPECT_EQ(qsvStatusOk, qsvgen::real_dft<4>(x, perm, qsvgen::perm));
    EXPECT_EQ((std::array<double, 6>{10, 0, -2, 2, -2, 0}), ccs);
    EXPECT_EQ((std::array<double, 4>{10, -2, 2, -2}), pack);
    EXPECT_EQ((std::array<double, 4>{10, -2, -2, 2}), perm);
}

TEST(CppArguments, AreNamedByAFunctionPointerOfTheirSignature) {
    QsvStatus (*const transform)(std::span<const Complex, kLength>, std::span<Complex, kLength>,
                                 qsvgen::Scale) noexcept = qsvgen::dft<kLength>;
    const auto x = late_impulse();
    Points y{};
    EXPECT_EQ(qsvStatusOk, transform(x, y, qsvgen::none));
    expect_transform(y);
}

static_assert(!qsvgen::is_length(1) && qsvgen::is_length(2) && qsvgen::is_length(64U) &&
              !qsvgen::is_length(65) && !qsvgen::is_length(-2));
static_assert(!qsvgen::is_order(0) && qsvgen::is_order(1) && qsvgen::is_order(13) &&
              !qsvgen::is_order(14L) && !qsvgen::is_order(-1));
static_assert(qsvgen::length_of_order(13) == 8192 && qsvgen::length_of_order(14) == 0 &&
              qsvgen::length_of_order(-1) == 0);
static_assert(noexcept(qsvgen::dft<kLength>(std::declval<Points&>(), std::declval<Points&>())));

template <int N>
concept HasDft = requires(std::vector<Complex> x) {
    qsvgen::dft<N>(x, x);
};
static_assert(HasDft<2> && HasDft<64> && !HasDft<1> && !HasDft<65> && !HasDft<-1>,
              "a template may ask whether there is a kernel");

}  // namespace
}  // namespace qsvgen_test
