#pragma once

/** @file @brief Any batch: any strides within arrays of exactly the bytes that they name. */

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "batch/support/batch_kernels.hpp"
#include "fuzz/bytes.hpp"
#include "fuzz/exact_array.hpp"
#include "fuzz/expect.hpp"
#include "support/bits.hpp"

namespace fuzz {

/** Places of elements, in elements from the array's first one. */
struct Places {
    std::ptrdiff_t stride;
    std::ptrdiff_t distance;
    std::ptrdiff_t first;     ///< element 0 of transform 0
    std::ptrdiff_t elements;  ///< of the array

    /** Elements of one transform, or of `count` of them, step by `fine` within, and the other way
     * by at least what that takes: so none is named twice. */
    static Places apart(Bytes& bytes, int elements, std::int32_t count) {
        const bool has_rows = bytes.one_in(2);
        const auto fine = static_cast<std::ptrdiff_t>(1 + (bytes.one_in(2) ? 0 : bytes.choice(3)));
        const std::ptrdiff_t inner = has_rows ? elements : std::max(count, 1);
        const auto coarse = (inner - 1) * fine + 1 +
                            static_cast<std::ptrdiff_t>(bytes.one_in(2) ? 0 : bytes.choice(4));
        return spanned(bytes, has_rows ? fine : coarse, has_rows ? coarse : fine, elements, count);
    }

    /** Any strides at all, with overlaps. */
    static Places any(Bytes& bytes, int elements, std::int32_t count) {
        return spanned(bytes, static_cast<std::ptrdiff_t>(bytes.choice(70)),
                       static_cast<std::ptrdiff_t>(bytes.choice(70)), elements, count);
    }

    std::ptrdiff_t of(std::ptrdiff_t element, std::ptrdiff_t transform) const {
        return first + element * stride + transform * distance;
    }

