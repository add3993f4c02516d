/** @file @brief Rules of the nodes, by the value that decides them. */

#include <gtest/gtest.h>

#include <array>

#include "dct4/operations.hpp"

namespace qsvgen_test {
namespace {

using namespace dct4::QSVG_ELEMENT;

constexpr std::array<std::int32_t, 14> kValues = {1,   2, 4,  8, 16, 32, 64,
                                                  128, 0, -1, 3, 33, 63, 1 << 20};

using Rules = std::array<std::int32_t, kValues.size()>;

template <class Choose>
void expect_rules(const Rules& expected, Choose choose) {
    for (std::size_t i = 0; i < kValues.size(); ++i)
        EXPECT_EQ(expected[i], choose(kValues[i])) << kValues[i];
}

TEST(Rules, OfTheRootKnowFiveLeavesAndOneTree) {
    expect_rules({6, 1, 2, 3, 4, 5, 6, 6, 6, 6, 6, 6, 6, 6}, DCT4(env1__chooseRule));
}

TEST(Rules, OfAnalysesKnowSixLeavesAndTheSplit) {
    const Rules rules = {7, 1, 2, 3, 4, 5, 6, 7, 7, 7, 7, 7, 7, 7};
    expect_rules(rules, DCT4(env5__chooseRule));
    expect_rules(rules, DCT4(env9__chooseRule));
}

TEST(Rules, OfRotationsBeginAtOneColumnAndRefuseWhatHasNoKernel) {
    expect_rules({1, 2, 3, 4, 5, 6, 0, 0, 0, 0, 0, 0, 0, 0}, DCT4(env4__chooseRule));
}

TEST(Rules, OfTwiddlesBeginAtTwoPointsAndRefuseWhatHasNoKernel) {
    expect_rules({0, 1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0, 0}, DCT4(env8__chooseRule));
}

}  // namespace
}  // namespace qsvgen_test
