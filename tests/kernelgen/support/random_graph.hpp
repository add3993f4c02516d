#pragma once

#include <cstdint>

#include "kernelgen/graph/graph.hpp"

namespace kernelgen_test {

/** Real elements that a random graph reads and writes. */
inline constexpr int kRandomGraphElements = 32;

/** A graph of Binary32x4 nodes of every kind, with some that no store needs. */
kernelgen::Graph random_graph(std::uint32_t seed, int operations);

}  // namespace kernelgen_test
