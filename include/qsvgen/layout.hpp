#pragma once

/**
 * @file
 * @brief Layouts of the spectra of real signals, as tags.
 */

#include <concepts>
#include <cstddef>

namespace qsvgen {

/**
 * @addtogroup cpp
 * @{
 */

/** R0 0 R1 I1 R2 I2 ..., for even lengths R[N/2] 0 at the end: the parts of each bin in a pair. */
struct Ccs {
    /** Elements of the spectrum of a signal of that length: two for each bin from 0 to length/2. */
    static constexpr std::size_t size(std::size_t length) { return length / 2 * 2 + 2; }
};

/** R0 R1 I1 R2 I2 ..., for even lengths R[N/2] at the end. */
struct Pack {
    /** Elements of the spectrum of a signal of that length. */
    static constexpr std::size_t size(std::size_t length) { return length; }
};

/** R0 R[N/2] R1 I1 R2 I2 ... for even lengths; for odd ones as Pack. */
struct Perm {
    /** Elements of the spectrum of a signal of that length. */
    static constexpr std::size_t size(std::size_t length) { return length; }
};

inline constexpr Ccs ccs{};    ///< the layout Ccs
inline constexpr Pack pack{};  ///< the layout Pack
inline constexpr Perm perm{};  ///< the layout Perm

/** One of the three layouts. */
template <class Layout>
concept spectrum_layout =
    std::same_as<Layout, Ccs> || std::same_as<Layout, Pack> || std::same_as<Layout, Perm>;

/** @} */

}  // namespace qsvgen
