#pragma once

/** @file @brief A Walsh-Hadamard kernel: the proven graphs of its bodies. */

#include <string>
#include <vector>

#include "kernelgen/graph/counts.hpp"
#include "kernelgen/graph/graph.hpp"
#include "kernelgen/schedule/schedule.hpp"
#include "targets/targets.hpp"
#include "transforms/walsh_hadamard/passes.hpp"

namespace walsh_hadamard {

struct Body {
    std::string name;  ///< of its function: transform, row, middle_columns, final_columns
    kernelgen::Graph graph;
    Scaling scaling;
    std::string method = {};  ///< settled order of its nodes, or empty
};

struct Kernel {
    kernelgen::Target target;
    int order;
    Element element;
    std::vector<int> stages;
    int vector_bytes;               ///< those of the target, or fewer in a row that is too short
    std::vector<Body> bodies = {};  ///< one for each number of stages
    std::string option = {};        ///< of GCC, or empty

    /** "qsvgWHT_8_32f" */
    std::string name() const;
    /** "owngWHT_8_32f_unaligned", or empty where there is none */
    std::string twin_name() const;
    int length() const { return 1 << order; }
    bool has_passes() const { return stages.size() > 1; }
    /** Elements in a vector. */
    int width() const { return lanes(element, vector_bytes); }
    /** Whether its vectors stand anywhere without a function of its own for unaligned arrays. */
    bool is_wide() const { return vector_bytes > 16; }
};

/** The kernel, before anything of it has been proven. */
Kernel described_kernel(int order, Element element,
                        const kernelgen::Target& target = kernelgen::kReference);

/**
 * Each body, as it is emitted, is the Hadamard matrix over its vectors, else throws
 * std::runtime_error; and the passes together are the reference sequence sum by sum, else throws
 * std::logic_error.
 */
void prove(const Kernel& kernel);

/** The described kernel, proven. */
Kernel proven_kernel(int order, Element element,
                     const kernelgen::Target& target = kernelgen::kReference);

/** Operations as they are written out: each body once. */
kernelgen::Counts written_out(const Kernel& kernel);

/** A body's nodes in the order of the target's code. */
kernelgen::Schedule schedule_of(const Body& body, const kernelgen::Target& target);

}  // namespace walsh_hadamard
