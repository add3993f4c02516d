#pragma once

/** @file @brief A hash of bytes: the 64-bit FNV-1a of Fowler, Noll and Vo. */

#include <cstddef>
#include <cstdint>

namespace same_bits {

class Fnv {
  public:
    void add(const void* bytes, std::size_t count) {
        const auto* byte = static_cast<const unsigned char*>(bytes);
        for (std::size_t i = 0; i < count; ++i) hash_ = (hash_ ^ byte[i]) * 1099511628211u;
    }
    std::uint64_t value() const { return hash_; }

  private:
    std::uint64_t hash_ = 14695981039346656037u;
};

}  // namespace same_bits
