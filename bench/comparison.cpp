#include "comparison.hpp"

#include <algorithm>

namespace bench {

void Comparison::AddRound(const std::array<double, kParties>& round_cycles) {
    ++rounds;
    for (const Party party : {kOurs, kPeer, kKiss, kOther}) {
        if (!Has(party)) continue;
        cycles[party] = std::min(cycles[party], round_cycles[party]);
    }
    round_ratios.push_back(round_cycles[kPeer] / round_cycles[kOurs]);
}

double Comparison::MedianRatio() const {
    std::vector<double> ratios = round_ratios;
    const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
    std::nth_element(ratios.begin(), middle, ratios.end());
    return *middle;
}

bool Comparison::IsPrimeFrom17() const {
    if (length < 17) return false;
    for (int divisor = 2; divisor * divisor <= length; ++divisor) {
        if (length % divisor == 0) return false;
    }
    return true;
}

}  // namespace bench
