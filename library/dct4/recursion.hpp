#pragma once

/** @file @brief The recursion of long analyses for several groups of columns at a time. */

#include "dct4/records.hpp"

namespace dct4::QSVG_ELEMENT {

/** The first of some groups of columns; see dct4/compute.hpp. */
struct ColumnGroups {
    std::int32_t offset;
    std::int32_t mirror;
    std::int32_t column;
    int groups;  ///< up to kBatch
};

QsvStatus run_split(const env7& node, const Real* source, Real* destination,
                    const ColumnGroups& where);
QsvStatus run_parts(const env9& node, const Real* source, Real* scratch, const ColumnGroups& where);
QsvStatus run_dfts(const env8& node, const Real* scratch, Real* destination,
                   const ColumnGroups& where);

}  // namespace dct4::QSVG_ELEMENT
