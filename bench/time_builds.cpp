/**
 * @file
 * @brief Times one exported kernel of several shared objects: time_builds [--buffer] KERNEL FILE...
 *
 * The kernel takes a source, a destination and a flag, with --buffer a work buffer as well. Prints
 * a line a file, in the order given: TSC cycles of a call, the fastest of many batches that take
 * turns.
 */

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>
#include <random>
#include <stdexcept>
#include <vector>

#include "batch_clock.hpp"
#include "qsvgen.h"

namespace bench {
namespace {

constexpr int kRounds = 4000;
// What the longest Walsh-Hadamard kernel takes; its work buffer holds a block more.
constexpr std::size_t kArrayBytes = 8192 * sizeof(Real64);
constexpr std::size_t kBufferBytes = 2 * kArrayBytes;

using Kernel = QsvStatus(const void* src, void* dst, int32_t flag);
using BufferedKernel = QsvStatus(const void* src, void* dst, int32_t flag, uint8_t* buffer);

struct Build {
    void* kernel;
    double cycles;
};

// A file need not be a whole library. It stays open until the process ends.
void* Open(const char* file, const char* name) {
    void* handle = dlopen(file, RTLD_NOW | RTLD_LOCAL);
    void* kernel = handle == nullptr ? nullptr : dlsym(handle, name);
    if (kernel == nullptr) throw std::runtime_error(dlerror());
    return kernel;
}

void Run(const char* name, bool has_buffer, const std::vector<const char*>& files) {
    std::vector<Build> builds;
    for (const char* file : files) builds.push_back({Open(file, name), 1e300});
    // Zeros would do for the time as well, but not for a kernel that meets denormals.
    alignas(64) static unsigned char source[kArrayBytes];
    alignas(64) static unsigned char destination[kArrayBytes];
    std::mt19937 random(1);
    for (std::size_t i = 0; i < kArrayBytes / sizeof(float); ++i)
        reinterpret_cast<float*>(source)[i] = static_cast<float>(random()) * 0x1p-32F + 1;
    alignas(64) static unsigned char buffer[kBufferBytes];
    const auto call_once = [&](const Build& build) {
        if (has_buffer)
            reinterpret_cast<BufferedKernel*>(build.kernel)(source, destination, qsvScaleNone,
                                                            buffer);
        else
            reinterpret_cast<Kernel*>(build.kernel)(source, destination, qsvScaleNone);
    };
    const int calls = CallsPerBatch([&] { call_once(builds.front()); });
    for (int round = 0; round < kRounds; ++round) {
        for (std::size_t i = 0; i < builds.size(); ++i) {
            Build& build = builds[(i + static_cast<std::size_t>(round)) % builds.size()];
            const auto call = [&] { call_once(build); };
            call();
            build.cycles =
                std::min(build.cycles, static_cast<double>(TimeBatch(calls, call)) / calls);
        }
    }
    for (const Build& build : builds) std::printf("%.1f\n", build.cycles);
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    const bool has_buffer = argc > 1 && std::strcmp(argv[1], "--buffer") == 0;
    char** const words = argv + (has_buffer ? 2 : 1);
    if (argv + argc - words < 2) {
        std::fprintf(stderr, "usage: %s [--buffer] KERNEL FILE...\n", argv[0]);
        return 2;
    }
    try {
        bench::Run(words[0], has_buffer, {words + 1, argv + argc});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}
