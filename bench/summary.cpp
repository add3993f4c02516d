#include "summary.hpp"

#include <cmath>
#include <functional>
#include <limits>

namespace bench {
namespace {

using RatioOf = std::function<double(const Comparison&)>;
using Selects = std::function<bool(const Comparison&)>;

SummaryLine SummariseRatio(const Report& report, const std::string& of, const Selects& selects,
                           const RatioOf& ratio_of) {
    SummaryLine line{.of = of, .worst = std::numeric_limits<double>::infinity()};
    double sum_of_logs = 0;
    for (const Comparison& comparison : report.comparisons) {
        const double ratio = ratio_of(comparison);
        if (!selects(comparison) || std::isnan(ratio)) continue;
        sum_of_logs += std::log(ratio);
        ++line.lengths;
        if (ratio < line.worst) {
            line.worst = ratio;
            line.worst_length = comparison.length;
        }
    }
    if (line.lengths > 0) line.geometric_mean = std::exp(sum_of_logs / line.lengths);
    return line;
}

}  // namespace

std::vector<SummaryLine> Summarise(const Report& report) {
    const std::vector<std::pair<std::string, RatioOf>> ratios = {
        {"FFTW / ours", [](const Comparison& c) { return c.Ratio(); }},
        {"best peer / ours", [&](const Comparison& c) { return report.BestRatio(c); }},
        {"other build / ours",
         [](const Comparison& c) {
             return c.has_other ? c.OtherRatio() : std::numeric_limits<double>::quiet_NaN();
         }},
    };
    std::vector<SummaryLine> lines;
    for (const auto& [ratio_name, ratio_of] : ratios) {
        for (const Direction direction : {Direction::kForward, Direction::kInverse}) {
            for (const bool only_primes : {false, true}) {
                const auto selects = [=](const Comparison& c) {
                    return c.direction == direction && (!only_primes || c.IsPrimeFrom17());
                };
                const std::string of = ratio_name + ", " + ShortName(direction) +
                                       (only_primes ? ", primes from 17" : ", all lengths");
                const SummaryLine line = SummariseRatio(report, of, selects, ratio_of);
                if (line.lengths > 0) lines.push_back(line);
            }
        }
    }
    return lines;
}

}  // namespace bench
