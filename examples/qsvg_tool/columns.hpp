#pragma once

/** @file @brief Signals as columns of numbers in a text. */

#include <cstddef>
#include <istream>
#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace qsvg_tool {

/** Real is Real32 or Real64. */
template <class Real>
struct Columns {
    size_t parts = 1;    ///< numbers of a sample: 2 of complex signals
    size_t lines = 0;    ///< samples of each signal
    size_t signals = 0;  ///< how many
    /** Signal after signal, so that all blocks of all signals follow one another; the parts of a
     * sample stand together. */
    std::vector<Real> numbers = {};
    size_t last_line = 0;  ///< number of the text's last line

    /** `count` samples of a signal from a line on. */
    std::span<const Real> samples(size_t signal, size_t line, size_t count) const {
        return std::span(numbers).subspan((signal * lines + line) * parts, count * parts);
    }
};

/**
 * Reads signals. `name` is the text's name in messages.
 * Throws example::Error that names the line where the text is no such columns.
 */
template <class Real>
Columns<Real> ReadColumns(std::istream& text, const std::string& name, size_t parts);

/** Prints the shortest decimal numbers that read back as the same bits, an empty line behind each
 * block but the last. */
template <class Real>
void PrintColumns(std::ostream& text, const Columns<Real>& columns, size_t lines_of_block);

/** The shortest decimal number that reads back as this one. */
template <class Real>
std::string ShortestDecimal(Real value);

}  // namespace qsvg_tool
