/**
 * @file
 * @brief Searches lane choices and schedules, by the register model.
 *
 *     tune_dft_complex lanes [LENGTH...]
 *         improves the lane choices of Complex32, one batch at a time until none gets better, and
 *         prints rows of tuned_32fc.inc; the rule table's operation counts bind
 *     tune_dft_complex orders TYPE LENGTH FOLDER
 *         writes the kernel in its most promising orders under several compiler options,
 *         FOLDER/0.cpp and so on, and prints its modelled traffic and the row of tuned_TYPE.inc for
 *         each
 *
 * The cost is the number of vector instructions that the kernel is expected to take.
 */

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>

#include "kernelgen/graph/counts.hpp"
#include "kernelgen/schedule/schedule.hpp"
#include "transforms/dft_complex/kernels/complex_kernel_source.hpp"
#include "transforms/dft_complex/small_transforms/short_lengths.hpp"

namespace {

using namespace dft_complex;
using kernelgen::Counts;
using kernelgen::kX86Sse2;
using kernelgen::Schedule;

constexpr int kSeeds = 24;
constexpr std::size_t kOrders = 6;
// Of GCC's register allocator and what runs before it; each is the best one for some kernels.
constexpr const char* kOptions[] = {"", "no-live-range-shrinkage", "no-tree-ter"};

int instructions(const Kernel& kernel, const Schedule& schedule) {
    const Counts c = kernelgen::count(kernel.graph, true);
    const int over = c.arithmetic() - row_of(kernel.length, kernel.element).arithmetic();
    const int penalty = over > 0 ? 1000 * over : 0;
    return c.arithmetic() + c.shuffles + c.flips + c.loads + c.stores + schedule.traffic.total() +
           penalty;
}

std::string row(const Kernel& kernel, const std::string& order, const std::string& option = {}) {
    std::string lanes;
    for (const LaneChoice& choice : kernel.choices)
        lanes += (lanes.empty() ? "" : " ") + choice.to_string();
    std::string text = "{" + std::to_string(kernel.length) + ", \"" + formula(kernel.rule) +
                       "\", \"" + lanes + "\", \"" + order + "\"";
    if (!option.empty()) text += ", \"" + option + "\"";
    return text + "},";
}

void tune_lanes(int length) {
    constexpr Element kElement = Element::Complex32;
    Kernel best = draft_kernel(length, Direction::Forward, kElement, {});
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
                Kernel next = draft_kernel(length, Direction::Forward, kElement, choices);
                const int next_cost = instructions(next, kernelgen::schedule(next.graph, kX86Sse2));
                if (next_cost < cost) {
                    cost = next_cost;
                    best = std::move(next);
                    better = true;
                }
            }
        }
    }
    const Schedule schedule = kernelgen::search_schedules(best.graph, kX86Sse2, kSeeds).front();
    std::printf("%s\n", row(best, schedule.method).c_str());
    std::fflush(stdout);
    std::fprintf(stderr, "length %d: %d instructions, %d of them stack accesses, %d copies\n",
                 length, instructions(best, schedule), schedule.traffic.stack_accesses,
                 schedule.traffic.copies);
}

void write_orders(Element element, int length, const std::filesystem::path& folder) {
    Kernel kernel = proven_kernel(length, Direction::Forward, element);
    std::filesystem::create_directories(folder);
    const std::vector<Schedule> found = kernelgen::search_schedules(kernel.graph, kX86Sse2, kSeeds);
    int number = 0;
    for (std::size_t i = 0; i < std::min(found.size(), kOrders); ++i) {
        for (const char* option : kOptions) {
            kernel.order = found[i].method;
            kernel.option = option;
            std::ofstream file(folder / (std::to_string(number++) + ".cpp"), std::ios::binary);
            file << kernel_source(kernel);
            if (!file.flush()) throw std::runtime_error("cannot write into " + folder.string());
            std::printf("%d\t%s\n", found[i].traffic.total(),
                        row(kernel, kernel.order, kernel.option).c_str());
        }
    }
}

int run(const std::vector<std::string>& words) {
    if (words.size() > 1 && words[1] == "lanes") {
        for (std::size_t i = 2; i < words.size(); ++i) tune_lanes(std::stoi(words[i]));
        for (int n : lengths()) {
            if (words.size() == 2 && n > kLongestShortLength) tune_lanes(n);
        }
        return 0;
    }
    if (words.size() == 5 && words[1] == "orders") {
        for (Element element : kElements) {
            if (words[2] != suffix(element)) continue;
            write_orders(element, std::stoi(words[3]), words[4]);
            return 0;
        }
    }
    std::fprintf(stderr, "usage: %s lanes [LENGTH...]\n       %s orders TYPE LENGTH FOLDER\n",
                 words[0].c_str(), words[0].c_str());
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run({argv, argv + argc});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
}
