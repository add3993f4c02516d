#pragma once

/** @file @brief Figures and texts as tables and JSON write them. */

#include <cmath>
#include <iomanip>
#include <sstream>
#include <string>

namespace bench {

/** "-" for what is not a number. */
inline std::string Fixed(double value, int decimals) {
    if (std::isnan(value)) return "-";
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << value;
    return text.str();
}

/** null for what is not a number. */
inline std::string JsonNumber(double value) {
    return std::isnan(value) ? "null" : Fixed(value, 4);
}

inline std::string JsonString(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        // Control characters have no place in JSON text, and nothing here needs them.
        quoted += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
    return quoted + '"';
}

}  // namespace bench
