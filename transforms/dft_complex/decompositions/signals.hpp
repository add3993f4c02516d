#pragma once

#include <cstddef>

#include "transforms/dft_complex/decompositions/network.hpp"

namespace dft_complex {

/** The signal n -> value(n), n = 0 to length - 1. */
template <class Function>
Signal signal(int length, const Function& value) {
    Signal x;
    for (int n = 0; n < length; ++n) x.push_back(value(n));
    return x;
}

/** Index of a signal or of a family of signals. */
inline std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

}  // namespace dft_complex
