#include <algorithm>
#include <cstdlib>

#include "run.hpp"

namespace python {
namespace {

/** Fewer transforms side by side than this do not make up for what a batch costs by itself. */
constexpr ptrdiff_t kEnough = 64;

bool is_one_in_memory(const Axis& outer, const Axis& inner) {
    return outer.source == inner.source * inner.extent &&
           outer.result == inner.result * inner.extent;
}

/** The axis of neighbours, if they are many; else the longest. */
const Axis* batch_axis(const Axis* begin, const Axis* end) {
    const auto nearest = std::min_element(begin, end, [](const Axis& a, const Axis& b) {
        return std::abs(a.result) < std::abs(b.result);
    });
    if (nearest != end && nearest->extent >= kEnough) return nearest;
    return std::max_element(begin, end,
                            [](const Axis& a, const Axis& b) { return a.extent < b.extent; });
}

}  // namespace

ptrdiff_t transforms_of(const Job& job) {
    ptrdiff_t transforms = 1;
    for (int i = 0; i < job.axis_count; ++i) transforms *= job.axes[i].extent;
    return transforms;
}

void arrange(Job& job) {
    Axis* const begin = job.axes.data();
    Axis* end = std::remove_if(begin, begin + job.axis_count,
                               [](const Axis& axis) { return axis.extent == 1; });
    std::stable_sort(begin, end, [](const Axis& a, const Axis& b) {
        return std::abs(a.result) > std::abs(b.result);
    });
    if (begin != end) {
        Axis* last = begin;
        for (Axis* axis = begin + 1; axis != end; ++axis) {
            if (is_one_in_memory(*last, *axis))
                *last = {last->extent * axis->extent, axis->source, axis->result};
            else
                *++last = *axis;
        }
        end = last + 1;
        const Axis* const chosen = batch_axis(begin, end);
        std::rotate(begin + (chosen - begin), begin + (chosen - begin) + 1, end);
    }
    job.axis_count = static_cast<int>(end - begin);
}

}  // namespace python
