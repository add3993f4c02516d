#pragma once

/**
 * @file
 * @brief Groups of transforms as tiles, in which each element of all transforms stands together, a
 * lane for each transform.
 *
 * To read and to write a tile is to transpose a matrix of elements, whatever these are made of.
 */

#include <cstring>

#include "batch/pieces.hpp"
#include "batch/placement.hpp"

namespace batch {

/** Transforms that run side by side. */
template <class Element>
inline constexpr int kGroup = kLanes<NumberOf<Element>>;

/** Elements in a piece of 16 bytes. */
template <class Element>
inline constexpr int kElementsOfPiece = kPieceBytes / static_cast<int>(sizeof(Element));

/** Numbers that an element of all transforms of a group takes in a tile. */
template <class Element>
inline constexpr std::ptrdiff_t kElementNumbers = kParts<Element>* kGroup<Element>;

namespace detail {

/** Where a piece's elements of all transforms of a group stand. */
template <class Element>
struct Block {
    using Real = NumberOf<Element>;
    static constexpr int kElements = kElementsOfPiece<Element>;
    /** An element of all transforms takes as many vectors as it has parts. */
    static constexpr int kVectors = kParts<Element>;
    static constexpr int kTransforms = kGroup<Element> / kVectors;

    /** Numbers between an element of neighbouring transforms. */
    std::ptrdiff_t step;

    /** The i-th transform whose first piece is in vector v. */
    template <class Pointer>
    [[gnu::always_inline]] Pointer transform(Pointer array, int v, int i) const {
        return array + (v * kTransforms + i) * step;
    }
    template <class Pointer>
    [[gnu::always_inline]] static Pointer vector(Pointer tile, int v, int i) {
        return tile + i * kElementNumbers<Element> + v * kLanes<Real>;
    }
    /** The block whose elements follow these. */
    template <class Pointer>
    [[gnu::always_inline]] static Pointer next_in_array(Pointer array) {
        return array + kElements * kParts<Element>;
    }
    template <class Pointer>
    [[gnu::always_inline]] static Pointer next_in_tile(Pointer tile) {
        return tile + kElements * kElementNumbers<Element>;
    }
};

/** Blocks into a tile. */
template <class Element>
struct Gather : Block<Element> {
    using Real = NumberOf<Element>;
    using Array = const Real;
    using Tile = Real;
    using Block<Element>::kElements;

    [[gnu::always_inline]] void one(const Real* array, Real* tile) const {
        for (int v = 0; v < this->kVectors; ++v) {
            Vector<Real> block[kElements];
            for (int i = 0; i < kElements; ++i)
                block[i] = load_pieces(this->transform(array, v, i), kElements * this->step);
            transpose_in_pieces<Real>(block);
            for (int i = 0; i < kElements; ++i) store(this->vector(tile, v, i), block[i]);
        }
    }

    /** Two blocks whose elements follow one another. */
    [[gnu::always_inline]] void two(const Real* array, Real* tile) const {
        if constexpr (kBytes == kPieceBytes) {
            one(array, tile);
            one(this->next_in_array(array), this->next_in_tile(tile));
        } else {
            for (int v = 0; v < this->kVectors; ++v) {
                Vector<Real> a[kElements];
                Vector<Real> b[kElements];
                for (int i = 0; i < kElements; ++i)
                    load_pairs_of_pieces(this->transform(array, v, i), kElements * this->step, a[i],
                                         b[i]);
                transpose_in_pieces<Real>(a);
                transpose_in_pieces<Real>(b);
                for (int i = 0; i < kElements; ++i) {
                    store(this->vector(tile, v, i), a[i]);
                    store(this->vector(tile, v, kElements + i), b[i]);
                }
            }
        }
    }
};

/** Blocks of a tile to where they belong. */
template <class Element>
struct Scatter : Block<Element> {
    using Real = NumberOf<Element>;
    using Array = Real;
    using Tile = const Real;
    using Block<Element>::kElements;

    [[gnu::always_inline]] void one(Real* array, const Real* tile) const {
        for (int v = 0; v < this->kVectors; ++v) {
            Vector<Real> block[kElements];
            for (int i = 0; i < kElements; ++i) block[i] = load(this->vector(tile, v, i));
            transpose_in_pieces<Real>(block);
            for (int i = 0; i < kElements; ++i)
                store_pieces(this->transform(array, v, i), kElements * this->step, block[i]);
        }
    }

