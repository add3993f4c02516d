#include "request.hpp"

#include <array>

namespace qsvg_tool {

const FamilyWords& WordsOf(Family family) {
    constexpr std::string_view kLengths = "2 to 64";
    static constexpr std::array<FamilyWords, std::size(kFamilies)> words = {{
        {"dft-complex", "32fc", "64fc", kLengths, true, false, true},
        {"dft-real", "32f", "64f", kLengths, true, true, true},
        {"hartley", "32f", "64f", kLengths, false, false, true},
        {"walsh-hadamard", "32f", "64f", "2, 4, 8, ... 8192", false, false, true},
        {"dct4", "32f", "64f", "2, 4, 8, ... 67108864 (33554432 of type 64f)", false, false, false},
    }};
    return words.at(static_cast<size_t>(family));
}

std::string Title(const Request& request) {
    const FamilyWords& words = WordsOf(request.family);
    return std::string(words.name) + " " + std::to_string(request.length) + " " +
           std::string(request.is_double ? words.double_type : words.single_type);
}

}  // namespace qsvg_tool
