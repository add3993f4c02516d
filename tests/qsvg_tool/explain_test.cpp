/** @file @brief What the tool tells of kernels, against manifests, machine code and arithmetic. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <regex>
#include <set>

#include "support/kernel.hpp"
#include "support/manifest.hpp"
#include "support/tool.hpp"

namespace qsvgen_test {
namespace {

class ToolExplain : public ToolTest {
  protected:
    static std::string explain(const std::string& words) {
        Words arguments = {"explain"};
        for (const auto& word : split_words(words)) arguments.push_back(word);
        const auto result = tool(arguments);
        EXPECT_EQ(0, result.exit_code) << words << '\n' << result.output;
        return result.output;
    }

    /** Each column is told under its own name, with blanks; one that is not told is 0. */
    static void expect_row(const ManifestRow& row, const std::string& explanation,
                           const std::vector<std::string>& columns,
                           const std::string& section = "") {
        for (const std::string& column : columns) {
            std::string label = column;
            std::ranges::replace(label, '_', ' ');
            const std::string name = row.at("kernel") + ", " + column;
            if (row.at(column) == "0" && !tells(explanation, "\n  " + label + " ")) continue;
            EXPECT_EQ(row.at(column), told(explanation, section, label)) << name;
        }
    }

    static constexpr int kLengths[] = {2, 3, 5, 7, 8, 13, 15, 16, 31, 35, 47, 64};
};

TEST_F(ToolExplain, ComplexDftsAsTheManifestHasThem) {
    const auto manifest = manifest_of("dft_complex");
    for (const int length : kLengths) {
        const std::string number = std::to_string(length);
        for (const std::string type : {"32fc", "64fc"}) {
            for (const std::string direction : {"Fwd", "Inv"}) {
                const std::string kernel = "qsvgDFT" + direction + "_CToC_" + number + "_" + type;
                const auto text = explain("dft-complex " + number + " " + type +
                                          (direction == "Inv" ? " --inverse" : ""));
                EXPECT_TRUE(text.starts_with(kernel + ": ")) << text;
                expect_row(
                    manifest.at(kernel), text,
                    {"rule", "sums", "differences", "products", "table_sums", "table_products",
                     "wide_sums", "wide_differences", "wide_products", "flips", "shuffles", "loads",
                     "stores", "order", "modelled_stack_accesses"});
            }
        }
    }
}

TEST_F(ToolExplain, RealDftsAsTheManifestHasThem) {
    const auto manifest = manifest_of("dft_real");
    const std::vector<std::pair<std::string, std::string>> layouts = {
        {"CCS", "ccs"}, {"Pack", "pack"}, {"Perm", "perm"}};
    for (const int length : {2, 13, 15, 64}) {
        const std::string number = std::to_string(length);
        for (const std::string type : {"32f", "64f"}) {
            for (const auto& [name, option] : layouts) {
                for (const bool inverse : {false, true}) {
                    const std::string kernel =
                        (inverse ? "qsvgDFTInv_" + name + "ToR_" : "qsvgDFTFwd_RTo" + name + "_") +
                        number + "_" + type;
                    const auto text = explain("dft-real " + number + " " + type + " --layout " +
                                              option + (inverse ? " --inverse" : ""));
                    EXPECT_TRUE(text.starts_with(kernel + ": ")) << text;
                    expect_row(
                        manifest.at(kernel), text,
                        {"sums", "products", "table_sums", "table_products",
                         "outputs_scaled_in_rows", "doubled_inputs", "wide_sums", "conversions",
                         "loads", "stores", "order", "modelled_stack_accesses", "rounding"});
                }
            }
        }
    }
}

TEST_F(ToolExplain, HartleyTransformsAsTheManifestHasThem) {
    const auto manifest = manifest_of("hartley");
    for (const int length : kLengths) {
        for (const std::string type : {"32f", "64f"}) {
            const std::string end = std::to_string(length) + "_" + type;
            const auto text = explain("hartley " + std::to_string(length) + " " + type);
            expect_row(manifest.at("qsvgHartley_" + end), text,
                       {"sums", "products", "table_sums", "table_products",
                        "outputs_scaled_in_rows", "wide_sums", "conversions", "loads", "stores",
                        "order", "modelled_stack_accesses", "rounding"});
        }
    }
}

