#pragma once

/** @file @brief Figures and texts as tables and JSON write them. */

#include <cmath>
#include <iomanip>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

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

/** What a run was measured with, as the object that JSON reports begin with. */
inline std::string JsonContext(const std::vector<std::pair<std::string, std::string>>& context) {
    std::string text = "{";
    const char* separator = "";
    for (const auto& [key, value] : context) {
        text += separator + ("\n    " + JsonString(key)) + ": " + JsonString(value);
        separator = ",";
    }
    return text + "\n  }";
}

}  // namespace bench
