#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>

#include "kernelgen/values/value_hash.hpp"
#include "tests/kernelgen/support/unfolded_bits.hpp"
#include "transforms/dct4/dct4_body.hpp"

// What the bodies compute, apart from their lanes and orders.

namespace {

using namespace dct4;

TEST(Dct4Values, GiveTheBitsOfTheirBodies) {
    for (Element element : kElements) {
        for (BodyKey key : all_bodies()) {
            const Kernel kernel = described_kernel(key, element);
            SCOPED_TRACE(kernel.name());
            kernelgen_test::expect_unfolded_bits(kernel.graph, transforms::scalar_type(element));
        }
    }
}

TEST(Dct4Values, OfEachBodyAreItsOwn) {
    std::set<std::string> hashes;
    for (Element element : kElements) {
        for (BodyKey key : all_bodies())
            EXPECT_TRUE(
                hashes.insert(kernelgen::hash_of_values(described_kernel(key, element).graph))
                    .second)
                << described_kernel(key, element).name();
    }
}

/** The short transform of two points with the opposite of its difference, which is a zero of
 * another sign. */
kernelgen::Graph two_points_otherwise() {
    using kernelgen::Exact;
    constexpr auto kType = kernelgen::Type::Binary32;
    kernelgen::Graph g;
    const auto x0 = g.load(kType, 0);
    const auto x1 = g.load(kType, 1);
    const auto cosine = constant(g, kType, Exact::cosine(1, 16));
    const auto sine = constant(g, kType, Exact::sine(1, 16));
    g.store(g.add(g.mul(x0, cosine), g.mul(x1, sine)), 0);
    g.store(g.positive(-g.sub(g.mul(x1, cosine), g.mul(x0, sine))), 1);
    return g;
}

std::string complaint(const Kernel& kernel) {
    try {
        prove(kernel);
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "none";
}

// The matrix is the same, so that the values alone tell.
TEST(Dct4Values, OfAnotherTargetMustBeThoseOfTheReference) {
    for (const kernelgen::Target& target : kernelgen::kTargets) {
        Kernel kernel = described_kernel({Step::Inline, 1}, Element::Real32, target);
        EXPECT_EQ(complaint(kernel), "none");
        kernel.graph = two_points_otherwise();
        const std::string message = complaint(kernel);
        if (target.name == kernelgen::kReference.name)
            EXPECT_EQ(message, "none");
        else
            EXPECT_NE(message.find("dct4_inline_1_32f for " + std::string(target.name) +
                                   ": output 1 has not the bits of dct4_inline_1_32f for ia32"),
                      std::string::npos)
                << message;
    }
}

}  // namespace
