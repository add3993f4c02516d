#include "peer_figures.hpp"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace bench {
namespace {

std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, ',');) cells.push_back(cell);
    return cells;
}

}  // namespace

std::map<int, double> BestPeerShares(const std::string& path, const std::string& family) {
    enum Column : size_t { kFamily, kSize, kDistribution, kSse2Only, kBestSse2, kBestAny, kNeeded };

    std::ifstream file(path);
    std::map<int, double> shares;
    for (std::string line; std::getline(file, line);) {
        const std::vector<std::string> cells = Cells(line);
        if (cells.size() < kNeeded || cells[kFamily] != family) continue;
        shares[std::stoi(cells[kSize])] =
            std::stod(cells[kBestAny]) / std::stod(cells[kDistribution]);
    }
    if (shares.empty()) throw std::runtime_error("no figures of " + family + " in '" + path + "'");
    return shares;
}

}  // namespace bench
