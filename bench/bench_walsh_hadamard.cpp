#include <cmath>
#include <iomanip>
#include <iostream>

#include "batch_clock.hpp"
#include "core_clock.hpp"
#include "program.hpp"
#include "wht_comparison.hpp"

namespace bench {
namespace {

const char* const kUsage =
    "usage: bench_walsh_hadamard [OPTION]...\n"
    "\n"
    "Times the Walsh-Hadamard transforms of all orders side by side with a textbook loop.\n"
    "\n"
    "  --quick               fewer rounds: a first look, not a result\n"
    "  --library=FILE        the build to measure, instead of the one built with this program\n"
    "  --out=STEM            write STEM.json\n"
    "  --peer-figures=FILE   instead of bench/peers/TARGET.csv\n"
    "  --help                this text\n";

struct Run {
    std::vector<WhtComparison> comparisons;
    double core_cycles = 0;     ///< in a cycle of the TSC
    double per_nanosecond = 0;  ///< cycles of the TSC

    double CoreCycles(const WhtComparison& c) const { return c.ours * core_cycles; }
    double TimesBound(const WhtComparison& c) const { return CoreCycles(c) / c.Bound(); }
};

double GeometricMean(const Run& run, const std::string& type) {
    double sum_of_logs = 0;
    int count = 0;
    for (const WhtComparison& c : run.comparisons) {
        if (c.type != type) continue;
        sum_of_logs += std::log(c.Ratio());
        ++count;
    }
    return std::exp(sum_of_logs / count);
}

void PrintTable(const Run& run) {
    std::cout << "\nRatios above 1: ours is faster. Cycles are of the core, for one call: "
              << std::fixed << std::setprecision(3) << run.core_cycles
              << " to a cycle of the TSC.\n"
                 "specialised/loop: what another library reaches elsewhere, in 64-bit mode.\n\n"
                 "type order   ours ns  ours cycles   loop ns  loop/ours  specialised/loop"
                 "     bound  ours/bound\n";
    for (const WhtComparison& c : run.comparisons) {
        std::cout << std::setw(4) << c.type << std::setw(6) << c.order << std::setprecision(1)
                  << std::setw(10) << c.ours / run.per_nanosecond << std::setprecision(0)
                  << std::setw(13) << run.CoreCycles(c) << std::setprecision(1) << std::setw(10)
                  << c.textbook / run.per_nanosecond << std::setprecision(2) << std::setw(11)
                  << c.Ratio() << std::setw(18) << c.specialised_ratio << std::setprecision(0)
                  << std::setw(10) << c.Bound() << std::setprecision(2) << std::setw(12)
                  << run.TimesBound(c) << '\n';
    }
    std::cout << "\nloop / ours, geometric mean over all orders:" << std::setprecision(3)
              << "  32f " << GeometricMean(run, "32f") << "  64f " << GeometricMean(run, "64f")
              << '\n';
}

void WriteJson(const std::string& path, const Run& run) {
    std::ofstream out = Created(path);
    out << std::fixed << std::setprecision(4)
        << "{\n  \"core_cycles_per_tsc_cycle\": " << run.core_cycles
        << ",\n  \"geometric_mean_32f\": " << GeometricMean(run, "32f")
        << ",\n  \"geometric_mean_64f\": " << GeometricMean(run, "64f") << ",\n  \"results\": [";
    const char* separator = "";
    for (const WhtComparison& c : run.comparisons) {
        out << separator << "\n    {\"type\": \"" << c.type << "\", \"order\": " << c.order
            << ", \"ours_ns\": " << c.ours / run.per_nanosecond
            << ", \"loop_ns\": " << c.textbook / run.per_nanosecond
            << ", \"ours_tsc_cycles\": " << c.ours << ", \"loop_tsc_cycles\": " << c.textbook
            << ", \"ratio\": " << c.Ratio() << ", \"specialised_ratio\": " << c.specialised_ratio
            << ", \"ours_core_cycles\": " << run.CoreCycles(c) << ", \"bound\": " << c.Bound()
            << ", \"times_bound\": " << run.TimesBound(c) << '}';
        separator = ",";
    }
    out << "\n  ]\n}\n";
    Finish(out, path);
}

int Main(int argc, char** argv) {
    std::string library = DEFAULT_LIBRARY;
    std::string peer_figures = DEFAULT_PEER_FIGURES;
    std::string out;
    bool quick = false;
    const TextOptions texts = {
        {"--library=", &library}, {"--out=", &out}, {"--peer-figures=", &peer_figures}};
    if (!ReadOptions(argc, argv, kUsage, texts, quick)) return 0;

    const TransformLibrary ours(library);
    PrintEnvironment(ours);
    std::cout << "loop built by   " << kOwnCompiler << ", -O3\n";
    PrintRounds(quick);
    const TscRate tsc_rate;
    Run run;
    run.comparisons = CompareWht(ours, peer_figures, quick);
    run.core_cycles = CoreCyclesPerTscCycle();
    run.per_nanosecond = tsc_rate.CyclesPerNanosecond();
    PrintTable(run);
    if (!out.empty()) WriteJson(out + ".json", run);
    return 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    return bench::Run("bench_walsh_hadamard", bench::kUsage, bench::Main, argc, argv);
}
