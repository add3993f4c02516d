#include "columns.hpp"

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "common/error.hpp"
#include "qsvgen.h"

namespace qsvg_tool {
namespace {

[[noreturn]] void Fail(const std::string& name, size_t line, const std::string& what) {
    throw example::Error(example::ExitCode::kFailed,
                         name + ":" + std::to_string(line) + ": " + what);
}

void Parse(const char* text, char** end, Real32* value) {
    *value = std::strtof(text, end);
}
void Parse(const char* text, char** end, Real64* value) {
    *value = std::strtod(text, end);
}

/** In the type itself, since a number that is rounded twice may get other bits. */
template <class Real>
Real ParseNumber(const std::string& word, const std::string& name, size_t line) {
    Real value = 0;
    char* end = nullptr;
    errno = 0;
    Parse(word.c_str(), &end, &value);
    if (*end != '\0') {
        Fail(name, line,
             "'" + word +
                 "' is no number.\nNumbers are separated by blanks, with a point in "
                 "fractions, as in '0.5 -1e-3'.");
    }
    // What is too small becomes 0 or a subnormal number, rounded as any other.
    if (errno == ERANGE && std::isinf(value)) {
        Fail(name, line,
             "'" + word + "' is too large.\nScale the numbers, or take a type of 64 bits.");
    }
    return value;
}

/** Of numbers line after line. */
template <class Real>
std::vector<Real> SignalAfterSignal(const Columns<Real>& columns, std::span<const Real> lines) {
    std::vector<Real> numbers;
    numbers.reserve(lines.size());
    const size_t line_size = columns.signals * columns.parts;
    for (size_t signal = 0; signal < columns.signals; ++signal) {
        for (size_t line = 0; line < columns.lines; ++line) {
            const auto sample =
                lines.subspan(line * line_size + signal * columns.parts, columns.parts);
            numbers.insert(numbers.end(), sample.begin(), sample.end());
        }
    }
    return numbers;
}

std::vector<std::string> WordsBeforeComment(const std::string& line) {
    std::istringstream stream(line.substr(0, line.find('#')));
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

}  // namespace

template <class Real>
Columns<Real> ReadColumns(std::istream& text, const std::string& name, size_t parts) {
    Columns<Real> columns{.parts = parts};
    std::vector<Real> numbers;
    errno = 0;
    for (std::string line; std::getline(text, line);) {
        ++columns.last_line;
        const std::vector<std::string> words = WordsBeforeComment(line);
        if (words.empty()) continue;
        if (columns.lines == 0) {
            if (words.size() % parts != 0) {
                Fail(name, columns.last_line,
                     "a complex signal has two columns (re im), so that " +
                         std::to_string(words.size()) +
                         " columns are not whole signals.\nWrite 0 for absent imaginary parts.");
            }
            columns.signals = words.size() / parts;
        }
        const size_t expected = columns.signals * parts;
        if (words.size() != expected) {
            Fail(name, columns.last_line,
                 "there are " + std::to_string(words.size()) +
                     " columns, where the first line has " + std::to_string(expected) +
                     ".\nGive all lines as many.");
        }
        for (const std::string& word : words)
            numbers.push_back(ParseNumber<Real>(word, name, columns.last_line));
        ++columns.lines;
    }
    if (text.bad()) {
        Fail(name, columns.last_line + 1,
             std::string("cannot read on: ") + std::strerror(errno) + ".");
    }
    columns.numbers = SignalAfterSignal<Real>(columns, numbers);
    return columns;
}

template <class Real>
std::string ShortestDecimal(Real value) {
    std::array<char, 32> digits;
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), result.ptr};
}

template <class Real>
void PrintColumns(std::ostream& text, const Columns<Real>& columns, size_t lines_of_block) {
    for (size_t line = 0; line < columns.lines; ++line) {
        if (line > 0 && line % lines_of_block == 0) text << '\n';
        const char* separator = "";
        for (size_t signal = 0; signal < columns.signals; ++signal) {
            for (const Real number : columns.samples(signal, line, 1)) {
                text << separator << ShortestDecimal(number);
                separator = " ";
            }
        }
        text << '\n';
    }
}

#define QSVG_TOOL_COLUMNS(REAL)                                                          \
    template Columns<REAL> ReadColumns<REAL>(std::istream&, const std::string&, size_t); \
    template void PrintColumns<REAL>(std::ostream&, const Columns<REAL>&, size_t);       \
    template std::string ShortestDecimal<REAL>(REAL);
QSVG_TOOL_COLUMNS(Real32)
QSVG_TOOL_COLUMNS(Real64)
#undef QSVG_TOOL_COLUMNS

}  // namespace qsvg_tool
