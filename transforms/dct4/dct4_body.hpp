#pragma once

/** @file @brief Bodies of the DCT-IV by name, each proven to be the matrix that defines it. */

#include <string>
#include <vector>

#include "kernelgen/graph/counts.hpp"
#include "kernelgen/schedule/schedule.hpp"
#include "targets/targets.hpp"
#include "transforms/dct4/bodies.hpp"

namespace dct4 {

enum class Step { Analysis, Synthesis, Dft, Inline };

struct Kernel {
    kernelgen::Target target;
    Step step;
    int rule;  ///< log2 of the number of points
    Element element;
    kernelgen::Graph graph;
    std::string method = {};  ///< settled order of its nodes, or empty

    /** "analysis_4": what the body's functions and its file are called. */
    std::string stem() const;
    /** "dct4_analysis_4_32f" */
    std::string name() const;
    int points() const { return 1 << rule; }
};

/** Steps and rules that there are bodies of. */
struct BodyKey {
    Step step;
    int rule;
};
std::vector<BodyKey> all_bodies();

/** The body, before anything of it has been proven. */
Kernel described_kernel(BodyKey key, Element element,
                        const kernelgen::Target& target = kernelgen::kReference);

/** Throws std::runtime_error where the body is not its matrix, std::logic_error where it has not
 * the values of the reference target's. */
void prove(const Kernel& kernel);

/** The described kernel, proven. */
Kernel proven_kernel(BodyKey key, Element element,
                     const kernelgen::Target& target = kernelgen::kReference);

kernelgen::Counts counts_of(const Kernel& kernel);

/** The nodes in the order of the code. */
kernelgen::Schedule schedule_of(const Kernel& kernel);

}  // namespace dct4
