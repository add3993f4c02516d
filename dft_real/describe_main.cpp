/**
 * @file
 * @brief Writes the sources of the real-input DFT kernels: describe_dft_real FOLDER [MANIFEST]
 *
 * FOLDER gets one file a kernel and the dispatchers; MANIFEST, where named, one line a kernel.
 */

#include <cctype>
#include <cstdio>
#include <exception>

#include "dft_real/generated_files.hpp"
#include "dft_real/kernels.hpp"
#include "dft_real/real_kernel_source.hpp"

namespace {

using namespace dft_real;

std::string lower(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

void run(const std::filesystem::path& folder, const char* manifest) {
    std::filesystem::create_directories(folder);
    std::string lines = manifest_header() + "\n";
    for (Direction direction : kDirections) {
        const std::string start = direction == Direction::Forward ? "fwd_" : "inv_";
        for (Layout layout : kLayouts) {
            const std::string stem = start + lower(to_string(layout)) + "_";
            for (Element element : kElements) {
                const std::string end = suffix(element) + ".cpp";
                for (int n = kShortestLength; n <= kLongestLength; ++n) {
                    const RealKernel kernel = dft_kernel(n, direction, layout, element);
                    write_if_changed(folder / (stem + std::to_string(n) + "_" + end),
                                     kernel_source(kernel));
                    if (manifest != nullptr) lines += manifest_line(kernel) + "\n";
                }
                write_if_changed(folder / (stem + end),
                                 dispatcher_source(family_of(direction, layout), element));
            }
        }
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
