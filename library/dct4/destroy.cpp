/**
 * @file
 * @brief Destructors. Each gives back what plan took for its node, in whatever order, since an
 * arena only counts; the object itself is its holder's to release.
 */

#include "dct4/operations.hpp"
#include "dct4/tables.hpp"

namespace dct4::QSVG_ELEMENT {
namespace {

void release(Arena* arena, const Real* array, std::int32_t bytes) {
    qsvgArenaFree(arena, array, static_cast<std::uint32_t>(bytes));
}

void release_scratch(Arena* arena, const Real* scratch, std::int32_t elements) {
    qsvgArenaFree(arena, scratch, static_cast<std::uint32_t>(elements) * sizeof(Real));
}

/** A list that only refers to objects. */
void release_stage(EnvList* list) {
    EnvList___del__(list);
    qsvgArenaFree(list->arena, list, sizeof(EnvList));
}

void release_children(EnvList* list) {
    EnvList_freeChildren(list);
    release_stage(list);
}

template <class Node>
void release_lists(const Node* node) {
    release_stage(node->stage);
    release_children(node->children);
}

template <class Node>
void release_two_stage_lists(const Node* node) {
    release_stage(node->stage1);
    release_stage(node->stage2);
    release_children(node->children);
}

}  // namespace

extern "C" {

void DCT4(env1___del__)(EnvObject* object) {
    auto* const node = static_cast<env1*>(object);
    if (node->rule >= 1 && node->rule <= 6)
        release_scratch(node->arena, node->scratch, node->rule == 6 ? node->length : 0);
    release_two_stage_lists(node);
}

void DCT4(env2___del__)(EnvObject* object) {
    release_lists(static_cast<env2*>(object));
}

void DCT4(env3___del__)(EnvObject* object) {
    release_lists(static_cast<env3*>(object));
}

void DCT4(env4___del__)(EnvObject* object) {
    auto* const node = static_cast<env4*>(object);
    if (node->rule >= 1 && node->rule <= 6)
        release(node->arena, node->table, env4_table_bytes(node->factor, node->blocks));
    release_children(node->children);
}

void DCT4(env5___del__)(EnvObject* object) {
    release_lists(static_cast<env5*>(object));
}

void DCT4(env7___del__)(EnvObject* object) {
    auto* const node = static_cast<env7*>(object);
    if (node->valid == 1) release_scratch(node->arena, node->scratch, node->scratchLength);
    release_two_stage_lists(node);
}

void DCT4(env8___del__)(EnvObject* object) {
    auto* const node = static_cast<env8*>(object);
    if (node->rule >= 1 && node->rule <= 5)
        release(node->arena, node->table, env8_table_bytes(node->factor, node->blocks));
    release_children(node->children);
}

// No rule of env9 takes anything but what its lists hold.
void DCT4(env9___del__)(EnvObject* object) {
    release_lists(static_cast<env9*>(object));
}
}

}  // namespace dct4::QSVG_ELEMENT
