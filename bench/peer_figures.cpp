#include "peer_figures.hpp"

#include <fstream>
#include <stdexcept>
#include <vector>

#include "csv_cells.hpp"

namespace bench {
namespace {

enum Column : size_t {
    kFamily,
    kSize,
    kDistribution,
    kSse2Only,
    kBestSse2,
    kBestAny,
    kSpecialised
};

/** By size, one column divided by another. */
std::map<int, double> Quotients(const std::string& path, const std::string& family, Column dividend,
                                Column divisor) {
    std::ifstream file(path);
    std::map<int, double> quotients;
    for (std::string line; std::getline(file, line);) {
        const std::vector<std::string> cells = CsvCells(line);
        if (cells.size() <= dividend || cells.size() <= divisor || cells[kFamily] != family)
            continue;
        quotients[std::stoi(cells[kSize])] = std::stod(cells[dividend]) / std::stod(cells[divisor]);
    }
    if (quotients.empty())
        throw std::runtime_error("no figures of " + family + " in '" + path + "'");
    return quotients;
}

}  // namespace

std::map<int, double> BestPeerShares(const std::string& path, const std::string& family) {
    return Quotients(path, family, kBestAny, kDistribution);
}

std::map<int, double> SpecialisedRatios(const std::string& path, const std::string& family) {
    return Quotients(path, family, kSse2Only, kSpecialised);
}

}  // namespace bench
