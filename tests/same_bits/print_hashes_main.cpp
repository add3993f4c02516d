/**
 * @file
 * @brief Prints a line "name hash" for each exported transform: print_hashes [--threads N]
 *
 * Of the DCT-IV a name for each length that needs no sines and cosines of the C library, whose bits
 * are not the library's to promise.
 * A hash is of the outputs of all data and all flags. Aligned arrays, unaligned ones and arrays in
 * place must give the same bits, and so must every thread; where they do not, the transform is
 * named on standard error and the exit status is 1.
 */

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "same_bits/fixed_data.hpp"
#include "same_bits/fnv.hpp"
#include "support/dct4_interface.hpp"
#include "support/kernel_table.hpp"
#include "support/placed_array.hpp"
#include "support/walsh_hadamard.hpp"

namespace {

using namespace qsvgen_test;

/** By name; a hash of 0 stands for calls that disagree. */
using Hashes = std::map<std::string, std::uint64_t>;

constexpr std::size_t kOffsets[] = {0, 4, 8, 12};

/** Calls `run(source, destination, flag)` for all data, flags and places; 0 where bits differ. */
template <class E, class Run>
std::uint64_t hash_of(std::size_t source_size, std::size_t destination_size, Run run) {
    using Element = typename E::Element;
    // NOLINTNEXTLINE(bugprone-sizeof-expression): a complex element has two parts.
    constexpr std::size_t kParts = sizeof(Element) / sizeof(typename E::Real);
    same_bits::Fnv hash;
    bool agree = true;
    same_bits::for_each_signal([&](same_bits::Data data, int number) {
        const auto parts = same_bits::parts<typename E::Real>(source_size * kParts, data, number);
        std::vector<Element> x(source_size);
        std::memcpy(x.data(), parts.data(), source_size * sizeof(Element));
        for (const std::int32_t flag : kFlags) {
            std::vector<Element> first;
            const auto check = [&](QsvStatus status, const std::vector<Element>& y) {
                if (first.empty()) first = y;
                agree = agree && status == qsvStatusOk &&
                        std::memcmp(y.data(), first.data(), y.size() * sizeof(Element)) == 0;
            };
            for (const std::size_t offset : kOffsets) {
                PlacedArray<Element> source(source_size, offset);
                PlacedArray<Element> destination(destination_size, offset);
                source.set(x);
                const QsvStatus status = run(source.data(), destination.data(), flag);
                check(status, destination.get());
                PlacedArray<Element> array(std::max(source_size, destination_size), offset);
                array.set(x);
                const QsvStatus status_in_place = run(array.data(), array.data(), flag);
                check(status_in_place, array.get(destination_size));
            }
            hash.add(first.data(), first.size() * sizeof(Element));
        }
    });
    return agree ? hash.value() : 0;
}

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

template <class E>
void add_dct4(Hashes& hashes) {
    using Functions = Dct4Interface<E>;
    for (const std::int32_t length : {2, 4, 8, 16, 32}) {
        alignas(16) std::uint8_t buffer[224];
        typename Functions::Plan* plan = nullptr;
        Functions::kInit(&plan, length, buffer);
        const auto size = static_cast<std::size_t>(length);
        const auto run = [&](const auto* src, auto* dst, std::int32_t) {
            return Functions::kRun(src, dst, plan);
        };
        hashes[std::string("qsvgDCT4_") + E::kSuffix + "_of_" + std::to_string(length)] =
            hash_of<E>(size, size, run);
    }
}

Hashes all_hashes() {
    Hashes hashes;
    add_kernels<Single>(hashes);
    add_kernels<Double>(hashes);
    add_kernels<RealSingle>(hashes);
    add_kernels<RealDouble>(hashes);
    add_orders<RealSingle>(hashes);
    add_orders<RealDouble>(hashes);
    add_dct4<RealSingle>(hashes);
    add_dct4<RealDouble>(hashes);
    return hashes;
}

std::vector<Hashes> hashes_by_thread(int count) {
    std::vector<Hashes> hashes(static_cast<std::size_t>(count));
    std::vector<std::thread> threads;
    for (Hashes& own : hashes) threads.emplace_back([&own] { own = all_hashes(); });
    for (std::thread& thread : threads) thread.join();
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
    if (argc == 3 && std::strcmp(argv[1], "--threads") == 0) threads = std::atoi(argv[2]);
    if ((argc != 1 && argc != 3) || threads < 1) {
        std::fprintf(stderr, "usage: %s [--threads N]\n", argv[0]);
        return 2;
    }
    return print(hashes_by_thread(threads));
}
