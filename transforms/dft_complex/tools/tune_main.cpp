/**
 * @file
 * @brief Searches lane choices and schedules, by the register model.
 *
 *     tune_dft_complex TARGET lanes [LENGTH...]
 *         improves the lane choices of Complex32, one batch at a time until none gets better, and
 *         prints rows of tuned_32fc.inc; the rule table's operation counts bind, and where the
 *         length has lanes on the reference target, the values of its kernel
 *     tune_dft_complex TARGET rules TYPE LENGTH FOLDER
 *         enumerates the decompositions of a length, of whichever the table has no row yet, tunes
 * lanes and order of each, writes those of the least cost, FOLDER/0.cpp and so on, and prints a
 *         line of counts for each; scripts/tune-rules adds the cycles
 *     tune_dft_complex TARGET orders TYPE LENGTH FOLDER
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
#include <stdexcept>

#include "kernelgen/emission/candidates.hpp"
#include "kernelgen/graph/counts.hpp"
#include "kernelgen/lanes/pack_search.hpp"
#include "kernelgen/schedule/schedule.hpp"
#include "transforms/dft_complex/kernels/complex_kernel_source.hpp"
#include "transforms/dft_complex/recorded/tuning.hpp"
#include "transforms/dft_complex/small_transforms/short_lengths.hpp"
#include "transforms/dft_complex/tools/enumerated_rules.hpp"
#include "transforms/dft_complex/tools/lane_search.hpp"

namespace {

using namespace dft_complex;
using kernelgen::Counts;
using kernelgen::Schedule;

constexpr int kSeeds = 24;
constexpr std::size_t kOrders = 6;
// Of GCC's register allocator and what runs before it; each is the best one for some kernels.
constexpr const char* kOptions[] = {"", "no-live-range-shrinkage", "no-tree-ter"};

constexpr std::size_t kPacks = 3;
constexpr std::size_t kOrdersOfLevel = 3;
constexpr const char* kOptionsOfLevel[] = {"", "no-live-range-shrinkage"};

// Of the decompositions of a length, in order of their cost.
constexpr std::size_t kRules = 12;

/** `packs` as they are recorded, of both directions. */
std::string row(const Kernel& kernel, const std::string& order, const std::string& option = {},
                const std::string& packs = {}) {
    std::string lanes;
    for (const LaneChoice& choice : kernel.choices)
        lanes += (lanes.empty() ? "" : " ") + choice.to_string();
    std::string text = "{" + std::to_string(kernel.length) + ", \"" + formula(kernel.rule) +
                       "\", \"" + lanes + "\", \"" + order + "\"";
    if (!option.empty() || !packs.empty()) text += ", \"" + option + "\"";
    if (!packs.empty()) text += ", \"" + packs + "\"";
    return text + "},";
}

void tune_lanes(int length, const Target& target) {
    const TableRow& table_row = row_of(length, Element::Complex32);
    const bool is_published =
        !tuning_of(table_row, Element::Complex32, kernelgen::kReference).lanes.empty();
    const Kernel best = is_published
                            ? with_lanes_of_same_values(length, target)
                            : with_tuned_lanes(table_row.rule, table_row.arithmetic(), target);
    const Schedule schedule = kernelgen::search_schedules(best.graph, target, kSeeds).front();
    std::printf("%s\n", row(best, schedule.method).c_str());
    std::fflush(stdout);
    std::fprintf(stderr, "length %d: %d instructions, %d of them stack accesses, %d copies\n",
                 length, instructions(best, schedule), schedule.traffic.stack_accesses,
                 schedule.traffic.copies);
}

struct Candidate {
    Kernel kernel;
    Schedule schedule;
};

void write_rules(Element element, int length, const Target& target,
                 const std::filesystem::path& folder) {
    std::vector<Candidate> candidates;
    const std::vector<Rule> rules = enumerated_rules(length, element);
    for (const Rule& rule : rules) {
        check(rule);
        std::fprintf(stderr, "%s (%zu of %zu)\n", formula(rule).c_str(), candidates.size() + 1,
                     rules.size());
        Kernel kernel = element == Element::Complex32
                            ? with_tuned_lanes(rule, kUnboundOperations, target)
                            : draft_kernel(rule, Direction::Forward, element, {}, target);
        prove_dft(kernel);
        Schedule schedule = kernelgen::search_schedules(kernel.graph, target, kSeeds).front();
        kernel.order = schedule.method;
        candidates.push_back({std::move(kernel), std::move(schedule)});
    }
    std::stable_sort(
        candidates.begin(), candidates.end(), [](const Candidate& a, const Candidate& b) {
            return instructions(a.kernel, a.schedule) < instructions(b.kernel, b.schedule);
        });
    std::filesystem::create_directories(folder);
    for (std::size_t i = 0; i < std::min(candidates.size(), kRules); ++i) {
        const auto& [kernel, schedule] = candidates[i];
        kernelgen::write_if_changed(folder / (std::to_string(i) + ".cpp"), kernel_source(kernel));
        const Counts c = kernelgen::count(kernel.graph, element == Element::Complex32);
        std::printf("%s\t%d\t%d\t%d\t%d\t%d\t%d\t%s\n", formula(kernel.rule).c_str(), c.sums,
                    c.differences, c.products, c.shuffles, schedule.traffic.stack_accesses,
                    instructions(kernel, schedule),
                    row(kernel, kernel.order, kernel.option).c_str());
    }
}

