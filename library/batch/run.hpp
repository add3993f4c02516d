#pragma once

/** @file @brief Runs a batch: full groups by bodies in lanes, a few transforms by single calls. */

#include <cstdint>

#include "batch/bodies.hpp"
#include "batch/layout.hpp"
#include "batch/placement.hpp"

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
    bool is_faster_singly;  ///< where elements follow one another
    void (*body)(int size, const Groups<Real>& groups);
    QsvStatus (*single)(const Element* src, Element* dst, std::int32_t size, std::int32_t flag);

    bool is_contiguous() const { return source.is_contiguous() && destination.is_contiguous(); }
};

void run(const Batch<Real32>& batch);
void run(const Batch<Real64>& batch);
void run(const Batch<Complex32>& batch);
void run(const Batch<Complex64>& batch);

}  // namespace batch
