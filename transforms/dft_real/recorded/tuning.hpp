#pragma once

#include <span>
#include <string>

#include "targets/target.hpp"
#include "transforms/dft_real/rules/stage_orders.hpp"
#include "transforms/real_element.hpp"

namespace dft_real {

using Element = transforms::RealElement;

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
    std::string packs = {};   ///< kernelgen::PackSeeds in words, or empty: a value at a time
};

/** A tuning as it is recorded, with the order of stages that it was found for. */
struct RecordedTuning {
    Kind kind;
    int length;
    const char* stages;
    /** A Tuning in literals: with sanitizers, strings took a compiler three minutes. */
    struct Choices {
        const char* order;
        Rounding rounding = Rounding::Conversion;
        const char* option = "";
        const char* packs = "";
    } tuning;
};

/** What scripts/tune-orders found fastest for the row's kernel on the target; as by default where
 * nothing has been searched. Throws std::logic_error where it was found for another order of stages
 * than the row's, or stands there twice. */
Tuning tuning_of(Kind kind, const TableRow& row, Element element, const kernelgen::Target& target);
Tuning tuning_of(Kind kind, const TableRow& row, Element element,
                 std::span<const RecordedTuning> recorded);

}  // namespace dft_real
