/** @file @brief What the tool tells of the DCT-IV, against its plans and the manifest of its
 * bodies. */

#include <gtest/gtest.h>

#include <regex>

#include "dct4/records.hpp"
#include "qsvgen.h"
#include "support/manifest.hpp"
#include "support/tool.hpp"

namespace qsvgen_test {
namespace {

namespace records = dct4::QSVG_ELEMENT;

class ToolExplainDct4 : public ToolTest {
  protected:
    static std::string explain(int length, bool is_double) {
        const auto result =
            tool({"explain", "dct4", std::to_string(length), is_double ? "64f" : "32f"});
        EXPECT_EQ(0, result.exit_code) << result.output;
        return result.output;
    }

    /** "dct4_analysis_3_32f" and so on, each once. */
    static std::vector<std::string> bodies_of(const std::string& text) {
        std::vector<std::string> bodies;
        const std::regex head("body (dct4_\\w+), run ");
        for (std::sregex_iterator i(text.begin(), text.end(), head), end; i != end; ++i)
            bodies.push_back((*i)[1]);
        return bodies;
    }
};

template <class Object>
const Object& child_of(const EnvList* stage) {
    return *static_cast<const Object*>(stage->item);
}

std::string times(int a, int b) {
    return std::to_string(a) + " x " + std::to_string(b);
}

TEST_F(ToolExplainDct4, SplitsLengthsAsItsPlansDo) {
    for (int length = 64; length <= 1 << 18; length *= 2) {
        QsvDCT4Plan_32f* plan = nullptr;
        ASSERT_EQ(qsvStatusOk, qsvgDCT4InitAlloc_32f(&plan, length));
        const auto& root = *reinterpret_cast<const records::env1*>(plan);
        const auto text = explain(length, false);
        EXPECT_EQ(std::to_string(length) + " = 2 x " + times(length / 2 / root.factor, root.factor),
                  told(text, "rule", "length"));
        EXPECT_EQ(std::to_string(root.factor), told(text, "rule", "stage A")) << text;

        const auto& stage_a = child_of<records::env3>(root.stage2);
        const EnvList* stage = child_of<records::env5>(stage_a.stage).stage;
        std::string splits;
        while (stage->item != nullptr) {
            const auto& split = child_of<records::env7>(stage);
            splits += std::to_string(split.subLength) + " = " +
                      times(split.factor, split.subLength / split.factor) + "\n";
            stage = child_of<records::env9>(split.stage2).stage;
        }
        std::string told_splits;
        const std::regex line("    split +(\\d+ = \\d+ x \\d+)");
        for (std::sregex_iterator i(text.begin(), text.end(), line), end; i != end; ++i)
            told_splits += (*i)[1].str() + "\n";
        EXPECT_EQ(splits, told_splits) << text;
        EXPECT_EQ(qsvStatusOk, qsvgDCT4Free_32f(plan));
    }
}

TEST_F(ToolExplainDct4, CountsBodiesAsTheManifestDoes) {
    const auto manifest = manifest_of("dct4");
    for (const int length : {2, 4, 8, 16, 32, 64, 128, 512, 1 << 16, 1 << 25}) {
        for (const bool is_double : {false, true}) {
            const auto text = explain(length, is_double);
            const auto bodies = bodies_of(text);
            EXPECT_FALSE(bodies.empty()) << text;
            for (const std::string& body : bodies) {
                const ManifestRow& row = manifest.at(body);
                for (const std::string column :
                     {"sums", "differences", "products", "shuffles", "loads", "stores", "order"})
                    EXPECT_EQ(row.at(column), told(text, "body " + body, column)) << body;
                EXPECT_EQ(row.at("modelled_stack_accesses"),
                          told(text, "body " + body, "modelled stack accesses"))
                    << body;
            }
        }
    }
}

TEST_F(ToolExplainDct4, RunsBodiesSoOftenThatEachStageWritesAllElements) {
    for (int length = 2; length <= 1 << 24; length *= 2) {
        for (const bool is_double : {false, true}) {
            const auto text = explain(length, is_double);
            const int lanes = length <= 32 ? 1 : is_double ? 2 : 4;
            for (const std::string& body : bodies_of(text)) {
                const int runs = std::stoi(told(text, "body " + body, "runs"));
                const int stores = std::stoi(told(text, "body " + body, "stores"));
                EXPECT_EQ(length, runs * stores * lanes) << body << '\n' << text;
            }
        }
    }
}

TEST_F(ToolExplainDct4, TellsTheSizeOfThePlan) {
    for (const int length : {2, 64, 1024}) {
        int32_t bytes = 0;
        ASSERT_EQ(qsvStatusOk, qsvgDCT4GetSize_64f(length, &bytes));
        EXPECT_EQ(std::to_string(bytes), told(explain(length, true), "cost", "plan bytes"));
    }
}

}  // namespace
}  // namespace qsvgen_test
