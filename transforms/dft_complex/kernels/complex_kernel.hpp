#pragma once

/**
 * @file
 * @brief From a length to the proven graph of its kernel.
 */

#include <string>

#include "kernelgen/schedule/schedule.hpp"
#include "targets/targets.hpp"
#include "transforms/dft_complex/layouts/packed_layout.hpp"
#include "transforms/dft_complex/rules/table.hpp"
#include "transforms/dft_complex/rules/variant.hpp"

namespace dft_complex {

using kernelgen::Target;

struct Kernel {
    Target target;
    int length;
    Direction direction;
    Element element;
    Rule rule;
    Graph graph;
    std::vector<LaneChoice> choices = {};  ///< of Complex32
    std::string order = {};   ///< method of the schedule, empty for the cheapest plain one
    std::string option = {};  ///< of GCC for this kernel, without its "-f"
    std::string packs = {};   ///< kernelgen::PackSeeds in words, or empty: vectors of 16 bytes

    /** "qsvgDFTFwd_CToC_15_32fc" */
    std::string name() const;
    /** The hidden twin for unaligned arrays, or an empty text where there is none. */
    std::string twin_name() const;
    bool is_scalar() const;
};

/** Of which a target has kernels of its own: all, a level those that are recorded for it. */
std::vector<int> own_lengths(Element element, const Target& target);

/** The kernel of `length`, before anything of it has been proven. Where a level has none of its own
 * it is that of the level below, and where one has no packs of its own it has those of that. */
Kernel described_kernel(int length, Direction direction, Element element,
                        const Target& target = kernelgen::kReference);

/** The kernel of `length` for a target, proven. */
Kernel proven_kernel(int length, Direction direction, Element element,
                     const Target& target = kernelgen::kReference);

/** Unproven, by any rule and with given lane choices (of Complex32): for searches. */
Kernel draft_kernel(const Rule& rule, Direction direction, Element element,
                    const std::vector<LaneChoice>& choices, const Target& target);

/** Powers of two move lanes in loads, transposes and stores only, so they stay split throughout. */
LanePolicy lane_policy(int length);

/** Number of transforms in each batch of the rule's network. */
std::vector<int> batch_sizes(const Rule& rule);

/** The graph that is written: the kernel's own, or that of its packs, proven to be of the same
 * values; throws std::logic_error. */
Graph written_graph(const Kernel& kernel);

/** The written graph's nodes in the order of its code. */
kernelgen::Schedule schedule_of(const Kernel& kernel);

/** Throws where the kernel's graph is not the DFT of its length and direction. */
void prove_dft(const Kernel& kernel);

/** The same, and throws std::logic_error where the kernel has not the values of the reference
 * target's. */
void prove(const Kernel& kernel);

}  // namespace dft_complex
