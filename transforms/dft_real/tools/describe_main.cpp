/**
 * @file
 * @brief Writes the sources of the real-input DFT kernels.
 *
 *     describe_dft_real TARGET FOLDER [fwd_ccs_32f...]   the kernels and the dispatcher of each
 * part describe_dft_real TARGET --manifest FILE           one line a kernel of all parts
 *
 * Of a level, only the kernels that it has for itself.
 */

#include <cctype>
#include <functional>
#include <string>

#include "kernelgen/emission/generated_files.hpp"
#include "transforms/dft_real/kernels/real_dft_kernel.hpp"
#include "transforms/dft_real/kernels/real_kernel_source.hpp"

namespace {

using namespace dft_real;

std::string lower(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

/** Calls `use` for each family of each element with the name of its part, "fwd_ccs_32f". */
void for_each_part(const std::function<void(Direction, Layout, Element, const std::string&)>& use) {
    for (Direction direction : kDirections) {
        const std::string start = direction == Direction::Forward ? "fwd_" : "inv_";
        for (Layout layout : kLayouts) {
            for (Element element : kElements)
                use(direction, layout, element,
                    start + lower(to_string(layout)) + "_" + suffix(element));
        }
    }
}

void write_sources(const Target& target, const std::filesystem::path& folder,
                   const std::string& part) {
    for_each_part([&](Direction direction, Layout layout, Element element,
                      const std::string& name) {
        if (name != part) return;
        const std::string end = "_" + suffix(element) + ".cpp";
        const std::string start = name.substr(0, name.rfind('_') + 1);
        const Family family = family_of(direction, layout);
        for (int n : own_lengths(family.kind, element, target))
            kernelgen::write_if_changed(
                folder / (start + std::to_string(n) + end),
                kernel_source(dft_kernel(n, direction, layout, element, target)));
        if (target.level_below != nullptr) return;
        kernelgen::write_if_changed(folder / (name + ".cpp"), dispatcher_source(family, element));
    });
}

void write_manifest(const Target& target, const std::filesystem::path& file) {
    std::string lines = manifest_header() + "\n";
    for_each_part([&](Direction direction, Layout layout, Element element, const std::string&) {
        for (int n : own_lengths(family_of(direction, layout).kind, element, target))
            lines += manifest_line(dft_kernel(n, direction, layout, element, target)) + "\n";
    });
    kernelgen::write_if_changed(file, lines);
}

}  // namespace

int main(int argc, char** argv) {
    kernelgen::Describer describer{{}, write_sources, write_manifest};
    for_each_part([&](Direction, Layout, Element, const std::string& name) {
        describer.parts.push_back(name);
    });
    return kernelgen::describe(argc, argv, describer);
}
