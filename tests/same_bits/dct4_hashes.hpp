#pragma once

/**
 * @file
 * @brief Hashes of the DCT-IV, of each power of two.
 *
 * To 32 of all data in all places; to 2^12 of all data, in place and not; to 2^20 of two signals,
 * in place and not; beyond of one in place, so that the longest plans and their arrays find room in
 * a 32-bit program.
 */

#include "same_bits/hash_of.hpp"

namespace same_bits {

inline constexpr std::int32_t kLongestDct4 = 1 << 26;

/** Of lengths to 2^12, or `longest` if that is less. */
void add_short_dct4(Hashes& hashes, std::int32_t longest);

/** Of all other lengths to 2^26 (Real32) and 2^25 (Real64), or `longest` if that is less. Of the
 * longest, plan and array take 1.4 GB. */
void add_long_dct4(Hashes& hashes, std::int32_t longest);

}  // namespace same_bits
