/**
 * @file
 * @brief In which order a plan is taken down: what a rule has taken, the stage lists, the children
 * from first to last, their list. An arena only counts, so that its bump pointer shows none of it.
 */

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "support/expected_plan.hpp"
#include "support/plan_buffer.hpp"

namespace qsvgen_test {
namespace {

std::vector<const void*>& released() {
    static std::vector<const void*> blocks;
    return blocks;
}

}  // namespace
}  // namespace qsvgen_test

// The linker sends all releases of this program here.
extern "C" {

void __real_qsvgArenaFree(Arena* arena, const void* block, std::uint32_t size);

void __wrap_qsvgArenaFree(Arena* arena, const void* block, std::uint32_t size) {
    qsvgen_test::released().push_back(block);
    __real_qsvgArenaFree(arena, block, size);
}
}

namespace qsvgen_test {
namespace {

using Names = std::vector<std::string>;

/** What stands at each address of a plan. */
std::map<const void*, std::string> names_of(PlanBuffer& plan) {
    std::map<const void*, std::string> names = {{nullptr, "nothing"}};
    const auto add = [&](const void* block, const char* name) { names[block] = name; };
    const auto address = [](const void* block) {
        return Address{reinterpret_cast<std::uintptr_t>(block)};
    };
    const ExpectedPlan expected(plan.root().length, address(plan.root().arena),
                                address(&plan.root()));
    for (const ExpectedBlock& block : expected.blocks())
        names[reinterpret_cast<const void*>(block.address.value)] = block.name;
    if (plan.root().rule != 6) return names;
    add(plan.root().scratch, "env1 scratch");
    add(plan.rotations().table, "env4 table");
    for (const env7* split : plan.splits()) {
        add(split->scratch, "env7 scratch");
        add(twiddles_of(*split).table, "env8 table");
    }
    return names;
}

Names released_by(std::int32_t length) {
    PlanBuffer plan(length);
    std::map<const void*, std::string> names = names_of(plan);
    released().clear();
    plan.root().destroy(&plan.root());
    Names order;
    for (const void* block : released()) order.push_back(names[block]);
    return order;
}

Names joined(const std::vector<Names>& parts) {
    Names all;
    for (const Names& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

/** As many splits, each in the one before. */
Names splits(int levels) {
    if (levels == 0) return {};
    return joined({{"env7 scratch", "env7 stage1 node 0", "env7 stage2 node 0", "envlambda",
                    "env8 table", "env8 children node 0", "env8", "env9 stage node 0"},
                   splits(levels - 1),
                   {"env9 children node 0", "env9", "env7 children node 1", "env7 children node 2",
                    "env7 children node 0", "env7"}});
}

TEST(Teardown, OfALeafReleasesNothingAndThreeLists) {
    for (const std::int32_t length : {2, 4, 8, 16, 32})
        EXPECT_EQ(
            (Names{"nothing", "env1 stage1 node 0", "env1 stage2 node 0", "env1 children node 0"}),
            released_by(length))
            << length;
}

TEST(Teardown, OfATreeGoesThroughItsChildrenFromFirstToLast) {
    for (const auto& [length, levels] :
         std::map<std::int32_t, int>{{64, 0}, {2048, 0}, {4096, 1}, {131072, 2}}) {
        EXPECT_EQ(
            joined({{"env1 scratch", "env1 stage1 node 0", "env1 stage2 node 0", "envfCompose",
                     // stage B
                     "env2 stage node 0", "envfsplit", "env4 table", "env4 children node 0", "env4",
                     "env2 children node 1", "env2 children node 0", "env2",
                     // stage A
                     "env3 stage node 0", "env5 stage node 0"},
                    splits(levels),
                    {"env5 children node 0", "env5", "env3 children node 0", "env3",
                     "env1 children node 1", "env1 children node 2", "env1 children node 0"}}),
            released_by(length))
            << length;
    }
}

}  // namespace
}  // namespace qsvgen_test
