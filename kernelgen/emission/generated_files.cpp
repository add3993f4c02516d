#include "kernelgen/emission/generated_files.hpp"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "kernelgen/values/fnv.hpp"
#include "targets/targets.hpp"

namespace kernelgen {

void write_if_changed(const std::filesystem::path& path, const std::string& text) {
    {
        std::ifstream old(path, std::ios::binary);
        const std::string content((std::istreambuf_iterator<char>(old)),
                                  std::istreambuf_iterator<char>());
        if (old && content == text) return;
    }
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
}

std::string hash_of(const std::string& text) {
    return hexadecimal(fnv_1a(text));
}

int describe(int argc, char** argv, const Describer& describer) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool manifest = words.size() == 3 && words[1] == "--manifest";
    std::vector<std::string> parts = describer.parts;
    if (!manifest && words.size() > 2) parts.assign(words.begin() + 2, words.end());
    const bool known = std::all_of(parts.begin(), parts.end(), [&](const std::string& part) {
        return std::count(describer.parts.begin(), describer.parts.end(), part) > 0;
    });
    const auto is_option = [](const std::string& word) { return word.starts_with('-'); };
    if (words.size() < 2 || !known || (!manifest && (is_option(words[0]) || is_option(words[1])))) {
        std::fprintf(stderr, "usage: %s TARGET FOLDER [PART...] | TARGET --manifest FILE\ntargets:",
                     argv[0]);
        for (const Target& target : kTargets)
            std::fprintf(stderr, " %s", std::string(target.name).c_str());
        std::fprintf(stderr, "\nparts:");
        for (const std::string& part : describer.parts) std::fprintf(stderr, " %s", part.c_str());
        std::fprintf(stderr, "\n");
        return 2;
    }
    try {
        const Target& target = target_named(words[0]);
        if (manifest) {
            describer.write_manifest(target, words[2]);
            return 0;
        }
        std::filesystem::create_directories(words[1]);
        for (const std::string& part : parts) describer.write_sources(target, words[1], part);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}

}  // namespace kernelgen
