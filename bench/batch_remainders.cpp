#include "batch_remainders.hpp"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <map>
#include <ostream>
#include <tuple>

#include "figures.hpp"

namespace bench {
namespace {

/** Whether all counts are measured: of a short, an odd and a long transform. */
bool HasCurve(const BatchFamily& family, int size) {
    if (family.transform == BatchTransform::kWalshHadamard) return size % 2 == 0;
    return size == 8 || size == 15 || size == 64;
}

std::vector<int> CountsOf(bool has_curve) {
    std::vector<int> counts = {1};
    if (has_curve) {
        for (int count = 2; count <= 64; ++count) counts.push_back(count);
    }
    counts.push_back(255);
    counts.push_back(256);
    if (has_curve) counts.push_back(kMostTransforms);
    return counts;
}

/** What is collected over the lengths of a family and layout. */
struct Remainders {
    const BatchCase* of = nullptr;
    double sum_of_logs = 0;
    int ratios = 0;
    double worst_ratio = 0;
    int worst_ratio_size = 0;
    double sum_of_extra = 0;
    int extras = 0;
    double worst_extra = -std::numeric_limits<double>::infinity();
    int worst_extra_size = 0;

    void AddRatio(double ratio, int size) {
        sum_of_logs += std::log(ratio);
        ++ratios;
        if (ratio <= worst_ratio) return;
        worst_ratio = ratio;
        worst_ratio_size = size;
    }
    void AddExtra(double nanoseconds, int size) {
        sum_of_extra += nanoseconds;
        ++extras;
        if (nanoseconds <= worst_extra) return;
        worst_extra = nanoseconds;
        worst_extra_size = size;
    }
};

}  // namespace

std::vector<BatchCase> RemainderCases() {
    std::vector<BatchCase> cases;
    for (const BatchFamily& family : BatchFamilies()) {
        for (const BatchLayout layout : {BatchLayout::kContiguous, BatchLayout::kColumns}) {
            for (const int size : family.Sizes()) {
                for (const int count : CountsOf(HasCurve(family, size)))
                    cases.push_back({.family = &family,
                                     .layout = layout,
                                     .size = size,
                                     .count = count,
                                     .has_plan = false});
            }
        }
    }
    return cases;
}

void PrintRemainders(std::ostream& out, const BatchReport& report) {
    std::vector<Remainders> all;
    std::map<int, double> cycles_of_255;
    for (const BatchComparison& c : report.comparisons) {
        const BatchCase& of = c.of;
        if (all.empty() || all.back().of->family != of.family ||
            all.back().of->layout != of.layout) {
            all.emplace_back().of = &of;
            cycles_of_255.clear();
        }
        const double cycles = c.cycles[kBatch];
        if (of.count == 1) {
            all.back().AddExtra((cycles - c.cycles[kSingleCalls]) / report.cycles_per_nanosecond,
                                of.size);
        } else if (of.count == 255) {
            cycles_of_255[of.size] = cycles;
        } else if (of.count == 256 && cycles_of_255.contains(of.size)) {
            all.back().AddRatio(cycles_of_255[of.size] / cycles, of.size);
        }
    }
    out << "\nOne of 255 transforms over one of 256: geometric mean over all lengths and worst "
           "(length). A batch of one\nmore than the single call: mean and worst (length).\n\n"
        << "family           type  layout      255/256            nanoseconds more\n";
    for (const Remainders& r : all) {
        out << std::left << std::setw(17) << r.of->family->name << std::setw(6)
            << r.of->family->type << std::setw(12) << NameOf(r.of->layout);
        const std::string ratio = r.ratios == 0 ? "-"
                                                : Fixed(std::exp(r.sum_of_logs / r.ratios), 3) +
                                                      "  " + Fixed(r.worst_ratio, 3) + " (" +
                                                      std::to_string(r.worst_ratio_size) + ")";
        const std::string extra = r.extras == 0 ? "-"
                                                : Fixed(r.sum_of_extra / r.extras, 1) + "  " +
                                                      Fixed(r.worst_extra, 1) + " (" +
                                                      std::to_string(r.worst_extra_size) + ")";
        out << std::setw(19) << ratio << extra << '\n';
    }
}

}  // namespace bench
