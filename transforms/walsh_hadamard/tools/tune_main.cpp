/**
 * @file
 * @brief Writes a Walsh-Hadamard kernel with one of its bodies in its most promising orders:
 * tune_walsh_hadamard TARGET BODY ORDER TYPE FOLDER
 *
 * BODY is transform, row, middle_columns or final_columns; a kernel without it has no candidates.
 * The other bodies are as they are settled. FOLDER gets 0.cpp and so on; for each its modelled
 * traffic and the row of recorded/tuned_TYPE.inc are printed.
 */

#include <cstdio>
#include <exception>

#include "kernelgen/emission/candidates.hpp"
#include "transforms/walsh_hadamard/recorded/tuning.hpp"
#include "transforms/walsh_hadamard/walsh_hadamard_source.hpp"

namespace {

using namespace walsh_hadamard;

constexpr int kSeeds = 24;
constexpr std::size_t kOrders = 7;
// Of GCC's register allocator and what runs before it. They hold for all bodies of a kernel, so
// that the first settles them.
constexpr const char* kOptions[] = {"", "no-live-range-shrinkage", "no-tree-ter"};

void write_orders(const std::string& name, int order, Element element,
                  const kernelgen::Target& target, const std::filesystem::path& folder) {
    Kernel kernel = proven_kernel(order, element, target);
    kernelgen::Candidates candidates(folder);
    for (std::size_t i = 0; i < kernel.bodies.size(); ++i) {
        Body& body = kernel.bodies[i];
        if (body.name != name) continue;
        const std::vector<kernelgen::Schedule> found =
            kernelgen::search_schedules(body.graph, target, kSeeds);
        for (std::size_t rank = 0; rank < std::min(found.size(), kOrders); ++rank) {
            body.method = found[rank].method;
            for (const std::string option : kOptions) {
                if (i > 0 && !option.empty()) continue;
                if (i == 0) kernel.option = option;
                candidates.add(kernel_source(kernel), found[rank],
                               kernelgen::table_row(
                                   {name_in_table(order, element, name), {body.method, option}}));
            }
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 6) {
        std::fprintf(stderr, "usage: %s TARGET BODY ORDER 32f|64f FOLDER\n", argv[0]);
        return 2;
    }
    try {
        for (Element element : kElements) {
            if (suffix(element) == argv[4])
                write_orders(argv[2], std::stoi(argv[3]), element, kernelgen::target_named(argv[1]),
                             argv[5]);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}
