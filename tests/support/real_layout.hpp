#pragma once

/** @file @brief What the elements of a real signal's spectrum hold, layout by layout. */

#include <string>
#include <vector>

#include "support/kernel.hpp"

namespace qsvgen_test {

enum class Part { Real, Imaginary, Zero };

struct Slot {
    Part part;
    int bin;

    bool operator==(const Slot&) const = default;
};

/** "R3", "I3" or "0". */
inline std::string to_string(const Slot& slot) {
    if (slot.part == Part::Zero) return "0";
    return (slot.part == Part::Real ? "R" : "I") + std::to_string(slot.bin);
}

/** Bins with a real and an imaginary part: 1 to this. */
constexpr int last_complex_bin(int length) {
    return (length - 1) / 2;
}

/** One slot an element. */
inline std::vector<Slot> slots_of(Layout layout, int length) {
    const bool is_even = length % 2 == 0;
    const Slot zero = {Part::Zero, 0};
    const Slot middle = {Part::Real, length / 2};

    std::vector<Slot> slots = {{Part::Real, 0}};
    if (layout == Layout::Ccs) slots.push_back(zero);
    if (layout == Layout::Perm && is_even) slots.push_back(middle);
    for (int bin = 1; bin <= last_complex_bin(length); ++bin) {
        slots.push_back({Part::Real, bin});
        slots.push_back({Part::Imaginary, bin});
    }
    if (layout != Layout::Perm && is_even) slots.push_back(middle);
    if (layout == Layout::Ccs && is_even) slots.push_back(zero);
    return slots;
}

/** Index of the element that holds `slot`, which must be one of the layout. */
inline std::size_t element_of(const Slot& slot, Layout layout, int length) {
    const auto slots = slots_of(layout, length);
    std::size_t index = 0;
    while (!(slots.at(index) == slot)) ++index;
    return index;
}

/** The slots that hold a value, each once, in the order of their bins. */
inline std::vector<Slot> values_of(int length) {
    return slots_of(Layout::Pack, length);
}

/** A spectrum of one layout in another; zeros where the other has them. */
template <class Real>
std::vector<Real> rearranged(const std::vector<Real>& spectrum, Layout from, Layout to,
                             int length) {
    std::vector<Real> result(spectrum_size(to, length), Real{0});
    const auto sources = slots_of(from, length);
    const auto destinations = slots_of(to, length);
    for (std::size_t i = 0; i < result.size(); ++i) {
        for (std::size_t j = 0; j < sources.size(); ++j) {
            const bool is_value = sources[j].part != Part::Zero;
            if (is_value && sources[j] == destinations[i]) result[i] = spectrum.at(j);
        }
    }
    return result;
}

/** "element 3 (R2)" of what a kernel writes; of a natural signal the element alone. */
template <class E>
std::string name_output(const Kernel<E>& kernel, std::size_t index) {
    auto text = "element " + std::to_string(index);
    if (kernel.direction == Direction::Forward) {
        text += " (" + to_string(slots_of(kernel.layout, kernel.length).at(index)) + ")";
    }
    return text;
}

/** The same of what a kernel reads. */
template <class E>
std::string name_input(const Kernel<E>& kernel, std::size_t index) {
    auto text = "element " + std::to_string(index);
    if (kernel.direction == Direction::Inverse) {
        text += " (" + to_string(slots_of(kernel.layout, kernel.length).at(index)) + ")";
    }
    return text;
}

}  // namespace qsvgen_test
