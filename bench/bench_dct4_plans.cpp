/**
 * @file
 * @brief What a plan of the DCT-IV costs: bytes, and time to make and to destroy, for each length.
 */

#include <qsvgen.h>

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "batch_clock.hpp"
#include "program.hpp"
#include "transform_library.hpp"

namespace bench {
namespace {

const char* const kUsage =
    "usage: bench_dct4_plans [OPTION]...\n"
    "\n"
    "Times the making and destroying of DCT-IV plans of all powers of two to 2^20.\n"
    "\n"
    "  --quick         fewer rounds: a first look, not a result\n"
    "  --library=FILE  the build to measure, instead of the one built with this program\n"
    "  --out=STEM      write STEM.json\n"
    "  --help          this text\n";

constexpr int32_t kLongest = 1 << 20;

struct PlanCost {
    std::string type;
    int32_t length;
    int32_t bytes;
    double init;        ///< TSC cycles of Init in the caller's buffer, fewest of all rounds
    double init_alloc;  ///< of InitAlloc and Free together
};

/** The functions of one element type, their plans without a type of their own. */
struct PlanFunctions {
    using Size = QsvStatus(int32_t, int32_t*);
    using Init = QsvStatus(void**, int32_t, uint8_t*);
    using InitAlloc = QsvStatus(void**, int32_t);
    using Free = QsvStatus(void*);

    PlanFunctions(const TransformLibrary& library, const std::string& type)
        : size(library.Exported<Size>("qsvgDCT4GetSize_" + type)),
          init(library.Exported<Init>("qsvgDCT4Init_" + type)),
          init_alloc(library.Exported<InitAlloc>("qsvgDCT4InitAlloc_" + type)),
          free(library.Exported<Free>("qsvgDCT4Free_" + type)) {}

    Size* size;
    Init* init;
    InitAlloc* init_alloc;
    Free* free;
};

void Require(QsvStatus status) {
    if (status != qsvStatusOk) throw std::runtime_error("status " + std::to_string(status));
}

PlanCost Measure(const PlanFunctions& functions, const std::string& type, int32_t length,
                 int rounds) {
    PlanCost cost = {type, length, 0, std::numeric_limits<double>::infinity(),
                     std::numeric_limits<double>::infinity()};
    Require(functions.size(length, &cost.bytes));
    std::vector<uint8_t> buffer(static_cast<size_t>(cost.bytes) + 16);
    void* plan = nullptr;
    const auto init = [&] { Require(functions.init(&plan, length, buffer.data())); };
    const auto init_alloc = [&] {
        Require(functions.init_alloc(&plan, length));
        Require(functions.free(plan));
    };
    // Long plans fill a batch by themselves.
    const int calls = length > 4096 ? 1 : CallsPerBatch(init);
    for (int round = 0; round < rounds; ++round) {
        cost.init = std::min(cost.init, static_cast<double>(TimeBatch(calls, init)) / calls);
        cost.init_alloc =
            std::min(cost.init_alloc, static_cast<double>(TimeBatch(calls, init_alloc)) / calls);
    }
    return cost;
}

std::vector<PlanCost> MeasureAll(const TransformLibrary& library, bool quick) {
    std::vector<PlanCost> costs;
    for (const std::string type : {"32f", "64f"}) {
        const PlanFunctions functions(library, type);
        for (int32_t length = 2; length <= kLongest; length *= 2) {
            const int rounds = std::max(3, (quick ? 1 << 16 : 1 << 20) / std::max(length, 1 << 12));
            costs.push_back(Measure(functions, type, length, rounds));
        }
    }
    return costs;
}

void PrintTable(const std::vector<PlanCost>& costs, double per_nanosecond) {
    std::cout << "\nBytes and time of one plan; elements are those of the length.\n\n"
                 "type   length      bytes  bytes/element      init us  init ns/element"
                 "  init+alloc+free us\n"
              << std::fixed;
    for (const PlanCost& c : costs) {
        const double nanoseconds = c.init / per_nanosecond;
        std::cout << std::setw(4) << c.type << std::setw(9) << c.length << std::setw(11) << c.bytes
                  << std::setprecision(2) << std::setw(15)
                  << static_cast<double>(c.bytes) / c.length << std::setprecision(3)
                  << std::setw(13) << nanoseconds / 1000 << std::setprecision(1) << std::setw(17)
                  << nanoseconds / c.length << std::setprecision(3) << std::setw(20)
                  << c.init_alloc / per_nanosecond / 1000 << '\n';
    }
}

void WriteJson(const std::string& path, const std::vector<PlanCost>& costs, double per_nanosecond) {
    std::ofstream out = Created(path);
    out << std::fixed << std::setprecision(1) << "{\n  \"results\": [";
    const char* separator = "";
    for (const PlanCost& c : costs) {
        out << separator << "\n    {\"type\": \"" << c.type << "\", \"length\": " << c.length
            << ", \"bytes\": " << c.bytes << ", \"init_ns\": " << c.init / per_nanosecond
            << ", \"init_alloc_free_ns\": " << c.init_alloc / per_nanosecond << '}';
        separator = ",";
    }
    out << "\n  ]\n}\n";
    Finish(out, path);
}

int Main(int argc, char** argv) {
    std::string library = DEFAULT_LIBRARY;
    std::string out;
    bool quick = false;
    const TextOptions texts = {{"--library=", &library}, {"--out=", &out}};
    if (!ReadOptions(argc, argv, kUsage, texts, quick)) return 0;

    const TransformLibrary ours(library);
    PrintEnvironment(ours);
    PrintRounds(quick);
    const TscRate tsc_rate;
    const std::vector<PlanCost> costs = MeasureAll(ours, quick);
    const double per_nanosecond = tsc_rate.CyclesPerNanosecond();
    PrintTable(costs, per_nanosecond);
    if (!out.empty()) WriteJson(out + ".json", costs, per_nanosecond);
    return 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    return bench::Run("bench_dct4_plans", bench::kUsage, bench::Main, argc, argv);
}
