#include <cmath>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "batch_clock.hpp"
#include "environment.hpp"
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
    "  --peer-figures=FILE   instead of bench/peers.csv\n"
    "  --help                this text\n";

#ifdef __clang__
constexpr const char* kOwnCompiler = __VERSION__;
#else
constexpr const char* kOwnCompiler = "GCC " __VERSION__;
#endif

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
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder);
    std::ofstream out(path);
    out << std::fixed << std::setprecision(4)
        << "{\n  \"core_cycles_per_tsc_cycle\": " << run.core_cycles
        << ",\n  \"geometric_mean_32f\": " << GeometricMean(run, "32f")
        << ",\n  \"geometric_mean_64f\": " << GeometricMean(run, "64f") << ",\n  \"results\": [";
    const char* separator = "";
    for (const WhtComparison& c : run.comparisons) {
        out << separator << "\n    {\"type\": \"" << c.type << "\", \"order\": " << c.order
            << ", \"ours_tsc_cycles\": " << c.ours << ", \"loop_tsc_cycles\": " << c.textbook
            << ", \"ratio\": " << c.Ratio() << ", \"specialised_ratio\": " << c.specialised_ratio
            << ", \"ours_core_cycles\": " << run.CoreCycles(c) << ", \"bound\": " << c.Bound()
            << ", \"times_bound\": " << run.TimesBound(c) << '}';
        separator = ",";
    }
    out << "\n  ]\n}\n";
    if (!out.flush()) throw std::runtime_error("cannot write '" + path + "'");
}

int Main(int argc, char** argv) {
    std::string library = DEFAULT_LIBRARY;
    std::string peer_figures = DEFAULT_PEER_FIGURES;
    std::string out;
    bool quick = false;
    const std::pair<std::string_view, std::string*> texts[] = {
        {"--library=", &library}, {"--out=", &out}, {"--peer-figures=", &peer_figures}};
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        bool known = argument == "--quick";
        quick = quick || known;
        if (argument == "--help") {
            std::cout << kUsage;
            return 0;
        }
        for (const auto& [name, text] : texts) {
            if (!argument.starts_with(name)) continue;
            *text = argument.substr(name.size());
            known = true;
        }
        if (!known) throw std::invalid_argument("unknown option '" + std::string(argument) + "'");
    }

    const TransformLibrary ours(library);
    std::cout << "cpu             " << CpuName() << "\npinned          "
              << (AllowedCpus() == 1 ? "yes" : "no") << "\nours            " << ours.path()
              << "\nours built by   " << ours.Compiler() << "\nloop built by   " << kOwnCompiler
              << ", -O3\n";
    if (quick) std::cout << "rounds          few: a first look, not a result\n";
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
    try {
        return bench::Main(argc, argv);
    } catch (const std::invalid_argument& error) {
        std::cerr << "bench_walsh_hadamard: " << error.what() << '\n' << bench::kUsage;
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "bench_walsh_hadamard: " << error.what() << '\n';
        return 1;
    }
}
