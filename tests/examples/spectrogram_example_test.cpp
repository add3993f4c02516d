/** @file @brief The spectrogram example, run as a user runs it. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <random>
#include <regex>
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

    fs::path write(const std::vector<double>& samples) const {
        fs::path path = folder_ / "recording.wav";
        write_wav(path, samples, kSampleRate);
        return path;
    }

    // One second.
    fs::path write_sine(double frequency) const {
        std::vector<double> samples;
        for (int n = 0; n < kSampleRate; ++n) {
            const double phase = 2 * std::numbers::pi * frequency * n / kSampleRate;
            samples.push_back(0.5 * std::sin(phase));
        }
        return write(samples);
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

// The levels of the picture's data, frame by frame and bin by bin.
std::vector<double> levels_of(const fs::path& data) {
    std::ifstream file(data);
    std::vector<double> levels;
    for (std::string line; std::getline(file, line);) {
        const auto words = split_words(line);
        if (words.size() == 3 && words[0] != "#") {
            levels.push_back(std::strtod(words[2].c_str(), nullptr));
        }
    }
    return levels;
}

// In dB, of the samples from `start` on times Hann's window; behind the last sample are zeros.
double windowed_level(const std::vector<double>& samples, std::size_t start, int bin) {
    constexpr int kLength = 64;
    constexpr int kHalf = 32;
    long double re = 0;
    long double im = 0;
    for (int n = 0; n < kLength; ++n) {
        if (start + static_cast<std::size_t>(n) >= samples.size()) break;
        const long double turn = 2 * std::numbers::pi_v<long double> * n / kLength;
        const long double x =
            samples[start + static_cast<std::size_t>(n)] * (0.5L - 0.5L * std::cos(turn));
        re += x * std::cos(turn * bin);
        im -= x * std::sin(turn * bin);
    }
    const long double sides = bin == 0 || bin == kHalf ? 1 : 2;
    return static_cast<double>(20 * std::log10(sides * std::hypot(re, im) / kHalf));
}

TEST_F(SpectrogramExample, FindsTheLevelOfEveryBinOfEveryWindowedFrame) {
    constexpr std::size_t kHop = 32;
    constexpr int kBins = 33;
    // The last of 31 frames has 40 samples; one that is not a frame's length has none to share.
    for (const std::size_t count : {1000u, 64u, 65u, 1u}) {
        std::mt19937 random(1);
        std::vector<double> samples;
        for (std::size_t n = 0; n < count; ++n) {
            // What 16 bits hold.
            samples.push_back(static_cast<double>(static_cast<int>(random() % 65535) - 32767) /
                              32768);
        }
        const auto result = run(write(samples), folder_ / "picture.png");
        ASSERT_EQ(0, result.exit_code) << result.output;
        const std::vector<double> levels = levels_of(folder_ / "picture.dat");
        const std::size_t frames = count <= 64 ? 1 : 1 + (count - 64 + kHop - 1) / kHop;
        ASSERT_EQ(frames * kBins, levels.size()) << count << " samples";
        for (std::size_t i = 0; i < levels.size(); ++i) {
            const auto bin = static_cast<int>(i % kBins);
            const double wanted = windowed_level(samples, i / kBins * kHop, bin);
            // Sums are rounded in binary32, relative to the largest bin.
            if (wanted < -90) {
                EXPECT_LT(levels[i], -85) << "frame " << i / kBins << ", bin " << bin;
            } else {
                EXPECT_NEAR(wanted, levels[i], 0.01)
                    << count << " samples, frame " << i / kBins << ", bin " << bin;
            }
        }
    }
}

TEST_F(SpectrogramExample, SaysHowMuchLongerACallForEachFrameTakes) {
    const auto result = run(write_sine(1000), folder_ / "picture.png");
    const std::regex line(
        R"(transforms +([0-9.]+) us by one call, ([0-9.]+) us by a call for each frame: )"
        R"(([0-9.]+) times as long\n)");
    std::smatch match;
    ASSERT_TRUE(std::regex_search(result.output, match, line)) << result.output;
    const double at_once = std::stod(match[1]);
    const double one_by_one = std::stod(match[2]);
    EXPECT_GT(at_once, 0.0);
    // Each number has one decimal.
    EXPECT_NEAR(one_by_one / at_once, std::stod(match[3]),
                0.05 + 0.05 * (1 + one_by_one / at_once) / at_once)
        << match[0];
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
