#pragma once

/** @file @brief Batches somewhere in memory, and what single calls make of them. */

#include <gtest/gtest.h>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "batch/support/batch_kernels.hpp"
#include "support/bits.hpp"
#include "support/control_state.hpp"

namespace qsvgen_test {

inline constexpr std::int32_t kBatchFlags[] = {qsvScaleFwdByN, qsvScaleInvByN, qsvScaleBySqrtN,
                                               qsvScaleNone};

/** How transforms follow one another: stride and distance of `count` transforms of so many
 * elements. */
struct Way {
    const char* name;
    std::ptrdiff_t (*stride)(std::ptrdiff_t elements, std::ptrdiff_t count);
    std::ptrdiff_t (*distance)(std::ptrdiff_t elements, std::ptrdiff_t count);
    bool overlaps = false;  ///< so that it is one of sources alone
};

inline const Way kContiguous = {"contiguous", [](auto, auto) -> std::ptrdiff_t { return 1; },
                                [](auto n, auto) -> std::ptrdiff_t { return n; }};
inline const Way kColumns = {"columns", [](auto, auto m) -> std::ptrdiff_t { return m; },
                             [](auto, auto) -> std::ptrdiff_t { return 1; }};
inline const Way kWays[] = {
    kContiguous,
    {"padded rows", [](auto, auto) -> std::ptrdiff_t { return 1; },
     [](auto n, auto) -> std::ptrdiff_t { return n + 3; }},
    kColumns,
    {"padded columns", [](auto, auto m) -> std::ptrdiff_t { return m + 5; },
     [](auto, auto) -> std::ptrdiff_t { return 1; }},
    {"strided rows", [](auto, auto) -> std::ptrdiff_t { return 3; },
     [](auto n, auto) -> std::ptrdiff_t { return 3 * n + 1; }},
    {"columns from the last to the first", [](auto, auto m) -> std::ptrdiff_t { return m; },
     [](auto, auto) -> std::ptrdiff_t { return -1; }},
    {"columns upside down", [](auto, auto m) -> std::ptrdiff_t { return -m; },
     [](auto, auto) -> std::ptrdiff_t { return 1; }},
    {"rows from the last to the first", [](auto, auto) -> std::ptrdiff_t { return 1; },
     [](auto n, auto) -> std::ptrdiff_t { return -n; }},
    {"rows backwards", [](auto, auto) -> std::ptrdiff_t { return -1; },
     [](auto n, auto) -> std::ptrdiff_t { return -n; }},
    {"frames of a sliding window", [](auto, auto) -> std::ptrdiff_t { return 1; },
     [](auto, auto) -> std::ptrdiff_t { return 1; }, true},
    {"frames that overlap by half", [](auto, auto) -> std::ptrdiff_t { return 1; },
     [](auto n, auto) -> std::ptrdiff_t { return (n + 1) / 2; }, true},
    {"the same samples again", [](auto, auto) -> std::ptrdiff_t { return 1; },
     [](auto, auto) -> std::ptrdiff_t { return 0; }, true},
    {"constant signals", [](auto, auto) -> std::ptrdiff_t { return 0; },
     [](auto, auto) -> std::ptrdiff_t { return 1; }, true},
};

/** An array of numbers in which a batch stands somewhere in the middle, at a chosen distance from a
 * boundary of 64 bytes. */
template <class Real>
class PlacedBatch {
  public:
    PlacedBatch(const Way& way, std::ptrdiff_t elements, std::ptrdiff_t count, int parts,
                const Real& fill, std::size_t offset_bytes = 0)
        : stride(way.stride(elements, count)),
          distance(way.distance(elements, count)),
          parts_(parts) {
        const std::ptrdiff_t last_element = (elements - 1) * stride;
        const std::ptrdiff_t last_transform = (std::max<std::ptrdiff_t>(count, 1) - 1) * distance;
        const std::ptrdiff_t lowest =
            std::min<std::ptrdiff_t>(0, last_element) + std::min<std::ptrdiff_t>(0, last_transform);
        const std::ptrdiff_t highest =
            std::max<std::ptrdiff_t>(0, last_element) + std::max<std::ptrdiff_t>(0, last_transform);
        numbers_ = (highest - lowest + 1) * parts + 2 * kMargin;
        first_ = kMargin - lowest * parts;
        memory_.resize(static_cast<std::size_t>(numbers_) * sizeof(Real) + 128);
        const auto begin = reinterpret_cast<std::uintptr_t>(memory_.data());
        offset_ = (64 - begin % 64) % 64 + offset_bytes;
        for (std::ptrdiff_t i = 0; i < numbers_; ++i) write(i, fill);
    }

    PlacedBatch(const PlacedBatch&) = delete;
    PlacedBatch& operator=(const PlacedBatch&) = delete;

