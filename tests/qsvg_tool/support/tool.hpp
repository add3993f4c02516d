#pragma once

/** @file @brief Runs the tool on texts and reads what it printed. */

#include <filesystem>
#include <string>
#include <vector>

#include "support/example_folder.hpp"
#include "support/run_command.hpp"

namespace qsvgen_test {

using Words = std::vector<std::string>;

std::string joined(const Words& words);

class ToolTest : public ExampleFolderTest {
  protected:
    ToolTest() : ExampleFolderTest(QSVG_TOOL_PATH) {}

    /** Standard output and standard error together. */
    static CommandResult tool(const Words& arguments);

    /** A line for the shell, in which $tool is the tool and $folder the folder of the test. */
    CommandResult shell(const std::string& line) const;

    /** A file in the folder of the test. */
    std::filesystem::path write(const std::string& name, const std::string& text) const;
};

/** A line for each sample, with all digits that a number may need. */
std::string text_of(const std::vector<long double>& numbers, std::size_t columns = 1);

/** The numbers of all lines. */
std::vector<long double> numbers_of(const std::string& text);

/** What is told of a label in the first section whose title begins so; of the heading in all
 * sections if that is empty. Fails where there is none. */
std::string told(const std::string& explanation, const std::string& section,
                 const std::string& label);

/** Whether a line says it. */
bool tells(const std::string& explanation, const std::string& text);

}  // namespace qsvgen_test
