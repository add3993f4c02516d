#include "support/real_reference.hpp"

#include "support/reference_dft.hpp"

namespace qsvgen_test {
namespace {

// A bin between the first and the middle one stands for its conjugate as well.
int bins_behind(const Slot& slot, int length) {
    return slot.bin == 0 || 2 * slot.bin == length ? 1 : 2;
}

std::vector<Wide> roots_of_unity(int length) {
    std::vector<Wide> roots;
    for (int j = 0; j < length; ++j) roots.push_back(root_of_unity(j, length));
    return roots;
}

}  // namespace

RealReference::RealReference(Direction direction, Layout layout, int length) {
    const auto roots = roots_of_unity(length);
    const auto root = [&](std::size_t sample, int bin) {
        return roots[sample * static_cast<std::size_t>(bin) % roots.size()];
    };
    const auto of_slot = [&](const Slot& slot, std::size_t sample) -> long double {
        if (slot.part == Part::Zero) return 0;
        if (slot.part == Part::Real) return root(sample, slot.bin).re;
        return -root(sample, slot.bin).im;
    };
    const auto slots = slots_of(layout, length);
    const auto signal = static_cast<std::size_t>(length);
    rows_.resize(direction == Direction::Forward ? slots.size() : signal);
    for (std::size_t output = 0; output < rows_.size(); ++output) {
        auto& row = rows_[output];
        if (direction == Direction::Forward) {
            for (std::size_t n = 0; n < signal; ++n) row.push_back(of_slot(slots[output], n));
        } else if (direction == Direction::Inverse) {
            for (const auto& slot : slots) {
                row.push_back(bins_behind(slot, length) * of_slot(slot, output));
            }
        } else {
            for (std::size_t n = 0; n < signal; ++n) {
                const Wide value = root(n, static_cast<int>(output));
                row.push_back(value.re + value.im);
            }
        }
    }
}

}  // namespace qsvgen_test
