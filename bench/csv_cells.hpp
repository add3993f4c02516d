#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace bench {

/** The cells of a line without quotes. */
inline std::vector<std::string> CsvCells(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, ',');) cells.push_back(cell);
    return cells;
}

}  // namespace bench
