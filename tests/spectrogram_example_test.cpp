/** @file @brief The spectrogram example, run as a user runs it. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <numbers>
#include <string>

#include "support/run_command.hpp"

namespace qsvgen_test {
namespace {

namespace fs = std::filesystem;

constexpr int kSampleRate = 8000;

class SpectrogramExample : public testing::Test {
  protected:
    void SetUp() override {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder_ =
            fs::temp_directory_path() /
            (std::string("spectrogram_") + test->name() + "_" +
             std::to_string(std::hash<std::string>{}(fs::absolute(SPECTROGRAM_PATH).string())));
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    static void put(std::ofstream& file, std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i) file.put(static_cast<char>(value >> (8 * i) & 0xFF));
    }

    // One second, one channel, 16 bits.
    fs::path write_sine(double frequency) const {
        const fs::path path = folder_ / "sine.wav";
        std::ofstream file(path, std::ios::binary);
        constexpr std::uint32_t kBytes = 2 * kSampleRate;
        file << "RIFF";
        put(file, 36 + kBytes, 4);
        file << "WAVEfmt ";
        put(file, 16, 4);               // size of the format
        put(file, 1, 2);                // linear samples
        put(file, 1, 2);                // channels
        put(file, kSampleRate, 4);      // samples a second
        put(file, 2 * kSampleRate, 4);  // bytes a second
        put(file, 2, 2);                // bytes a frame
        put(file, 16, 2);               // bits a sample
        file << "data";
        put(file, kBytes, 4);
        for (int n = 0; n < kSampleRate; ++n) {
            const double phase = 2 * std::numbers::pi * frequency * n / kSampleRate;
            put(file, static_cast<std::uint32_t>(std::lround(16000 * std::sin(phase))), 2);
        }
        return path;
    }

    static CommandResult run(const fs::path& recording, const fs::path& picture) {
        return run_command({SPECTROGRAM_PATH, "-o", picture, recording}, Errors::Together);
    }

    fs::path folder_;
};

// The number before the first "Hz" that follows the word "strongest"; negative where none does.
double strongest_frequency(const std::string& output) {
    const auto report = output.find("strongest");
    if (report == std::string::npos) return -1;
    const auto words = split_words(output.substr(report));
    const auto unit = std::find(words.begin(), words.end(), "Hz");
    if (unit == words.begin() || unit == words.end()) return -1;
    return std::strtod((unit - 1)->c_str(), nullptr);
}

std::string first_bytes(const fs::path& path, std::size_t count) {
    std::ifstream file(path, std::ios::binary);
    std::string text(count, '\0');
    file.read(text.data(), static_cast<std::streamsize>(count));
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

TEST_F(SpectrogramExample, NamesAFileThatIsMissingAndExitsWithTwo) {
    const fs::path missing = folder_ / "no-such-file.wav";
    const fs::path picture = folder_ / "picture.png";
    const auto result = run(missing, picture);
    EXPECT_EQ(2, result.exit_code) << result.output;
    EXPECT_NE(std::string::npos, result.output.find(missing.string())) << result.output;
    EXPECT_FALSE(fs::exists(picture));
}

TEST_F(SpectrogramExample, ReportsTheFrequencyOfASineAsTheStrongest) {
    for (const int frequency : {1000, 2000}) {
        const auto result = run(write_sine(frequency), folder_ / "picture.png");
        EXPECT_EQ(0, result.exit_code) << result.output;
        EXPECT_EQ(frequency, strongest_frequency(result.output)) << result.output;
    }
}

TEST_F(SpectrogramExample, DrawsAPngPicture) {
    const fs::path picture = folder_ / "picture.png";
    const auto result = run(write_sine(1000), picture);
    EXPECT_EQ(0, result.exit_code) << result.output;
    EXPECT_EQ("\x89PNG\r\n\x1a\n", first_bytes(picture, 8));
    EXPECT_GT(fs::file_size(picture), 500u);
}

}  // namespace
}  // namespace qsvgen_test
