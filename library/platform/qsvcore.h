/**
 * @file qsvcore.h
 * @brief Memory of the platform core library, for C and C++.
 *
 * An open stand-in: it has the name and the calls of the library that is present on the 32-bit
 * target systems, so that everything here can be built and tested without that one. For other
 * targets it is a part of the transforms' own library, and hidden in it.
 */
#ifndef QSVCORE_H
#define QSVCORE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(QSVCORE_IS_INSIDE)
#define QSVCORE_API
#elif defined(__GNUC__)
#define QSVCORE_API __attribute__((visibility("default")))
#else
#define QSVCORE_API
#endif

/**
 * @param size bytes; 0 gives a block that may be freed and not be written
 * @return a block on a 16-byte boundary, and where this is a part of the transforms' library on a
 *         line of the cache, which long vectors of what is made in it then do not straddle; null
 *         where size is negative or memory has run out
 */
QSVCORE_API void* qsvMalloc(int32_t size);

/** @param block what qsvMalloc returned, or null, which does nothing */
QSVCORE_API void qsvFree(void* block);

#ifdef __cplusplus
}
#endif

#endif /* QSVCORE_H */
