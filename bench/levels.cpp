#include "levels.hpp"

#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace bench {
namespace {

struct Level {
    std::string name;
    std::string library;
};

/** As they were built, from the lowest to the highest. */
std::vector<Level> Levels() {
    // Names and files in turn: braces in a definition would be a matter of the shell's.
    const char* const texts[] = {LEVEL_LIBRARIES};
    std::vector<Level> levels;
    for (size_t i = 0; i + 1 < std::size(texts); i += 2) levels.push_back({texts[i], texts[i + 1]});
    return levels;
}

bool ProcessorHas(const std::string& level) {
#ifndef __aarch64__
    __builtin_cpu_init();
    const bool has_v3 = __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("bmi") != 0 &&
                        __builtin_cpu_supports("bmi2") != 0 && __builtin_cpu_supports("fma") != 0;
    if (level == "x86-64-v3") return has_v3;
    if (level == "x86-64-v4") {
        return has_v3 && __builtin_cpu_supports("avx512f") != 0 &&
               __builtin_cpu_supports("avx512bw") != 0 && __builtin_cpu_supports("avx512cd") != 0 &&
               __builtin_cpu_supports("avx512dq") != 0 && __builtin_cpu_supports("avx512vl") != 0;
    }
#endif
    return level == "baseline";
}

}  // namespace

std::string HighestLevel() {
    std::string highest;
    for (const Level& level : Levels()) {
        if (ProcessorHas(level.name)) highest = level.name;
    }
    return highest;
}

std::string LibraryOfLevel(const std::string& level) {
    for (const Level& built : Levels()) {
        if (level != built.name) continue;
        if (!ProcessorHas(level))
            throw std::runtime_error("this processor does not have the level " + level);
        return built.library;
    }
    throw std::invalid_argument("unknown level '" + level + "'");
}

}  // namespace bench
