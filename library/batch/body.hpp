#pragma once

/**
 * @file
 * @brief What the straight-line bodies of batches are to the loop around them: a transform in each
 * lane.
 *
 * An element of all transforms of a group is a vector where it is real, and two where it is
 * complex, in which parts follow one another as in memory.
 */

#include <cstddef>

#include "batch/shuffles.hpp"

namespace batch {

/** Groups of as many transforms as a vector has lanes. The elements of place p of the first group
 * begin at source + from[p], those of its result at destination + to[p]; of the next group, `step`
 * numbers on. */
template <class Real>
struct Groups {
    const Real* source;
    Real* destination;
    const std::ptrdiff_t* from;
    const std::ptrdiff_t* to;
    Real factor;
    std::ptrdiff_t count;
    std::ptrdiff_t source_step;
    std::ptrdiff_t destination_step;
};

/** Real elements. */
template <class Real>
struct RealElements {
    struct Source {
        const Real* begin;
        const std::ptrdiff_t* offsets;
        [[gnu::always_inline]] Vector<Real> load(int place) const {
            return batch::load(begin + offsets[place]);
        }
        [[gnu::always_inline]] Doubles low(int place) const {
            return load_widened(begin + offsets[place]);
        }
        [[gnu::always_inline]] Doubles high(int place) const {
            return load_widened(begin + offsets[place] + kLanes<double>);
        }
    };
    struct Destination {
        Real* begin;
        const std::ptrdiff_t* offsets;
        [[gnu::always_inline]] void store(int place, Vector<Real> v) const {
            batch::store(begin + offsets[place], v);
        }
        [[gnu::always_inline]] void store(int place, Doubles low, Doubles high) const {
            store_rounded(begin + offsets[place], low);
            store_rounded(begin + offsets[place] + kLanes<double>, high);
        }
    };
};

/** Complex elements, of which a body sees the parts. */
template <class Real>
struct ComplexElements {
    struct Source {
        const Real* begin;
        const std::ptrdiff_t* offsets;
        /** Real parts of element `place` / 2, or imaginary ones. */
        [[gnu::always_inline]] Vector<Real> load(int place) const {
            const Real* const p = begin + offsets[place / 2];
            const Vector<Real> a = batch::load(p);
            const Vector<Real> b = batch::load(p + kLanes<Real>);
            return place % 2 == 0 ? separated<Real, false>(a, b) : separated<Real, true>(a, b);
        }
    };
    struct Destination {
        Real* begin;
        const std::ptrdiff_t* offsets;
        [[gnu::always_inline]] void store(int element, Vector<Real> re, Vector<Real> im) const {
            Real* const p = begin + offsets[element];
            batch::store(p, interleaved<Real, false>(re, im));
            batch::store(p + kLanes<Real>, interleaved<Real, true>(re, im));
        }
    };
};

/** What a body multiplies its results by. */
template <class Real>
struct Factor {
    Real value;

    [[gnu::always_inline]] friend Vector<Real> operator*(Vector<Real> v, Factor factor) {
        return v * factor.value;
    }
    /** In binary64, beside binary32. */
    [[gnu::always_inline]] friend Doubles operator*(Doubles v,
                                                    Factor factor) requires(sizeof(Real) ==
                                                                            sizeof(float)) {
        return v * double{factor.value};
    }
};

/** Where that is 1, it multiplies by nothing. */
struct NoFactor {
    template <class V>
    [[gnu::always_inline]] friend V operator*(V v, NoFactor) {
        return v;
    }
};

/** Body::run(x, y, factor) for each group. It is a function of its own: inside the loop, compilers
 * would take its hundreds of constants out of that, and on the stack. */
template <class Body, class Elements, class Real, class FactorOrNone>
[[gnu::always_inline]] inline void run_groups(const Groups<Real>& groups,
                                              const FactorOrNone& factor) {
    typename Elements::Source x{groups.source, groups.from};
    typename Elements::Destination y{groups.destination, groups.to};
    for (std::ptrdiff_t left = groups.count;;) {
        Body::run(x, y, factor);
        if (--left <= 0) return;
        x.begin += groups.source_step;
        y.begin += groups.destination_step;
    }
}

}  // namespace batch
