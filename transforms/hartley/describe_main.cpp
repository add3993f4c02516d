/**
 * @file
 * @brief Writes the sources of the Hartley kernels.
 *
 *     describe_hartley TARGET FOLDER [32f|64f]  the kernels and the dispatchers
 *     describe_hartley TARGET --manifest FILE   one line a kernel
 *
 * Of a level, only the kernels that it has for itself.
 */

#include <string>

#include "kernelgen/emission/generated_files.hpp"
#include "transforms/dft_real/kernels/real_kernel_source.hpp"
#include "transforms/hartley/hartley_kernel.hpp"

namespace {

using namespace dft_real;

void write_sources(const Target& target, const std::filesystem::path& folder,
                   const std::string& part) {
    for (Element element : kElements) {
        if (suffix(element) != part) continue;
        const std::string end = suffix(element) + ".cpp";
        for (int n : own_lengths(Kind::Hartley, element, target))
            kernelgen::write_if_changed(folder / (std::to_string(n) + "_" + end),
                                        kernel_source(hartley::hartley_kernel(n, element, target)));
        if (target.level_below != nullptr) continue;
        kernelgen::write_if_changed(folder / end, dispatcher_source(hartley::kFamily, element));
    }
}

void write_manifest(const Target& target, const std::filesystem::path& file) {
    std::string lines = manifest_header() + "\n";
    for (Element element : kElements) {
        for (int n : own_lengths(Kind::Hartley, element, target))
            lines += manifest_line(hartley::hartley_kernel(n, element, target)) + "\n";
    }
    kernelgen::write_if_changed(file, lines);
}

}  // namespace

int main(int argc, char** argv) {
    return kernelgen::describe(argc, argv, {{"32f", "64f"}, write_sources, write_manifest});
}
