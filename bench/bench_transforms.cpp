#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <list>
#include <memory>
#include <stdexcept>

#include "batch_clock.hpp"
#include "comparison.hpp"
#include "core_clock.hpp"
#include "environment.hpp"
#include "fftw_peer.hpp"
#include "kernel_family.hpp"
#include "lengths.hpp"
#include "options.hpp"
#include "peer_figures.hpp"
#include "program.hpp"
#include "report.hpp"
#include "transform_case.hpp"
#include "transform_library.hpp"

namespace bench {
namespace {

struct Libraries {
    TransformLibrary ours;
    std::unique_ptr<TransformLibrary> other;
};

Libraries Open(const Options& options) {
    Libraries libraries{.ours = TransformLibrary(options.library), .other = nullptr};
    if (options.other.empty()) return libraries;
    libraries.other = std::make_unique<TransformLibrary>(options.other);
    if (libraries.other->base() == libraries.ours.base()) {
        throw std::runtime_error("'" + options.other + "' and '" + options.library +
                                 "' are the same file.\nTo see the noise of a comparison, "
                                 "compare with a copy of it.");
    }
    return libraries;
}

/** Says on the display only what went wrong: the table comes when all is measured. */
class ErrorReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (!run.error_occurred) continue;
            failed_ = true;
            std::cerr << run.run_name.function_name << ": " << run.error_message << '\n';
        }
    }
    bool failed() const { return failed_; }

  private:
    bool failed_ = false;
};

template <typename Fftw>
bool Measure(const Options& options, const std::vector<KernelFamily>& families,
             const Libraries& libraries, Report& report) {
    // Repetitions of all cases in random order spread the rounds of each over the whole run.
    const int repetitions = options.quick ? 2 : 12;
    const int rounds = options.quick ? 60 : 250;
    report.context.emplace_back("peer", Fftw::Version() + ", as the distribution packages it");

    std::list<Comparison> comparisons;
    std::list<TransformCase<Fftw>> cases;
    for (const KernelFamily& family : families) {
        const auto best_peer_shares = BestPeerShares(options.peer_figures, family.peer_figures);
        for (int length : kLengths) {
            Comparison& comparison = comparisons.emplace_back();
            comparison.family = family.name;
            comparison.length = length;
            if (const auto share = best_peer_shares.find(length); share != best_peer_shares.end()) {
                comparison.best_peer_share = share->second;
            }
            auto& added =
                cases.emplace_back(family, libraries.ours, libraries.other.get(), comparison);
            benchmark::RegisterBenchmark(family.BenchmarkName(length).c_str(),
                                         [&added](benchmark::State& state) { added.Run(state); })
                ->UseManualTime()
                ->Iterations(rounds)
                ->Repetitions(repetitions);
        }
    }
    ErrorReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const Comparison& comparison : comparisons) {
        if (comparison.rounds > 0) report.comparisons.push_back(comparison);
    }
    return !reporter.failed();
}

void WriteFiles(const std::string& stem, const Report& report) {
    const std::filesystem::path folder = std::filesystem::path(stem).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder);
    std::ofstream json(stem + ".json");
    WriteJson(json, report);
    std::ofstream columns(stem + ".dat");
    WriteColumns(columns, report);
    if (!json.flush() || !columns.flush()) {
        throw std::runtime_error("cannot write the figures to '" + stem + ".json' and '" + stem +
                                 ".dat'");
    }
}

int Run(Options options) {
    const std::vector<KernelFamily> families = FamiliesOf(options.type, options.layout);

    // Before Initialize, so that the user's own --benchmark_ option wins.
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::vector<char*>& arguments = options.for_google_benchmark;
    arguments.insert(arguments.begin() + 1, interleave.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (!options.filter.empty()) benchmark::SetBenchmarkFilter(options.filter);

    const Libraries libraries = Open(options);
    Report report;
    report.context = {
        {"type", options.type},
        {"cpu", CpuName()},
        {"pinned", AllowedCpus() == 1 ? "yes" : "no"},
        {"ours", libraries.ours.path()},
        {"ours built by", libraries.ours.Compiler()},
        {"bench built by", kOwnCompiler},
    };
    if (options.layout != SpectrumLayout::kCcs) {
        report.context.emplace_back("layout", LayoutName(options.layout));
    }
    if (libraries.other) {
        report.context.emplace_back("other", libraries.other->path());
        report.context.emplace_back("other built by", libraries.other->Compiler());
    }
    if (options.quick) report.context.emplace_back("rounds", "few: a first look, not a result");

    const TscRate tsc_rate;
    const bool is_single = options.type.starts_with("32");
    const bool all_measured =
        (is_single ? Measure<FftwSingle> : Measure<FftwDouble>)(options, families, libraries,
                                                                report);
    report.cycles_per_nanosecond = tsc_rate.CyclesPerNanosecond();
    report.core_cycles_per_tsc_cycle = CoreCyclesPerTscCycle();
    if (report.comparisons.empty()) throw std::runtime_error("nothing was measured");

    PrintTable(std::cout, report);
    if (!options.out.empty()) WriteFiles(options.out, report);
    return all_measured ? 0 : 1;
}

int Main(int argc, char** argv) {
    Options options = ParseOptions(argc, argv);
    return options.help ? 0 : Run(std::move(options));
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    return bench::Run("bench_transforms", bench::kUsage, bench::Main, argc, argv);
}
