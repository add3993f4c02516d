#include <cmath>
#include <iomanip>
#include <iostream>
#include <string>

#include "batch_clock.hpp"
#include "core_clock.hpp"
#include "dct4_comparison.hpp"
#include "fftw_peer.hpp"
#include "program.hpp"

namespace bench {
namespace {

const char* const kUsage =
    "usage: bench_dct4 [OPTION]...\n"
    "\n"
    "Times the DCT-IV of powers of two side by side with FFTW's REDFT11 and with what is composed\n"
    "of FFTW's complex DFT of half the length and two loops of products.\n"
    "\n"
    "  --quick          fewer rounds and FFTW_MEASURE: a first look, not a result\n"
    "  --library=FILE   the build to measure, instead of the one built with this program\n"
    "  --longest=N      the last length; 65536 if not given\n"
    "  --out=STEM       write STEM.json\n"
    "  --help           this text\n";

using Ratio = double (Dct4Comparison::*)() const;

double GeometricMean(const std::vector<Dct4Comparison>& comparisons, const std::string& type,
                     Ratio ratio) {
    double sum_of_logs = 0;
    int count = 0;
    for (const Dct4Comparison& c : comparisons) {
        if (c.type != type) continue;
        sum_of_logs += std::log((c.*ratio)());
        ++count;
    }
    return std::exp(sum_of_logs / count);
}

void PrintTable(const std::vector<Dct4Comparison>& comparisons, double per_nanosecond) {
    std::cout << "\nRatios above 1: ours is faster.\n\n"
                 "type  length     ours ns  REDFT11 ns  composed ns  REDFT11/ours  composed/ours\n"
              << std::fixed;
    for (const Dct4Comparison& c : comparisons) {
        std::cout << std::setw(4) << c.type << std::setw(8) << c.length << std::setprecision(1)
                  << std::setw(12) << c.ours / per_nanosecond << std::setw(12)
                  << c.redft11 / per_nanosecond << std::setw(13) << c.composed / per_nanosecond
                  << std::setprecision(2) << std::setw(14) << c.Redft11Ratio() << std::setw(15)
                  << c.ComposedRatio() << '\n';
    }
    std::cout << "\nGeometric means over all lengths:\n" << std::setprecision(3);
    for (const char* type : {"32f", "64f"}) {
        std::cout << "  " << type << "  REDFT11 / ours "
                  << GeometricMean(comparisons, type, &Dct4Comparison::Redft11Ratio)
                  << "  composed / ours "
                  << GeometricMean(comparisons, type, &Dct4Comparison::ComposedRatio) << '\n';
    }
}

void WriteJson(const std::string& path, const std::vector<Dct4Comparison>& comparisons,
               double per_nanosecond, double core_cycles) {
    std::ofstream out = Created(path);
    out << std::fixed << std::setprecision(4)
        << "{\n  \"core_cycles_per_tsc_cycle\": " << core_cycles << ",\n  \"results\": [";
    const char* separator = "";
    for (const Dct4Comparison& c : comparisons) {
        out << separator << "\n    {\"type\": \"" << c.type << "\", \"length\": " << c.length
            << ", \"ours_ns\": " << c.ours / per_nanosecond << ", \"ours_cycles\": " << c.ours
            << ", \"redft11_ns\": " << c.redft11 / per_nanosecond
            << ", \"composed_ns\": " << c.composed / per_nanosecond << '}';
        separator = ",";
    }
    out << "\n  ]\n}\n";
    Finish(out, path);
}

int Main(int argc, char** argv) {
    std::string library = DEFAULT_LIBRARY;
    std::string out;
    std::string longest = "65536";
    bool quick = false;
    const TextOptions texts = {
        {"--library=", &library}, {"--longest=", &longest}, {"--out=", &out}};
    if (!ReadOptions(argc, argv, kUsage, texts, quick)) return 0;

    const TransformLibrary ours(library);
    PrintEnvironment(ours);
    std::cout << "peer            " << FftwSingle::Version() << "\nloops built by  " << kOwnCompiler
              << ", -O3\n";
    PrintRounds(quick);
    const TscRate tsc_rate;
    const std::vector<Dct4Comparison> comparisons = CompareDct4(ours, std::stoi(longest), quick);
    const double per_nanosecond = tsc_rate.CyclesPerNanosecond();
    PrintTable(comparisons, per_nanosecond);
    if (!out.empty())
        WriteJson(out + ".json", comparisons, per_nanosecond, CoreCyclesPerTscCycle());
    return 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    return bench::Run("bench_dct4", bench::kUsage, bench::Main, argc, argv);
}
