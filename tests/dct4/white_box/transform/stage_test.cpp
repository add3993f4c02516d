/** @file @brief What stage A leaves in the scratch vector. */

#include "support/dct4.hpp"

namespace qsvgen_test {
namespace {

std::vector<std::int32_t> tree_lengths() {
    return {64, 128, 256, 512, 1024, 2048, 4096, 8192, 131072};
}

TEST(Dct4StageA, TheFirstElementAloneGivesOnesInTheRealPartsOfItsColumn) {
    for (std::int32_t length : tree_lengths()) {
        PlanBuffer& plan = plan_for(length);
        transformed(plan, impulse<E>(word(length), 0, Real(1)));
        const Real* scratch = plan.root().scratch;
        const std::int32_t row = plan.analyses().twoFactor;
        for (std::int32_t i = 0; i < length; ++i)
            ASSERT_EQ(i % row == 0 ? Real(1) : Real(0), scratch[i])
                << "length " << length << ", element " << i;
    }
}

TEST(Dct4StageA, TheLastElementAloneGivesOnlyImaginaryPartsOfTheFirstColumn) {
    for (std::int32_t length : tree_lengths()) {
        PlanBuffer& plan = plan_for(length);
        transformed(plan, impulse<E>(word(length), word(length - 1), Real(1)));
        const Real* scratch = plan.root().scratch;
        const std::int32_t row = plan.analyses().twoFactor;
        for (std::int32_t i = 0; i < length; ++i) {
            if (i % row == row / 2)
                ASSERT_NE(Real(0), scratch[i]) << "length " << length << ", element " << i;
            else
                ASSERT_EQ(Real(0), scratch[i]) << "length " << length << ", element " << i;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
