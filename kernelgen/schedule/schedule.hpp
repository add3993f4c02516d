#pragma once

/**
 * @file
 * @brief Puts the nodes of a graph into an order in which few values are alive at a time.
 */

#include <string>
#include <vector>

#include "kernelgen/graph/graph.hpp"
#include "kernelgen/schedule/register_model.hpp"
#include "targets/target.hpp"

namespace kernelgen {

using Order = std::vector<NodeId>;

/** Free decisions of the bisection. */
struct BisectionVariant {
    bool outputs_first = false;  ///< which side colours first
    int leaf = 2;                ///< parts of at most so many nodes keep the description's order
    std::uint32_t shuffle = 0;   ///< seed for the order of components, 0 for the natural one

    /** "bisection o16x7": from the outputs, leaves of 16, seed 7. */
    std::string to_string() const;
};

/**
 * Recursive bisection: components one after the other; within a component, colour from the inputs
 * and the outputs alternately until the colours meet, then the input half before the output half.
 * Cache-oblivious in the number of registers; after Frigo, "A fast Fourier transform compiler",
 * 1999. Loads stand just before their first use.
 */
Order bisection_order(const Graph& graph, const BisectionVariant& variant = {});

/** Each store as early as the values before it allow, operands depth first. */
Order depth_first_order(const Graph& graph);

/** The order in which the description made the nodes. */
Order source_order(const Graph& graph);

struct Schedule {
    std::string method;  ///< name of the order that won
    Order order;
    RegisterTraffic traffic;  ///< what the register model predicts
};

/** The order with the least modelled register traffic: bisection, depth first or source. */
Schedule schedule(const Graph& graph, const Target& target);

/** The named order; `method` is as an earlier Schedule's. Throws std::invalid_argument. */
Schedule schedule_by(const std::string& method, const Graph& graph, const Target& target);

/** All of these orders and those of `seeds` seeds of all variants of the bisection, each once, that
 * with the least traffic first. */
std::vector<Schedule> search_schedules(const Graph& graph, const Target& target, int seeds);

}  // namespace kernelgen
