#pragma once

/** @file @brief Plans of the DCT-IV, which are made once for a length and kept for later calls. */

#include <cstddef>

#include "families.hpp"

namespace python {

/** The DCT-IV's functions of a precision. */
template <Precision precision>
struct Dct4;

template <>
struct Dct4<Precision::kSingle> {
    using Real = Real32;
    using Plan = QsvDCT4Plan_32f;
    static constexpr auto make = qsvgDCT4InitAlloc_32f;
    static constexpr auto run = qsvgDCT4_32f;
};

template <>
struct Dct4<Precision::kDouble> {
    using Real = Real64;
    using Plan = QsvDCT4Plan_64f;
    static constexpr auto make = qsvgDCT4InitAlloc_64f;
    static constexpr auto run = qsvgDCT4_64f;
};

inline ptrdiff_t longest_dct4(Precision precision) {
    return ptrdiff_t{1} << (precision == Precision::kSingle ? 26 : 25);
}

/** A plan that no call is using, or null. The caller holds the interpreter's lock, and owns the
 * plan until it gives it back: a plan serves one call at a time. */
void* take_dct4_plan(Precision precision, ptrdiff_t length);

/** A new plan, or null where memory has run out. Needs no lock. */
void* make_dct4_plan(Precision precision, ptrdiff_t length);

/** Keeps the plan for later calls, or destroys it where those kept hold much memory already. The
 * caller holds the interpreter's lock, which no thread holds in the child of a fork but the one
 * that is left. */
void give_back_dct4_plan(Precision precision, ptrdiff_t length, void* plan);

}  // namespace python
