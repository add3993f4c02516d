#include "transforms/dft_complex/tools/lane_search.hpp"

#include <functional>
#include <string>
#include <utility>

#include "kernelgen/graph/counts.hpp"
#include "kernelgen/values/value_hash.hpp"
#include "transforms/dft_complex/small_transforms/short_lengths.hpp"

namespace dft_complex {
namespace {

using kernelgen::Counts;
using kernelgen::Schedule;

constexpr Element kElement = Element::Complex32;

int cost(const Kernel& kernel, int bound) {
    const int arithmetic = kernelgen::count(kernel.graph, true).arithmetic();
    const int penalty = arithmetic > bound ? 1000 * (arithmetic - bound) : 0;
    return instructions(kernel, kernelgen::schedule(kernel.graph, kernel.target)) + penalty;
}

using Allowed = std::function<bool(const Kernel&)>;

/** With lanes that no allowed change of one batch improves. */
Kernel improved(Kernel best, int bound, const Allowed& is_allowed) {
    if (best.length <= kLongestShortLength) return best;
    int best_cost = cost(best, bound);
    const std::vector<int> sizes = batch_sizes(best.rule);
    for (bool better = true; better;) {
        better = false;
        for (std::size_t batch = 0; batch < sizes.size(); ++batch) {
            const BatchPlace place =
                batch == 0 || batch + 1 == sizes.size() ? BatchPlace::End : BatchPlace::Middle;
            for (const LaneChoice& choice :
                 choices_for(sizes[batch], place, lane_policy(best.length))) {
                std::vector<LaneChoice> choices = best.choices;
                if (choices[batch] == choice) continue;
                choices[batch] = choice;
                Kernel next =
                    draft_kernel(best.rule, Direction::Forward, kElement, choices, best.target);
                if (!is_allowed(next)) continue;
                const int next_cost = cost(next, bound);
                if (next_cost < best_cost) {
                    best_cost = next_cost;
                    best = std::move(next);
                    better = true;
                }
            }
        }
    }
    return best;
}

}  // namespace

int instructions(const Kernel& kernel, const Schedule& schedule) {
    const Counts c = kernelgen::count(kernel.graph, true);
    return c.arithmetic() + c.shuffles + c.flips + c.loads + c.stores + schedule.traffic.total();
}

Kernel with_tuned_lanes(const Rule& rule, int bound, const Target& target) {
    return improved(draft_kernel(rule, Direction::Forward, kElement, {}, target), bound,
                    [](const Kernel&) { return true; });
}

Kernel with_lanes_of_same_values(int length, const Target& target) {
    const TableRow& row = row_of(length, kElement);
    const Kernel published = described_kernel(length, Direction::Forward, kElement);
    const std::string values = kernelgen::hash_of_values(published.graph);
    return improved(draft_kernel(row.rule, Direction::Forward, kElement, published.choices, target),
                    row.arithmetic(), [&](const Kernel& next) {
                        return kernelgen::hash_of_values(next.graph) == values;
                    });
}

}  // namespace dft_complex
