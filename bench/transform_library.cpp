#include "transform_library.hpp"

#include <dlfcn.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace bench {

TransformLibrary::TransformLibrary(const std::string& path)
    // An absolute path: the loader takes a bare name for a soname, and every build has the same.
    // Local scope: the names of one build must never bind to those of another.
    : path_(std::filesystem::absolute(path).string()),
      handle_(dlopen(path_.c_str(), RTLD_NOW | RTLD_LOCAL)),
      base_(nullptr) {
    if (handle_ == nullptr) throw std::runtime_error(dlerror());
    Dl_info info = {};
    dladdr(Address("qsvgenGetLibVersion"), &info);
    base_ = info.dli_fbase;
}

void* TransformLibrary::Address(const std::string& name) const {
    void* const address = dlsym(handle_, name.c_str());
    if (address == nullptr) throw std::runtime_error("'" + path_ + "' does not export " + name);
    return address;
}

std::string TransformLibrary::Compiler() const {
    std::ifstream file(path_, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)),
                            std::istreambuf_iterator<char>());
    // The C run-time's start files bring GCC's note into every library, so Clang's goes first.
    for (const std::string note : {"clang version ", "GCC: ("}) {
        const size_t found = bytes.find(note);
        if (found == std::string::npos) continue;
        const size_t begin = bytes.rfind('\0', found) + 1;
        return bytes.substr(begin, bytes.find('\0', found) - begin);
    }
    return "unknown";
}

}  // namespace bench
