#include <gtest/gtest.h>

#include <set>
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

}  // namespace
