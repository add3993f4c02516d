/**
 * @file
 * @brief Writes the sources of the real-input DFT kernels.
 *
 *     describe_dft_real FOLDER fwd_ccs 32f   the kernels and the dispatcher of one family
 *     describe_dft_real --manifest FILE      one line a kernel of all families
 */

#include <cctype>
#include <cstdio>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "kernelgen/emission/generated_files.hpp"
#include "transforms/dft_real/kernels/real_dft_kernel.hpp"
#include "transforms/dft_real/kernels/real_kernel_source.hpp"

namespace {

using namespace dft_real;

std::string lower(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

/** Calls `use` with the direction and the layout of each family and "fwd_ccs" or the like. */
void for_each_family(const std::function<void(Direction, Layout, const std::string&)>& use) {
    for (Direction direction : kDirections) {
        const std::string start = direction == Direction::Forward ? "fwd_" : "inv_";
        for (Layout layout : kLayouts) use(direction, layout, start + lower(to_string(layout)));
    }
}

void write_family(const std::filesystem::path& folder, const std::string& wanted,
                  const std::string& type) {
    bool known = false;
    for_each_family([&](Direction direction, Layout layout, const std::string& stem) {
        for (Element element : kElements) {
            if (stem != wanted || suffix(element) != type) continue;
            known = true;
            const std::string end = "_" + type + ".cpp";
            for (int n : lengths())
                kernelgen::write_if_changed(
                    folder / (stem + "_" + std::to_string(n) + end),
                    kernel_source(dft_kernel(n, direction, layout, element)));
            kernelgen::write_if_changed(folder / (stem + end),
                                        dispatcher_source(family_of(direction, layout), element));
        }
    });
    if (!known) throw std::invalid_argument("no family " + wanted + " of type " + type);
}

void write_manifest(const std::filesystem::path& file) {
    std::string lines = manifest_header() + "\n";
    for_each_family([&](Direction direction, Layout layout, const std::string&) {
        for (Element element : kElements) {
            for (int n : lengths())
                lines += manifest_line(dft_kernel(n, direction, layout, element)) + "\n";
        }
    });
    kernelgen::write_if_changed(file, lines);
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool manifest = words.size() == 2 && words[0] == "--manifest";
    if (!manifest && (words.size() != 3 || words[0].starts_with('-'))) {
        std::fprintf(stderr, "usage: %s FOLDER FAMILY TYPE | --manifest FILE\n", argv[0]);
        return 2;
    }
    try {
        if (manifest) {
            write_manifest(words[1]);
        } else {
            std::filesystem::create_directories(words[0]);
            write_family(words[0], words[1], words[2]);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}
