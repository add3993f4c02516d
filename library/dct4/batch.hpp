#pragma once

/**
 * @file
 * @brief Rows that stand far apart, brought together on the stack and spread again.
 *
 * Rows a power of two apart share a few sets of the cache, so that a line would be thrown out
 * before its second vector is asked for. Hence several groups of columns or blocks, as many as fill
 * a line, are worked on at a time: each line is read or written as a whole, once.
 */

#include <utility>

#include "core/passes.hpp"
#include "dct4/element.hpp"

namespace dct4::QSVG_VECTORS {

/** Groups whose vectors fill two cache lines, which processors fetch in pairs. */
constexpr int kBatch = 128 / sizeof(Vector);
constexpr int kBatchElements = kBatch * kLanes;

/** As many vectors as there are groups, for each place of a body. */
template <int kPlaces>
class Batch {
  public:
    Real* row(int place) { return elements_ + place * kBatchElements; }

    /** Vectors of one group, as a body moves them. */
    struct Group {
        Real* begin;
        Vector load(int place) const { return QSVG_VECTORS::load(begin + place * kBatchElements); }
        void store(int place, Vector v) const {
            QSVG_VECTORS::store(begin + place * kBatchElements, v);
        }
    };
    Group group(int index) { return {elements_ + index * kLanes}; }

  private:
    alignas(64) Real elements_[kPlaces * kBatchElements];
};

template <class Move, int... kInner>
[[gnu::always_inline]] inline void for_each_group(int groups, const Move& move,
                                                  std::integer_sequence<int, kInner...>) {
    move(0);
    if (groups == kBatch)
        (move(kInner + 1), ..., move(kBatch - 1));
    else
        (void)((kInner + 1 < groups && (move(kInner + 1), true)) && ...);
}

/** `move(i)` for each of one to kBatch groups' vectors of a row. Not a loop, which compilers take
 * for memcpy. */
template <class Move>
[[gnu::always_inline]] inline void for_each_group(int groups, const Move& move) {
    for_each_group(groups, move, std::make_integer_sequence<int, kBatch - 2>());
}

/** A row of the caller's array, which stands at any boundary. */
[[gnu::always_inline]] inline void gather(const Real* from, Real* row, int groups) {
    for_each_group(groups,
                   [=](int i) { store(row + i * kLanes, load_unaligned(from + i * kLanes)); });
}

/** A row that runs down through memory from *last. */
[[gnu::always_inline]] inline void gather_backward(const Real* last, Real* row, int groups) {
    for_each_group(groups, [=](int i) {
        store(row + i * kLanes, reversed(load_unaligned(last - (kLanes - 1) - i * kLanes)));
    });
}

[[gnu::always_inline]] inline void spread(const Real* row, Real* to, int groups) {
    for_each_group(groups,
                   [=](int i) { store_unaligned(to + i * kLanes, load(row + i * kLanes)); });
}

[[gnu::always_inline]] inline void spread_backward(const Real* row, Real* last, int groups) {
    for_each_group(groups, [=](int i) {
        store_unaligned(last - (kLanes - 1) - i * kLanes, reversed(load(row + i * kLanes)));
    });
}

/** Between work space on vector boundaries. */
[[gnu::always_inline]] inline void move_row(const Real* from, Real* to, int groups) {
    for_each_group(groups, [=](int i) { store(to + i * kLanes, load(from + i * kLanes)); });
}

/** Groups of the batch that begins with group `first` of `all`. */
inline int groups_from(int first, int all) {
    return all - first < kBatch ? all - first : kBatch;
}

}  // namespace dct4::QSVG_VECTORS
