#pragma once

/** @file @brief Where single calls are faster than lanes: sizes that were measured, for each level.
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

#define QSVG_SINGLY(family, ...) inline constexpr Sizes family##_singly = {__VA_ARGS__};
#include QSVG_BATCH_SINGLY
#undef QSVG_SINGLY

}  // namespace batch
