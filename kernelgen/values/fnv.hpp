#pragma once

/** @file @brief The 64-bit FNV-1a of Fowler, Noll and Vo. */

#include <cstdint>
#include <string>
#include <string_view>

namespace kernelgen {

std::uint64_t fnv_1a(std::string_view bytes);

/** Sixteen digits. */
std::string hexadecimal(std::uint64_t hash);

}  // namespace kernelgen
