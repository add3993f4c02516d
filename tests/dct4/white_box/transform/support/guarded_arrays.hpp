#pragma once

/** @file @brief Runs on arrays that touch pages which may not be. */

#include "support/dct4.hpp"
#include "support/fault.hpp"
#include "support/guarded_page.hpp"

namespace qsvgen_test {

enum class Stand { AtBegin, AtEnd };

inline Real* array_at(const GuardedPage& pages, Stand stand, std::size_t size) {
    return reinterpret_cast<Real*>(stand == Stand::AtBegin ? pages.begin()
                                                           : pages.end() - size * sizeof(Real));
}

/** Runs on arrays of `size` elements that touch pages which may not be. */
inline void expect_no_fault(std::int32_t length, std::size_t size) {
    FaultCatcher catcher;
    const GuardedPage source(size * sizeof(Real));
    const GuardedPage destination(size * sizeof(Real));
    const Signal x = random_signal<E>(size, 4);
    for (Stand from : {Stand::AtBegin, Stand::AtEnd}) {
        for (Stand to : {Stand::AtBegin, Stand::AtEnd}) {
            Real* const src = array_at(source, from, size);
            Real* const dst = array_at(destination, to, size);
            std::memcpy(static_cast<void*>(src), x.data(), size * sizeof(Real));
            Plan* const plan = plan_of(plan_for(length));
            EXPECT_FALSE(catcher.faults([&] {
                EXPORTED(DCT4)
                (src, dst, plan);
            })) << "length "
                << length << ", source at its " << (from == Stand::AtBegin ? "begin" : "end")
                << ", destination at its " << (to == Stand::AtBegin ? "begin" : "end");
        }
    }
}

}  // namespace qsvgen_test
