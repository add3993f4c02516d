#pragma once

/** @file @brief All targets and the levels that have kernels of their own, each in a file of its
 * own. */

#include <stdexcept>
#include <string>

#include "targets/aarch64.hpp"
#include "targets/ia32.hpp"
#include "targets/x86_64.hpp"
#include "targets/x86_64_v3.hpp"
#include "targets/x86_64_v4.hpp"

namespace kernelgen {

inline constexpr Target kTargets[] = {kIa32, kX86_64, kX86_64_v3, kX86_64_v4, kAarch64};

/** The one whose kernels' results are the promise: those of all others have the same bits. */
inline constexpr const Target& kReference = kTargets[0];

/** Throws std::invalid_argument where there is none of that name. */
inline const Target& target_named(std::string_view name) {
    std::string names;
    for (const Target& target : kTargets) {
        if (target.name == name) return target;
        names += " " + std::string(target.name);
    }
    throw std::invalid_argument("there is no target " + std::string(name) + "; there are" + names);
}

}  // namespace kernelgen
