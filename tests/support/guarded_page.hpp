#pragma once

/** @file @brief A page of memory between two that may not be touched. */

#include <cstddef>

namespace qsvgen_test {

enum class Access { None, Read, ReadWrite };

class GuardedPage {
  public:
    GuardedPage();
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
