#pragma once

/** @file @brief Pages of memory between two that may not be touched. */

#include <cstddef>

namespace qsvgen_test {

enum class Access { None, Read, ReadWrite };

class GuardedPage {
  public:
    /** As many pages as `bytes` take, one if not said. */
    explicit GuardedPage(std::size_t bytes = 1);
    ~GuardedPage();
    GuardedPage(const GuardedPage&) = delete;
    GuardedPage& operator=(const GuardedPage&) = delete;

    std::byte* begin() const { return page_; }
    std::byte* end() const { return page_ + size_; }
    std::size_t size() const { return size_; }

    void allow(Access access);

  private:
    std::size_t size_;
    std::byte* mapping_;
    std::byte* page_;
};

}  // namespace qsvgen_test
