#include "support/tool.hpp"

#include <fstream>
#include <iomanip>
#include <limits>
#include <sstream>

namespace qsvgen_test {

std::string joined(const Words& words) {
    std::string text;
    for (const auto& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

CommandResult ToolTest::tool(const Words& arguments) {
    Words words = {QSVG_TOOL_PATH};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return run_command(words, Errors::Together);
}

CommandResult ToolTest::shell(const std::string& line) const {
    const std::string script = "tool=$1; folder=$2; " + line;
    return run_command({"bash", "-c", script, "bash", QSVG_TOOL_PATH, folder_.string()});
}

std::filesystem::path ToolTest::write(const std::string& name, const std::string& text) const {
    std::filesystem::path path = folder_ / name;
    std::ofstream(path) << text;
    return path;
}

std::string text_of(const std::vector<long double>& numbers, std::size_t columns) {
    std::ostringstream text;
    text << std::setprecision(std::numeric_limits<double>::max_digits10);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        text << static_cast<double>(numbers[i]) << ((i + 1) % columns == 0 ? '\n' : ' ');
    return text.str();
}

std::vector<long double> numbers_of(const std::string& text) {
    std::vector<long double> numbers;
    for (const auto& line : split_lines(text)) {
        for (const auto& word : split_words(line)) {
            std::size_t end = 0;
            numbers.push_back(std::stold(word, &end));
            if (end != word.size()) ADD_FAILURE() << "'" << word << "' is no number";
        }
    }
    return numbers;
}

std::string told(const std::string& explanation, const std::string& section,
                 const std::string& label) {
    bool is_inside = section.empty();
    for (const auto& line : split_lines(explanation)) {
        if (!line.starts_with(" ")) is_inside = section.empty() || line.starts_with(section);
        // At least two blanks stand between label and value.
        const std::string start = "  " + label + "  ";
        if (!is_inside || !line.starts_with(start)) continue;
        std::string value = line.substr(line.find_first_not_of(' ', start.size()));
        return value.substr(0, value.find("  "));
    }
    ADD_FAILURE() << "nothing is told of '" << label << "' in\n" << explanation;
    return {};
}

bool tells(const std::string& explanation, const std::string& text) {
    return explanation.find(text) != std::string::npos;
}

}  // namespace qsvgen_test
