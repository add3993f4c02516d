#include <gtest/gtest.h>

#include <ios>
#include <set>

#include "tests/dft_real/white_box/support/networks.hpp"

namespace {

using dft_real_test::Element;
using dft_real_test::kernel;
using dft_real_test::Kind;
using dft_real_test::kKinds;
using dft_real_test::RealKernel;

/** As binary64, which is the precision of every constant of a network. */
std::set<double> constants_of(const RealKernel& kernel) {
    std::set<double> constants;
    for (kernelgen::NodeId id : kernel.graph.live()) {
        const kernelgen::Node& n = kernel.graph.node(id);
        if (n.op != kernelgen::Op::Constant) continue;
        const auto index = static_cast<std::size_t>(n.constant);
        constants.insert(kernel.graph.constants()[index].front().to_binary64());
    }
    return constants;
}

void expect_held(int length, Kind kind, const std::set<double>& wanted) {
    for (Element element : dft_real::kElements) {
        const RealKernel& k = kernel(length, kind, element);
        const std::set<double> held = constants_of(k);
        for (double constant : wanted)
            EXPECT_TRUE(held.contains(constant))
                << k.name() << " lacks " << std::hexfloat << constant;
    }
}

TEST(RealConstants, OfForward7AreThreeCosinesAndThreeSines) {
    EXPECT_EQ((std::set<double>{0.6234898018587335, 0.2225209339563144, 0.9009688679024191,
                                0.7818314824680298, 0.9749279121818236, 0.4338837391175581}),
              constants_of(kernel(7, Kind::Forward)));
}

TEST(RealConstants, OfForward13AreTheSettledOnes) {
    expect_held(13, Kind::Forward,
                {0.5124953431658732, 0.31378278210316923, 0.5165207806234897, 0.30711137115908277,
                 0.5751407294740031, 0.1741386011521359, 0.15180597207438773, 0.5814344829416822,
                 0.02319821121153658, 0.6004772719326652, 0.3004626062886657, 0.08333333333333333});
}

TEST(RealConstants, OfForward13HoldProductsOfRoundedValues) {
    expect_held(13, Kind::Forward, {0.7499999999999999, 0.4330127018922193});
}

TEST(RealConstants, OfInverse9HoldARotationTimesTheSineOfThree) {
    expect_held(9, Kind::Inverse,
                {0.5566703992264194, 0.6634139481689384, 0.8528685319524432, 0.1503837331804353});
}

TEST(RealConstants, OfInverse11AreThoseOfItsConvolution) {
    expect_held(11, Kind::Inverse, {0.1, 0.33166247903554});
}

TEST(RealConstants, OfForward23HoldTheInverseLengthsOfBothConvolutions) {
    expect_held(23, Kind::Forward, {0.045454545454545456, 0.1});
}

TEST(RealConstants, OfInverse3HoldTheSineDoubled) {
    expect_held(3, Kind::Inverse, {1.7320508075688772});
}

TEST(RealConstants, AreStoredPositive) {
    for (Kind kind : kKinds) {
        for (int n : dft_real::lengths()) {
            for (double constant : constants_of(kernel(n, kind)))
                EXPECT_GT(constant, 0) << kernel(n, kind).name();
        }
    }
}

// 6 = 3 and 2, 10 = 5 and 2, 15 = 3 and 5: no constant of the whole length.
TEST(RealConstants, OfCoprimeLengthsAreThoseOfTheirFactors) {
    const std::set<double> of_3 = {0.5, 0.8660254037844386};
    EXPECT_EQ(of_3, constants_of(kernel(6, Kind::Forward)));
    EXPECT_EQ(of_3, constants_of(kernel(12, Kind::Forward)));
    EXPECT_EQ(constants_of(kernel(5, Kind::Forward)), constants_of(kernel(10, Kind::Forward)));
    std::set<double> both = constants_of(kernel(5, Kind::Forward));
    both.insert(of_3.begin(), of_3.end());
    EXPECT_EQ(both, constants_of(kernel(15, Kind::Forward)));
}

}  // namespace
