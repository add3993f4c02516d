#pragma once

/** @file @brief The graph whose vectors are the packs of another one. */

#include "kernelgen/lanes/packs.hpp"

namespace kernelgen {

/**
 * Each pack becomes a node of the `laned` type; what is in none stays as it is, and parts of
 * vectors, joins, gathers and shuffles bring values to where they are wanted. Stores of adjacent
 * elements out of packs are joined. The packs must be ones that can be ordered. Values stay the
 * same, which `prove_same_values` shows.
 */
Graph laned_graph(const Packs& packs);

}  // namespace kernelgen
