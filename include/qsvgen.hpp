#pragma once

/**
 * @file qsvgen.hpp
 * @brief All transforms of qsvgen.h and qsvgen_batch.h for C++20: spans instead of pointers and
 *        lengths, std::complex, lengths that are checked while a program is compiled.
 *
 * Of headers alone: a program is linked with the library of qsvgen.h and with nothing more.
 *
 * @defgroup cpp C++
 *
 * | transform             | length known to the compiler           | at run time        |
 * |-----------------------|----------------------------------------|--------------------|
 * | @ref dft_complex      | `dft<N>`, `inverse_dft<N>`             | the same without N |
 * | @ref dft_real         | `real_dft<N>`, `inverse_real_dft<N>`   | the same without N |
 * | @ref hartley          | `hartley<N>`                           | the same without N |
 * | @ref walsh_hadamard   | `walsh_hadamard<K>` of 2^K points      | the same without K |
 * | @ref dct4             | none                                   | `Dct4Plan`         |
 *
 * Real-input transforms are told the layout of their spectra: `ccs`, `pack` or `perm`.
 *
 * **What they compute,** how it is scaled, rounded and laid out is told where the functions of C
 * are: each call gives the bits of its counterpart there.
 *
 * **Element types.** float and double, and std::complex of these, by overload.
 *
 * **Arrays.** Whatever becomes a std::span: std::array, std::vector, arrays of C. Of a length that
 * is a template argument, arrays whose sizes are part of their types must have just these, else the
 * call does not compile; others are checked when it runs. in and out may be the same array; a
 * partial overlap is not supported.
 *
 * **Lengths without a kernel** as template arguments do not compile, and the message tells which
 * lengths there are.
 *
 * **Many transforms in a call:** the same names with batch views, which columns, rows and frames
 * make; the DCT-IV has none.
 *
 * **Cost.** A call of fixed-size arrays is a call of the kernel and nothing else. The others
 * compare sizes first. Nothing here takes memory or throws; what may take memory in the library are
 * plans, and long Walsh-Hadamard transforms without a work buffer.
 *
 * **Threads.** No state; as in C all calls may run at once on different arrays, but for Dct4Plan.
 *
 * **Statuses.** Those of C. Of fixed-size arrays there is nothing to refuse but a scale that is
 * none; the status of all others must be looked at: #qsvStatusBadLength where sizes are no length
 * of the transform or do not fit each other, first of all; then as in C. Of a refusal nothing was
 * read or written.
 */

#include <qsvgen/batch.hpp>
#include <qsvgen/call.hpp>
#include <qsvgen/dct4_plan.hpp>
#include <qsvgen/dft.hpp>
#include <qsvgen/hartley.hpp>
#include <qsvgen/layout.hpp>
#include <qsvgen/lengths.hpp>
#include <qsvgen/real_dft.hpp>
#include <qsvgen/walsh_hadamard.hpp>
