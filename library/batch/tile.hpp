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

namespace detail {

/** use(element) for the first element of each block of a piece's; the last block overlaps the one
 * before it where blocks do not come out even. */
template <class Element, class Use>
[[gnu::always_inline]] inline void for_each_block(int elements, const Use& use) {
    constexpr int kBlock = kElementsOfPiece<Element>;
    int element = 0;
    for (; element + kBlock < elements; element += kBlock) use(element);
    use(elements - kBlock);
}

/** Vectors that hold an element of all transforms of a group. */
template <class Element>
inline constexpr int kVectorsOfElement = kParts<Element>;

/** Transforms that a vector holds an element of. */
template <class Element>
inline constexpr int kTransformsOfVector = kGroup<Element> / kVectorsOfElement<Element>;

template <class Element>
void gather_contiguous(const Placement<const Element>& source, NumberOf<Element>* tile) {
    using Real = NumberOf<Element>;
    constexpr int kBlock = kElementsOfPiece<Element>;
    const std::ptrdiff_t step = source.distance * kParts<Element>;
    for_each_block<Element>(source.elements, [&](int element) {
        const auto* const from = reinterpret_cast<const Real*>(source.base + element);
        Real* const elements = tile + element * kParts<Element> * kLanes<Real>;
        for (int v = 0; v < kVectorsOfElement<Element>; ++v) {
            const Real* const first = from + v * kTransformsOfVector<Element> * step;
            Vector<Real> block[kBlock];
            for (int i = 0; i < kBlock; ++i)
                block[i] = load_pieces(first + i * step, kBlock * step);
            transpose_in_pieces<Real>(block);
            for (int i = 0; i < kBlock; ++i)
                store(elements + (i * kVectorsOfElement<Element> + v) * kLanes<Real>, block[i]);
        }
    });
}

template <class Element>
void scatter_contiguous(const NumberOf<Element>* tile, const Placement<Element>& destination) {
    using Real = NumberOf<Element>;
    constexpr int kBlock = kElementsOfPiece<Element>;
    const std::ptrdiff_t step = destination.distance * kParts<Element>;
    for_each_block<Element>(destination.elements, [&](int element) {
        auto* const to = reinterpret_cast<Real*>(destination.base + element);
        const Real* const elements = tile + element * kParts<Element> * kLanes<Real>;
        for (int v = 0; v < kVectorsOfElement<Element>; ++v) {
            Real* const first = to + v * kTransformsOfVector<Element> * step;
            Vector<Real> block[kBlock];
            for (int i = 0; i < kBlock; ++i)
                block[i] = load(elements + (i * kVectorsOfElement<Element> + v) * kLanes<Real>);
            transpose_in_pieces<Real>(block);
            for (int i = 0; i < kBlock; ++i)
                store_pieces(first + i * step, kBlock * step, block[i]);
        }
    });
}

}  // namespace detail

/** The tile of `count` transforms; lanes that hold none are zeros, which no operation minds. */
template <class Element>
void gather(const Placement<const Element>& source, int count, NumberOf<Element>* tile) {
    constexpr std::size_t kElementBytes = kGroup<Element> * sizeof(Element);
    if (count == kGroup<Element>) {
        if (source.has_columns()) {
            for (int j = 0; j < source.elements; ++j)
                std::memcpy(tile + j * kParts<Element> * kGroup<Element>,
                            source.base + j * source.stride, kElementBytes);
            return;
        }
        if (source.is_contiguous() && source.elements >= kElementsOfPiece<Element>)
            return detail::gather_contiguous(source, tile);
    }
    for (int j = 0; j < source.elements; ++j) {
        NumberOf<Element>* const lanes = tile + j * kParts<Element> * kGroup<Element>;
        const Element* const element = source.base + j * source.stride;
        for (int k = 0; k < count; ++k)
            std::memcpy(lanes + k * kParts<Element>, element + k * source.distance,
                        sizeof(Element));
        for (int lane = count * kParts<Element>; lane < kGroup<Element> * kParts<Element>; ++lane)
            lanes[lane] = 0;
    }
}

/** The first `count` transforms of a tile to where they belong. */
template <class Element>
void scatter(const NumberOf<Element>* tile, int count, const Placement<Element>& destination) {
    constexpr std::size_t kElementBytes = kGroup<Element> * sizeof(Element);
    if (count == kGroup<Element>) {
        if (destination.has_columns()) {
            for (int j = 0; j < destination.elements; ++j)
                std::memcpy(destination.base + j * destination.stride,
                            tile + j * kParts<Element> * kGroup<Element>, kElementBytes);
            return;
        }
        if (destination.is_contiguous() && destination.elements >= kElementsOfPiece<Element>)
            return detail::scatter_contiguous(tile, destination);
    }
    for (int j = 0; j < destination.elements; ++j) {
        const NumberOf<Element>* const lanes = tile + j * kParts<Element> * kGroup<Element>;
        Element* const element = destination.base + j * destination.stride;
        for (int k = 0; k < count; ++k)
            std::memcpy(element + k * destination.distance, lanes + k * kParts<Element>,
                        sizeof(Element));
    }
}

}  // namespace batch
