#pragma once

/** @file @brief What is told of one transform: titled lines. */

#include <ostream>
#include <string>
#include <vector>

namespace qsvg_tool {

struct Line {
    std::string label;
    std::string value = {};
    std::string note = {};
};

struct Section {
    std::string title;
    std::vector<Line> lines = {};

    void Add(std::string label, int value, std::string note = {}) {
        lines.push_back({std::move(label), std::to_string(value), std::move(note)});
    }
    /** Only what there is any of. */
    void AddIfAny(std::string label, int value, std::string note = {}) {
        if (value != 0) Add(std::move(label), value, std::move(note));
    }
};

struct Explanation {
    std::string title;
    std::vector<Section> sections = {};
};

/** Labels, values and notes stand below each other in a section. */
void Print(std::ostream& text, const Explanation& explanation);

}  // namespace qsvg_tool
