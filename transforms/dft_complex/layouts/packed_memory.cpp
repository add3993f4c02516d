#include "transforms/dft_complex/layouts/packed_memory.hpp"

#include <algorithm>
#include <cstdlib>

namespace dft_complex {
namespace {

constexpr Type kVector = Type::Binary32x4;

/** Up to two elements as they stand in memory, and at which half each landed. */
struct ElementPair {
    Ref vector;
    int half_of_first = 0;
};

// An absent partner leaves zeros behind, so it serves both as empty and as zero.
ElementPair load_pair(Graph& g, int first, int second) {
    if (first < 0 && second < 0) return {g.zero(kVector), 0};
    if (second < 0) return {g.load_low(kVector, 2 * first), 0};
    if (first < 0) return {g.load_low(kVector, 2 * second), 1};
    if (std::abs(first - second) == 1)
        return {g.load(kVector, 2 * std::min(first, second)), first < second ? 0 : 1};
    return {g.load_high(g.load_low(kVector, 2 * first), 2 * second), 0};
}

Ref one_part(Graph& g, const ElementPair& low, const ElementPair& high, int part) {
    const auto lane = [&](const ElementPair& pair, int i) {
        return static_cast<std::uint8_t>(2 * (i ^ pair.half_of_first) + part);
    };
    return g.shuffle(low.vector, high.vector,
                     {lane(low, 0), lane(low, 1), static_cast<std::uint8_t>(4 + lane(high, 0)),
                      static_cast<std::uint8_t>(4 + lane(high, 1))});
}

// Elements in ascending order are interleaved back by memory order alone.
bool adjacent(int first, int second) {
    return first >= 0 && second == first + 1;
}

void store_pair(Graph& g, Ref pair, int first, int second) {
    if (first < 0 && second < 0) return;
    const Ref scaled = g.mul(pair, g.scale(kVector));
    if (adjacent(first, second)) {
        g.store(scaled, 2 * first);
        return;
    }
    if (first >= 0) g.store_low(scaled, 2 * first);
    if (second >= 0) g.store_high(scaled, 2 * second);
}

}  // namespace

ComplexVector load_elements(Graph& g, Layout layout, std::vector<int> elements, bool backward) {
    if (layout == Layout::Interleaved) {
        elements.resize(2, kNoElement);
        const int first = elements[0];
        const int second = elements[1];
        // Here the order of the halves is the order of the lanes.
        if (first >= 0 && second == first + 1) return {g.load(kVector, 2 * first), {}};
        if (second < 0) return {g.load_low(kVector, 2 * first), {}};
        const Ref low = first >= 0 ? g.load_low(kVector, 2 * first) : g.zero(kVector);
        return {g.load_high(low, 2 * second), {}};
    }
    const bool only_first =
        std::all_of(elements.begin() + 1, elements.end(), [](int e) { return e < 0; });
    elements.resize(4, kNoElement);
    const int re = backward ? 1 : 0;
    if (only_first && elements[0] >= 0) {
        return {g.load_scalar(kVector, 2 * elements[0] + re),
                g.load_scalar(kVector, 2 * elements[0] + (re ^ 1))};
    }
    const ElementPair low = load_pair(g, elements[0], elements[1]);
    const ElementPair high = elements[2] == kNoElement && elements[3] == kNoElement
                                 ? low
                                 : load_pair(g, elements[2], elements[3]);
    return {one_part(g, low, high, re), one_part(g, low, high, re ^ 1)};
}

void store_elements(Graph& g, const StoredVector& stored, bool backward) {
    const std::vector<int>& e = stored.elements;
    const Ref re = g.positive(stored.vector.re);
    if (stored.layout == Layout::Interleaved) {
        store_pair(g, re, e[0], e[1]);
        return;
    }
    const Ref im = g.positive(stored.vector.im);
    const Ref first = backward ? im : re;
    const Ref second = backward ? re : im;
    if (e[0] >= 0 || e[1] >= 0) store_pair(g, g.shuffle(first, second, {0, 4, 1, 5}), e[0], e[1]);
    if (e[2] >= 0 || e[3] >= 0) store_pair(g, g.shuffle(first, second, {2, 6, 3, 7}), e[2], e[3]);
}

}  // namespace dft_complex
