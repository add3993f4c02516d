#pragma once

/**
 * @file
 * @brief Arithmetic whose bits are the library's affair, not that of the caller's modes.
 *
 * For as long as a platform::RoundingToNearest lives, sums and products round to nearest, denormals
 * count, and no exception traps. Then rounding, denormals and masks are the caller's again; flags
 * that arithmetic has raised in between stay raised, as without it.
 *
 * It must enclose the call of a function of another source: inside of one function a compiler moves
 * arithmetic past it.
 */

#if defined(__SSE2__)
#include "platform/rounding_by_mxcsr.hpp"
#elif defined(__aarch64__)
#include "platform/rounding_by_fpcr.hpp"
#else
#error "The processor's rounding mode is set and given back here: tell how on this one"
#endif
