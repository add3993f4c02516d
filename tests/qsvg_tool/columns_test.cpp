/** @file @brief How the tool reads and writes columns of numbers. */

#include <gtest/gtest.h>

#include <string>

#include "support/tool.hpp"

namespace qsvgen_test {
namespace {

using ToolColumns = ToolTest;

const std::string kPair = "\"$tool\" transform walsh-hadamard 2 32f ";

TEST_F(ToolColumns, ReadStandardInputWhereNoFileIsNamed) {
    for (const std::string name : {"", "-"}) {
        const auto result = shell("printf '3\\n1\\n' | " + kPair + name);
        EXPECT_EQ(0, result.exit_code) << result.output;
        EXPECT_EQ("4\n2\n", result.output);
    }
}

TEST_F(ToolColumns, SkipCommentsEmptyLinesAndCarriageReturns) {
    const auto result =
        shell("printf '# two numbers\\r\\n\\n 3 # first\\r\\n\\t1\\n\\n#' | " + kPair);
    EXPECT_EQ("4\n2\n", result.output);
}

TEST_F(ToolColumns, TransformSuccessiveBlocksWithEmptyLinesBetweenThem) {
    const auto result = shell("printf '3\\n1\\n5\\n1\\n7\\n1\\n' | " + kPair);
    EXPECT_EQ("4\n2\n\n6\n4\n\n8\n6\n", result.output);
}

TEST_F(ToolColumns, TransformFurtherColumnsAsSignalsOfTheirOwn) {
    const auto result = shell("printf '3 5\\n1 1\\n7 9\\n1 1\\n' | " + kPair);
    EXPECT_EQ("4 6\n2 4\n\n8 10\n6 8\n", result.output);
}

TEST_F(ToolColumns, TakePairsOfColumnsForComplexSignals) {
    const auto result =
        shell("printf '3 1 0 0\\n1 2 1 1\\n' | \"$tool\" transform dft-complex 2 64fc");
    EXPECT_EQ("4 3 1 1\n2 -1 -1 -1\n", result.output);
}

TEST_F(ToolColumns, ReadWhatTheyHaveWritten) {
    const auto result = shell("printf '3 5\\n1 1\\n7 9\\n1 1\\n' | " + kPair + " | " + kPair);
    EXPECT_EQ("6 10\n2 2\n\n14 18\n2 2\n", result.output);
}

TEST_F(ToolColumns, RoundTinyNumbersInsteadOfRefusingThem) {
    const auto result = shell("printf '1e-60\\n1e-40\\n' | " + kPair);
    EXPECT_EQ(0, result.exit_code) << result.output;
    EXPECT_EQ("1e-40\n-1e-40\n", result.output);
}

/** Exit code 1, and the file and the line in the message. */
class ToolFaults : public ToolTest {
  protected:
    void expect_fault(const std::string& family_length_type, const std::string& text,
                      const std::string& line, const std::string& hint) {
        const auto file = write("numbers.txt", text);
        Words words = {"transform"};
        for (const auto& word : split_words(family_length_type)) words.push_back(word);
        words.push_back(file);
        const auto result = tool(words);
        EXPECT_EQ(1, result.exit_code) << text << result.output;
        EXPECT_TRUE(tells(result.output, file.string() + ":" + line + ": ")) << result.output;
        EXPECT_TRUE(tells(result.output, hint)) << result.output;
    }
};

TEST_F(ToolFaults, SayHowManyLinesAreMissing) {
    expect_fault("hartley 15 32f", "1\n2\n", "2", "13 lines are missing");
    expect_fault("hartley 3 32f", "1\n2\n3\n4\n", "4", "2 lines are missing");
    expect_fault("dft-complex 4 32fc", "1 2\n# end\n", "2", "3 lines are missing");
}

TEST_F(ToolFaults, SayThatNoNumbersAreThere) {
    expect_fault("hartley 15 32f", "# nothing\n", "1", "15 lines are missing");
    expect_fault("hartley 15 32f", "", "0", "15 lines are missing");
}

TEST_F(ToolFaults, NameTheWordThatIsNoNumber) {
    expect_fault("hartley 2 32f", "1\n\n2,5\n", "3", "'2,5'");
    expect_fault("hartley 2 64f", "1 # first\nx\n", "2", "'x'");
    expect_fault("hartley 2 64f", "1..2\n", "1", "'1..2'");
}

TEST_F(ToolFaults, NameTheNumberThatTheTypeDoesNotHold) {
    expect_fault("hartley 2 32f", "1\n1e39\n", "2", "'1e39' is too large");
    expect_fault("hartley 2 64f", "-1e309\n1\n", "1", "'-1e309' is too large");
}

TEST_F(ToolFaults, NameTheLineWithOtherColumns) {
    expect_fault("hartley 2 32f", "1 2\n\n1\n", "3", "1 columns, where the first line has 2");
    expect_fault("hartley 2 32f", "1\n1 2\n", "2", "2 columns, where the first line has 1");
}

TEST_F(ToolFaults, NameTheLineWithoutAnImaginaryPart) {
    expect_fault("dft-complex 2 32fc", "1\n2\n", "1", "re im");
    expect_fault("dft-complex 2 32fc", "1 2 3\n", "1", "re im");
}

TEST_F(ToolFaults, CallStandardInputByThatName) {
    const auto result = shell("echo x | " + kPair + " 2>&1");
    EXPECT_EQ(1, result.exit_code);
    EXPECT_TRUE(tells(result.output, "(standard input):1: 'x'")) << result.output;
}

TEST_F(ToolFaults, NameTheFileThatCannotBeRead) {
    const auto missing = (folder_ / "missing.txt").string();
    const auto result = tool({"transform", "hartley", "2", "32f", missing});
    EXPECT_EQ(1, result.exit_code) << result.output;
    EXPECT_TRUE(tells(result.output, "'" + missing + "': No such file")) << result.output;
    const auto folder = tool({"transform", "hartley", "2", "32f", folder_});
    EXPECT_EQ(1, folder.exit_code) << folder.output;
    EXPECT_TRUE(tells(folder.output, folder_.string() + ":1: ")) << folder.output;
    EXPECT_TRUE(tells(folder.output, "Is a directory")) << folder.output;
}

TEST_F(ToolFaults, TellOfAResultThatCannotBeWritten) {
    const auto result = shell("printf '3\\n1\\n' | " + kPair + " 2>&1 >/dev/full");
    EXPECT_EQ(1, result.exit_code);
    EXPECT_TRUE(tells(result.output, "No space left")) << result.output;
}

}  // namespace
}  // namespace qsvgen_test
