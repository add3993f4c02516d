/** @file @brief What runs is what stands in the stage lists; `children` only own it. */

#include "support/dct4.hpp"

namespace qsvgen_test {
namespace {

/** Puts a child that does nothing into the place of the one that a node owns. */
template <class Child, class Spoil>
void replace_owned(EnvList* children, Child& decoy, const Spoil& spoil) {
    decoy = *static_cast<Child*>(children->item);
    spoil(decoy);
    children->item = &decoy;
}

TEST(Dct4Lists, AnalysesAreThoseOfTheStageList) {
    PlanBuffer plan(64);
    const Signal x = random_signal<E>(64, 1);
    env5 decoy;
    replace_owned(plan.stage_a().children, decoy, [](env5& analyses) { analyses.rule = 0; });
    EXPECT_TRUE(same_bits<E>(transformed(x), transformed(plan, x)));
}

TEST(Dct4Lists, SplitsOfBothLevelsAreThoseOfTheStageLists) {
    constexpr std::int32_t kTwoLevels = 131072;
    PlanBuffer plan(kTwoLevels);
    const Signal x = random_signal<E>(kTwoLevels, 1);
    const auto invalidate = [](env7& split) { split.valid = 0; };
    env7 outer;
    env7 inner;
    replace_owned(plan.analyses().children, outer, invalidate);
    replace_owned(analyses_of(*plan.splits().at(0)).children, inner, invalidate);
    EXPECT_TRUE(same_bits<E>(transformed(x), transformed(plan, x)));
}

}  // namespace
}  // namespace qsvgen_test
