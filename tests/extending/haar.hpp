#pragma once

/** @file @brief A family as one is added: the worked example of docs/extending.md. */

#include "kernelgen/graph/graph.hpp"
#include "kernelgen/proof/proof.hpp"

namespace extending {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Ref;
using kernelgen::Type;
using kernelgen::Wide;

// The orthogonal Haar transform of four points, twice its usual size: sums and differences of
// pairs, then of the pairs' sums.
inline Graph haar_of_four() {
    Graph g;
    const Ref a = g.load(Type::Binary64, 0);
    const Ref b = g.load(Type::Binary64, 1);
    const Ref c = g.load(Type::Binary64, 2);
    const Ref d = g.load(Type::Binary64, 3);
    const Ref first = g.add(a, b);
    const Ref second = g.add(c, d);
    const Ref scale = g.scale(Type::Binary64);
    g.store(g.mul(g.add(first, second), scale), 0);
    g.store(g.mul(g.sub(first, second), scale), 1);
    g.store(g.mul(g.mul(g.sub(a, b), {Exact::square_root(2)}), scale), 2);
    g.store(g.mul(g.mul(g.sub(c, d), {Exact::square_root(2)}), scale), 3);
    return g;
}

inline Wide haar_matrix(int row, int column) {
    if (row < 2) return row == 0 || column < 2 ? 1 : -1;
    if (column / 2 != row - 2) return 0;
    const Wide root = Exact::square_root(2).value();
    return column % 2 == 0 ? root : Wide(-root);
}

}  // namespace extending