    /** Two blocks whose elements follow one another. */
    [[gnu::always_inline]] void two(Real* array, const Real* tile) const {
        if constexpr (kBytes == kPieceBytes) {
            one(array, tile);
            one(this->next_in_array(array), this->next_in_tile(tile));
        } else {
            for (int v = 0; v < this->kVectors; ++v) {
                Vector<Real> a[kElements];
                Vector<Real> b[kElements];
                for (int i = 0; i < kElements; ++i) {
                    a[i] = load(this->vector(tile, v, i));
                    b[i] = load(this->vector(tile, v, kElements + i));
                }
                transpose_in_pieces<Real>(a);
                transpose_in_pieces<Real>(b);
                for (int i = 0; i < kElements; ++i)
                    store_pairs_of_pieces(this->transform(array, v, i), kElements * this->step,
                                          a[i], b[i]);
            }
        }
    }
};

/**
 * two(element) and one(element) for blocks that make up a transform's elements, twice a piece's and
 * once. Where they do not come out even, the last one overlaps those before.
 */
template <class Element, class Two, class One>
[[gnu::always_inline]] inline void for_each_block(std::ptrdiff_t elements, const Two& two,
                                                  const One& one) {
    constexpr std::ptrdiff_t kBlock = kElementsOfPiece<Element>;
    std::ptrdiff_t element = 0;
    for (; element + 2 * kBlock <= elements; element += 2 * kBlock) two(element);
    if (element == elements) return;
    if (element + kBlock >= elements) return one(elements - kBlock);
    if (elements > 2 * kBlock) return two(elements - 2 * kBlock);
    one(element);
    one(elements - kBlock);
}

/** All blocks of full groups. Arguments are numbers and pointers alone: of structures that have
 * just been written processors know the addresses late, and all later loads wait for these. */
template <class Element, template <class> class Move>
[[gnu::noinline]] void move_groups(typename Move<Element>::Array* array, std::ptrdiff_t step,
                                   std::ptrdiff_t elements, std::ptrdiff_t groups,
                                   typename Move<Element>::Tile* tile) {
    const Move<Element> move{{step}};
    for (; groups > 0; --groups) {
        const auto one = [&](std::ptrdiff_t element) {
            move.one(array + element * kParts<Element>, tile + element * kElementNumbers<Element>);
        };
        const auto two = [&](std::ptrdiff_t element) {
            move.two(array + element * kParts<Element>, tile + element * kElementNumbers<Element>);
        };
        for_each_block<Element>(elements, two, one);
        array += kGroup<Element> * step;
        tile += elements * kElementNumbers<Element>;
    }
}

}  // namespace detail

/** The first `count` transforms, fewer than a group, into a tile; lanes that hold none are zeros,
 * which no operation minds. */
template <class Element>
void gather_some(const Placement<const Element>& source, int count, NumberOf<Element>* tile) {
    for (int j = 0; j < source.elements; ++j, tile += kElementNumbers<Element>) {
        const Element* const element = source.base + j * source.stride;
        for (int k = 0; k < count; ++k)
            std::memcpy(tile + k * kParts<Element>, element + k * source.distance, sizeof(Element));
        for (int lane = count * kParts<Element>; lane < kElementNumbers<Element>; ++lane)
            tile[lane] = 0;
    }
}

/** The first `count` transforms of a tile to where they belong. */
template <class Element>
void scatter_some(const NumberOf<Element>* tile, int count, const Placement<Element>& destination) {
    for (int j = 0; j < destination.elements; ++j, tile += kElementNumbers<Element>) {
        Element* const element = destination.base + j * destination.stride;
        for (int k = 0; k < count; ++k)
            std::memcpy(element + k * destination.distance, tile + k * kParts<Element>,
                        sizeof(Element));
    }
}

/** Full groups, from transform `first` on, into as many tiles. */
template <class Element>
[[gnu::always_inline]] inline void gather(const Placement<const Element>& source,
                                          std::ptrdiff_t first, std::ptrdiff_t groups,
                                          NumberOf<Element>* tile) {
    if (source.is_contiguous() && source.elements >= kElementsOfPiece<Element>)
        return detail::move_groups<Element, detail::Gather>(
            reinterpret_cast<const NumberOf<Element>*>(source.base + first * source.distance),
            source.distance * kParts<Element>, source.elements, groups, tile);
    for (; groups > 0; --groups, first += kGroup<Element>) {
        const Placement<const Element> group = source.from(first);
        if (!source.has_columns()) {
            gather_some(group, kGroup<Element>, tile);
            tile += source.elements * kElementNumbers<Element>;
            continue;
        }
        for (int j = 0; j < group.elements; ++j, tile += kElementNumbers<Element>)
            std::memcpy(tile, group.base + j * group.stride, kGroup<Element> * sizeof(Element));
    }
}

/** Tiles of full groups to where these belong, from transform `first` on. */
template <class Element>
[[gnu::always_inline]] inline void scatter(const NumberOf<Element>* tile, std::ptrdiff_t first,
                                           std::ptrdiff_t groups,
                                           const Placement<Element>& destination) {
    if (destination.is_contiguous() && destination.elements >= kElementsOfPiece<Element>)
        return detail::move_groups<Element, detail::Scatter>(
            reinterpret_cast<NumberOf<Element>*>(destination.base + first * destination.distance),
            destination.distance * kParts<Element>, destination.elements, groups, tile);
    for (; groups > 0; --groups, first += kGroup<Element>) {
        const Placement<Element> group = destination.from(first);
        if (!destination.has_columns()) {
            scatter_some(tile, kGroup<Element>, group);
            tile += group.elements * kElementNumbers<Element>;
            continue;
        }
        for (int j = 0; j < group.elements; ++j, tile += kElementNumbers<Element>)
            std::memcpy(group.base + j * group.stride, tile, kGroup<Element> * sizeof(Element));
    }
}

}  // namespace batch
