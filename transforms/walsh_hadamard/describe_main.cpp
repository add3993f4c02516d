/**
 * @file
 * @brief Writes the sources of the Walsh-Hadamard kernels.
 *
 *     describe_walsh_hadamard TARGET FOLDER [32f|64f]  the kernels and the dispatchers
 *     describe_walsh_hadamard TARGET --manifest FILE   one line a kernel
 */

#include <string>

#include "kernelgen/emission/generated_files.hpp"
#include "transforms/walsh_hadamard/walsh_hadamard_source.hpp"

namespace {

using namespace walsh_hadamard;

void write_sources(const kernelgen::Target& target, const std::filesystem::path& folder,
                   const std::string& part) {
    for (Element element : kElements) {
        if (suffix(element) != part) continue;
        const std::string end = suffix(element) + ".cpp";
        for (int order = kLowestOrder; order <= kHighestOrder; ++order)
            kernelgen::write_if_changed(folder / (std::to_string(order) + "_" + end),
                                        kernel_source(proven_kernel(order, element, target)));
        kernelgen::write_if_changed(folder / end, dispatcher_source(element));
    }
}

void write_manifest(const kernelgen::Target& target, const std::filesystem::path& file) {
    std::string lines = manifest_header() + "\n";
    for (Element element : kElements) {
        for (int order = kLowestOrder; order <= kHighestOrder; ++order)
            lines += manifest_line(proven_kernel(order, element, target)) + "\n";
    }
    kernelgen::write_if_changed(file, lines);
}

}  // namespace

int main(int argc, char** argv) {
    return kernelgen::describe(argc, argv, {{"32f", "64f"}, write_sources, write_manifest});
}
