#include <filesystem>
#include <iostream>
#include <map>
#include <regex>
#include <stdexcept>

#include "batch_clock.hpp"
#include "batch_comparison.hpp"
#include "batch_peer_figures.hpp"
#include "batch_remainders.hpp"
#include "batch_report.hpp"
#include "batch_runner.hpp"
#include "core_clock.hpp"
#include "environment.hpp"
#include "levels.hpp"
#include "program.hpp"

namespace bench {
namespace {

const char* const kUsage =
    "usage: bench_batch [OPTION]...\n"
    "\n"
    "Times batches of 64 and of 255 transforms, contiguous and in columns, side by side with "
    "FFTW's\n"
    "plans for many transforms and with single calls in a loop, of all lengths.\n"
    "\n"
    "  --filter=REGEX        only these, by names such as dft_complex/fwd/15/32fc/columns/255,\n"
    "                        dft_real/inv/15/32f/contiguous/64, hartley/15/64f/columns/64 or\n"
    "                        walsh_hadamard/4/32f/columns/64 (of order 4)\n"
    "  --remainders          instead of FFTW, counts from 1 to 64 and around 256\n"
    "  --lengths             a line for each length, too\n"
    "  --quick               fewer rounds, and plans by FFTW_MEASURE: a first look, not a result\n"
    "  --level=LEVEL         baseline, x86-64-v3 or x86-64-v4: the library to measure, of those\n"
    "                        built with this program; the highest that the processor has if not\n"
    "                        given\n"
    "  --library=FILE        another build to measure\n"
    "  --other=FILE          a second build of the library, to be timed in the same rounds\n"
    "  --out=STEM            write STEM.json and STEM.dat\n"
    "  --wisdom=FOLDER       where FFTW's plans are kept for the next run\n"
    "  --peer-figures=FILE   instead of bench/peers/TARGET_batches.csv\n"
    "  --help                this text\n";

struct Options {
    std::string filter;
    std::string level;
    std::string library;
    std::string other;
    std::string out;
    std::string wisdom;
    std::string peer_figures = DEFAULT_PEER_FIGURES;
    bool remainders = false;
    bool lengths = false;
    bool quick = false;
};

std::vector<BatchCase> ComparisonCases() {
    std::vector<BatchCase> cases;
    for (const BatchFamily& family : BatchFamilies()) {
        for (const BatchLayout layout : {BatchLayout::kContiguous, BatchLayout::kColumns}) {
            for (const int count : {64, 255}) {
                for (const int size : family.Sizes())
                    cases.push_back(
                        {.family = &family, .layout = layout, .size = size, .count = count});
            }
        }
    }
    return cases;
}

std::vector<BatchCase> CasesOf(const Options& options) {
    std::vector<BatchCase> cases = options.remainders ? RemainderCases() : ComparisonCases();
    if (!options.filter.empty()) {
        const std::regex filter(options.filter);
        std::erase_if(cases, [&filter](const BatchCase& of) {
            return !std::regex_search(of.Name(), filter);
        });
    }
    if (cases.empty()) throw std::invalid_argument("the filter leaves nothing to measure");
    return cases;
}

/** All shares of a run's groups, each read once. */
void AddPeerFigures(const std::string& path, std::vector<BatchComparison>& comparisons) {
    // Not every target's peers have been measured.
    if (path.empty()) return;
    std::map<std::tuple<std::string, BatchLayout, int>, std::map<int, BatchPeerShares>> known;
    for (BatchComparison& comparison : comparisons) {
        const BatchCase& of = comparison.of;
        const auto [found, is_new] =
            known.try_emplace({of.family->peer_figures, of.layout, of.count});
        if (is_new)
            found->second = BatchPeerSharesOf(path, of.family->peer_figures, of.layout, of.count);
        const auto shares = found->second.find(of.size);
        if (shares == found->second.end()) continue;
        comparison.best_avx2_share = shares->second.avx2;
        comparison.best_any_share = shares->second.any;
    }
}

/** Long vectors and many sums: what a processor may slow its clock for. */
double CoreCyclesBetweenBatches(const BatchLibraries& libraries) {
    const BatchCase of{.family = &BatchFamilies().front(),
                       .layout = BatchLayout::kColumns,
                       .size = 64,
                       .count = 64,
                       .has_plan = false};
    const BatchArrays<Real32> arrays;
    const BatchRunner<FftwSingle> runner(arrays, libraries, of, 0);
    return CoreCyclesPerTscCycleAfter([&runner] { runner.RunBatch(); });
}

void WriteFiles(const std::string& stem, const BatchReport& report) {
    std::ofstream json = Created(stem + ".json");
    WriteJson(json, report);
    Finish(json, stem + ".json");
    std::ofstream columns = Created(stem + ".dat");
    WriteColumns(columns, report);
    Finish(columns, stem + ".dat");
}

int Main(int argc, char** argv) {
    Options options;
    const TextOptions texts = {{"--filter=", &options.filter},
                               {"--level=", &options.level},
                               {"--library=", &options.library},
                               {"--other=", &options.other},
                               {"--out=", &options.out},
                               {"--wisdom=", &options.wisdom},
                               {"--peer-figures=", &options.peer_figures}};
    const FlagOptions flags = {{"--remainders", &options.remainders},
                               {"--lengths", &options.lengths},
                               {"--quick", &options.quick}};
    if (!ReadOptions(argc, argv, kUsage, texts, flags)) return 0;
    if (!options.library.empty() && !options.level.empty())
        throw std::invalid_argument("--library and --level exclude each other");
    const std::vector<BatchCase> cases = CasesOf(options);
    if (options.library.empty()) {
        if (options.level.empty()) options.level = HighestLevel();
        options.library = LibraryOfLevel(options.level);
    }

    BatchLibraries libraries{.ours = TransformLibrary(options.library), .other = nullptr};
    if (!options.other.empty()) libraries.other = std::make_unique<TransformLibrary>(options.other);
    if (libraries.other && libraries.other->base() == libraries.ours.base())
        throw std::runtime_error("'" + options.other + "' is what is measured already");
    BatchReport report;
    report.context = {
        {"cpu", CpuName()},
        {"pinned", AllowedCpus() == 1 ? "yes" : "no"},
        {"level", options.level.empty() ? "-" : options.level},
        {"ours", libraries.ours.path()},
        {"ours built by", libraries.ours.Compiler()},
        {"bench built by", kOwnCompiler},
        {"peer", FftwSingle::Version() + ", as the distribution packages it"},
    };
    if (libraries.other) report.context.emplace_back("other", libraries.other->path());
    if (options.quick) report.context.emplace_back("rounds", "few: a first look, not a result");

    const TscRate tsc_rate;
    BatchRun run{.quick = options.quick, .wisdom = options.wisdom};
    if (options.quick) {
        run.repetitions = 2;
        run.rounds = 10;
    }
    report.comparisons = CompareBatches(cases, libraries, run);
    AddPeerFigures(options.peer_figures, report.comparisons);
    report.cycles_per_nanosecond = tsc_rate.CyclesPerNanosecond();
    report.core_cycles_per_tsc_cycle = CoreCyclesPerTscCycle();
    report.core_cycles_per_tsc_cycle_between_calls = CoreCyclesBetweenBatches(libraries);

    PrintContext(std::cout, report);
    if (options.lengths) PrintComparisons(std::cout, report);
    (options.remainders ? PrintRemainders : PrintGroups)(std::cout, report);
    if (!options.out.empty()) WriteFiles(options.out, report);
    return 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    return bench::Run("bench_batch", bench::kUsage, bench::Main, argc, argv);
}
