#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <set>

#include "tests/dft_complex/support/all_kernels.hpp"
#include "tests/kernelgen/support/independent_value.hpp"

namespace {

using dft_complex::Rule;
using dft_complex_test::Direction;
using dft_complex_test::for_each_kernel;
using dft_complex_test::Kernel;
using kernelgen::Exact;
using kernelgen_test::Independent;
using kernelgen_test::IndependentEvaluator;
using kernelgen_test::is_nearest;

/** Every distinct constant of every kernel once. */
template <class Check>
void for_each_constant(const Check& check) {
    std::set<std::string> seen;
    for_each_kernel([&](const Kernel& kernel) {
        for (const kernelgen::Lanes& lanes : kernel.graph.constants()) {
            for (const Exact& lane : lanes) {
                if (seen.insert(lane.key()).second) check(lane);
            }
        }
    });
    EXPECT_GT(seen.size(), 1000U);
}

TEST(Constants, EveryConstantOfEveryKernelIsTheNearestBinary32) {
    IndependentEvaluator evaluator;
    for_each_constant([&](const Exact& c) {
        if (c.expression().kind == Exact::Kind::Pinned) return;
        EXPECT_TRUE(is_nearest(c.to_binary32(), evaluator.ideal(c)))
            << c.key() << " became " << std::hexfloat << c.to_binary32();
    });
}

TEST(Constants, EveryConstantOfEveryKernelIsTheNearestBinary64) {
    IndependentEvaluator evaluator;
    for_each_constant([&](const Exact& c) {
        EXPECT_TRUE(is_nearest(c.to_binary64(), evaluator.as_written(c)))
            << c.key() << " became " << std::hexfloat << c.to_binary64();
    });
}

TEST(Constants, ValuesInProofsAreRightToFiftyDigits) {
    IndependentEvaluator evaluator;
    for_each_constant([&](const Exact& c) {
        const Independent proof_value(c.value().str(60, std::ios_base::scientific));
        EXPECT_LT(abs(Independent(proof_value - evaluator.ideal(c))), Independent("1e-50"))
            << c.key();
    });
}

/** Binary64 constants of a kernel, in ascending order. */
std::vector<double> wide_constants(const Kernel& kernel) {
    std::set<double> values;
    for (kernelgen::NodeId id : kernel.graph.live()) {
        const kernelgen::Node& n = kernel.graph.node(id);
        if (n.op == kernelgen::Op::Constant && n.type == kernelgen::Type::Binary64)
            values.insert(
                kernel.graph.constants()[static_cast<std::size_t>(n.constant)][0].to_binary64());
    }
    return {values.begin(), values.end()};
}

TEST(Constants, LengthThreeKeepsItsPinnedDecimal) {
    for (Direction direction : {Direction::Forward, Direction::Inverse})
        EXPECT_EQ(wide_constants(dft_complex_test::kernel(3, direction)),
                  (std::vector<double>{0.5, 0.8660254037844386}));
}

TEST(Constants, LengthFiveKeepsItsPinnedDecimals) {
    for (Direction direction : {Direction::Forward, Direction::Inverse})
        EXPECT_EQ(wide_constants(dft_complex_test::kernel(5, direction)),
                  (std::vector<double>{0.30901699437494745, 0.5877852522924731, 0.8090169943749475,
                                       0.9510565162951535}));
}

/** Magnitudes of the constants that a kernel's stores need, by key. */
std::set<std::string> magnitudes(const Kernel& kernel) {
    std::set<std::string> keys;
    for (kernelgen::NodeId id : kernel.graph.live()) {
        const kernelgen::Node& n = kernel.graph.node(id);
        if (n.op != kernelgen::Op::Constant) continue;
        for (const Exact& c : kernel.graph.constants()[static_cast<std::size_t>(n.constant)])
            keys.insert((c.is_negative() ? -c : c).key());
    }
    return keys;
}

/** Adds |cos| and |sin| of all turns k/order. */
void add_roots(std::set<std::string>& keys, int order) {
    for (int k = 0; k < order; ++k) {
        for (const Exact& c : {Exact::cosine(k, order), Exact::sine(k, order)})
            keys.insert((c.is_negative() ? -c : c).key());
    }
}

/** Cosines and sines of the orders of all leaves below 13, which has convolution constants. */
bool add_leaves(std::set<std::string>& keys, const Rule& rule) {
    if (rule.form == Rule::Form::Small && rule.length < 13) {
        add_roots(keys, rule.length);
        return true;
    }
    return rule.form == Rule::Form::PrimeFactor &&
           std::all_of(rule.parts.begin(), rule.parts.end(),
                       [&](const Rule& part) { return add_leaves(keys, part); });
}

TEST(Constants, KernelsOfPrimeFactorRulesHoldNoneButThoseOfTheirLeaves) {
    std::set<int> lengths;
    for_each_kernel([&](const Kernel& kernel) {
        std::set<std::string> allowed;
        if (kernel.length < 6 || !add_leaves(allowed, kernel.rule)) return;
        lengths.insert(kernel.length);
        for (const std::string& key : magnitudes(kernel))
            EXPECT_TRUE(allowed.contains(key)) << key << " in " << to_string(kernel.rule);
    });
    for (int length : {6, 10, 12, 14, 15, 20, 21, 22, 28, 30, 33, 35, 42, 44, 55})
        EXPECT_TRUE(lengths.contains(length)) << "length " << length << " was not looked at";
}

TEST(Constants, LengthFortyFiveHoldsConstantsOfItsOwnOrder) {
    std::set<std::string> of_45;
    std::set<std::string> of_divisors;
    add_roots(of_45, 45);
    for (int order : {3, 5, 9, 15}) add_roots(of_divisors, order);
    for (Direction direction : {Direction::Forward, Direction::Inverse}) {
        const auto keys = magnitudes(dft_complex_test::kernel(45, direction));
        const auto own = std::count_if(keys.begin(), keys.end(), [&](const std::string& key) {
            return of_45.contains(key) && !of_divisors.contains(key);
        });
        EXPECT_GT(own, 0) << dft_complex_test::name_of(direction);
    }
}

}  // namespace
