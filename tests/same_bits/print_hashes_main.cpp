/**
 * @file
 * @brief Prints a line "name hash" for each exported transform:
 * print_hashes [--threads N] [--longest LENGTH]
 *
 * Of the DCT-IV a name for each power of two, no longer than told.
 * A hash is of the outputs of all data and all flags, of long DCT-IVs of fewer data. Aligned
 * arrays, unaligned ones and arrays in place must give the same bits, and so must every thread;
 * where they do not, the transform is named on standard error and the exit status is 1.
 */

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

#include "same_bits/dct4_hashes.hpp"
#include "same_bits/hash_of.hpp"
#include "support/kernel_table.hpp"
#include "support/walsh_hadamard.hpp"

namespace {

using namespace qsvgen_test;
using same_bits::hash_of;
using same_bits::Hashes;

template <class E>
void add_kernels(Hashes& hashes) {
    for (const auto& kernel : kernels<E>())
        hashes[kernel.name] =
            hash_of<E>(kernel.source_size(), kernel.destination_size(), kernel.run);
}

template <class E>
void add_orders(Hashes& hashes) {
    for (const auto& kernel : order_kernels<E>()) {
        WorkBuffer buffer(kernel.buffer_bytes);
        const auto run = [&](const auto* src, auto* dst, std::int32_t flag) {
            return kernel.run(src, dst, flag, buffer.data());
        };
        hashes[kernel.name] = hash_of<E>(kernel.size(), kernel.size(), run);
    }
}

Hashes all_hashes(std::int32_t longest) {
    Hashes hashes;
    add_kernels<Single>(hashes);
    add_kernels<Double>(hashes);
    add_kernels<RealSingle>(hashes);
    add_kernels<RealDouble>(hashes);
    add_orders<RealSingle>(hashes);
    add_orders<RealDouble>(hashes);
    same_bits::add_short_dct4(hashes, longest);
    return hashes;
}

std::vector<Hashes> hashes_by_thread(int count, std::int32_t longest) {
    std::vector<Hashes> hashes(static_cast<std::size_t>(count));
    std::vector<std::thread> threads;
    for (Hashes& own : hashes) threads.emplace_back([&own, longest] { own = all_hashes(longest); });
    for (std::thread& thread : threads) thread.join();
    // Once, since their plans fill the memory of a 32-bit program.
    Hashes long_ones;
    same_bits::add_long_dct4(long_ones, longest);
    for (Hashes& own : hashes) own.insert(long_ones.begin(), long_ones.end());
    return hashes;
}

int print(const std::vector<Hashes>& all) {
    int status = 0;
    for (const auto& [name, hash] : all.front()) {
        bool agrees = hash != 0;
        for (const Hashes& other : all) agrees = agrees && other.at(name) == hash;
        if (agrees) {
            std::printf("%s %016" PRIx64 "\n", name.c_str(), hash);
        } else {
            std::fprintf(stderr, "%s: calls of the same data disagree\n", name.c_str());
            status = 1;
        }
    }
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    int threads = 1;
    int longest = same_bits::kLongestDct4;
    bool understood = argc % 2 == 1;
    for (int i = 1; understood && i < argc; i += 2) {
        int* const option = std::strcmp(argv[i], "--threads") == 0   ? &threads
                            : std::strcmp(argv[i], "--longest") == 0 ? &longest
                                                                     : nullptr;
        if (option != nullptr) *option = std::atoi(argv[i + 1]);
        understood = option != nullptr && *option >= 1;
    }
    if (!understood) {
        std::fprintf(stderr, "usage: %s [--threads N] [--longest LENGTH]\n", argv[0]);
        return 2;
    }
    return print(hashes_by_thread(threads, longest));
}
