#pragma once

/** @file @brief The bytes of a fuzzer's input, taken one decision after the other. */

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace fuzz {

class Bytes {
  public:
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

    /** The next value; zeros where there is nothing left. */
    template <class Value>
    Value next() {
        Value value{};
        const std::size_t count = left_ < sizeof value ? left_ : sizeof value;
        std::memcpy(&value, data_, count);
        data_ += count;
        left_ -= count;
        return value;
    }

    /** One of 0 to `count` - 1. */
    std::size_t choice(std::size_t count) { return next<std::uint16_t>() % count; }
    bool one_in(std::size_t count) { return choice(count) == 0; }

    /** Fills memory with what is left, again and again. */
    void fill(void* memory, std::size_t count) {
        auto* byte = static_cast<std::uint8_t*>(memory);
        for (std::size_t i = 0; i < count; ++i) byte[i] = left_ == 0 ? 0 : data_[i % left_];
    }

  private:
    const std::uint8_t* data_;
    std::size_t left_;
};

}  // namespace fuzz
