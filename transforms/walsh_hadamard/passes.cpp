#include "transforms/walsh_hadamard/passes.hpp"

#include <array>

namespace walsh_hadamard {

std::vector<int> stages_of(int order, Element element) {
    // Callers bring buffers of the sizes that follow from these, and rely on the third pass being
    // there exactly where it is.
    static const std::array<std::vector<int>, 6> single = {
        {{5, 3}, {6, 3}, {6, 4}, {6, 5}, {6, 3, 3}, {6, 3, 4}}};
    static const std::array<std::vector<int>, 6> doubled = {
        {{5, 3}, {5, 4}, {7, 3}, {5, 3, 3}, {5, 3, 4}, {7, 3, 3}}};
    if (order <= kHighestStraightOrder) return {order};
    const auto row = static_cast<std::size_t>(order - kHighestStraightOrder - 1);
    return (element == Element::Real32 ? single : doubled).at(row);
}

bool is_scalar(int order, Element element) {
    return order <= (element == Element::Real32 ? 3 : 2);
}

bool has_twin(int order, Element) {
    return order >= 4;
}

int big_block(int order, Element element) {
    const std::vector<int> stages = stages_of(order, element);
    return stages.size() == 3 ? 1 << (stages[0] + stages[1]) : 0;
}

int buffer_size(int order, Element element) {
    if (order <= kHighestStraightOrder) return 0;
    return ((1 << order) + big_block(order, element)) * bytes(element);
}

}  // namespace walsh_hadamard
