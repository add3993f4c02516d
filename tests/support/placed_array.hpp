#pragma once

/**
 * @file
 * @brief An array at a chosen distance from a 16-byte boundary, with watched bytes around it.
 */

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace qsvgen_test {

template <class Element>
class PlacedArray {
  public:
    /** `offset` is what the address leaves modulo 16; odd ones are as good as any. */
    PlacedArray(std::size_t length, std::size_t offset, std::byte fill = std::byte{0xA5})
        : length_(length),
          bytes_(length * sizeof(Element) + 2 * kMargin + 2 * kBoundary, fill),
          fill_(fill) {
        const auto start = reinterpret_cast<std::uintptr_t>(bytes_.data()) + kMargin;
        begin_ = kMargin + (kBoundary - start % kBoundary) % kBoundary + offset;
    }

    Element* data() { return reinterpret_cast<Element*>(bytes_.data() + begin_); }

    // Copies go byte by byte: the elements of a misplaced array are no C++ objects.
    void set(const std::vector<Element>& values) {
        std::memcpy(bytes_.data() + begin_, values.data(), values.size() * sizeof(Element));
    }
    std::vector<Element> get() const {
        std::vector<Element> values(length_);
        std::memcpy(values.data(), bytes_.data() + begin_, length_ * sizeof(Element));
        return values;
    }

    /** The array's first `count` elements. */
    std::vector<Element> get(std::size_t count) const {
        auto values = get();
        values.resize(count);
        return values;
    }

    bool holds(const std::vector<Element>& values) const {
        return std::memcmp(bytes_.data() + begin_, values.data(), length_ * sizeof(Element)) == 0;
    }

    bool margins_untouched() const { return untouched_around(length_); }
    /** Whether nothing but the first `count` elements was written to. */
    bool untouched_around(std::size_t count) const {
        const auto is_fill = [this](std::byte b) { return b == fill_; };
        const auto begin = bytes_.begin() + static_cast<std::ptrdiff_t>(begin_);
        const auto end = begin + static_cast<std::ptrdiff_t>(count * sizeof(Element));
        return std::all_of(bytes_.begin(), begin, is_fill) &&
               std::all_of(end, bytes_.end(), is_fill);
    }
    bool untouched() const {
        return std::all_of(bytes_.begin(), bytes_.end(),
                           [this](std::byte b) { return b == fill_; });
    }

  private:
    static constexpr std::size_t kBoundary = 16;
    static constexpr std::size_t kMargin = 64;

    std::size_t length_;
    std::vector<std::byte> bytes_;
    std::byte fill_;
    std::size_t begin_ = 0;
};

}  // namespace qsvgen_test
