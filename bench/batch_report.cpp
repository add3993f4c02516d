#include "batch_report.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iomanip>
#include <limits>
#include <ostream>

#include "figures.hpp"

namespace bench {
namespace {

using RatioOf = std::function<double(const BatchComparison&)>;

bool BelongTogether(const BatchCase& a, const BatchCase& b) {
    return a.family == b.family && a.layout == b.layout && a.count == b.count;
}

BatchSpread SpreadOf(const BatchReport& report, const BatchCase& of, const RatioOf& ratio_of) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    BatchSpread spread{.mean = kNone, .worst = kNone};
    double sum_of_logs = 0;
    for (const BatchComparison& comparison : report.comparisons) {
        const double ratio = ratio_of(comparison);
        if (!BelongTogether(comparison.of, of) || std::isnan(ratio)) continue;
        sum_of_logs += std::log(ratio);
        ++spread.sizes;
        if (!(ratio >= spread.worst)) {
            spread.worst = ratio;
            spread.worst_size = comparison.of.size;
        }
    }
    if (spread.sizes > 0) spread.mean = std::exp(sum_of_logs / spread.sizes);
    return spread;
}

double BestAvx2Ratio(const BatchComparison& comparison) {
    return comparison.RatioOf(kPlanMany) * comparison.best_avx2_share;
}

double BestAnyRatio(const BatchComparison& comparison) {
    return comparison.RatioOf(kPlanMany) * comparison.best_any_share;
}

std::string Text(const BatchSpread& spread) {
    if (spread.sizes == 0) return "-";
    return Fixed(spread.mean, 2) + "  " + Fixed(spread.worst, 2) + " (" +
           std::to_string(spread.worst_size) + ")";
}

bool HasOther(const BatchReport& report) {
    return !report.comparisons.empty() &&
           !std::isnan(report.comparisons.front().RatioOf(kOtherBatch));
}

std::string JsonSpread(const BatchSpread& spread) {
    if (spread.sizes == 0) return "null";
    return "{\"mean\": " + JsonNumber(spread.mean) + ", \"worst\": " + JsonNumber(spread.worst) +
           ", \"worst_size\": " + std::to_string(spread.worst_size) + "}";
}

std::string JsonPlace(const BatchCase& of) {
    return "\"family\": " + JsonString(of.family->name) +
           ", \"type\": " + JsonString(of.family->type) +
           ", \"layout\": " + JsonString(NameOf(of.layout)) +
           ", \"count\": " + std::to_string(of.count);
}

}  // namespace

std::vector<BatchGroup> GroupsOf(const BatchReport& report) {
    std::vector<BatchGroup> groups;
    for (const BatchComparison& comparison : report.comparisons) {
        // The sizes of a group stand together.
        const BatchCase& of = comparison.of;
        if (!groups.empty() && BelongTogether(groups.back().of, of)) continue;
        const auto ratio_to = [](BatchParty party) {
            return [party](const BatchComparison& c) { return c.RatioOf(party); };
        };
        groups.push_back({.of = of,
                          .fftw = SpreadOf(report, of, ratio_to(kPlanMany)),
                          .single_calls = SpreadOf(report, of, ratio_to(kSingleCalls)),
                          .best_avx2 = SpreadOf(report, of, BestAvx2Ratio),
                          .best_any = SpreadOf(report, of, BestAnyRatio),
                          .other = SpreadOf(report, of, ratio_to(kOtherBatch))});
    }
    return groups;
}

void PrintContext(std::ostream& out, const BatchReport& report) {
    for (const auto& [key, value] : report.context)
        out << std::left << std::setw(16) << key << value << '\n';
    out << std::left << std::setw(16) << "core/TSC" << Fixed(report.core_cycles_per_tsc_cycle, 3)
        << "; between batches of ours " << Fixed(report.core_cycles_per_tsc_cycle_between_calls, 3)
        << '\n';
    const auto slowing = std::count_if(report.comparisons.begin(), report.comparisons.end(),
                                       [](const auto& c) { return c.leaves_upper_halves; });
    if (slowing > 0) {
        out << std::setw(16) << "upper halves"
            << "left in use by " << slowing << " of " << report.comparisons.size()
            << " batches, whose callers they slow\n";
    }
}

void PrintGroups(std::ostream& out, const BatchReport& report) {
    const bool has_other = HasOther(report);
    out << "\nTime of others over ours, above 1 where ours is faster: geometric mean over all "
           "lengths and worst (length).\n\n"
        << "family           type  layout      count  FFTW               single calls       best, "
           "AVX2         best of all"
        << (has_other ? "        other build\n" : "\n");
    for (const BatchGroup& group : GroupsOf(report)) {
        out << std::left << std::setw(17) << group.of.family->name << std::setw(6)
            << group.of.family->type << std::setw(12) << NameOf(group.of.layout) << std::right
            << std::setw(5) << group.of.count << "  " << std::left << std::setw(19)
            << Text(group.fftw) << std::setw(19) << Text(group.single_calls) << std::setw(19)
            << Text(group.best_avx2) << std::setw(has_other ? 19 : 0) << Text(group.best_any);
        if (has_other) out << Text(group.other);
        out << '\n';
    }
}

