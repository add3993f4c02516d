#pragma once

/** @file @brief What a fuzzer's target stops at. */

#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzz {

inline void expect(bool condition, const std::string& what) {
    if (condition) return;
    std::fprintf(stderr, "not so: %s\n", what.c_str());
    std::abort();
}

}  // namespace fuzz
