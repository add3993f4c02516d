#pragma once

/** @file @brief What can be told of any kernel. */

#include <string>

#include "explanation.hpp"
#include "kernelgen/graph/graph.hpp"
#include "kernelgen/schedule/schedule.hpp"
#include "targets/target.hpp"

namespace qsvg_tool {

/** The constants that a transform of `length` points multiplies by, but for their signs. */
Section Constants(const kernelgen::Graph& graph, int length);

/** A constant as a formula, cosines and sines by parts of `length` where that is possible. */
std::string Formula(const kernelgen::Exact& constant, int length);

/** Order of the nodes, and what the register model makes of it. */
void AddSchedule(Section& section, const kernelgen::Schedule& schedule);

/** The one that this program and its library are built for. */
const kernelgen::Target& BuiltFor();

/** Bytes of an exported function in the library that this program runs with. */
void AddCodeSize(Section& section, const std::string& function);

/** "single precision" or "double precision". */
std::string Precision(bool is_double);

}  // namespace qsvg_tool
