#pragma once

/** @file @brief Orders of the nodes of bodies that were settled by the clock, by the body's name.
 */

#include <span>
#include <string>

#include "kernelgen/schedule/schedule.hpp"

namespace kernelgen {

struct SettledOrder {
    std::string method;       ///< a Schedule's; empty: that with the least modelled traffic
    std::string option = {};  ///< of GCC, without its "-f"; empty: none
};

/** A row of a table as scripts/tune-orders prints it. */
struct SettledBody {
    std::string name;
    SettledOrder order;
};

inline SettledOrder settled_order(std::span<const SettledBody> table, const std::string& name) {
    for (const SettledBody& body : table) {
        if (body.name == name) return body.order;
    }
    return {};
}

/** For a file that such a table includes. */
inline std::string table_row(const SettledBody& body) {
    return "{\"" + body.name + "\", {\"" + body.order.method + "\", \"" + body.order.option +
           "\"}},";
}

/** The nodes in the settled order, or where `method` is empty in that with the least traffic. */
inline Schedule settled_schedule(const std::string& method, const Graph& graph,
                                 const Target& target) {
    return method.empty() ? schedule(graph, target) : schedule_by(method, graph, target);
}

}  // namespace kernelgen
