#include "kernelgen/emission/generated_files.hpp"

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <vector>

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
    std::uint64_t hash = 14695981039346656037ULL;
    for (unsigned char c : text) hash = (hash ^ c) * 1099511628211ULL;
    char digits[20];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

int describe(int argc, char** argv, const Describer& describer) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool manifest = words.size() == 2 && words[0] == "--manifest";
    if (!manifest && (words.size() != 1 || words[0].starts_with('-'))) {
        std::fprintf(stderr, "usage: %s FOLDER | --manifest FILE\n", argv[0]);
        return 2;
    }
    try {
        if (manifest)
            describer.write_manifest(words[1]);
        else
            describer.write_sources(words[0]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}

}  // namespace kernelgen
