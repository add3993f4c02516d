#pragma once

/** @file @brief Where single kernels are faster than lanes: sizes that were measured, for each
 * level.
 */

#include <cstdint>
#include <initializer_list>

namespace batch {

/** A bit for each size up to 64. */
class Sizes {
  public:
    constexpr Sizes(std::initializer_list<int> sizes) {
        for (const int size : sizes) bits_ |= bit(size);
    }
    constexpr bool contain(int size) const { return (bits_ & bit(size)) != 0; }

  private:
    static constexpr std::uint64_t bit(int size) { return std::uint64_t{1} << (size - 1); }

    std::uint64_t bits_ = 0;
};

/** Sizes at which single kernels are the fastest one at a time, two in vectors of two pieces, four
 * in vectors of four. */
struct SingleKernels {
    Sizes one;
    Sizes two;
    Sizes four;

    /** How many at a time; 0 where lanes are faster. */
    constexpr int at_a_time(int size) const {
        if (four.contain(size)) return 4;
        if (two.contain(size)) return 2;
        return one.contain(size) ? 1 : 0;
    }
};

#define QSVG_SIZES(...) \
    { __VA_ARGS__ }
#define QSVG_SINGLE_KERNELS(family, ...) \
    inline constexpr SingleKernels family##_singly = {__VA_ARGS__};
#include QSVG_BATCH_SINGLY
#undef QSVG_SINGLE_KERNELS
#undef QSVG_SIZES

}  // namespace batch
