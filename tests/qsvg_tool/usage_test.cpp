/** @file @brief Wrong use of the tool: told on standard error, with what to do, and exit code 2. */

#include <gtest/gtest.h>

#include "support/tool.hpp"

namespace qsvgen_test {
namespace {

class ToolUsage : public ToolTest {
  protected:
    /** Nothing on standard output. */
    void expect_hint(const std::string& arguments, const std::string& hint) {
        const auto result = shell("\"$tool\" " + arguments + " 2>\"$folder/errors\" </dev/null; " +
                                  "status=$?; echo ==; cat \"$folder/errors\"; exit $status");
        EXPECT_EQ(2, result.exit_code) << arguments << '\n' << result.output;
        EXPECT_TRUE(result.output.starts_with("==\nqsvg-tool: ")) << arguments << '\n'
                                                                  << result.output;
        EXPECT_TRUE(tells(result.output, hint)) << arguments << '\n' << result.output;
        EXPECT_TRUE(tells(result.output, "--help")) << arguments << '\n' << result.output;
    }
};

TEST_F(ToolUsage, HelpNamesEveryFamilyTypeScaleAndLayout) {
    for (const Words& words : {Words{"--help"}, Words{"transform", "--help"}}) {
        const auto result = tool(words);
        EXPECT_EQ(0, result.exit_code);
        for (const std::string word :
             {"dft-complex", "dft-real", "hartley", "walsh-hadamard", "dct4",      "32fc",
              "64fc",        "32f",      "64f",     "none",           "fwd-by-n",  "inv-by-n",
              "by-sqrt-n",   "ccs",      "pack",    "perm",           "--inverse", "--plot",
              "transform",   "explain"})
            EXPECT_TRUE(tells(result.output, word)) << word;
    }
}

TEST_F(ToolUsage, WithoutWordsSaysWhatThereIsToDo) {
    expect_hint("", "qsvg-tool transform");
    expect_hint("invert dft-complex 15 32fc", "one of transform, explain, not 'invert'");
}

TEST_F(ToolUsage, WithTooFewWordsShowsAnExample) {
    expect_hint("transform", "transform dft-complex 15 32fc");
    expect_hint("transform dft-complex 15", "transform dft-complex 15 32fc");
    expect_hint("explain hartley", "explain dft-complex 15 32fc");
}

TEST_F(ToolUsage, NamesTheFamilies) {
    expect_hint("transform dft 15 32fc", "dft-complex, dft-real, hartley, walsh-hadamard, dct4");
    expect_hint("explain dct 16 32f", "not 'dct'");
}

TEST_F(ToolUsage, NamesTheTypesOfTheFamily) {
    expect_hint("transform dft-complex 15 32f", "one of 32fc, 64fc, not '32f'");
    expect_hint("transform hartley 15 64fc", "one of 32f, 64f, not '64fc'");
}

TEST_F(ToolUsage, NamesTheLengthsOfTheFamily) {
    for (const std::string command : {"transform", "explain"}) {
        for (const std::string length : {"0", "1", "65", "2147483647"}) {
            expect_hint(command + " dft-complex " + length + " 32fc", "lengths 2 to 64");
            expect_hint(command + " dft-real " + length + " 64f", "lengths 2 to 64");
            expect_hint(command + " hartley " + length + " 32f", "lengths 2 to 64");
        }
        for (const std::string length : {"0", "1", "3", "48", "16384"})
            expect_hint(command + " walsh-hadamard " + length + " 32f", "2, 4, 8, ... 8192");
        // The library tells a size for the last of them: it has wrapped around.
        for (const std::string length : {"0", "1", "3", "33", "65", "134217728", "1073741824"})
            expect_hint(command + " dct4 " + length + " 32f", "67108864");
        for (const std::string length : {"67108864", "536870912", "1073741824"})
            expect_hint(command + " dct4 " + length + " 64f", "33554432");
    }
}

TEST_F(ToolUsage, WantsAWholeNumberForTheLength) {
    for (const std::string length : {"x", "15x", "1.5", "2147483648", "''"})
        expect_hint("transform dft-complex " + length + " 32fc", "whole number");
}

TEST_F(ToolUsage, RefusesOptionsThatItDoesNotHave) {
    expect_hint("transform dft-complex 15 32fc --fast", "no option '--fast'");
    expect_hint("transform dft-complex -3 32fc", "no option '-3'");
}

TEST_F(ToolUsage, WantsValuesOfOptions) {
    for (const std::string option : {"--scale", "--layout", "--plot"})
        expect_hint("transform dft-real 15 32f " + option, option + " needs a value");
}

TEST_F(ToolUsage, NamesTheScalesAndTheLayouts) {
    expect_hint("transform dft-real 15 32f --scale n",
                "one of none, fwd-by-n, inv-by-n, by-sqrt-n, not 'n'");
    expect_hint("transform dft-real 15 32f --layout full", "one of ccs, pack, perm, not 'full'");
}

TEST_F(ToolUsage, SaysHowToInvertWhatHasNoInverse) {
    expect_hint("transform hartley 15 32f --inverse", "--scale inv-by-n");
    expect_hint("transform walsh-hadamard 16 32f --inverse", "--scale inv-by-n");
    expect_hint("transform dct4 16 32f --inverse", "2/LENGTH");
}

TEST_F(ToolUsage, RefusesLayoutsAndScalesOfFamiliesWithoutThem) {
    expect_hint("transform dft-complex 15 32fc --layout ccs", "Only dft-real has layouts");
    expect_hint("transform dct4 16 32f --scale by-sqrt-n", "never scaled");
}

TEST_F(ToolUsage, RefusesASecondFile) {
    expect_hint("transform hartley 15 32f a b", "'b'");
}

TEST_F(ToolUsage, RefusesPicturesThatAreNoPng) {
    expect_hint("transform hartley 15 32f --plot y.jpg", "FILE.png");
}

TEST_F(ToolUsage, ExplainsWithoutInputAndScale) {
    expect_hint("explain hartley 15 32f numbers.txt", "nor a file");
    expect_hint("explain hartley 15 32f --scale none", "--scale");
    expect_hint("explain hartley 15 32f --plot y.png", "--plot");
}

}  // namespace
}  // namespace qsvgen_test
