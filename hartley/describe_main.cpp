/**
 * @file
 * @brief Writes the sources of the Hartley kernels: describe_hartley FOLDER [MANIFEST]
 *
 * FOLDER gets one file a kernel and the dispatchers; MANIFEST, where named, one line a kernel.
 */

#include <cstdio>
#include <exception>

#include "dft_real/generated_files.hpp"
#include "dft_real/real_kernel_source.hpp"
#include "hartley/kernels.hpp"

namespace {

using namespace dft_real;

void run(const std::filesystem::path& folder, const char* manifest) {
    std::filesystem::create_directories(folder);
    std::string lines = manifest_header() + "\n";
    for (Element element : kElements) {
        const std::string end = suffix(element) + ".cpp";
        for (int n = kShortestLength; n <= kLongestLength; ++n) {
            const RealKernel kernel = hartley::hartley_kernel(n, element);
            write_if_changed(folder / (std::to_string(n) + "_" + end), kernel_source(kernel));
            if (manifest != nullptr) lines += manifest_line(kernel) + "\n";
        }
        write_if_changed(folder / end, dispatcher_source(hartley::kFamily, element));
    }
    if (manifest != nullptr) write_if_changed(manifest, lines);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: %s FOLDER [MANIFEST]\n", argv[0]);
        return 2;
    }
    try {
        run(argv[1], argc == 3 ? argv[2] : nullptr);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}
