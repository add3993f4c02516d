#pragma once

/** @file @brief New objects and list heads in an arena. */

#include "dct4/records.hpp"

namespace dct4::QSVG_ELEMENT {

template <class Object>
Object* allocate(Arena* arena) {
    return static_cast<Object*>(qsvgArenaMalloc(arena, sizeof(Object)));
}

inline EnvList* empty_list(Arena* arena) {
    return EnvList___init__(allocate<EnvList>(arena), arena);
}

inline Real* allocate_array(Arena* arena, std::int32_t elements) {
    const std::uint32_t bytes = static_cast<std::uint32_t>(elements) * sizeof(Real);
    return static_cast<Real*>(qsvgArenaMalloc(arena, bytes));
}

/** Field by field, here and wherever a record has gaps between its fields: an assignment of the
 * whole may bring along what the stack held there. */
template <class Object>
void set_coefficient_head(Object* object, void (*destroy)(EnvObject*),
                          Real (*at)(const CoefficientObject*, std::int32_t, std::int32_t,
                                     std::int32_t),
                          Arena* arena) {
    object->destroy = destroy;
    object->size = sizeof(Object);
    object->at = at;
    object->arena = arena;
}

}  // namespace dct4::QSVG_ELEMENT
