#pragma once

/** @file @brief Memory in a chosen half of the address space, before a page that is forbidden. */

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>

namespace qsvgen_test {

enum class Half { Lower, Upper };

class FencedMemory {
  public:
    static constexpr std::uint8_t kUnwritten = 0xA5;

    FencedMemory(Half half, std::size_t bytes) {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        size_ = (bytes + page - 1) / page * page;
        for (std::uintptr_t hint = first_hint(half); !there() && hint_is_in(half, hint);
             hint += 0x04000000) {
            void* const mapping = mmap(reinterpret_cast<void*>(hint), size_ + page,
                                       PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
            if (mapping == MAP_FAILED) continue;
            mapping_ = static_cast<std::uint8_t*>(mapping);
            mapped_ = size_ + page;
            if (!is_in(half)) unmap();
        }
        if (!there()) return;
        std::memset(mapping_, kUnwritten, size_);
        mprotect(end(), page, PROT_NONE);
    }
    ~FencedMemory() { unmap(); }
    FencedMemory(const FencedMemory&) = delete;
    FencedMemory& operator=(const FencedMemory&) = delete;

    /** Whether the system gave memory in that half; it need not. */
    bool there() const { return mapping_ != nullptr; }
    std::uint8_t* begin() const { return mapping_; }
    /** Where the forbidden page begins. */
    std::uint8_t* end() const { return mapping_ + size_; }

  private:
    static std::uintptr_t first_hint(Half half) {
        return half == Half::Lower ? 0x10000000U : 0xA0000000U;
    }
    static bool hint_is_in(Half half, std::uintptr_t hint) {
        return half == Half::Lower ? hint < 0x70000000U : hint >= 0x80000000U && hint < 0xF0000000U;
    }
    bool is_in(Half half) const {
        const bool upper = reinterpret_cast<std::uintptr_t>(mapping_) >> 31 != 0;
        return upper == (half == Half::Upper);
    }
    void unmap() {
        if (there()) munmap(mapping_, mapped_);
        mapping_ = nullptr;
    }

    std::uint8_t* mapping_ = nullptr;
    std::size_t size_ = 0;
    std::size_t mapped_ = 0;
};

}  // namespace qsvgen_test
