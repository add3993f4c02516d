#include "support/guarded_page.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace qsvgen_test {

GuardedPage::GuardedPage() : size_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
    void* mapping = mmap(nullptr, 3 * size_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapping == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
    mapping_ = static_cast<std::byte*>(mapping);
    page_ = mapping_ + size_;
    allow(Access::ReadWrite);
}

GuardedPage::~GuardedPage() {
    munmap(mapping_, 3 * size_);
}

void GuardedPage::allow(Access access) {
    int protection = PROT_NONE;
    if (access == Access::Read) protection = PROT_READ;
    if (access == Access::ReadWrite) protection = PROT_READ | PROT_WRITE;
    if (mprotect(page_, size_, protection) != 0) {
        throw std::system_error(errno, std::generic_category(), "mprotect");
    }
}

}  // namespace qsvgen_test