    /** Element 0 of transform 0. */
    Real* data() { return reinterpret_cast<Real*>(memory_.data() + offset_) + first_; }

    void randomise(std::uint32_t seed) {
        std::mt19937 random(seed);
        for (std::ptrdiff_t i = 0; i < numbers_; ++i)
            write(i, static_cast<Real>(static_cast<int>(random() % 20001) - 10000) / 4096);
    }

    Real number(std::ptrdiff_t element, std::ptrdiff_t transform, int part) const {
        return read(place(element, transform, part));
    }
    void set_number(std::ptrdiff_t element, std::ptrdiff_t transform, int part, Real value) {
        write(place(element, transform, part), value);
    }
    std::vector<Real> transform(std::ptrdiff_t k, int elements) const {
        std::vector<Real> values;
        for (int j = 0; j < elements; ++j) {
            for (int part = 0; part < parts_; ++part) values.push_back(number(j, k, part));
        }
        return values;
    }
    void set_transform(std::ptrdiff_t k, const std::vector<Real>& values) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            const auto number = static_cast<std::ptrdiff_t>(i);
            set_number(number / parts_, k, static_cast<int>(number % parts_), values[i]);
        }
    }

    /** Whether all is the same, and what lies between and beside the transforms, too. */
    bool is_same_as(const PlacedBatch& other) const {
        return numbers_ == other.numbers_ &&
               std::memcmp(memory_.data() + offset_, other.memory_.data() + other.offset_,
                           static_cast<std::size_t>(numbers_) * sizeof(Real)) == 0;
    }

    const std::ptrdiff_t stride;
    const std::ptrdiff_t distance;

  private:
    static constexpr std::ptrdiff_t kMargin = 40;

    std::ptrdiff_t place(std::ptrdiff_t element, std::ptrdiff_t transform, int part) const {
        return first_ + (element * stride + transform * distance) * parts_ + part;
    }
    // Byte by byte: elements of a misplaced array are no C++ objects.
    Real read(std::ptrdiff_t i) const {
        Real value;
        std::memcpy(&value, memory_.data() + offset_ + static_cast<std::size_t>(i) * sizeof(Real),
                    sizeof value);
        return value;
    }
    // By reference: registers of the x87 unit quieten numbers that signal.
    void write(std::ptrdiff_t i, const Real& value) {
        std::memcpy(memory_.data() + offset_ + static_cast<std::size_t>(i) * sizeof(Real), &value,
                    sizeof value);
    }

    int parts_;
    std::ptrdiff_t numbers_ = 0;
    std::ptrdiff_t first_ = 0;
    std::size_t offset_ = 0;
    std::vector<std::byte> memory_;
};

/** Whether single calls raise flags by what is left in unused parts of registers: so Clang compiles
 * the scalar conversions of the baseline. */
inline bool unused_parts_raise_flags() {
#if defined(__clang__)
    return std::getenv("QSVGEN_TARGET_CODE") == nullptr;
#else
    return false;
#endif
}

/** What single calls make of `source`, in `destination`. */
template <class Real>
void transform_singly(const BatchKernel<Real>& kernel, const PlacedBatch<Real>& source,
                      PlacedBatch<Real>& destination, std::int32_t count, std::int32_t flag) {
    for (std::int32_t k = 0; k < count; ++k) {
        const std::vector<Real> x = source.transform(k, kernel.source_elements);
        std::vector<Real> y(static_cast<std::size_t>(kernel.destination_elements * kernel.parts));
        ASSERT_EQ(qsvStatusOk, kernel.single(x.data(), y.data(), flag)) << kernel.description();
        destination.set_transform(k, y);
    }
}

template <class Real>
QsvStatus transform_batch(const BatchKernel<Real>& kernel, PlacedBatch<Real>& source,
                          PlacedBatch<Real>& destination, std::int32_t count, std::int32_t flag) {
    return kernel.batch({source.data(), source.stride, source.distance, destination.data(),
                         destination.stride, destination.distance, kernel.size, count, flag});
}

/** The first transform whose bits differ, or that which lies between them; empty if none does. */
template <class Real>
std::string first_difference(const BatchKernel<Real>& kernel, const PlacedBatch<Real>& expected,
                             const PlacedBatch<Real>& got, std::int32_t count) {
    for (std::int32_t k = 0; k < count; ++k) {
        for (int j = 0; j < kernel.destination_elements; ++j) {
            for (int part = 0; part < kernel.parts; ++part) {
                const Real a = expected.number(j, k, part);
                const Real b = got.number(j, k, part);
                if (same_number_bits(a, b)) continue;
                char text[160];
                std::snprintf(text, sizeof text,
                              "transform %d, element %d, part %d: %a instead of %a", k, j, part,
                              static_cast<double>(b), static_cast<double>(a));
                return text;
            }
        }
    }
    return "something between or beside the results has changed";
}

}  // namespace qsvgen_test
