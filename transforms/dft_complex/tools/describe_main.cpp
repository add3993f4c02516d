/**
 * @file
 * @brief Writes the sources of the complex DFT kernels: describe_dft_complex FOLDER [MANIFEST]
 *
 * FOLDER gets one file a kernel and the dispatchers; MANIFEST, where named, one line a kernel.
 */

#include <cstdio>
#include <exception>
#include <filesystem>

#include "kernelgen/emission/generated_files.hpp"
#include "transforms/dft_complex/kernels/complex_kernel_source.hpp"

namespace {

using namespace dft_complex;

void run(const std::filesystem::path& folder, const char* manifest) {
    std::filesystem::create_directories(folder);
    std::string lines = manifest_header() + "\n";
    for (Element element : kElements) {
        const std::string end = "_" + suffix(element) + ".cpp";
        for (Direction direction : kDirections) {
            const std::string prefix = direction == Direction::Forward ? "fwd" : "inv";
            for (int n : lengths()) {
                const Kernel kernel = proven_kernel(n, direction, element);
                kernelgen::write_if_changed(folder / (prefix + "_" + std::to_string(n) + end),
                                            kernel_source(kernel));
                if (manifest != nullptr) lines += manifest_line(kernel) + "\n";
            }
            kernelgen::write_if_changed(folder / (prefix + end),
                                        dispatcher_source(direction, element));
        }
    }
    if (manifest != nullptr) kernelgen::write_if_changed(manifest, lines);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3 || argv[1][0] == '-') {
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
