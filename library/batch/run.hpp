#pragma once

/** @file @brief Runs a batch: full groups by bodies in lanes, a few transforms by single calls. */

#include <cstdint>

#include "batch/bodies.hpp"
#include "batch/layout.hpp"
#include "batch/placement.hpp"
#include "batch/rows.hpp"

namespace batch {

template <class Element>
struct Batch {
    using Real = NumberOf<Element>;

    Placement<const Element> source;
    Placement<Element> destination;
    Layout source_layout;
    Layout destination_layout;
    int size;    ///< what bodies are chosen by
    int places;  ///< of the body, in elements
    std::int32_t count;
    std::int32_t flag;
    Real factor;
    bool body_has_factor;
    int singly_at_a_time;  ///< single kernels, where they are faster than lanes; or 0
    void (*body)(int size, const Groups<Real>& groups);
    QsvStatus (*single)(const Element* src, Element* dst, std::int32_t size, std::int32_t flag);
    InPieces<Real> in_pieces;  ///< single kernels in vectors of several pieces

    bool is_in_place() const {
        return static_cast<const Element*>(destination.base) == source.base;
    }
    bool is_contiguous() const { return source.is_contiguous() && destination.is_contiguous(); }
};

void run(const Batch<Real32>& batch);
void run(const Batch<Real64>& batch);
void run(const Batch<Complex32>& batch);
void run(const Batch<Complex64>& batch);

}  // namespace batch
