#include "copying.hpp"

#include <cstdint>
#include <cstring>

namespace python {
namespace {

// Integers, so that no conversion looks at the values.
using Word32 = uint32_t;
using Word64 = uint64_t;

// At any address, and whatever type the memory is used as otherwise.
template <class Word>
Word load(const char* from) {
    Word word;
    std::memcpy(&word, from, sizeof word);
    return word;
}

template <class Word>
void store(char* to, Word word) {
    std::memcpy(to, &word, sizeof word);
}

template <class Word>
void store_pair(char* to, Word re, Word im) {
    store(to, re);
    store(to + sizeof re, im);
}

template <class Word>
void copy_element(const char* from, char* to, ptrdiff_t) {
    store(to, load<Word>(from));
}

template <class Word>
void copy_pair(const char* from, char* to, ptrdiff_t) {
    store_pair(to, load<Word>(from), load<Word>(from + sizeof(Word)));
}

template <class Word>
void make_complex(const char* from, char* to, ptrdiff_t) {
    store_pair(to, load<Word>(from), Word{0});
}

template <class Word>
void take_apart(const char* from, char* to, ptrdiff_t plane) {
    store(to, load<Word>(from));
    store(to + plane, load<Word>(from + sizeof(Word)));
}

template <class Word>
void put_together(const char* from, char* to, ptrdiff_t plane) {
    store_pair(to, load<Word>(from), load<Word>(from + plane));
}

using CopyOne = void (*)(const char*, char*, ptrdiff_t plane);

/** One line; with distances that the compiler knows where elements are neighbours. */
template <CopyOne copy_one, ptrdiff_t from_item, ptrdiff_t to_item>
void copy_line(const char* from, ptrdiff_t from_step, char* to, ptrdiff_t to_step, ptrdiff_t count,
               ptrdiff_t plane) {
    if (from_step == from_item && to_step == to_item) {
        for (ptrdiff_t i = 0; i < count; ++i)
            copy_one(from + i * from_item, to + i * to_item, plane);
    } else {
        for (ptrdiff_t i = 0; i < count; ++i)
            copy_one(from + i * from_step, to + i * to_step, plane);
    }
}

template <CopyOne copy_one, ptrdiff_t from_item, ptrdiff_t to_item>
void copy_all(Along along, const Place& from, const Place& to, ptrdiff_t length, ptrdiff_t count,
              ptrdiff_t plane) {
    if (along == Along::kTransforms) {
        for (ptrdiff_t j = 0; j < length; ++j)
            copy_line<copy_one, from_item, to_item>(from.first + j * from.stride, from.dist,
                                                    to.first + j * to.stride, to.dist, count,
                                                    plane);
    } else {
        for (ptrdiff_t k = 0; k < count; ++k)
            copy_line<copy_one, from_item, to_item>(from.first + k * from.dist, from.stride,
                                                    to.first + k * to.dist, to.stride, length,
                                                    plane);
    }
}

/** Parts stand in every second line of the one side. */
Place every_second(const Place& parts) {
    return {parts.first, 2 * parts.stride, parts.dist};
}

template <class Word>
void copy_complex(Change change, Along along, const Place& from, const Place& to, ptrdiff_t length,
                  ptrdiff_t count) {
    constexpr ptrdiff_t kWord = sizeof(Word);
    if (change == Change::kRealToComplex)
        copy_all<make_complex<Word>, kWord, 2 * kWord>(along, from, to, length, count, 0);
    else if (change == Change::kComplexToParts)
        copy_all<take_apart<Word>, 2 * kWord, kWord>(along, from, every_second(to), length, count,
                                                     to.stride);
    else
        copy_all<put_together<Word>, kWord, 2 * kWord>(along, every_second(from), to, length, count,
                                                       from.stride);
}

}  // namespace

void copy(Change change, Along along, ptrdiff_t item, const Place& from, const Place& to,
          ptrdiff_t length, ptrdiff_t count) {
    if (change == Change::kNone) {
        if (item == sizeof(Word32))
            copy_all<copy_element<Word32>, 4, 4>(along, from, to, length, count, 0);
        else if (item == sizeof(Word64))
            copy_all<copy_element<Word64>, 8, 8>(along, from, to, length, count, 0);
        else
            copy_all<copy_pair<Word64>, 16, 16>(along, from, to, length, count, 0);
        return;
    }
    const ptrdiff_t real = change == Change::kRealToComplex ? item : item / 2;
    if (real == sizeof(Word32))
        copy_complex<Word32>(change, along, from, to, length, count);
    else
        copy_complex<Word64>(change, along, from, to, length, count);
}

void clear(ptrdiff_t item, const Place& to, ptrdiff_t length, ptrdiff_t count) {
    for (ptrdiff_t j = 0; j < length; ++j) {
        for (ptrdiff_t k = 0; k < count; ++k)
            std::memset(to.first + j * to.stride + k * to.dist, 0, static_cast<size_t>(item));
    }
}

}  // namespace python
