/**
 * @file
 * @brief Writes the sources of the complex DFT kernels.
 *
 *     describe_dft_complex TARGET FOLDER [fwd_32fc...]   the kernels and the dispatcher of each
 * part describe_dft_complex TARGET --manifest FILE        one line a kernel
 *
 * Of a level, only the kernels that it has for itself.
 */

#include "kernelgen/emission/generated_files.hpp"
#include "transforms/dft_complex/kernels/complex_kernel_source.hpp"

namespace {

using namespace dft_complex;

std::string stem(Direction direction) {
    return direction == Direction::Forward ? "fwd_" : "inv_";
}

void write_sources(const Target& target, const std::filesystem::path& folder,
                   const std::string& part) {
    for (Element element : kElements) {
        const std::string end = suffix(element) + ".cpp";
        for (Direction direction : kDirections) {
            if (stem(direction) + suffix(element) != part) continue;
            for (int n : own_lengths(element, target))
                kernelgen::write_if_changed(
                    folder / (stem(direction) + std::to_string(n) + "_" + end),
                    kernel_source(proven_kernel(n, direction, element, target)));
            if (target.level_below != nullptr) continue;
            kernelgen::write_if_changed(folder / (stem(direction) + end),
                                        dispatcher_source(direction, element));
        }
    }
}

void write_manifest(const Target& target, const std::filesystem::path& file) {
    std::string lines = manifest_header() + "\n";
    for (Element element : kElements) {
        for (Direction direction : kDirections) {
            for (int n : own_lengths(element, target))
                lines += manifest_line(proven_kernel(n, direction, element, target)) + "\n";
        }
    }
    kernelgen::write_if_changed(file, lines);
}

}  // namespace

int main(int argc, char** argv) {
    return kernelgen::describe(
        argc, argv,
        {{"fwd_32fc", "inv_32fc", "fwd_64fc", "inv_64fc"}, write_sources, write_manifest});
}
