#include "support/guarded_page.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace qsvgen_test {

namespace {

std::size_t page_size() {
    return static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace

GuardedPage::GuardedPage(std::size_t bytes)
    : size_((bytes + page_size() - 1) / page_size() * page_size()) {
    void* mapping =
        mmap(nullptr, size_ + 2 * page_size(), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapping == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
    mapping_ = static_cast<std::byte*>(mapping);
    page_ = mapping_ + page_size();
    allow(Access::ReadWrite);
}

GuardedPage::~GuardedPage() {
    munmap(mapping_, size_ + 2 * page_size());
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
