#pragma once

/**
 * @file
 * @brief Single kernels of the complex DFT as bodies of batches, in longer vectors: in each piece
 * of 16 bytes runs a transform as the kernel runs it.
 *
 * Batches whose elements follow one another so need no transposition, and groups are small. The
 * statements are the kernel's, in its order, so the proof of the kernel is theirs.
 */

#include <string>
#include <vector>

#include "transforms/batch/batch_body.hpp"
#include "transforms/dft_complex/kernels/complex_kernel.hpp"

namespace transforms::batch {

inline constexpr Family kFamiliesInPieces[] = {Family::ComplexForward, Family::ComplexInverse};

/** "complex_forward_in_pieces_32f": of files that choose a body, and how names of bodies begin. */
std::string name_in_pieces(Family family, RealElement element);

/** Lengths whose kernels have vectors. */
std::vector<int> sizes_in_pieces(RealElement element, const kernelgen::Target& target);

/** The kernel whose statements a body has. */
dft_complex::Kernel kernel_in_pieces(Family family, int size, RealElement element,
                                     const kernelgen::Target& target);

/** "complex_forward_in_pieces_32f_15" */
std::string body_name_in_pieces(Family family, int size, RealElement element);

std::string body_source_in_pieces(Family family, int size, RealElement element,
                                  const kernelgen::Target& target);

/** The function that chooses a body by its size, and says whether there is one. */
std::string chooser_source_in_pieces(Family family, RealElement element,
                                     const kernelgen::Target& target);

}  // namespace transforms::batch
