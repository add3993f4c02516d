#pragma once

/** @file @brief Every transform of the tool by its definition, in extended precision. */

#include <functional>
#include <string>
#include <vector>

#include "support/tool.hpp"

namespace qsvgen_test {

using Numbers = std::vector<long double>;

/** Arguments of the tool, and what it is to print for a source. */
struct ToolCase {
    Words arguments;  ///< family, length, type, and options but for the scale
    bool is_complex;
    int length;
    int source_lines;
    bool is_double;
    bool is_forward;  ///< as the flags have it
    bool is_inverse;  ///< as the flags have it; neither of transforms without directions
    std::function<Numbers(const Numbers& source)> definition;

    std::size_t source_size() const {
        return static_cast<std::size_t>(source_lines) * (is_complex ? 2 : 1);
    }
};

/** Both types and directions, all layouts; some lengths of each rule. */
std::vector<ToolCase> all_tool_cases();

}  // namespace qsvgen_test
