#include "transforms/dft_complex/small_transforms/short_lengths.hpp"

namespace dft_complex {
namespace {

using kernelgen::Selection;

constexpr Type kPairs = Type::Binary32x4;
/** The first element of each of two vectors, the second of each; and with its parts exchanged. */
constexpr Selection kFirst = {0, 1, 4, 5};
constexpr Selection kSecond = {2, 3, 6, 7};
constexpr Selection kFirstAndTurned = {2, 3, 7, 6};

void two(Graph& g) {
    const Ref x = g.load(kPairs, 0);
    const Ref minus_x1 = g.flip(g.shuffle(x, x, kSecond), {0, 0, 1, 1});
    g.store(g.mul(g.add(g.shuffle(x, x, kFirst), minus_x1), g.scale(kPairs)), 0);
}

void four(Graph& g, Direction direction) {
    const Ref x01 = g.load(kPairs, 0);
    const Ref x23 = g.load(kPairs, 4);
    const Ref sums = g.add(x01, x23);
    const Ref differences = g.sub(x01, x23);
    const Ref even = g.shuffle(sums, differences, kFirst);
    // The quarter turn of x[1] - x[3]: by -i forward, by i inverse.
    const Selection minus =
        direction == Direction::Forward ? Selection{0, 0, 0, 1} : Selection{0, 0, 1, 0};
    const Ref odd = g.flip(g.shuffle(sums, differences, kFirstAndTurned), minus);
    g.store(g.mul(g.add(even, odd), g.scale(kPairs)), 0);
    g.store(g.mul(g.sub(even, odd), g.scale(kPairs)), 4);
}

}  // namespace

bool is_length_of_pairs(int length) {
    return length == 2 || length == 4;
}

Graph short_length_by_pairs(int length, Direction direction) {
    Graph graph;
    if (length == 2)
        two(graph);
    else
        four(graph, direction);
    return graph;
}

}  // namespace dft_complex