/** Packs of a forward kernel as they are recorded: alone where they serve its inverse, too. */
std::string for_both_directions(const std::string& packs, const Kernel& kernel) {
    const Kernel inverse =
        described_kernel(kernel.length, Direction::Inverse, kernel.element, kernel.target);
    try {
        kernelgen::laned_graph(inverse.name(), inverse.graph, packs);
        return packs;
    } catch (const std::exception&) {
        return packs + "; " + kernelgen::cheapest_packs(inverse.graph, 1).at(0);
    }
}

/** The kernel's most promising orders, each under several options. */
void add_orders(Kernel kernel, const std::string& recorded_packs,
                kernelgen::Candidates& candidates) {
    const std::vector<Schedule> orders =
        kernelgen::search_schedules(written_graph(kernel), kernel.target, kSeeds);
    for (std::size_t i = 0; i < std::min(orders.size(), kOrdersOfLevel); ++i) {
        for (const char* option : kOptionsOfLevel) {
            kernel.order = orders[i].method;
            kernel.option = option;
            candidates.add(kernel_source(kernel), orders[i],
                           row(kernel, kernel.order, kernel.option, recorded_packs));
        }
    }
}

/** The kernel as the level below has it, and for this one: where registers are more, the same lanes
 * in other orders; where they are longer, packs. */
void write_for_level(Kernel kernel, const Target& level, const std::filesystem::path& folder) {
    kernelgen::Candidates candidates(folder);
    candidates.add(kernel_source(kernel), schedule_of(kernel), "");
    kernel.target = level;
    if (level.vector_registers > level.level_below->vector_registers)
        return add_orders(kernel, "", candidates);
    for (const std::string& packs : kernelgen::cheapest_packs(kernel.graph, kPacks)) {
        kernel.packs = packs;
        add_orders(kernel, for_both_directions(packs, kernel), candidates);
    }
}

void write_orders(Element element, int length, const Target& target,
                  const std::filesystem::path& folder) {
    const bool is_level = target.level_below != nullptr;
    Kernel kernel =
        proven_kernel(length, Direction::Forward, element, is_level ? *target.level_below : target);
    if (is_level) return write_for_level(kernel, target, folder);
    std::filesystem::create_directories(folder);
    const std::vector<Schedule> found = kernelgen::search_schedules(kernel.graph, target, kSeeds);
    int number = 0;
    for (std::size_t i = 0; i < std::min(found.size(), kOrders); ++i) {
        for (const char* option : kOptions) {
            kernel.order = found[i].method;
            kernel.option = option;
            kernelgen::write_if_changed(folder / (std::to_string(number++) + ".cpp"),
                                        kernel_source(kernel));
            std::printf("%d\t%s\n", found[i].traffic.total(),
                        row(kernel, kernel.order, kernel.option).c_str());
        }
    }
}

int run(const std::vector<std::string>& words) {
    if (words.size() > 2 && words[2] == "lanes") {
        const Target& target = kernelgen::target_named(words[1]);
        for (std::size_t i = 3; i < words.size(); ++i) tune_lanes(std::stoi(words[i]), target);
        for (int n : lengths()) {
            if (words.size() == 3 && n > kLongestShortLength) tune_lanes(n, target);
        }
        return 0;
    }
    if (words.size() == 6 && (words[2] == "orders" || words[2] == "rules")) {
        for (Element element : kElements) {
            if (words[3] != suffix(element)) continue;
            const auto write = words[2] == "orders" ? write_orders : write_rules;
            write(element, std::stoi(words[4]), kernelgen::target_named(words[1]), words[5]);
            return 0;
        }
    }
    std::fprintf(stderr,
                 "usage: %s TARGET lanes [LENGTH...]\n       %s TARGET rules TYPE LENGTH FOLDER\n"
                 "       %s TARGET orders TYPE LENGTH FOLDER\n",
                 words[0].c_str(), words[0].c_str(), words[0].c_str());
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
