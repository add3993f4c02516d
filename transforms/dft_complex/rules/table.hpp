#pragma once

/** @file @brief Rows by length, of tables that have been looked through before. */

#include <vector>

#include "transforms/dft_complex/rules/rules.hpp"
#include "transforms/dft_complex/rules/variant.hpp"

namespace dft_complex {

/** The lengths that there are kernels of, ascending. */
const std::vector<int>& lengths();

/** The row of the rule table; throws std::out_of_range for a length without a kernel. */
const TableRow& row_of(int length, Element element);

/**
 * Throws std::invalid_argument, with a sentence, where a rule does not make sense: parts that are
 * missing or too many, not coprime where they must be, of a length that its form cannot have.
 */
void check(const Rule& rule);

/**
 * The same for the tables of both element types: each rule makes sense and has the length of its
 * row, rows ascend, no length stands twice, and both tables have the same ones.
 */
void check(const std::vector<TableRow>& single_precision,
           const std::vector<TableRow>& double_precision);

}  // namespace dft_complex
