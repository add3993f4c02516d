#pragma once

/** @file @brief The coefficient tables of env4 and env8, which a run reads from end to end. */

#include "dct4/records.hpp"

namespace dct4::QSVG_ELEMENT {

/** `blocks` times the cosines and sines of `factor` columns in all lanes. */
std::int32_t env4_table_bytes(std::int32_t factor, std::int32_t blocks);

/** Fills the node's table from its coefficient object. */
void fill_table(const env4& node);

/** `blocks` times the pairs of `factor` - 1 angles. */
std::int32_t env8_table_bytes(std::int32_t factor, std::int32_t blocks);

/** Fills the node's table from its coefficient object; the node's rule is one of 1 to 5. */
void fill_table(const env8& node);

}  // namespace dct4::QSVG_ELEMENT