  private:
    static Places spanned(Bytes& bytes, std::ptrdiff_t stride, std::ptrdiff_t distance,
                          int elements, std::int32_t count) {
        if (bytes.one_in(4)) stride = -stride;
        if (bytes.one_in(4)) distance = -distance;
        const std::ptrdiff_t last[] = {(elements - 1) * stride,
                                       (std::max<std::ptrdiff_t>(count, 1) - 1) * distance};
        std::ptrdiff_t lowest = 0;
        std::ptrdiff_t highest = 0;
        for (const std::ptrdiff_t end : last) {
            lowest += std::min<std::ptrdiff_t>(0, end);
            highest += std::max<std::ptrdiff_t>(0, end);
        }
        return {stride, distance, -lowest, highest - lowest + 1};
    }
};

/** A batch that is done, whose results are those of single calls. */
template <class Real>
void call_batch(Bytes& bytes) {
    using namespace qsvgen_test;
    const auto& all = batch_kernels<Real>();
    const auto& kernel = all[bytes.choice(all.size())];
    const auto count =
        static_cast<std::int32_t>(bytes.choice(kernel.source_elements > 512 ? 3 : 40));
    const std::int32_t flag = 1 << bytes.choice(4);
    const bool in_place = bytes.one_in(3);
    const int longer = std::max(kernel.source_elements, kernel.destination_elements);
    Places to = Places::apart(bytes, in_place ? longer : kernel.destination_elements, count);
    Places from = in_place          ? to
                  : bytes.one_in(2) ? Places::any(bytes, kernel.source_elements, count)
                                    : Places::apart(bytes, kernel.source_elements, count);
    const std::size_t element_bytes = static_cast<std::size_t>(kernel.parts) * sizeof(Real);
    const auto bytes_of = [&](const Places& places) {
        return static_cast<std::size_t>(places.elements) * element_bytes;
    };
    constexpr std::size_t kAlignment = kElementAlignment<Real>;
    const ExactArray source(bytes_of(from), kAlignment * bytes.choice(16 / kAlignment));
    const ExactArray other(in_place ? 1 : bytes_of(to), kAlignment * bytes.choice(16 / kAlignment));
    const ExactArray& destination = in_place ? source : other;
    bytes.fill(source.data(), source.size());

    const auto at = [&](std::uint8_t* array, const Places& places, std::ptrdiff_t j,
                        std::ptrdiff_t k) {
        return array + static_cast<std::size_t>(places.of(j, k)) * element_bytes;
    };
    std::vector<std::uint8_t> before = source.copy();
    std::vector<std::uint8_t> expected = destination.copy();
    std::vector<Real> x(static_cast<std::size_t>(kernel.source_elements * kernel.parts));
    std::vector<Real> y(static_cast<std::size_t>(kernel.destination_elements * kernel.parts));
    for (std::int32_t k = 0; k < count; ++k) {
        for (int j = 0; j < kernel.source_elements; ++j)
            std::memcpy(&x[static_cast<std::size_t>(j * kernel.parts)],
                        at(before.data(), from, j, k), element_bytes);
        kernel.single(x.data(), y.data(), flag);
        for (int j = 0; j < kernel.destination_elements; ++j)
            std::memcpy(at(expected.data(), to, j, k),
                        &y[static_cast<std::size_t>(j * kernel.parts)], element_bytes);
    }
    const std::string what = kernel.description() + ", " + std::to_string(count) + " times";
    // The distance of a single transform is of no matter.
    const bool is_single = count <= 1;
    const std::ptrdiff_t anything = static_cast<std::ptrdiff_t>(bytes.next<std::uint64_t>());
    expect(
        kernel.batch({reinterpret_cast<const Real*>(at(source.data(), from, 0, 0)), from.stride,
                      is_single ? anything : from.distance,
                      reinterpret_cast<Real*>(at(destination.data(), to, 0, 0)), to.stride,
                      is_single ? anything : to.distance, kernel.size, count, flag}) == qsvStatusOk,
        what + " is done");
    // Which NaN a NaN is, is left open, so those are taken for the same.
    const std::vector<std::uint8_t> got = destination.copy();
    for (std::size_t i = 0; i + sizeof(Real) <= got.size(); i += sizeof(Real)) {
        Real a;
        Real b;
        std::memcpy(&a, &expected[i], sizeof a);
        std::memcpy(&b, &got[i], sizeof b);
        expect((a != a && b != b) || qsvgen_test::same_number_bits(a, b),
               what + " has the bits of single calls");
    }
    expect(in_place || source.holds(before), what + " leaves its source as it is");
}

/** A batch that is refused, and touches nothing: its arrays are one byte each. */
template <class Real>
void refuse_batch(Bytes& bytes) {
    using namespace qsvgen_test;
    const auto& all = batch_kernels<Real>();
    const auto& kernel = all[bytes.choice(all.size())];
    const ExactArray array(1, 0);
    BatchCall<Real> call = {reinterpret_cast<const Real*>(array.data()),
                            static_cast<std::ptrdiff_t>(bytes.next<std::uint64_t>()),
                            static_cast<std::ptrdiff_t>(bytes.next<std::uint64_t>()),
                            reinterpret_cast<Real*>(array.data()),
                            static_cast<std::ptrdiff_t>(bytes.next<std::uint64_t>()),
                            static_cast<std::ptrdiff_t>(bytes.next<std::uint64_t>()),
                            bytes.one_in(2) ? bytes.next<std::int32_t>() : kernel.size,
                            bytes.next<std::int32_t>(),
                            bytes.next<std::int32_t>()};
    if (bytes.one_in(4)) call.source = nullptr;
    if (bytes.one_in(4)) call.destination = nullptr;
    const bool is_flag = call.flag == 1 || call.flag == 2 || call.flag == 4 || call.flag == 8;
    QsvStatus wanted = qsvStatusOk;
    if (call.size < kernel.smallest || call.size > kernel.largest || call.count < 0)
        wanted = qsvStatusBadLength;
    else if (call.source == nullptr || call.destination == nullptr)
        wanted = qsvStatusNullPointer;
    else if (!is_flag)
        wanted = qsvStatusBadFlag;
    // There is no array for what would be done.
    if (wanted == qsvStatusOk) call.count = 0;
    expect(kernel.batch(call) == wanted, kernel.name + " gives " + std::to_string(wanted));
}

}  // namespace fuzz
