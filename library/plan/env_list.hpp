#pragma once

/**
 * @file
 * @brief The list by which a plan node holds its children. The head is an element: an empty list is
 * a head without an item.
 */

#include <cstdint>

#include "plan/arena.hpp"

/** What every object in a plan begins with. */
struct EnvObject {
    void (*destroy)(EnvObject* object);
    std::int32_t size; /**< of the object itself, in bytes */
};

struct EnvList {
    EnvObject* item;
    EnvList* next;
    Arena* arena; /**< where further nodes come from */
};

extern "C" {

EnvList* EnvList___init__(EnvList* node, Arena* arena);

/** Appends `item` and returns it, so that one object may go from one list into the next. */
EnvObject* EnvList_add(EnvList* list, EnvObject* item);

/** What `count` adds need of an arena. Counts the add into an empty head too, which needs nothing.
 */
std::int32_t EnvList_add_mem(std::int32_t count);

/** The item at `index`, null where there is none; must not be asked for the one behind the last. */
EnvObject* EnvList_get(EnvList* list, std::int32_t index);

/** Destroys and releases the items; the nodes stay. */
void EnvList_freeChildren(EnvList* list);

/** Releases the nodes behind the head. */
void EnvList___del__(EnvList* list);
}
