/** @file @brief What the tool prints against the definitions of the transforms. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "qsvgen.h"
#include "support/definitions.hpp"

namespace qsvgen_test {
namespace {

using ToolTransform = ToolTest;

/** Multiples of 2^-15 between -1 and 1, which both element types hold exactly. */
Numbers noise(std::size_t size) {
    std::mt19937 random(1);
    Numbers numbers(size);
    for (auto& number : numbers) number = static_cast<long double>(random() % 65536) / 32768 - 1;
    return numbers;
}

/** Sixty-four times the rounding of a value of the signal's energy: far from any wrong result, and
 * far beyond what the longest transforms round. */
long double limit(const ToolCase& tool_case, const Numbers& expected) {
    long double energy = 0;
    for (const long double value : expected) energy += value * value;
    const double epsilon = tool_case.is_double ? std::numeric_limits<double>::epsilon()
                                               : std::numeric_limits<float>::epsilon();
    return 64 * epsilon * std::sqrt(energy / static_cast<long double>(expected.size()));
}

void expect_near(const ToolCase& tool_case, const Numbers& expected, const Numbers& actual,
                 const std::string& what) {
    ASSERT_EQ(expected.size(), actual.size()) << what;
    const long double most = limit(tool_case, expected);
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(expected[i], actual[i], most) << what << ", number " << i;
}

TEST_F(ToolTransform, PrintsTheDefinitionOfEveryTransform) {
    for (const ToolCase& tool_case : all_tool_cases()) {
        const Numbers x = noise(tool_case.source_size());
        Words words = {"transform"};
        words.insert(words.end(), tool_case.arguments.begin(), tool_case.arguments.end());
        words.push_back(write("x.txt", text_of(x, tool_case.is_complex ? 2 : 1)));
        const auto result = tool(words);
        ASSERT_EQ(0, result.exit_code) << joined(words) << '\n' << result.output;
        expect_near(tool_case, tool_case.definition(x), numbers_of(result.output), joined(words));
    }
}

TEST_F(ToolTransform, PrintsTheDefinitionOfEveryBlockOfEverySignal) {
    constexpr std::size_t kSignals = 3;
    constexpr std::size_t kBlocks = 5;
    for (const ToolCase& tool_case : all_tool_cases()) {
        if (tool_case.length > 64) continue;
        const std::size_t parts = tool_case.is_complex ? 2 : 1;
        const auto lines = static_cast<std::size_t>(tool_case.source_lines);
        const std::size_t line_size = kSignals * parts;
        const Numbers x = noise(kBlocks * lines * line_size);
        // Of a block of a signal among lines of numbers.
        const auto part_of = [&](const Numbers& numbers, std::size_t block_lines, std::size_t block,
                                 std::size_t signal) {
            Numbers picked;
            for (std::size_t line = 0; line < block_lines; ++line) {
                const auto begin = numbers.begin() +
                                   static_cast<std::ptrdiff_t>(
                                       (block * block_lines + line) * line_size + signal * parts);
                picked.insert(picked.end(), begin, begin + static_cast<std::ptrdiff_t>(parts));
            }
            return picked;
        };
        Words words = {"transform"};
        words.insert(words.end(), tool_case.arguments.begin(), tool_case.arguments.end());
        words.push_back(write("x.txt", text_of(x, line_size)));
        const auto result = tool(words);
        ASSERT_EQ(0, result.exit_code) << joined(words) << '\n' << result.output;
        const Numbers printed = numbers_of(result.output);
        const std::size_t result_lines = printed.size() / (kBlocks * line_size);
        ASSERT_EQ(result_lines * kBlocks * line_size, printed.size()) << joined(words);
        for (std::size_t block = 0; block < kBlocks; ++block) {
            for (std::size_t signal = 0; signal < kSignals; ++signal) {
                expect_near(tool_case, tool_case.definition(part_of(x, lines, block, signal)),
                            part_of(printed, result_lines, block, signal),
                            joined(words) + ", block " + std::to_string(block) + ", signal " +
                                std::to_string(signal));
            }
        }
    }
}

