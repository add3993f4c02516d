#include "tests/kernelgen/support/random_graph.hpp"

#include <random>
#include <vector>

namespace kernelgen_test {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Lanes;
using kernelgen::Ref;
using kernelgen::Selection;
using kernelgen::Type;

Graph random_graph(std::uint32_t seed, int operations) {
    std::mt19937 random(seed);
    const auto below = [&](std::uint32_t limit) { return random() % limit; };
    constexpr Type kVector = Type::Binary32x4;
    Graph g;
    std::vector<Ref> values;
    for (int i = 0; i < kRandomGraphElements; i += 4) {
        values.push_back(g.load(kVector, i));
        values.push_back(g.load_high(g.load_low(kVector, i), kRandomGraphElements - 2 - i));
        values.push_back(g.load_scalar(kVector, i + 1));
    }
    values.push_back(g.zero(kVector));
    const auto any = [&] { return values[below(static_cast<std::uint32_t>(values.size()))]; };
    const auto lane = [&] { return static_cast<std::uint8_t>(below(4)); };
    const auto high = [&] { return static_cast<std::uint8_t>(4 + below(4)); };
    for (int i = 0; i < operations; ++i) {
        const Ref a = any();
        const Ref b = any();
        Ref made;
        switch (below(8)) {
            case 0:
            case 1:
                made = g.add(a, b);
                break;
            case 2:
            case 3:
                made = g.sub(a, b);
                break;
            case 4:
                made = g.mul(a, Lanes(4, Exact::cosine(1 + static_cast<long>(below(6)), 41)));
                break;
            case 5:
                made = g.flip(a, {1, 0, static_cast<std::uint8_t>(below(2)), 0});
                break;
            case 6:
                made = g.mul(a, g.scale(kVector));
                break;
            default:
                made = g.shuffle(a, {b.id, a.negative}, {lane(), lane(), high(), high()});
                break;
        }
        values.push_back(made);
    }
    for (int i = 4; i < kRandomGraphElements; i += 4) g.store({any().id}, i);
    g.store_low({values.back().id}, 0);
    g.store_high({any().id}, 2);
    return g;
}

}  // namespace kernelgen_test
