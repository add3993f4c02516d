#pragma once

/**
 * @file
 * @brief One body of the DCT-IV as an exported function, for the clock. Its vectors are side by
 * side, and move as the library's loops over rows of fixed lengths move them.
 */

#include "dct4/body.hpp"

namespace dct4::QSVG_ELEMENT {

/** From the caller's array, its second half backward, to work space. */
template <int kPoints>
struct TimedAnalysis {
    const Real* x;
    Real* y;
    Vector load(int place) const {
        const Vector v = load_unaligned(x + place * kLanes);
        return place < kPoints / 2 ? v : reversed(v);
    }
    void store(int place, Vector v) const { QSVG_ELEMENT::store(y + place * kLanes, v); }
};

/** From work space and a table to the caller's array, its second half backward. */
template <int kPoints>
struct TimedSynthesis {
    const Real* x;
    Real* y;
    Vector load(int place) const { return QSVG_ELEMENT::load(x + place * kLanes); }
    void store(int place, Vector v) const {
        store_unaligned(y + place * kLanes, place < kPoints / 2 ? v : reversed(v));
    }
};

/** From work space and a table to work space. */
struct TimedDft {
    const Real* x;
    Real* y;
    Vector load(int place) const { return QSVG_ELEMENT::load(x + place * kLanes); }
    void store(int place, Vector v) const { QSVG_ELEMENT::store(y + place * kLanes, v); }
};

}  // namespace dct4::QSVG_ELEMENT

#define QSVG_TIMED(name, run)                                                           \
    extern "C" [[gnu::visibility("default")]] QsvStatus name(                           \
        const dct4::QSVG_ELEMENT::Real* x, dct4::QSVG_ELEMENT::Real* y, std::int32_t) { \
        using namespace dct4::QSVG_ELEMENT;                                             \
        run;                                                                            \
        return qsvStatusOk;                                                             \
    }
#define QSVG_TIMED_PLACES(name, Body, ...)     \
    QSVG_TIMED(name, ([&] {                    \
                   const __VA_ARGS__ at{x, y}; \
                   Body::run(at, at);          \
               }()))
#define QSVG_TIMED_ANALYSIS(name, rule) \
    QSVG_TIMED_PLACES(name, Analysis<rule>, TimedAnalysis<(1 << rule)>)
#define QSVG_TIMED_SYNTHESIS(name, rule) \
    QSVG_TIMED_PLACES(name, Synthesis<rule>, TimedSynthesis<(1 << rule)>)
#define QSVG_TIMED_DFT(name, rule) QSVG_TIMED_PLACES(name, Dft<rule>, TimedDft)
#define QSVG_TIMED_INLINE(name, body) QSVG_TIMED(name, body(x, y))
