/**
 * @file
 * @brief Searches lane choices and schedules: tune_dft_complex [LENGTH...] writes rows of
 * tuned_32fc.inc.
 *
 * The cost is the number of vector instructions that the kernel is expected to take. Choices are
 * improved one batch at a time until none gets better; the rule table's operation counts bind.
 */

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "dft_complex/kernels.hpp"
#include "dft_complex/short_lengths.hpp"
#include "kernelgen/counts.hpp"
#include "kernelgen/schedule.hpp"

namespace {

using namespace dft_complex;
using kernelgen::Counts;
using kernelgen::kX86Sse2;
using kernelgen::Schedule;

int instructions(const Kernel& kernel, const Schedule& schedule) {
    const Counts c = kernelgen::count(kernel.graph, true);
    const int over = c.arithmetic() - row_of(kernel.length, kernel.element).arithmetic();
    const int penalty = over > 0 ? 1000 * over : 0;
    return c.arithmetic() + c.shuffles + c.flips + c.loads + c.stores + schedule.traffic.total() +
           penalty;
}

void tune(int length) {
    Kernel best = draft_kernel(length, Direction::Forward, Element::Complex32, {});
    int cost = instructions(best, kernelgen::schedule(best.graph, kX86Sse2));
    const std::vector<int> sizes = batch_sizes(length);
    for (bool better = true; better;) {
        better = false;
        for (std::size_t batch = 0; batch < sizes.size(); ++batch) {
            const BatchPlace place =
                batch == 0 || batch + 1 == sizes.size() ? BatchPlace::End : BatchPlace::Middle;
            for (const LaneChoice& choice : choices_for(sizes[batch], place, lane_policy(length))) {
                std::vector<LaneChoice> choices = best.choices;
                if (choices[batch] == choice) continue;
                choices[batch] = choice;
                Kernel next = draft_kernel(length, Direction::Forward, Element::Complex32, choices);
                const int next_cost = instructions(next, kernelgen::schedule(next.graph, kX86Sse2));
                if (next_cost < cost) {
                    cost = next_cost;
                    best = std::move(next);
                    better = true;
                }
            }
        }
    }
    const Schedule schedule = kernelgen::search_schedule(best.graph, kX86Sse2, 24);
    std::string lanes;
    for (const LaneChoice& choice : best.choices)
        lanes += (lanes.empty() ? "" : " ") + choice.to_string();
    std::printf("{%d, \"%s\", \"%s\"},\n", length, lanes.c_str(), schedule.method.c_str());
    std::fflush(stdout);
    std::fprintf(stderr, "length %d: %d instructions, %d of them stack accesses, %d copies\n",
                 length, instructions(best, schedule), schedule.traffic.stack_accesses,
                 schedule.traffic.copies);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        for (int i = 1; i < argc; ++i) tune(std::atoi(argv[i]));
        for (int n = kLongestShortLength + 1; argc == 1 && n <= kLongestLength; ++n) tune(n);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}
