/** @file @brief The spectrogram example, run as a user runs it. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

#include "support/example_folder.hpp"
#include "support/run_command.hpp"
#include "support/wav_file.hpp"

namespace qsvgen_test {
namespace {

namespace fs = std::filesystem;

constexpr int kSampleRate = 8000;

class SpectrogramExample : public ExampleFolderTest {
  protected:
    SpectrogramExample() : ExampleFolderTest(SPECTROGRAM_PATH) {}

    // One second.
    fs::path write_sine(double frequency) const {
        fs::path path = folder_ / "sine.wav";
        std::vector<double> samples;
        for (int n = 0; n < kSampleRate; ++n) {
            const double phase = 2 * std::numbers::pi * frequency * n / kSampleRate;
            samples.push_back(0.5 * std::sin(phase));
        }
        write_wav(path, samples, kSampleRate);
        return path;
    }

    static CommandResult run(const fs::path& recording, const fs::path& picture) {
        return run_command({SPECTROGRAM_PATH, "-o", picture, recording}, Errors::Together);
    }
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

TEST_F(SpectrogramExample, ReportsHalfOfFullScaleAsSixDecibelsBelowIt) {
    const auto result = run(write_sine(1000), folder_ / "picture.png");
    EXPECT_NE(std::string::npos, result.output.find("1000.0 Hz     -6.0 dB")) << result.output;
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
