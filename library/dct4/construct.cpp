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

env2* DCT4(env2___init__)(env2* node, Arena* arena, const env2_parameters& parameters) {
    set_head(node, DCT4(env2___del__), DCT4(env2_plan), arena);
    node->factor = parameters.factor;
    node->length = parameters.length;
    node->twoFactor = parameters.twoFactor;
    node->blocks = parameters.blocks;
    node->length2 = parameters.length2;
    node->lastIndex = parameters.lastIndex;
    node->subLength = parameters.subLength;
    node->coefficients = parameters.coefficients;
    set_lists(node);
    return node;
}

env3* DCT4(env3___init__)(env3* node, Arena* arena, const env3_parameters& parameters) {
    set_head(node, DCT4(env3___del__), DCT4(env3_plan), arena);
    static_cast<env3_parameters&>(*node) = parameters;
    set_lists(node);
    return node;
}

env5* DCT4(env5___init__)(env5* node, Arena* arena, const env5_parameters& parameters) {
    set_head(node, DCT4(env5___del__), DCT4(env5_plan), arena);
    static_cast<env5_parameters&>(*node) = parameters;
    set_lists(node);
    return node;
}

env7* DCT4(env7___init__)(env7* node, Arena* arena, const env7_parameters& parameters) {
    set_head(node, DCT4(env7___del__), DCT4(env7_plan), arena);
    node->subLength = parameters.subLength;
    node->length = parameters.length;
    node->length2 = parameters.length2;
    node->stride = parameters.stride;
    node->scratchLength = parameters.scratchLength;
    node->step = parameters.step;
    set_two_stage_lists(node);
    return node;
}

env8* DCT4(env8___init__)(env8* node, Arena* arena, const env8_parameters& parameters) {
    set_head(node, DCT4(env8___del__), DCT4(env8_plan), arena);
    static_cast<env8_parameters&>(*node) = parameters;
    node->children = empty_list(arena);
    return node;
}

env9* DCT4(env9___init__)(env9* node, Arena* arena, const env9_parameters& parameters) {
    set_head(node, DCT4(env9___del__), DCT4(env9_plan), arena);
    static_cast<env9_parameters&>(*node) = parameters;
    set_lists(node);
    return node;
}
}

}  // namespace dct4::QSVG_ELEMENT
