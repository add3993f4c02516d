#include "transforms/dft_complex/layouts/lane_groups.hpp"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace dft_complex {

std::string LaneChoice::to_string() const {
    return "s" + std::to_string(stride) + "w" + std::to_string(width) +
           (side == FactorSide::BeforeRegroup ? "b" : "a");
}

LaneChoice LaneChoice::from_string(const std::string& text) {
    LaneChoice choice;
    char side = 'a';
    if (std::sscanf(text.c_str(), "s%dw%d%c", &choice.stride, &choice.width, &side) != 3)
        throw std::invalid_argument("not a lane choice: " + text);
    if (choice.stride < 1 || choice.width < 2 || choice.width > 4 || (side != 'a' && side != 'b'))
        throw std::invalid_argument("a lane choice out of range: " + text);
    choice.side = side == 'b' ? FactorSide::BeforeRegroup : FactorSide::AfterRegroup;
    return choice;
}

Arrangement arrange(const std::vector<int>& batch, const LaneChoice& choice, LanePolicy policy) {
    const std::size_t count = batch.size();
    const auto stride = static_cast<std::size_t>(choice.stride);
    std::vector<int> ordered;
    for (std::size_t first = 0; first < stride; ++first) {
        for (std::size_t i = first; i < count; i += stride) ordered.push_back(batch[i]);
    }
    Arrangement arrangement{.groups = {}, .side = choice.side};
    const auto width = static_cast<std::size_t>(choice.width);
    for (std::size_t i = 0; i < count; i += width) {
        const std::size_t end = std::min(count, i + width);
        const bool split = end - i > 2 || policy == LanePolicy::SplitOnly;
        const Layout layout = split ? Layout::Split : Layout::Interleaved;
        arrangement.groups.push_back(
            {layout, std::vector<int>(ordered.begin() + static_cast<std::ptrdiff_t>(i),
                                      ordered.begin() + static_cast<std::ptrdiff_t>(end))});
    }
    return arrangement;
}

std::vector<LaneChoice> choices_for(int transforms, BatchPlace place, LanePolicy policy) {
    std::vector<LaneChoice> choices;
    for (int width : {4, 3, 2}) {
        if (width > transforms && width != 4) continue;
        if (width == 2 && (place == BatchPlace::Middle || policy == LanePolicy::SplitOnly))
            continue;
        for (int stride = 1; stride < std::max(transforms, 2); ++stride) {
            if (stride > 1 && transforms % stride != 0) continue;
            for (FactorSide side : {FactorSide::AfterRegroup, FactorSide::BeforeRegroup})
                choices.push_back({stride, width, side});
        }
    }
    return choices;
}

}  // namespace dft_complex
