/**
 * @file
 * @brief Writes a body of the DCT-IV in its most promising orders: tune_dct4 TARGET STEP RULE TYPE
 * FOLDER
 *
 * STEP is analysis, synthesis, dft or inline; where it has no body of that rule there are no
 * candidates. FOLDER gets the body as 0.hpp and so on and around it 0.cpp, an exported function
 * that moves its vectors as the loops of the library do; for each the modelled traffic and the row
 * of recorded/tuned_TYPE.inc are printed.
 */

#include <cstdio>
#include <exception>

#include "kernelgen/emission/candidates.hpp"
#include "transforms/dct4/dct4_body_source.hpp"
#include "transforms/dct4/recorded/tuning.hpp"

namespace {

using namespace dct4;

constexpr int kSeeds = 24;
constexpr std::size_t kOrders = 7;

/** Includes the body from `header`. */
std::string timed_source(const Kernel& kernel, const std::string& header) {
    const char* const macros[] = {"ANALYSIS", "SYNTHESIS", "DFT", "INLINE"};
    const std::string body =
        kernel.step == Step::Inline ? kernel.stem() : std::to_string(kernel.rule);
    return "#define QSVG_REAL_BITS " + std::to_string(8 * bytes(kernel.element)) +
           "\n#include \"transforms/dct4/tools/timed_body.hpp\"\n#include \"" + header +
           "\"\nQSVG_TIMED_" + macros[static_cast<int>(kernel.step)] + "(" + kernel.name() + ", " +
           body + ")\n";
}

void write_orders(BodyKey key, Element element, const kernelgen::Target& target,
                  const std::filesystem::path& folder) {
    Kernel kernel = proven_kernel(key, element, target);
    kernelgen::Candidates candidates(folder);
    const std::vector<kernelgen::Schedule> found =
        kernelgen::search_schedules(kernel.graph, target, kSeeds);
    for (std::size_t rank = 0; rank < std::min(found.size(), kOrders); ++rank) {
        kernel.method = found[rank].method;
        const std::string header = candidates.stem() + ".hpp";
        kernelgen::write_if_changed(folder / header, kernel_source(kernel));
        candidates.add(timed_source(kernel, header), found[rank],
                       kernelgen::table_row({kernel.stem(), {kernel.method}}));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 6) {
        std::fprintf(stderr, "usage: %s TARGET STEP RULE 32f|64f FOLDER\n", argv[0]);
        return 2;
    }
    try {
        const kernelgen::Target& target = kernelgen::target_named(argv[1]);
        const std::string stem = std::string(argv[2]) + "_" + argv[3];
        std::filesystem::create_directories(argv[5]);
        for (Element element : kElements) {
            for (BodyKey key : all_bodies()) {
                if (suffix(element) == argv[4] && described_kernel(key, element).stem() == stem)
                    write_orders(key, element, target, argv[5]);
            }
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}
