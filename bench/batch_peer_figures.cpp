#include "batch_peer_figures.hpp"

#include <fstream>
#include <stdexcept>

#include "csv_cells.hpp"

namespace bench {
namespace {

enum Column : size_t {
    kFamily,
    kLayout,
    kCount,
    kSize,
    kDistribution,
    kBestAvx2,
    kBestAny,
    kColumns
};

}  // namespace

std::map<int, BatchPeerShares> BatchPeerSharesOf(const std::string& path, const std::string& family,
                                                 BatchLayout layout, int count) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read '" + path + "'");
    std::map<int, BatchPeerShares> shares;
    for (std::string line; std::getline(file, line);) {
        const std::vector<std::string> cells = CsvCells(line);
        if (cells.size() != kColumns || cells[kFamily] != family ||
            cells[kLayout] != NameOf(layout) || cells[kCount] != std::to_string(count) ||
            cells[kDistribution].empty())
            continue;
        const double distribution = std::stod(cells[kDistribution]);
        shares[std::stoi(cells[kSize])] = {.avx2 = std::stod(cells[kBestAvx2]) / distribution,
                                           .any = std::stod(cells[kBestAny]) / distribution};
    }
    return shares;
}

}  // namespace bench