TEST_F(ToolTransform, ScalesByWhatTheFlagSaysOfTheDirection) {
    for (const ToolCase& tool_case : all_tool_cases()) {
        if (tool_case.length != 64 || tool_case.arguments[0] == "dct4") continue;
        const Numbers x = noise(tool_case.source_size());
        const auto file = write("x.txt", text_of(x, tool_case.is_complex ? 2 : 1));
        const long double N = tool_case.length;
        for (const auto& [scale, factor] :
             {std::pair("none", 1.0L), std::pair("by-sqrt-n", 1 / std::sqrt(N)),
              std::pair("fwd-by-n", tool_case.is_inverse ? 1 : 1 / N),
              std::pair("inv-by-n", tool_case.is_forward ? 1 : 1 / N)}) {
            Words words = {"transform"};
            words.insert(words.end(), tool_case.arguments.begin(), tool_case.arguments.end());
            words.insert(words.end(), {"--scale", scale, file});
            const auto result = tool(words);
            ASSERT_EQ(0, result.exit_code) << joined(words) << '\n' << result.output;
            Numbers expected = tool_case.definition(x);
            for (auto& value : expected) value *= factor;
            expect_near(tool_case, expected, numbers_of(result.output), joined(words));
        }
    }
}

TEST_F(ToolTransform, PrintsNumbersThatReadBackAsTheBitsOfTheLibrary) {
    const Numbers x = noise(30);
    write("x.txt", text_of(x, 2));
    Complex32 source[15];
    Complex32 expected[15];
    for (std::size_t i = 0; i < 15; ++i)
        source[i] = {static_cast<float>(x[2 * i]), static_cast<float>(x[2 * i + 1])};
    ASSERT_EQ(qsvStatusOk, qsvgDFTFwd_CToC_32fc(source, expected, 15, qsvScaleBySqrtN));
    const auto result =
        shell("\"$tool\" transform dft-complex 15 32fc --scale by-sqrt-n \"$folder/x.txt\"");
    const auto words = split_words(result.output);
    ASSERT_EQ(30U, words.size()) << result.output;
    for (std::size_t i = 0; i < 15; ++i) {
        EXPECT_EQ(expected[i].re, std::stof(words[2 * i])) << "element " << i;
        EXPECT_EQ(expected[i].im, std::stof(words[2 * i + 1])) << "element " << i;
    }
}

TEST_F(ToolTransform, ReadsNumbersRoundedOnceToTheElementType) {
    // Halfway between two binary32 numbers but for a digit that binary64 does not hold: rounded to
    // binary64 first it would become a tie, and 1.
    const std::string just_above_half = "1.0000000596046447753906250000001";
    write("x.txt", just_above_half + "\n0\n");
    const auto result = shell("\"$tool\" transform walsh-hadamard 2 32f \"$folder/x.txt\"");
    EXPECT_EQ("1.0000001\n1.0000001\n", result.output);
}

TEST_F(ToolTransform, ComesBackThroughTheInverse) {
    for (const ToolCase& tool_case : all_tool_cases()) {
        if (tool_case.is_inverse) continue;
        const Numbers x = noise(tool_case.source_size());
        const std::string name = joined(tool_case.arguments);
        write("x.txt", text_of(x, tool_case.is_complex ? 2 : 1));
        const bool is_dct4 = tool_case.arguments[0] == "dct4";
        const std::string back = is_dct4                ? ""
                                 : tool_case.is_forward ? " --inverse --scale inv-by-n"
                                                        : " --scale inv-by-n";
        const auto result = shell("\"$tool\" transform " + name +
                                  " \"$folder/x.txt\" | \"$tool\" transform " + name + back);
        EXPECT_EQ(0, result.exit_code) << name;
        Numbers expected = x;
        if (is_dct4) {
            for (auto& value : expected) value *= tool_case.length / 2.0L;
        }
        expect_near(tool_case, expected, numbers_of(result.output), name);
    }
}

}  // namespace
}  // namespace qsvgen_test
