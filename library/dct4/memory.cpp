/**
 * @file
 * @brief What a plan takes from its arena, before there is one. Each function makes the tests that
 * the class's plan makes, on the same values in the same order: whoever changes one changes both.
 *
 * The needs are sums of the parts that construction asks for, so that they can be told from the
 * code.
 */

#include "dct4/operations.hpp"
#include "dct4/tables.hpp"
#include "plan/factor_choice.hpp"
#include "plan/wrapping.hpp"

namespace dct4::QSVG_ELEMENT {

using plan::Wrapping;

namespace {

Wrapping aligned(std::int32_t bytes) {
    return static_cast<std::int32_t>(qsvgAlignSize32Bytes(static_cast<std::uint32_t>(bytes)));
}

Wrapping array(std::int32_t elements) {
    return aligned((Wrapping(elements) * static_cast<std::int32_t>(sizeof(Real))).value());
}

Wrapping list_heads(std::int32_t count) {
    return Wrapping(count) * aligned(sizeof(EnvList));
}

Wrapping adds(std::int32_t count) {
    return EnvList_add_mem(count);
}

}  // namespace

extern "C" {

std::int32_t DCT4(env1_mem)(std::int32_t length) {
    const Wrapping root = aligned(sizeof(env1)) + list_heads(3);
    if (DCT4(env1__chooseRule)(length) != 6) return root.value();
    std::int32_t factor = 0;
    if (divisorsIntNonTriv(&factor, length / 2) != qsvStatusOk) return qsvStatusBadLength;
    const std::int32_t stage_b = DCT4(env2_mem)(factor, length / (2 * factor));
    if (stage_b < 0) return stage_b;
    const std::int32_t stage_a = DCT4(env3_mem)(length / factor, factor, length);
    if (stage_a < 0) return stage_a;
    return (Wrapping(stage_b) + stage_a + array(length) + root + aligned(sizeof(envfCompose)) +
            adds(5))
        .value();
}

std::int32_t DCT4(env2_mem)(std::int32_t factor, std::int32_t blocks) {
    if (blocks % kPlanLanes != 0) return qsvStatusBadLength;
    if (DCT4(env4__chooseRule)(factor) == 0) return qsvStatusBadLength;
    const Wrapping env4_need = aligned(sizeof(env4)) + list_heads(1) +
                               aligned(env4_table_bytes(factor, blocks / kPlanLanes));
    return (aligned(sizeof(env2)) + list_heads(2) + aligned(sizeof(envfsplit)) + env4_need +
            adds(3))
        .value();
}

std::int32_t DCT4(env3_mem)(std::int32_t sub_length, std::int32_t factor,
                            std::int32_t scratch_length) {
    if (factor % kPlanLanes != 0) return qsvStatusBadLength;
    const std::int32_t analyses = DCT4(env5_mem)(sub_length, scratch_length);
    if (analyses < 0) return analyses;
    return (aligned(sizeof(env3)) + list_heads(2) + adds(2) + analyses).value();
}

std::int32_t DCT4(env5_mem)(std::int32_t sub_length, std::int32_t scratch_length) {
    const Wrapping node = aligned(sizeof(env5)) + list_heads(2);
    if (DCT4(env5__chooseRule)(sub_length) != 7) return node.value();
    const std::int32_t split = DCT4(env7_mem)(sub_length, scratch_length);
    if (split < 0) return split;
    return (node + adds(2) + split).value();
}

std::int32_t DCT4(env7_mem)(std::int32_t sub_length, std::int32_t scratch_length) {
    std::int32_t factor = 0;
    if (divisorsIntNonTriv(&factor, sub_length / 2) != qsvStatusOk) return qsvStatusBadLength;
    const std::int32_t analyses = DCT4(env9_mem)(sub_length / factor, scratch_length);
    if (analyses < 0) return analyses;
    const Wrapping env8_need = aligned(sizeof(env8)) + list_heads(1) +
                               aligned(env8_table_bytes(factor, sub_length / (2 * factor)));
    return (aligned(sizeof(env7)) + list_heads(3) + aligned(sizeof(envlambda)) + env8_need +
            adds(5) + analyses + array(scratch_length))
        .value();
}

std::int32_t DCT4(env9_mem)(std::int32_t sub_length, std::int32_t scratch_length) {
    const Wrapping node = aligned(sizeof(env9)) + list_heads(2);
    if (DCT4(env9__chooseRule)(sub_length) != 7) return node.value();
    const std::int32_t split = DCT4(env7_mem)(sub_length, scratch_length);
    if (split < 0) return split;
    return (node + adds(2) + split).value();
}
}

}  // namespace dct4::QSVG_ELEMENT
