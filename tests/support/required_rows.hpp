#pragma once

/** @file @brief Reads what is required of each length: data that no script writes. */

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace qsvgen_test {

/** Cells of the lines behind the head, which are separated by semicolons. */
inline std::vector<std::vector<std::string>> required_rows(const std::string& file) {
    std::ifstream lines(file);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) {
        std::istringstream cells(line);
        rows.emplace_back();
        for (std::string cell; std::getline(cells, cell, ';');) rows.back().push_back(cell);
    }
    if (rows.empty()) throw std::runtime_error("nothing can be read from " + file);
    return rows;
}

}  // namespace qsvgen_test
