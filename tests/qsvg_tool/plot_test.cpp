/** @file @brief The tool's pictures, and the numbers that are drawn. */

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "support/tool.hpp"

namespace qsvgen_test {
namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class ToolPlot : public ToolTest {
  protected:
    void expect_picture(const std::string& arguments, const std::string& source,
                        const std::string& drawn) {
        write("x.txt", source);
        const auto result = shell("\"$tool\" transform " + arguments +
                                  " --plot \"$folder/y.png\" \"$folder/x.txt\"");
        EXPECT_EQ(0, result.exit_code) << arguments;
        EXPECT_EQ("", result.output) << arguments;
        EXPECT_EQ("\x89PNG\r\n\x1a\n", contents(folder_ / "y.png").substr(0, 8)) << arguments;
        EXPECT_GT(fs::file_size(folder_ / "y.png"), 500U) << arguments;
        EXPECT_EQ("# index real imaginary magnitude\n" + drawn, contents(folder_ / "y.dat"))
            << arguments;
    }
};

TEST_F(ToolPlot, DrawsComplexValuesWithTheirMagnitudes) {
    expect_picture("dft-complex 2 32fc", "2 2\n1 -2\n", "0 3 0 3\n1 1 4 4.123105625617661\n");
}

TEST_F(ToolPlot, DrawsTheBinsOfEveryLayoutAlike) {
    const std::string bins = "0 10 0 10\n1 -2 2 2.8284271247461903\n2 -2 0 2\n";
    for (const std::string layout : {"ccs", "pack", "perm"})
        expect_picture("dft-real 4 64f --layout " + layout, "1\n2\n3\n4\n", bins);
    for (const std::string layout : {"ccs", "pack", "perm"})
        expect_picture("dft-real 3 64f --layout " + layout, "1\n1\n1\n", "0 3 0 3\n1 0 0 0\n");
}

TEST_F(ToolPlot, DrawsRealValues) {
    expect_picture("dft-real 2 32f --inverse --layout pack", "1\n2\n", "0 3 0 3\n1 -1 0 1\n");
    expect_picture("hartley 2 32f", "1\n2\n", "0 3 0 3\n1 -1 0 1\n");
}

TEST_F(ToolPlot, DrawsACurveForEachSignalAndBlock) {
    expect_picture("walsh-hadamard 2 32f", "1 3\n2 4\n5 7\n6 8\n",
                   "0 3 0 3\n1 -1 0 1\n\n\n0 7 0 7\n1 -1 0 1\n\n\n0 11 0 11\n1 -1 0 1\n\n\n"
                   "0 15 0 15\n1 -1 0 1\n");
    const std::string script = contents(folder_ / "y.gp");
    EXPECT_TRUE(tells(script, "'signal 2 block 2 value'")) << script;
}

TEST_F(ToolPlot, NeverOverwritesItsInput) {
    const auto input = write("y.dat", "1\n2\n");
    const auto result =
        tool({"transform", "hartley", "2", "32f", "--plot", folder_ / "y.png", input});
    EXPECT_EQ(2, result.exit_code) << result.output;
    EXPECT_TRUE(tells(result.output, "overwrite the input")) << result.output;
    EXPECT_EQ("1\n2\n", contents(input));
}

TEST_F(ToolPlot, SaysWhereItCannotBeWritten) {
    const auto input = write("x.txt", "1\n2\n");
    const fs::path picture = folder_ / "no such folder" / "y.png";
    const auto result = tool({"transform", "hartley", "2", "32f", "--plot", picture, input});
    EXPECT_EQ(1, result.exit_code) << result.output;
    EXPECT_TRUE(tells(result.output, "no such folder")) << result.output;
}

}  // namespace
}  // namespace qsvgen_test
