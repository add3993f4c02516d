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

std::vector<std::string> FamiliesIn(const Report& report) {
    std::vector<std::string> families;
    for (const Comparison& comparison : report.comparisons) {
        // The kernels of a family stand together.
        if (families.empty() || families.back() != comparison.family) {
            families.push_back(comparison.family);
        }
    }
    return families;
}

}  // namespace

std::vector<SummaryLine> Summarise(const Report& report) {
    const std::pair<const char*, RatioOf> ratios[] = {
        {"FFTW / ours", &Comparison::Ratio},
        {"best peer / ours", &Comparison::BestRatio},
        {"KissFFT / ours", &Comparison::KissRatio},
        {"other build / ours", &Comparison::OtherRatio},
    };
    std::vector<SummaryLine> lines;
    for (const auto& [ratio_name, ratio_of] : ratios) {
        for (const std::string& family : FamiliesIn(report)) {
            for (const bool only_primes : {false, true}) {
                const auto selects = [&](const Comparison& c) {
                    return c.family == family && (!only_primes || c.IsPrimeFrom17());
                };
                const std::string of = std::string(ratio_name) + ", " + family +
                                       (only_primes ? ", primes from 17" : ", all lengths");
                const SummaryLine line = SummariseRatio(report, of, selects, ratio_of);
                if (line.lengths > 0) lines.push_back(line);
            }
        }
    }
    return lines;
}

}  // namespace bench