TEST_F(ToolExplain, WalshHadamardTransformsAsTheManifestHasThem) {
    const auto manifest = manifest_of("walsh_hadamard");
    for (int order = 1; order <= 13; ++order) {
        for (const std::string type : {"32f", "64f"}) {
            const std::string kernel = "qsvgWHT_" + std::to_string(order) + "_" + type;
            const auto text = explain("walsh-hadamard " + std::to_string(1 << order) + " " + type);
            expect_row(manifest.at(kernel), text,
                       {"stages", "buffer_bytes", "sums", "differences", "products", "shuffles",
                        "loads", "stores", "orders", "modelled_stack_accesses"});
        }
    }
}

TEST_F(ToolExplain, WalshHadamardCallsFormHalfASumAndHalfADifferenceForEachElementAndStage) {
    for (int order = 1; order <= 13; ++order) {
        for (const bool is_double : {false, true}) {
            const auto text = explain("walsh-hadamard " + std::to_string(1 << order) +
                                      (is_double ? " 64f" : " 32f"));
            const int lanes = tells(text, "of single values") ? 1 : is_double ? 2 : 4;
            for (const std::string operation : {"run sums", "run differences"})
                EXPECT_EQ(order * (1 << order) / 2,
                          lanes * std::stoi(told(text, "operations", operation)))
                    << text;
        }
    }
}

TEST_F(ToolExplain, TheRulesOfComplexDftsInWords) {
    EXPECT_TRUE(tells(explain("dft-complex 15 32fc"), "15 = 5 x 3: Good-Thomas"));
    EXPECT_TRUE(tells(explain("dft-complex 17 32fc"), "17: Rader, a cyclic convolution of 16"));
    EXPECT_TRUE(tells(explain("dft-complex 47 32fc"),
                      "47: chirp (Bluestein), a cyclic convolution "
                      "of 96"));
    EXPECT_TRUE(tells(explain("dft-complex 25 64fc"), "25 = 5 x 5: Cooley-Tukey"));
    EXPECT_TRUE(tells(explain("dft-complex 32 64fc"), "32: split radix"));
    EXPECT_TRUE(tells(explain("dft-complex 13 64fc"), "13: one step, Rader's convolution of 12"));
    EXPECT_TRUE(tells(explain("dft-complex 35 64fc"), "7: one step, Rader's convolution of 6"));
    EXPECT_TRUE(tells(explain("dft-complex 2 64fc"), "2: one step"));
}

TEST_F(ToolExplain, TheOrdersOfRealTransformsInWords) {
    EXPECT_TRUE(tells(explain("dft-real 15 32f"), "15 = 3 x 5: Good-Thomas"));
    EXPECT_TRUE(tells(explain("dft-real 27 32f"), "27 = 3 x 3 x 3: Cooley-Tukey"));
    EXPECT_TRUE(tells(explain("dft-real 11 32f"), "11: dense"));
    EXPECT_TRUE(
        tells(explain("dft-real 11 32f --inverse"), "11: Rader, a cyclic convolution of 10"));
    EXPECT_TRUE(tells(explain("dft-real 13 64f"), "13: Rader, a cyclic convolution of 12"));
    EXPECT_TRUE(tells(explain("dft-real 64 64f --inverse"), ": split radix"));
    EXPECT_TRUE(tells(explain("hartley 8 32f"), "behind the forward real DFT"));
    EXPECT_TRUE(tells(explain("hartley 64 32f"), "before the inverse real DFT"));
}

/** Lengths of the convolutions that are told of. */
std::set<int> convolutions(const std::string& text) {
    std::set<int> lengths;
    const std::regex line(": Rader, a cyclic convolution of (\\d+)");
    for (std::sregex_iterator i(text.begin(), text.end(), line), end; i != end; ++i)
        lengths.insert(std::stoi((*i)[1]));
    return lengths;
}

/** Lengths that the network divides by, which a convolution alone does: 1/10, 1/12 and so on. */
std::set<int> divided_by(const std::string& text) {
    std::set<int> lengths;
    const std::regex constant(" = 1/(\\d+)");
    for (std::sregex_iterator i(text.begin(), text.end(), constant), end; i != end; ++i) {
        const int length = std::stoi((*i)[1]);
        if (length >= 10) lengths.insert(length);
    }
    return lengths;
}

TEST_F(ToolExplain, ConvolutionsOfRealTransformsAsTheirNetworksHaveThem) {
    for (int length : kHeaderLengths) {
        for (const std::string type : {" 32f", " 64f"}) {
            const std::string number = std::to_string(length) + type;
            for (const std::string& words :
                 {"dft-real " + number, "dft-real " + number + " --inverse", "hartley " + number}) {
                const auto text = explain(words);
                EXPECT_EQ(divided_by(text), convolutions(text)) << words << '\n' << text;
            }
        }
    }
}

