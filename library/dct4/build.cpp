/**
 * @file
 * @brief How each node decides its rule and builds what is below it. Whatever a rule decides or
 * takes is foretold in memory.cpp: whoever changes one changes both. Lengths whose size has no 32
 * bits are refused here alone: what memory.cpp tells of them is negative or has wrapped around.
 *
 * A parent first takes its child's memory, and that of the child's coefficients right behind it;
 * then it enters both in its lists, coefficients first; scratch is taken when all children stand.
 */

#include "dct4/construct.hpp"
#include "dct4/operations.hpp"
#include "dct4/tables.hpp"
#include "plan/factor_choice.hpp"
#include "platform/rounding_to_nearest.hpp"

namespace dct4::QSVG_ELEMENT {

namespace {

/** Enters a child that `children` owns into the list of the stage that runs it. */
void add_child(EnvList* children, EnvList* stage, EnvObject* child) {
    EnvList_add(stage, EnvList_add(children, child));
}

QsvStatus plan_only_child(EnvList* stage, QsvStatus (*plan)(EnvObject*)) {
    return plan(EnvList_get(stage, 0)) == qsvStatusOk ? qsvStatusOk : qsvStatusBadLength;
}

QsvStatus split_root(env1* node) {
    Arena* const arena = node->arena;
    const std::int32_t length = node->length;
    if (divisorsIntNonTriv(&node->factor, length / 2) != qsvStatusOk) return qsvStatusBadLength;
    const std::int32_t factor = node->factor;
    const std::int32_t two_factor = 2 * factor;
    const std::int32_t blocks = length / two_factor;
    const std::int32_t last_index = 2 * length - 1;
    const std::int32_t sub_length = length / factor;

    auto* const stage_b = allocate<env2>(arena);
    auto* const compose = allocate<envfCompose>(arena);
    const envfCompose_parameters rotations{.columns = two_factor,
                                           .angleBase = 8 * length,
                                           .rowCount = blocks,
                                           .factor = factor,
                                           .rowStride = two_factor};
    EnvList_add(node->children, DCT4(envfCompose___init__)(compose, arena, rotations));
    const env2_parameters syntheses{.factor = factor,
                                    .length = length,
                                    .twoFactor = two_factor,
                                    .blocks = blocks,
                                    .length2 = length,
                                    .lastIndex = last_index,
                                    .subLength = sub_length,
                                    .coefficients = compose};
    DCT4(env2___init__)(stage_b, arena, syntheses);
    add_child(node->children, node->stage1, stage_b);
    if (plan_only_child(node->stage1, DCT4(env2_plan)) != qsvStatusOk) return qsvStatusBadLength;

    auto* const stage_a = allocate<env3>(arena);
    const env3_parameters analyses{.subLength = sub_length,
                                   .length = length,
                                   .lastIndex = last_index,
                                   .twoFactor = two_factor,
                                   .inner = factor,
                                   .length2 = length,
                                   .factor = factor};
    DCT4(env3___init__)(stage_a, arena, analyses);
    add_child(node->children, node->stage2, stage_a);
    if (plan_only_child(node->stage2, DCT4(env3_plan)) != qsvStatusOk) return qsvStatusBadLength;

    node->scratch = allocate_array(arena, length);
    return qsvStatusOk;
}

/** Continues env5 and env9 by an env7 where their analyses are too long for one kernel. */
template <class Node>
QsvStatus split_analyses(Node* node, std::int32_t stride, std::int32_t scratch_length,
                         std::int32_t step) {
    auto* const split = allocate<env7>(node->arena);
    const env7_parameters parameters{.subLength = node->subLength,
                                     .length = node->length,
                                     .length2 = node->length2,
                                     .stride = stride,
                                     .scratchLength = scratch_length,
                                     .step = step};
    DCT4(env7___init__)(split, node->arena, parameters);
    add_child(node->children, node->stage, split);
    return plan_only_child(node->stage, DCT4(env7_plan));
}

/** Takes and fills the table of an env4 or env8: the same bits in whichever mode the caller is. */
template <class Node>
void make_table(Node* node, std::int32_t bytes) {
    node->table =
        static_cast<Real*>(qsvgArenaMalloc(node->arena, static_cast<std::uint32_t>(bytes)));
    const platform::RoundingToNearest rounding;
    fill_table(*node);
}

}  // namespace

extern "C" {

QsvStatus DCT4(env1_plan)(EnvObject* object) {
    auto* const node = static_cast<env1*>(object);
    node->rule = DCT4(env1__chooseRule)(node->length);
    node->scratch = nullptr;
    if (node->length > kLongestPowerOfTwo + 1) return qsvStatusBadLength;
    return node->rule == 6 ? split_root(node) : qsvStatusOk;
}

QsvStatus DCT4(env2_plan)(EnvObject* object) {
    auto* const node = static_cast<env2*>(object);
    node->valid = node->blocks % kPlanLanes == 0 ? 1 : 0;
    if (node->valid != 1) return qsvStatusBadLength;

    Arena* const arena = node->arena;
    const std::int32_t blocks = node->blocks / kPlanLanes;
    auto* const rotations = allocate<env4>(arena);
    auto* const split = allocate<envfsplit>(arena);
    set_coefficient_head(split, DCT4(envfsplit___del__), DCT4(envfsplit_at), arena);
    split->columns = node->twoFactor;
    split->rowBlocks = blocks;
    split->inner = node->coefficients;
    EnvList_add(node->children, split);
    rotations->destroy = DCT4(env4___del__);
    rotations->size = sizeof(env4);
    rotations->plan = DCT4(env4_plan);
    rotations->arena = arena;
    rotations->children = empty_list(arena);
    static_cast<env4_parameters&>(*rotations) = {.factor = node->factor,
                                                 .length = node->length,
                                                 .twoFactor = node->twoFactor,
                                                 .span = node->twoFactor * kPlanLanes,
                                                 .blocks = blocks,
                                                 .length2 = node->length2,
                                                 .lastIndex = node->lastIndex,
                                                 .subLength = node->subLength,
                                                 .coefficients = split};
    add_child(node->children, node->stage, rotations);
    if (plan_only_child(node->stage, DCT4(env4_plan)) != qsvStatusOk) return qsvStatusBadLength;
    node->done = 0;
    return qsvStatusOk;
}

QsvStatus DCT4(env3_plan)(EnvObject* object) {
    auto* const node = static_cast<env3*>(object);
    node->valid = node->inner % kPlanLanes == 0 ? 1 : 0;
    if (node->valid != 1) return qsvStatusBadLength;

    auto* const analyses = allocate<env5>(node->arena);
    env5_parameters parameters = *node;
    parameters.inner /= kPlanLanes;
    DCT4(env5___init__)(analyses, node->arena, parameters);
    add_child(node->children, node->stage, analyses);
    if (plan_only_child(node->stage, DCT4(env5_plan)) != qsvStatusOk) return qsvStatusBadLength;
    node->done = 0;
    return qsvStatusOk;
}

QsvStatus DCT4(env4_plan)(EnvObject* object) {
    auto* const node = static_cast<env4*>(object);
    node->rule = DCT4(env4__chooseRule)(node->factor);
    if (node->rule == 0) return qsvStatusBadLength;
    make_table(node, env4_table_bytes(node->factor, node->blocks));
    return qsvStatusOk;
}

QsvStatus DCT4(env5_plan)(EnvObject* object) {
    auto* const node = static_cast<env5*>(object);
    node->rule = DCT4(env5__chooseRule)(node->subLength);
    if (node->rule == 7 &&
        split_analyses(node, node->twoFactor, node->length, node->factor) != qsvStatusOk)
        return qsvStatusBadLength;
    node->done = 0;
    return qsvStatusOk;
}

QsvStatus DCT4(env7_plan)(EnvObject* object) {
    auto* const node = static_cast<env7*>(object);
    node->valid = 1;
    const std::int32_t points = node->subLength;
    if (divisorsIntNonTriv(&node->factor, points / 2) != qsvStatusOk) return qsvStatusBadLength;
    const std::int32_t factor = node->factor;
    Arena* const arena = node->arena;

    auto* const twiddles = allocate<env8>(arena);
    auto* const lambda = allocate<envlambda>(arena);
    EnvList_add(node->children, DCT4(envlambda___init__)(lambda, arena, points, factor));
    const env8_parameters dfts{.factor = factor,
                               .scratchLength = node->scratchLength,
                               .step = node->step,
                               .span = 2 * factor * node->step,
                               .blocks = points / (2 * factor),
                               .scratchLength2 = node->scratchLength,
                               .halfLength = points / 2,
                               .lastIndex = points - 1,
                               .step2 = node->step,
                               .quotient = points / factor,
                               .coefficients = lambda};
    DCT4(env8___init__)(twiddles, arena, dfts);
    add_child(node->children, node->stage1, twiddles);
    plan_only_child(node->stage1, DCT4(env8_plan));  // each factor that is chosen has a kernel

    auto* const analyses = allocate<env9>(arena);
    const env9_parameters parts{.subLength = points / factor,
                                .length = node->length,
                                .length2 = node->length2,
                                .stride = factor * node->stride,
                                .parentStride = node->stride,
                                .factor = factor,
                                .scratchLength = node->scratchLength,
                                .step = factor * node->step,
                                .parentStep = node->step};
    DCT4(env9___init__)(analyses, arena, parts);
    add_child(node->children, node->stage2, analyses);
    if (plan_only_child(node->stage2, DCT4(env9_plan)) != qsvStatusOk) return qsvStatusBadLength;

    node->scratch = allocate_array(arena, node->scratchLength);
    return qsvStatusOk;
}

QsvStatus DCT4(env8_plan)(EnvObject* object) {
    auto* const node = static_cast<env8*>(object);
    node->rule = DCT4(env8__chooseRule)(node->factor);
    if (node->rule == 0) return qsvStatusBadLength;
    make_table(node, env8_table_bytes(node->factor, node->blocks));
    return qsvStatusOk;
}

QsvStatus DCT4(env9_plan)(EnvObject* object) {
    auto* const node = static_cast<env9*>(object);
    node->rule = DCT4(env9__chooseRule)(node->subLength);
    if (node->rule == 7 &&
        split_analyses(node, node->stride, node->scratchLength, node->step) != qsvStatusOk)
        return qsvStatusBadLength;
    node->done = 0;
    return qsvStatusOk;
}
}

}  // namespace dct4::QSVG_ELEMENT
