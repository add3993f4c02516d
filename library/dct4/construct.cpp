#include "dct4/construct.hpp"

#include "dct4/operations.hpp"

namespace dct4::QSVG_ELEMENT {
namespace {

// What plan stores stays as it is: rule, done and valid mean nothing before.
template <class Node>
void set_head(Node* node, void (*destroy)(EnvObject*), QsvStatus (*plan)(EnvObject*),
              Arena* arena) {
    node->destroy = destroy;
    node->size = sizeof(Node);
    node->plan = plan;
    node->arena = arena;
}

template <class Node>
void set_lists(Node* node) {
    node->children = empty_list(node->arena);
    node->stage = empty_list(node->arena);
}

template <class Node>
void set_two_stage_lists(Node* node) {
    node->children = empty_list(node->arena);
    node->stage1 = empty_list(node->arena);
    node->stage2 = empty_list(node->arena);
}

}  // namespace

extern "C" {

env1* DCT4(env1___init__)(env1* node, Arena* arena, std::int32_t length) {
    set_head(node, DCT4(env1___del__), DCT4(env1_plan), arena);
    node->length = length;
    set_two_stage_lists(node);
    return node;
}

env2* DCT4(env2___init__)(env2* node, Arena* arena, std::int32_t factor, std::int32_t length,
                          std::int32_t two_factor, std::int32_t blocks, std::int32_t length2,
                          std::int32_t last_index, std::int32_t sub_length,
                          envfCompose* coefficients) {
    set_head(node, DCT4(env2___del__), DCT4(env2_plan), arena);
    node->factor = factor;
    node->length = length;
    node->twoFactor = two_factor;
    node->blocks = blocks;
    node->length2 = length2;
    node->lastIndex = last_index;
    node->subLength = sub_length;
    node->coefficients = coefficients;
    set_lists(node);
    return node;
}

env3* DCT4(env3___init__)(env3* node, Arena* arena, std::int32_t sub_length, std::int32_t length,
                          std::int32_t last_index, std::int32_t two_factor, std::int32_t inner,
                          std::int32_t length2, std::int32_t factor) {
    set_head(node, DCT4(env3___del__), DCT4(env3_plan), arena);
    node->subLength = sub_length;
    node->length = length;
    node->lastIndex = last_index;
    node->twoFactor = two_factor;
    node->inner = inner;
    node->length2 = length2;
    node->factor = factor;
    set_lists(node);
    return node;
}

env5* DCT4(env5___init__)(env5* node, Arena* arena, std::int32_t sub_length, std::int32_t length,
                          std::int32_t last_index, std::int32_t two_factor, std::int32_t inner,
                          std::int32_t length2, std::int32_t factor) {
    set_head(node, DCT4(env5___del__), DCT4(env5_plan), arena);
    node->subLength = sub_length;
    node->length = length;
    node->lastIndex = last_index;
    node->twoFactor = two_factor;
    node->inner = inner;
    node->length2 = length2;
    node->factor = factor;
    set_lists(node);
    return node;
}

env7* DCT4(env7___init__)(env7* node, Arena* arena, std::int32_t sub_length, std::int32_t length,
                          std::int32_t length2, std::int32_t stride, std::int32_t scratch_length,
                          std::int32_t step) {
    set_head(node, DCT4(env7___del__), DCT4(env7_plan), arena);
    node->subLength = sub_length;
    node->length = length;
    node->length2 = length2;
    node->stride = stride;
    node->scratchLength = scratch_length;
    node->step = step;
    set_two_stage_lists(node);
    return node;
}

env8* DCT4(env8___init__)(env8* node, Arena* arena, std::int32_t factor,
                          std::int32_t scratch_length, std::int32_t step, std::int32_t span,
                          std::int32_t blocks, std::int32_t scratch_length2,
                          std::int32_t half_length, std::int32_t last_index, std::int32_t step2,
                          std::int32_t quotient, envlambda* coefficients) {
    set_head(node, DCT4(env8___del__), DCT4(env8_plan), arena);
    node->factor = factor;
    node->scratchLength = scratch_length;
    node->step = step;
    node->span = span;
    node->blocks = blocks;
    node->scratchLength2 = scratch_length2;
    node->halfLength = half_length;
    node->lastIndex = last_index;
    node->step2 = step2;
    node->quotient = quotient;
    node->coefficients = coefficients;
    node->children = empty_list(arena);
    return node;
}

env9* DCT4(env9___init__)(env9* node, Arena* arena, std::int32_t sub_length, std::int32_t length,
                          std::int32_t length2, std::int32_t stride, std::int32_t parent_stride,
                          std::int32_t factor, std::int32_t scratch_length, std::int32_t step,
                          std::int32_t parent_step) {
    set_head(node, DCT4(env9___del__), DCT4(env9_plan), arena);
    node->subLength = sub_length;
    node->length = length;
    node->length2 = length2;
    node->stride = stride;
    node->parentStride = parent_stride;
    node->factor = factor;
    node->scratchLength = scratch_length;
    node->step = step;
    node->parentStep = parent_step;
    set_lists(node);
    return node;
}
}

}  // namespace dct4::QSVG_ELEMENT