TEST_F(ToolExplain, ElevenPointsDenseOnTheWayOutOfAnInverseConvolution) {
    for (const std::string length : {"23", "46"}) {
        const auto text = explain("dft-real " + length + " 32f --inverse");
        EXPECT_TRUE(tells(text, "11: dense")) << text;
        EXPECT_FALSE(tells(text, "11: Rader")) << text;
    }
}

TEST_F(ToolExplain, OrdersWhoseFactorsMakeTheLengthOrAPrimesConvolution) {
    for (const std::string family : {"dft-real", "hartley"}) {
        for (const int length : kLengths) {
            const auto text = explain(family + " " + std::to_string(length) + " 32f");
            int product = 1;
            for (const auto& word : split_words(told(text, "rule", "order of stages"))) {
                if (word != "x") product *= std::stoi(word);
            }
            const bool is_convolution = tells(text, "\n  " + std::to_string(length) + ": Rader");
            EXPECT_EQ(length, product + (is_convolution ? 1 : 0)) << text;
        }
    }
}

/** A value of the first quadrant or a fraction, or NaN for other formulas. */
long double evaluated(const std::string& formula) {
    std::smatch m;
    const long double turn = 2 * std::numbers::pi_v<long double>;
    if (std::regex_match(formula, m, std::regex("(cos|sin)\\(2 pi (\\d+)/(\\d+)\\)"))) {
        const long double angle = turn * std::stold(m[2]) / std::stold(m[3]);
        return m[1] == "cos" ? std::cos(angle) : std::sin(angle);
    }
    if (std::regex_match(formula, m, std::regex("(\\d+)/(\\d+)")))
        return std::stold(m[1]) / std::stold(m[2]);
    return NAN;
}

TEST_F(ToolExplain, ConstantsByFormulasOfTheirValues) {
    int compared = 0;
    for (const std::string words :
         {"dft-complex 15 32fc", "dft-complex 64 64fc", "dft-complex 47 32fc", "dft-real 30 32f",
          "hartley 49 64f", "dct4 64 32f", "dct4 4096 64f"}) {
        for (const auto& line : split_lines(explain(words))) {
            std::smatch m;
            if (!std::regex_match(line, m, std::regex("  ([0-9.e-]+)(f?) += (.*?)(  .*)?")))
                continue;
            const long double value = evaluated(m[3]);
            if (std::isnan(value)) continue;
            ++compared;
            const long double told_value = std::stold(m[1]);
            const bool rounded_right =
                m[2] == "f" ? static_cast<float>(value) == static_cast<float>(told_value)
                            : static_cast<double>(value) == static_cast<double>(told_value);
            EXPECT_TRUE(rounded_right) << words << ": " << line;
        }
    }
    EXPECT_GT(compared, 150);
}

TEST_F(ToolExplain, TheConstantsOfFifteenPointsByTheirMeaning) {
    const auto text = explain("dft-complex 15 64fc");
    EXPECT_EQ("= sin(2 pi 1/3)", told(text, "constants", "0.8660254037844386"));
    EXPECT_EQ("= cos(2 pi 1/5)", told(text, "constants", "0.30901699437494745"));
    EXPECT_EQ("= 1/2", told(text, "constants", "0.5"));
}

TEST_F(ToolExplain, CodeBytesAsTheLibraryHasThem) {
    const auto symbols = run_command({"nm", "--dynamic", "--print-size", QSVGEN_LIBRARY});
    for (const auto& [words, function] :
         {std::pair("dft-complex 15 32fc", "qsvgDFTFwd_CToC_15_32fc"),
          std::pair("dft-real 15 64f --inverse", "qsvgDFTInv_CCSToR_15_64f"),
          std::pair("hartley 15 32f", "qsvgHartley_15_32f"),
          std::pair("walsh-hadamard 256 32f", "qsvgWHT_8_32f")}) {
        std::smatch m;
        // A library whose names have versions tells them behind two signs.
        const std::regex line("[0-9a-f]+ ([0-9a-f]+) T " + std::string(function) + "(@@.*)?\n");
        ASSERT_TRUE(std::regex_search(symbols.output, m, line)) << function;
        EXPECT_EQ(std::stoi(m[1], nullptr, 16),
                  std::stoi(told(explain(words), "cost", "code bytes")))
            << function;
    }
}

}  // namespace
}  // namespace qsvgen_test
