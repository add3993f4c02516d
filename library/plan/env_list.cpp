#include "plan/env_list.hpp"

#include "plan/wrapping.hpp"

extern "C" {

EnvList* EnvList___init__(EnvList* node, Arena* arena) {
    *node = {nullptr, nullptr, arena};
    return node;
}

EnvObject* EnvList_add(EnvList* list, EnvObject* item) {
    EnvList* tail = list;
    while (tail->next != nullptr) tail = tail->next;
    if (tail->item != nullptr) {
        auto* const node = static_cast<EnvList*>(qsvgArenaMalloc(list->arena, sizeof(EnvList)));
        tail->next = EnvList___init__(node, list->arena);
        tail = node;
    }
    tail->item = item;
    return item;
}

std::int32_t EnvList_add_mem(std::int32_t count) {
    const auto node = static_cast<std::int32_t>(qsvgAlignSize32Bytes(sizeof(EnvList)));
    return (plan::Wrapping(count) * node).value();
}

EnvObject* EnvList_get(EnvList* list, std::int32_t index) {
    std::int32_t steps = 0;
    const EnvList* node = list;
    for (; steps < index && node != nullptr; ++steps) node = node->next;
    return steps == index ? node->item : nullptr;
}

void EnvList_freeChildren(EnvList* list) {
    for (EnvList* node = list; node != nullptr; node = node->next) {
        if (node->item == nullptr) continue;
        node->item->destroy(node->item);
        qsvgArenaFree(list->arena, node->item, static_cast<std::uint32_t>(node->item->size));
    }
}

void EnvList___del__(EnvList* list) {
    const EnvList* node = list->next;
    while (node != nullptr) {
        const EnvList* const next = node->next;
        qsvgArenaFree(list->arena, node, sizeof(EnvList));
        node = next;
    }
}
}
