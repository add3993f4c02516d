/**
 * @file
 * @brief Writes the straight-line bodies of the DCT-IV.
 *
 *     describe_dct4 TARGET FOLDER [32f|64f]  one header a body, in a folder for each element
 *     describe_dct4 TARGET --manifest FILE   one line a body
 */

#include <string>

#include "kernelgen/emission/generated_files.hpp"
#include "transforms/dct4/dct4_body_source.hpp"

namespace {

using namespace dct4;

void write_sources(const kernelgen::Target& target, const std::filesystem::path& folder,
                   const std::string& part) {
    for (Element element : kElements) {
        if (suffix(element) != part) continue;
        const std::filesystem::path place = folder / suffix(element) / "dct4_bodies";
        std::filesystem::create_directories(place);
        for (BodyKey key : all_bodies()) {
            const Kernel kernel = proven_kernel(key, element, target);
            kernelgen::write_if_changed(place / (kernel.stem() + ".hpp"), kernel_source(kernel));
        }
    }
}

void write_manifest(const kernelgen::Target& target, const std::filesystem::path& file) {
    std::string lines = manifest_header() + "\n";
    for (Element element : kElements) {
        for (BodyKey key : all_bodies())
            lines += manifest_line(proven_kernel(key, element, target)) + "\n";
    }
    kernelgen::write_if_changed(file, lines);
}

}  // namespace

int main(int argc, char** argv) {
    return kernelgen::describe(argc, argv, {{"32f", "64f"}, write_sources, write_manifest});
}
