#include "support/manifest.hpp"

#include <filesystem>
#include <fstream>
#include <vector>

namespace qsvgen_test {
namespace {

/** Cells may be quoted; quotes are not part of them. */
std::vector<std::string> cells_of(const std::string& line) {
    std::vector<std::string> cells(1);
    bool is_quoted = false;
    for (const char c : line) {
        if (c == '"')
            is_quoted = !is_quoted;
        else if (c == ',' && !is_quoted)
            cells.emplace_back();
        else
            cells.back() += c;
    }
    return cells;
}

}  // namespace

std::map<std::string, ManifestRow> manifest_of(const std::string& folder) {
    std::ifstream file(std::filesystem::path(QSVG_SOURCE_DIR) / "transforms" / folder /
                       "recorded/" QSVG_TARGET "/manifest.csv");
    std::string line;
    std::getline(file, line);
    const auto columns = cells_of(line);
    std::map<std::string, ManifestRow> rows;
    while (std::getline(file, line)) {
        const auto cells = cells_of(line);
        for (std::size_t i = 0; i < columns.size(); ++i)
            rows[cells.at(0)][columns[i]] = cells.at(i);
    }
    return rows;
}

}  // namespace qsvgen_test
