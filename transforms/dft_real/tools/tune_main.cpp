/**
 * @file
 * @brief Writes a real kernel in its most promising forms: tune_real TARGET KIND LENGTH TYPE FOLDER
 *
 * KIND is forward (into CCS), inverse (from CCS) or hartley. FOLDER gets 0.cpp and so on; for each
 * its modelled traffic and the row of recorded/tuned_TYPE.inc are printed.
 */

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <map>
#include <stdexcept>

#include "kernelgen/emission/candidates.hpp"
#include "kernelgen/lanes/pack_search.hpp"
#include "transforms/dft_real/kernels/real_dft_kernel.hpp"
#include "transforms/dft_real/kernels/real_kernel_source.hpp"
#include "transforms/hartley/hartley_kernel.hpp"

namespace {

using namespace dft_real;

constexpr int kSeeds = 8;
constexpr std::size_t kOrders = 3;
constexpr const char* kOptionsOfLevel[] = {"", "no-schedule-insns2"};
constexpr std::size_t kPacks = 2;
// Of GCC's register allocator and what runs before it; each is the best one for some kernels.
constexpr const char* kOptions[] = {"", "no-tree-ter", "no-schedule-insns2"};
const std::map<std::string, Kind> kKinds = {
    {"forward", Kind::Forward}, {"inverse", Kind::Inverse}, {"hartley", Kind::Hartley}};

RealKernel kernel_of(Kind kind, int length, Element element, const Target& target) {
    switch (kind) {
        case Kind::Forward:
            return dft_kernel(length, Direction::Forward, Layout::CCS, element, target);
        case Kind::Inverse:
            return dft_kernel(length, Direction::Inverse, Layout::CCS, element, target);
        case Kind::Hartley:
            break;
    }
    return hartley::hartley_kernel(length, element, target);
}

std::string row(const RealKernel& kernel) {
    const char* kinds[] = {"Forward", "Inverse", "Hartley"};
    const Tuning& t = kernel.tuning;
    const std::string rounding =
        t.rounding == Rounding::Conversion ? "Conversion" : "WholeRegister";
    return std::string("{Kind::") + kinds[static_cast<int>(kernel.family.kind)] + ", " +
           std::to_string(kernel.length) + ", \"" +
           in_words(row_of(kernel.length).order_of(kernel.family.kind)) + "\", {\"" + t.order +
           "\", Rounding::" + rounding + ", \"" + t.option + "\"" +
           (t.packs.empty() ? "" : ", \"" + t.packs + "\"") + "}},";
}

/** The kernel's most promising orders, each under several options, and their rows with `packs`. */
void add_orders(RealKernel kernel, const std::string& packs, kernelgen::Candidates& candidates) {
    const auto orders = kernelgen::search_schedules(written_graph(kernel), kernel.target, kSeeds);
    for (std::size_t i = 0; i < std::min(kOrders, orders.size()); ++i) {
        for (const char* option : kOptionsOfLevel) {
            kernel.tuning.order = orders[i].method;
            kernel.tuning.option = option;
            RealKernel recorded = kernel;
            recorded.tuning.packs = packs;
            candidates.add(kernel_source(kernel), orders[i], row(recorded));
        }
    }
}

/** The kernel as the level below has it, and for this one: where registers are more, the same lanes
 * in other orders; where they are longer, packs. */
void write_for_level(RealKernel kernel, const Target& level, const std::filesystem::path& folder) {
    kernelgen::Candidates candidates(folder);
    candidates.add(kernel_source(kernel), schedule_of(kernel), "");
    kernel.target = level;
    if (level.vector_registers > level.level_below->vector_registers)
        return add_orders(kernel, "", candidates);
    for (const std::string& packs : kernelgen::cheapest_packs(kernel.graph, kPacks)) {
        kernel.tuning = {.order = {}, .packs = packs};
        add_orders(kernel, packs, candidates);
    }
}

void write_forms(Kind kind, int length, Element element, const Target& target,
                 const std::filesystem::path& folder) {
    const bool is_level = target.level_below != nullptr;
    RealKernel kernel = kernel_of(kind, length, element, is_level ? *target.level_below : target);
    if (is_level) return write_for_level(kernel, target, folder);
    std::vector<std::string> orders = {schedule_of(kernel).method};
    for (const auto& found : kernelgen::search_schedules(kernel.graph, target, kSeeds)) {
        if (orders.size() < kOrders && found.method != orders.front())
            orders.push_back(found.method);
    }
    std::vector<Rounding> roundings = {Rounding::Conversion};
    if (element == Element::Real32) roundings.push_back(Rounding::WholeRegister);
    kernelgen::Candidates candidates(folder);
    for (const std::string& order : orders) {
        for (Rounding rounding : roundings) {
            for (const char* option : kOptions) {
                kernel.tuning = {order, rounding, option};
                candidates.add(kernel_source(kernel), schedule_of(kernel), row(kernel));
            }
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    const auto kind = argc == 6 ? kKinds.find(argv[2]) : kKinds.end();
    if (kind == kKinds.end()) {
        std::fprintf(stderr, "usage: %s TARGET forward|inverse|hartley LENGTH 32f|64f FOLDER\n",
                     argv[0]);
        return 2;
    }
    try {
        const Element element =
            argv[4] == suffix(Element::Real32) ? Element::Real32 : Element::Real64;
        write_forms(kind->second, std::stoi(argv[3]), element, kernelgen::target_named(argv[1]),
                    argv[5]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}
