#include "report.hpp"

#include <iomanip>
#include <limits>
#include <ostream>

#include "figures.hpp"
#include "summary.hpp"

namespace bench {
namespace {

bool HasOther(const Report& report) {
    return !report.comparisons.empty() && report.comparisons.front().has_other;
}

}  // namespace

double Report::Nanoseconds(const Comparison& comparison, Party party) const {
    if (!comparison.Has(party)) return std::numeric_limits<double>::quiet_NaN();
    return comparison.cycles[party] / cycles_per_nanosecond;
}

void PrintTable(std::ostream& out, const Report& report) {
    for (const auto& [key, value] : report.context) {
        out << std::left << std::setw(16) << key << value << '\n';
    }
    const bool has_other = HasOther(report);
    out << "\nRatios above 1: ours is faster. Cycles are of the TSC, for one call.\n\n"
        << "family              length   ours ns  ours cycles   FFTW ns  FFTW/ours  best/ours   "
           "Kiss ns  Kiss/ours"
        << (has_other ? "  other ns  other/ours\n" : "\n");
    for (const Comparison& c : report.comparisons) {
        out << std::left << std::setw(18) << c.family << std::right << std::setw(8) << c.length
            << std::setw(10) << Fixed(report.Nanoseconds(c, kOurs), 1) << std::setw(13)
            << Fixed(c.cycles[kOurs], 0) << std::setw(10) << Fixed(report.Nanoseconds(c, kPeer), 1)
            << std::setw(11) << Fixed(c.Ratio(), 2) << std::setw(11) << Fixed(c.BestRatio(), 2)
            << std::setw(10) << Fixed(report.Nanoseconds(c, kKiss), 1) << std::setw(11)
            << Fixed(c.KissRatio(), 2);
        if (has_other) {
            out << std::setw(10) << Fixed(report.Nanoseconds(c, kOther), 1) << std::setw(12)
                << Fixed(c.OtherRatio(), 3);
        }
        out << '\n';
    }
    out << '\n'
        << std::left << std::setw(50) << "ratio"
        << "geometric mean   worst (length)\n";
    for (const SummaryLine& line : Summarise(report)) {
        out << std::left << std::setw(50) << line.of << std::right << std::setw(14)
            << Fixed(line.geometric_mean, 3) << std::setw(8) << Fixed(line.worst, 3) << " ("
            << line.worst_length << ")\n";
    }
}

void WriteJson(std::ostream& out, const Report& report) {
    out << "{\n  \"context\": " << JsonContext(report.context)
        << ",\n  \"core_cycles_per_tsc_cycle\": " << JsonNumber(report.core_cycles_per_tsc_cycle)
        << ",\n  \"results\": [";
    const char* separator = "";
    for (const Comparison& c : report.comparisons) {
        out << separator << "\n    {\"family\": " << JsonString(c.family)
            << ", \"length\": " << c.length << ", \"rounds\": " << c.rounds
            << ", \"ours_ns\": " << JsonNumber(report.Nanoseconds(c, kOurs))
            << ", \"ours_cycles\": " << JsonNumber(c.cycles[kOurs])
            << ", \"peer_ns\": " << JsonNumber(report.Nanoseconds(c, kPeer))
            << ", \"peer_cycles\": " << JsonNumber(c.cycles[kPeer])
            << ", \"ratio\": " << JsonNumber(c.Ratio())
            << ", \"ratio_median\": " << JsonNumber(c.MedianRatio())
            << ", \"best_ratio\": " << JsonNumber(c.BestRatio())
            << ", \"kissfft_ns\": " << JsonNumber(report.Nanoseconds(c, kKiss));
        if (c.has_other) {
            out << ", \"other_ns\": " << JsonNumber(report.Nanoseconds(c, kOther))
                << ", \"other_cycles\": " << JsonNumber(c.cycles[kOther])
                << ", \"other_ratio\": " << JsonNumber(c.OtherRatio());
        }
        out << '}';
        separator = ",";
    }
    out << "\n  ],\n  \"summary\": [";
    separator = "";
    for (const SummaryLine& line : Summarise(report)) {
        out << separator << "\n    {\"of\": " << JsonString(line.of)
            << ", \"geometric_mean\": " << JsonNumber(line.geometric_mean)
            << ", \"worst\": " << JsonNumber(line.worst)
            << ", \"worst_length\": " << line.worst_length << ", \"lengths\": " << line.lengths
            << '}';
        separator = ",";
    }
    out << "\n  ]\n}\n";
}

void WriteColumns(std::ostream& out, const Report& report) {
    constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();
    out << "family length ours_ns peer_ns ratio best_ratio other_ns other_ratio\n";
    for (const Comparison& c : report.comparisons) {
        out << c.family << ' ' << c.length << ' ' << report.Nanoseconds(c, kOurs) << ' '
            << report.Nanoseconds(c, kPeer) << ' ' << c.Ratio() << ' ' << c.BestRatio() << ' '
            << (c.has_other ? report.Nanoseconds(c, kOther) : kMissing) << ' ' << c.OtherRatio()
            << '\n';
    }
}

}  // namespace bench
