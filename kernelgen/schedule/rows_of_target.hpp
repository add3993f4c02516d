#pragma once

/** @file @brief Tables of what was found by search or by the clock, one for each target and
 * element.
 */

#include <span>
#include <vector>

#include "targets/targets.hpp"

namespace kernelgen {

template <class Element, class Row>
struct RowsOfTarget {
    Target target;
    Element element;
    std::vector<Row> rows;
};

/** The rows of the table for `target` and `element`; none where nothing has been searched there. */
template <class Element, class Row>
std::span<const Row> rows_of(std::span<const RowsOfTarget<Element, Row>> tables,
                             const Target& target, Element element) {
    for (const auto& table : tables) {
        if (table.target.name == target.name && table.element == element) return table.rows;
    }
    return {};
}

}  // namespace kernelgen
