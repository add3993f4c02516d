#pragma once

/**
 * @file
 * @brief What a network is made of, for those who tell of it: the choices are those of
 * `real_dft` and `inverse_real_dft` themselves.
 */

#include <vector>

#include "transforms/dft_real/decompositions/real_dft.hpp"

namespace dft_real {

/** A transform of real values and the shorter ones that it is made of. Those of complex values
 * between them go by the same orders, with 11 points always dense. */
struct Decomposition {
    Method method;
    bool is_inverse;
    Order order;  ///< of the transform itself: its length is the product
    /** Method::BetweenTwos: the transform between. Coprime: of the first and the second part.
     * Rader: that into the convolution and that out of it; of the side where real and imaginary
     * parts are apart, the one for the even bins. */
    std::vector<Decomposition> parts = {};
};

Decomposition decomposed_real_dft(const Order& order);
Decomposition decomposed_inverse(const Order& order, ElevenPoints eleven = ElevenPoints::Rader);
/** Of the prime whose convolution has the order `inner`. */
Decomposition decomposed_rader(const Order& inner, ElevenPoints eleven = ElevenPoints::Rader);
Decomposition decomposed_rader_inverse(const Order& inner);

/** Of the real DFT of a length: `kind` is Forward or Inverse. */
Decomposition decomposition(int length, Kind kind);

}  // namespace dft_real
