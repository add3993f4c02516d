#include "kernelgen/graph/transpose.hpp"

#include <vector>

namespace kernelgen {
namespace {

/** The same lanes in each piece of vectors of `type`: 0 to n - 1 of the first operand's piece of n
 * lanes, n to 2 n - 1 of the second's. */
Selection in_each_piece(Type type, const std::vector<int>& lanes) {
    const int piece = lanes_in_piece(type);
    const int all = lane_count(type);
    Selection selection = {};
    for (int lane = 0; lane < all; ++lane) {
        const int from = lanes[static_cast<std::size_t>(lane % piece)];
        const int first = lane / piece * piece;
        selection[static_cast<std::size_t>(lane)] =
            static_cast<std::uint8_t>(from < piece ? first + from : all + first + from - piece);
    }
    return selection;
}

class Transpose {
  public:
    Transpose(Graph& graph, Ref* vectors)
        : graph_(graph), v_(vectors), type_(graph.node(vectors[0].id).type) {}

    void of_two() {
        const Ref a = v_[0];
        const Ref b = v_[1];
        v_[0] = shuffle(a, b, {0, 2});
        v_[1] = shuffle(a, b, {1, 3});
    }

    void of_four() {
        const std::vector<int> unpack_low = {0, 4, 1, 5};
        const std::vector<int> unpack_high = {2, 6, 3, 7};
        const std::vector<int> low_halves = {0, 1, 4, 5};
        const std::vector<int> high_halves = {2, 3, 6, 7};
        const Ref low01 = shuffle(v_[0], v_[1], unpack_low);
        const Ref low23 = shuffle(v_[2], v_[3], unpack_low);
        const Ref high01 = shuffle(v_[0], v_[1], unpack_high);
        const Ref high23 = shuffle(v_[2], v_[3], unpack_high);
        v_[0] = shuffle(low01, low23, low_halves);
        v_[1] = shuffle(low01, low23, high_halves);
        v_[2] = shuffle(high01, high23, low_halves);
        v_[3] = shuffle(high01, high23, high_halves);
    }

  private:
    Ref shuffle(Ref a, Ref b, const std::vector<int>& lanes) {
        return graph_.shuffle(a, b, in_each_piece(type_, lanes));
    }

    Graph& graph_;
    Ref* const v_;
    const Type type_;
};

}  // namespace

int lanes_in_piece(Type type) {
    return is_binary32(type) ? 4 : 2;
}

void transpose(Graph& graph, Ref* vectors) {
    Transpose block(graph, vectors);
    if (lanes_in_piece(graph.node(vectors[0].id).type) == 4)
        block.of_four();
    else
        block.of_two();
}

}  // namespace kernelgen
