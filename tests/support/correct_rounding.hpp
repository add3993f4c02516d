#pragma once

/** @file @brief Sines and cosines of angles as MPFR rounds them: to nearest, correctly. */

#include "qsvgen.h"

namespace qsvgen_test {

Real32 correctly_rounded_sine(Real32 angle);
Real32 correctly_rounded_cosine(Real32 angle);
Real64 correctly_rounded_sine(Real64 angle);
Real64 correctly_rounded_cosine(Real64 angle);

}  // namespace qsvgen_test
