#pragma once

/** @file @brief Vectors and operations on them in the words of a target's sources. */

#include <string>

#include "kernelgen/graph/graph.hpp"
#include "targets/target.hpp"

namespace kernelgen {

/** The type of values of `type`: float, __m128. */
std::string type_name(Type type, const Target& target);

/** What moves whole vectors of more than 16 bytes, wherever they stand. */
std::string wide_access(Type type);

/** What loads a whole vector from an address on a vector's boundary. */
std::string aligned_load(Type type, const Target& target);

/** A sum, difference or product. */
std::string arithmetic(const Node& node, const std::string& a, const std::string& b,
                       const Target& target);

/** `a` with the signs changed in the lanes that `mask`, a vector of zeros with signs, names. */
std::string flipped(const Node& node, const std::string& a, const std::string& mask,
                    const Target& target);

/** Throws std::logic_error where intrinsics have no single instruction for it. */
std::string shuffled(const Node& node, const std::string& a, const std::string& b,
                     const Target& target);

/** The first lane from memory, zeros above. */
std::string scalar_load(const std::string& address, const Target& target);

/** +0 in every lane. */
std::string zero(Type type, const Target& target);

}  // namespace kernelgen
