#include "transforms/dft_complex/decompositions/network.hpp"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <utility>

namespace dft_complex {
namespace {

std::vector<Source> sources_of(const SmallTransform& transform) {
    std::vector<Source> sources;
    for (const Value& value : transform.inputs) {
        if (value.absent) continue;
        sources.push_back(value.source);
        if (value.addend) sources.push_back(*value.addend);
    }
    return sources;
}

}  // namespace

Signal Network::input(int length) const {
    Signal x;
    for (int n = 0; n < length; ++n) x.push_back({.source = {Source::kInput, n}});
    return x;
}

Signal Network::transform(int radix, const Signal& x, SmallForm form) {
    const int index = static_cast<int>(transforms_.size());
    transforms_.push_back({radix, x, form});
    Signal y;
    for (int k = 0; k < radix; ++k) y.push_back({.source = {index, k}});
    return y;
}

Value Network::sum(const Value& a, const Value& b) {
    return transform(SmallTransform::kSum, {a, b}).front();
}

std::vector<std::vector<int>> Network::batches() const {
    const auto count = transforms_.size();
    std::vector<int> level(count, 0);
    int deepest = 0;
    for (std::size_t t = 0; t < count; ++t) {
        for (const Source& source : sources_of(transforms_[t])) {
            if (source.transform != Source::kInput)
                level[t] =
                    std::max(level[t], level[static_cast<std::size_t>(source.transform)] + 1);
        }
        deepest = std::max(deepest, level[t]);
    }
    std::map<std::pair<int, int>, int> population;
    for (std::size_t t = 0; t < count; ++t) ++population[{level[t], transforms_[t].radix}];
    // A straggler fills a lane of a later batch instead of opening a group of its own.
    std::vector<int> latest(count, deepest);
    for (std::size_t t = count; t-- > 0;) {
        // What reads memory stays in front: a vector is not filled from memory and lanes at once.
        const bool reads_input = level[t] == 0;
        for (int l = latest[t]; l > level[t] && !reads_input; --l) {
            if (population.contains({l, transforms_[t].radix})) {
                level[t] = l;
                break;
            }
        }
        for (const Source& source : sources_of(transforms_[t])) {
            if (source.transform == Source::kInput) continue;
            int& bound = latest[static_cast<std::size_t>(source.transform)];
            bound = std::min(bound, level[t] - 1);
        }
    }
    std::map<std::pair<int, int>, std::vector<int>> grouped;
    for (std::size_t t = 0; t < count; ++t)
        grouped[{level[t], transforms_[t].radix}].push_back(static_cast<int>(t));
    std::vector<std::vector<int>> result;
    for (auto& entry : grouped) result.push_back(std::move(entry.second));
    return result;
}

Value operator*(const Value& x, const ExactComplex& factor) {
    if (x.addend) throw std::logic_error("a joined sum takes no factor");
    Value product = x;
    product.factor = x.factor * factor;
    return product;
}

Value plus(const Value& x, const Value& addend) {
    if (x.addend || addend.addend || !addend.factor.is_one())
        throw std::logic_error("a sum joins one plain value");
    Value sum = x;
    sum.addend = addend.source;
    return sum;
}

}  // namespace dft_complex
