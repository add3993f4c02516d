#pragma once

/**
 * @file
 * @brief The discrete Hartley transform from the real DFT.
 *
 * y[k] = sum of x[n] (cos(2 pi n k / N) + sin(2 pi n k / N)). Bracewell, "Discrete Hartley
 * transform", 1983; Sorensen, Jones, Burrus and Heideman, "On computing the discrete Hartley
 * transform", 1985.
 */

#include "transforms/dft_real/decompositions/decomposition.hpp"

namespace hartley {

/** Which end of the network the sums and differences of pairs stand at. */
enum class PairStage {
    Closing,  ///< y[k], y[N - k] = R[k] -+ I[k] of the forward transform
    Opening,  ///< x[n] +- x[N - n] as the bins of an inverse transform, which the matrix allows as
              ///< it is symmetric
};

PairStage pair_stage(int length);

/** All N outputs, by the order of stages in the table. */
dft_real::Reals hartley_transform(dft_real::RowArithmetic& m, const dft_real::Reals& x);

/** What the real DFT inside is made of: forward behind a closing stage, else inverse. */
dft_real::Decomposition decomposition(int length);

}  // namespace hartley
