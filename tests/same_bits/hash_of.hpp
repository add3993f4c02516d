#pragma once

/** @file @brief A hash of the outputs of a transform in all ways that must give the same bits. */

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "same_bits/fixed_data.hpp"
#include "same_bits/fnv.hpp"
#include "support/kernel_table.hpp"
#include "support/placed_array.hpp"

namespace same_bits {

/** By name; a hash of 0 stands for calls that disagree. */
using Hashes = std::map<std::string, std::uint64_t>;

inline constexpr std::size_t kOffsets[] = {0, 4, 8, 12};

/** Calls `run(source, destination, flag)` for all data, flags and places; 0 where bits differ. */
template <class E, class Run>
std::uint64_t hash_of(std::size_t source_size, std::size_t destination_size, Run run) {
    using Element = typename E::Element;
    // NOLINTNEXTLINE(bugprone-sizeof-expression): a complex element has two parts.
    constexpr std::size_t kParts = sizeof(Element) / sizeof(typename E::Real);
    Fnv hash;
    bool agree = true;
    for_each_signal([&](Data data, int number) {
        const auto values = parts<typename E::Real>(source_size * kParts, data, number);
        std::vector<Element> x(source_size);
        std::memcpy(x.data(), values.data(), source_size * sizeof(Element));
        for (const std::int32_t flag : qsvgen_test::kFlags) {
            std::vector<Element> first;
            const auto check = [&](QsvStatus status, const std::vector<Element>& y) {
                if (first.empty()) first = y;
                agree = agree && status == qsvStatusOk &&
                        std::memcmp(y.data(), first.data(), y.size() * sizeof(Element)) == 0;
            };
            for (const std::size_t offset : kOffsets) {
                qsvgen_test::PlacedArray<Element> source(source_size, offset);
                qsvgen_test::PlacedArray<Element> destination(destination_size, offset);
                source.set(x);
                const QsvStatus status = run(source.data(), destination.data(), flag);
                check(status, destination.get());
                qsvgen_test::PlacedArray<Element> array(std::max(source_size, destination_size),
                                                        offset);
                array.set(x);
                const QsvStatus status_in_place = run(array.data(), array.data(), flag);
                check(status_in_place, array.get(destination_size));
            }
            hash.add(first.data(), first.size() * sizeof(Element));
        }
    });
    return agree ? hash.value() : 0;
}

}  // namespace same_bits
