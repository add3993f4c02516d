#include "explanation.hpp"

#include <algorithm>

namespace qsvg_tool {
namespace {

std::string Padded(const std::string& text, size_t width) {
    return text + std::string(width - std::min(width, text.size()), ' ');
}

void Print(std::ostream& text, const Section& section) {
    size_t label_width = 0;
    size_t value_width = 0;
    for (const Line& line : section.lines) {
        // A label without a value is a sentence of its own.
        if (!line.value.empty()) label_width = std::max(label_width, line.label.size());
        value_width = std::max(value_width, line.value.size());
    }
    text << '\n' << section.title << '\n';
    for (const Line& line : section.lines) {
        std::string row = "  " + line.label;
        if (!line.value.empty()) row = "  " + Padded(line.label, label_width) + "  " + line.value;
        if (!line.note.empty())
            row = Padded(row, 2 + label_width + 2 + value_width) + "  " + line.note;
        text << row << '\n';
    }
}

}  // namespace

void Print(std::ostream& text, const Explanation& explanation) {
    text << explanation.title << '\n';
    for (const Section& section : explanation.sections) Print(text, section);
}

}  // namespace qsvg_tool
