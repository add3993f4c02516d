#pragma once

#include <string>

#include "transforms/dft_real/rules/stage_orders.hpp"

namespace dft_real {

/** binary32, "32f", or binary64, "64f". */
enum class Element { Real32, Real64 };

/** How binary64 becomes binary32: by the language's conversion or by core::rounded. */
enum class Rounding { Conversion, WholeRegister };
std::string to_string(Rounding rounding);

/** Decisions that were searched once and are kept: they change a kernel's time, never its
 * mathematics. */
struct Tuning {
    std::string order =
        {};  ///< a method of kernelgen::schedule_by, or empty for the cheapest plain one
    Rounding rounding = Rounding::Conversion;
    std::string option = {};  ///< of GCC, without its "-f", or empty
};

/** What scripts/tune-real found fastest; as by default where it has not searched. */
Tuning tuning_of(Kind kind, int length, Element element);

}  // namespace dft_real
