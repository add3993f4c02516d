#pragma once

/**
 * @file
 * @brief An array in a block of its own that ends with it, so that a sanitizer sees each step
 * beyond.
 */

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace fuzz {

class ExactArray {
  public:
    /** `bytes` bytes, `offset` bytes behind a 16-byte boundary. */
    ExactArray(std::size_t bytes, std::size_t offset)
        : bytes_(bytes), block_(allocated(bytes + offset)), begin_(block_ + offset) {
        std::memset(block_, 0x5A, bytes + offset);
    }
    ~ExactArray() { std::free(block_); }
    ExactArray(const ExactArray&) = delete;
    ExactArray& operator=(const ExactArray&) = delete;

    template <class Element>
    Element* as() const {
        return reinterpret_cast<Element*>(begin_);
    }
    std::uint8_t* data() const { return begin_; }
    std::size_t size() const { return bytes_; }
    std::vector<std::uint8_t> copy() const { return {begin_, begin_ + bytes_}; }
    bool holds(const std::vector<std::uint8_t>& bytes) const {
        return std::memcmp(begin_, bytes.data(), bytes.size()) == 0;
    }

  private:
    static std::uint8_t* allocated(std::size_t bytes) {
        void* block = nullptr;
        if (posix_memalign(&block, 16, bytes) != 0) std::abort();
        return static_cast<std::uint8_t*>(block);
    }

    std::size_t bytes_;
    std::uint8_t* block_;
    std::uint8_t* begin_;
};

}  // namespace fuzz
