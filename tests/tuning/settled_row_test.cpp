/** @file @brief Which candidate of a tuning is taken: scripts/lib/settled-row. */

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/run_command.hpp"

namespace qsvgen_test {
namespace {

/** A candidate as tuning programs print it, and its time. */
struct Candidate {
    int traffic;
    const char* row;
    const char* cycles;
};

std::string settled(const std::vector<Candidate>& candidates,
                    const std::vector<std::string>& options = {}) {
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "settled_row";
    std::filesystem::create_directories(folder);
    std::ofstream rows(folder / "rows");
    std::ofstream cycles(folder / "cycles");
    for (const Candidate& candidate : candidates) {
        rows << candidate.traffic << '\t' << candidate.row << '\n';
        cycles << candidate.cycles << '\n';
    }
    rows.close();
    cycles.close();
    std::vector<std::string> command = {SETTLED_ROW};
    command.insert(command.end(), options.begin(), options.end());
    command.insert(command.end(), {folder / "rows", folder / "cycles"});
    const auto result = run_command(command);
    EXPECT_EQ(0, result.exit_code) << result.output;
    return result.output;
}

TEST(SettledRow, IsTheFastestWhereItGainsMoreThanThreePerCent) {
    EXPECT_EQ("{second},\n", settled({{10, "{first},", "103.1"}, {20, "{second},", "100.0"}}));
}

TEST(SettledRow, IsThatWithTheLeastTrafficOfThoseWithinThreePerCent) {
    EXPECT_EQ("{second},\n", settled({{30, "{first},", "100.0"},
                                      {10, "{second},", "103.0"},
                                      {20, "{third},", "101.0"},
                                      {5, "{fourth},", "103.1"}}));
}

TEST(SettledRow, IsTheFastestOfAnOrdersOptions) {
    EXPECT_EQ("{an option},\n", settled({{10, "{plain},", "102.0"},
                                         {10, "{an option},", "101.0"},
                                         {10, "{another option},", "140.0"},
                                         {20, "{other order},", "100.0"}}));
}

TEST(SettledRow, ComparesNumbersAndNotTheirDigits) {
    EXPECT_EQ("{first},\n", settled({{9, "{first},", "99.9"}, {10, "{second},", "100.0"}}));
    EXPECT_EQ("{second},\n", settled({{10, "{first},", "1000.0"}, {9, "{second},", "200.0"}}));
}

TEST(SettledRow, KeepsTheSpacesAndCommasOfARow) {
    const std::string row = R"({15, "4i 2s", "bisection o2x7", "no-tree-ter"},)";
    EXPECT_EQ(row + "\n", settled({{10, row.c_str(), "7.5"}}));
}

TEST(SettledRow, IsNoneWhereNothingWasTimed) {
    EXPECT_EQ("", settled({}));
    EXPECT_EQ("", settled({}, {"--level"}));
}

TEST(SettledRow, OfALevelIsTheFastestWhateverItsTraffic) {
    EXPECT_EQ("{third},\n", settled({{90, "", "200.0"},
                                     {10, "{second},", "101.0"},
                                     {80, "{third},", "100.0"},
                                     {20, "{fourth},", "100.5"}},
                                    {"--level"}));
}

TEST(SettledRow, OfALevelIsNoneWhereTheKernelBelowIsWithinThreePerCent) {
    EXPECT_EQ("", settled({{90, "", "103.0"}, {10, "{second},", "100.0"}}, {"--level"}));
    EXPECT_EQ("", settled({{90, "", "99.0"}, {10, "{second},", "100.0"}}, {"--level"}));
    EXPECT_EQ("{second},\n", settled({{90, "", "103.1"}, {10, "{second},", "100.0"}}, {"--level"}));
    EXPECT_EQ("", settled({{90, "", "103.1"}}, {"--level"})) << "nothing was found";
}

}  // namespace
}  // namespace qsvgen_test