void PrintComparisons(std::ostream& out, const BatchReport& report) {
    const bool has_other = HasOther(report);
    out << "\nCycles of the TSC and ratios, of a transform.\n\n"
        << "family           type  layout      count  length    ours    FFTW  singles  FFTW/ours  "
           "singles/ours"
        << (has_other ? "  other/ours\n" : "\n");
    for (const BatchComparison& c : report.comparisons) {
        const auto cycles = [&c](BatchParty party) {
            return std::isfinite(c.cycles[party]) ? Fixed(c.cycles[party], 1) : "-";
        };
        out << std::left << std::setw(17) << c.of.family->name << std::setw(6) << c.of.family->type
            << std::setw(12) << NameOf(c.of.layout) << std::right << std::setw(5) << c.of.count
            << std::setw(8) << c.of.size << std::setw(8) << cycles(kBatch) << std::setw(8)
            << cycles(kPlanMany) << std::setw(9) << cycles(kSingleCalls) << std::setw(11)
            << Fixed(c.RatioOf(kPlanMany), 2) << std::setw(14) << Fixed(c.RatioOf(kSingleCalls), 2);
        if (has_other) out << std::setw(12) << Fixed(c.RatioOf(kOtherBatch), 3);
        out << '\n';
    }
}

void WriteJson(std::ostream& out, const BatchReport& report) {
    out << "{\n  \"context\": " << JsonContext(report.context)
        << ",\n  \"core_cycles_per_tsc_cycle\": " << JsonNumber(report.core_cycles_per_tsc_cycle)
        << ",\n  \"core_cycles_per_tsc_cycle_between_calls\": "
        << JsonNumber(report.core_cycles_per_tsc_cycle_between_calls) << ",\n  \"results\": [";
    const char* separator = "";
    for (const BatchComparison& c : report.comparisons) {
        const auto add = [&](const char* party_name, BatchParty party) {
            if (!std::isfinite(c.cycles[party])) return;
            out << ", \"" << party_name
                << "_ns\": " << JsonNumber(c.cycles[party] / report.cycles_per_nanosecond) << ", \""
                << party_name << "_cycles\": " << JsonNumber(c.cycles[party]);
        };
        out << separator << "\n    {" << JsonPlace(c.of) << ", \"size\": " << c.of.size;
        add("ours", kBatch);
        add("fftw", kPlanMany);
        add("single_calls", kSingleCalls);
        add("other", kOtherBatch);
        out << ", \"best_avx2_ratio\": " << JsonNumber(BestAvx2Ratio(c))
            << ", \"best_any_ratio\": " << JsonNumber(BestAnyRatio(c)) << '}';
        separator = ",";
    }
    out << "\n  ],\n  \"summary\": [";
    separator = "";
    for (const BatchGroup& group : GroupsOf(report)) {
        out << separator << "\n    {" << JsonPlace(group.of)
            << ", \"fftw\": " << JsonSpread(group.fftw)
            << ", \"single_calls\": " << JsonSpread(group.single_calls)
            << ", \"best_avx2\": " << JsonSpread(group.best_avx2)
            << ", \"best_any\": " << JsonSpread(group.best_any)
            << ", \"other\": " << JsonSpread(group.other) << '}';
        separator = ",";
    }
    out << "\n  ]\n}\n";
}

void WriteColumns(std::ostream& out, const BatchReport& report) {
    out << "family type layout count size length ours_ns fftw_ns single_calls_ns fftw_ratio "
           "single_calls_ratio best_avx2_ratio best_any_ratio other_ratio\n";
    for (const BatchComparison& c : report.comparisons) {
        out << c.of.family->name << ' ' << c.of.family->type << ' ' << NameOf(c.of.layout) << ' '
            << c.of.count << ' ' << c.of.size << ' ' << c.of.family->LengthOf(c.of.size);
        for (const BatchParty party : {kBatch, kPlanMany, kSingleCalls})
            out << ' ' << c.cycles[party] / report.cycles_per_nanosecond;
        out << ' ' << c.RatioOf(kPlanMany) << ' ' << c.RatioOf(kSingleCalls) << ' '
            << BestAvx2Ratio(c) << ' ' << BestAnyRatio(c) << ' ' << c.RatioOf(kOtherBatch) << '\n';
    }
}

}  // namespace bench
