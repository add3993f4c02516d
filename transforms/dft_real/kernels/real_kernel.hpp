#pragma once

/**
 * @file
 * @brief A kernel of real elements: its proven graph and how it becomes a source file.
 */

#include <string>
#include <vector>

#include "kernelgen/graph/counts.hpp"
#include "kernelgen/proof/proof.hpp"
#include "kernelgen/schedule/schedule.hpp"
#include "targets/targets.hpp"
#include "transforms/dft_real/recorded/tuning.hpp"
#include "transforms/dft_real/rules/stage_orders.hpp"

namespace dft_real {

using kernelgen::Target;

inline constexpr auto& kElements = transforms::kRealElements;
using transforms::suffix;

/** What the kernels of one exported family have in common. */
struct Family {
    std::string name;   ///< "DFTFwd_RToCCS"
    std::string title;  ///< "DFT of {N} real points into the CCS layout"
    Kind kind;
};

struct RealKernel {
    Target target;
    Family family;
    int length;
    Element element;
    kernelgen::Graph graph;
    Tuning tuning;

    /** "qsvgDFTFwd_RToCCS_15_32f" */
    std::string name() const;
};

/** Of which a target has kernels of its own: all, a level those that are recorded for it. */
std::vector<int> own_lengths(Kind kind, Element element, const Target& target);

/** Rows of `network`, which are of binary32, as the kernel of `element`: constants that meet are
 * joined, sums stand in the precision of their rows where that is settled, and for binary64
 * conversions are left out. Where a level has none of its own it is that of the level below, and
 * where one has no packs of its own it has those of that. Nothing of it has been proven. */
RealKernel described(const Family& family, int length, Element element,
                     const kernelgen::Graph& network, const Target& target);

/** The described kernel, proven to be `definition` from `inputs` elements to `outputs`; throws
 * std::runtime_error. */
RealKernel proven(const Family& family, int length, Element element,
                  const kernelgen::Graph& network, int inputs, int outputs,
                  const kernelgen::Definition& definition, const Target& target);

/** Sums and products as the table counts them: without those by the scale factor and by 2. */
Cost network_cost(const kernelgen::Graph& graph);
/** Number of outputs whose scale factor is taken in a row of binary64 by a binary32 kernel. */
int outputs_scaled_in_rows(const kernelgen::Graph& graph);
/** Number of inputs that are doubled by an operation of their own. */
int doubled_inputs(const kernelgen::Graph& graph);

/** Number of sums of two values that a binary32 kernel forms in binary64. */
int wide_sums(const kernelgen::Graph& graph);

/** The graph that is written: the kernel's own, or that of its lanes, proven to be of the same
 * values; throws std::logic_error. */
kernelgen::Graph written_graph(const RealKernel& kernel);

/** The written graph's nodes in the order of its code. */
kernelgen::Schedule schedule_of(const RealKernel& kernel);

}  // namespace dft_real
