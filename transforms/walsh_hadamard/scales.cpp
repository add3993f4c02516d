#include "transforms/walsh_hadamard/scales.hpp"

#include <array>
#include <cmath>

#include "kernelgen/emission/emission.hpp"

namespace walsh_hadamard {
namespace {

std::string literal(double value, Element element) {
    return element == Element::Real32 ? kernelgen::literal(static_cast<float>(value))
                                      : kernelgen::literal(value);
}

// Of the orders 1, 3, ..., 13, as the interface promises them: correctly rounded in binary32, one
// unit in the last place below that in binary64. Hence no computed value, which would be another.
constexpr std::array<float, 7> kOddRootsOfBinary32 = {
    0x1.6a09e6p-1F, 0x1.6a09e6p-2F, 0x1.6a09e6p-3F, 0x1.6a09e6p-4F,
    0x1.6a09e6p-5F, 0x1.6a09e6p-6F, 0x1.6a09e6p-7F};
constexpr std::array<double, 7> kOddRootsOfBinary64 = {
    0x1.6a09e667f3bccp-1, 0x1.6a09e667f3bccp-2, 0x1.6a09e667f3bccp-3, 0x1.6a09e667f3bccp-4,
    0x1.6a09e667f3bccp-5, 0x1.6a09e667f3bccp-6, 0x1.6a09e667f3bccp-7};

}  // namespace

std::string scale_by_length(int order, Element element) {
    return literal(std::ldexp(1.0, -order), element);
}

std::string scale_by_root(int order, Element element) {
    if (order % 2 == 0) return literal(std::ldexp(1.0, -order / 2), element);
    const auto entry = static_cast<std::size_t>(order / 2);
    return element == Element::Real32 ? literal(kOddRootsOfBinary32.at(entry), element)
                                      : literal(kOddRootsOfBinary64.at(entry), element);
}

}  // namespace walsh_hadamard
