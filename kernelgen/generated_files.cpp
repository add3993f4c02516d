#include "kernelgen/generated_files.hpp"

#include <fstream>
#include <iterator>
#include <stdexcept>

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

}  // namespace kernelgen
