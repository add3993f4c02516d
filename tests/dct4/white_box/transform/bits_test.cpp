/** @file @brief Compiled code gives the bits of the graphs, at the addresses of the formulas. */

#include <algorithm>
#include <cmath>

#include "kernelgen/proof/bit_interpreter.hpp"
#include "support/interpreted_plan.hpp"
#include "transforms/dct4/bodies.hpp"

namespace qsvgen_test {
namespace {

constexpr dct4::Element kElement = kSingle ? dct4::Element::Real32 : dct4::Element::Real64;

TEST(Dct4Bits, ShortTransformsGiveThoseOfTheirGraphs) {
    for (std::int32_t length : transform_lengths(32)) {
        const kernelgen::Graph graph = dct4::inline_body(kElement, length);
        for (std::uint32_t seed = 0; seed < 20; ++seed) {
            const Signal x = random_signal<E>(word(length), seed);
            const Memory expected = kernelgen::interpret(graph, as_memory(x), 1, length);
            EXPECT_TRUE(same_bits<E>(as_signal(expected), transformed(x))) << "length " << length;
        }
    }
}

TEST(Dct4Bits, LongTransformsGiveThoseOfAnElementwiseRun) {
    for (std::int32_t length : transform_lengths(131072)) {
        if (length < 64) continue;
        PlanBuffer& plan = plan_for(length);
        const Signal x = random_signal<E>(word(length), 8);
        EXPECT_TRUE(same_bits<E>(as_signal(interpreted_transform(plan, as_memory(x), 0)),
                                 transformed(plan, x)))
            << "length " << length;
    }
}

}  // namespace
}  // namespace qsvgen_test
