#include "kernelgen/values/fnv.hpp"

#include <cstdio>

namespace kernelgen {

std::uint64_t fnv_1a(std::string_view bytes) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    return hash;
}

std::string hexadecimal(std::uint64_t hash) {
    char digits[20];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

}  // namespace kernelgen
