/** @file @brief The convolution example, run as a user runs it. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "support/example_folder.hpp"
#include "support/run_command.hpp"
#include "support/wav_file.hpp"

namespace qsvgen_test {
namespace {

namespace fs = std::filesystem;

constexpr int kSampleRate = 8000;
constexpr double kCutoff = 1000;

class ConvolveExample : public ExampleFolderTest {
  protected:
    ConvolveExample() : ExampleFolderTest(CONVOLVE_PATH) {}

    CommandResult run(std::vector<std::string> arguments, const char* program = CONVOLVE_PATH) {
        std::vector<std::string> words = {program, "-o", result_};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return run_command(words, Errors::Together);
    }

    fs::path write(const std::vector<double>& samples) {
        write_wav(recording_, samples, kSampleRate);
        return recording_;
    }

    // What the program makes of the samples by a filter of that length.
    std::vector<float> filtered(const std::vector<double>& samples, int taps) {
        const auto result = run(
            {"--cutoff", std::to_string(kCutoff), "--taps", std::to_string(taps), write(samples)});
        EXPECT_EQ(0, result.exit_code) << result.output;
        return read_float_wav(result_);
    }

    const fs::path recording_ = folder_ / "recording.wav";
    const fs::path result_ = folder_ / "new folder" / "filtered.wav";
};

std::vector<double> sine(double frequency) {
    std::vector<double> samples(kSampleRate);
    for (std::size_t n = 0; n < samples.size(); ++n) {
        const double seconds = static_cast<double>(n) / kSampleRate;
        samples[n] = 0.5 * std::sin(2 * std::numbers::pi * frequency * seconds);
    }
    return samples;
}

// Multiples of 2^-15, which 16 bits hold exactly.
std::vector<double> noise(std::size_t length) {
    std::mt19937 random(1);
    std::vector<double> samples(length);
    for (double& sample : samples) sample = static_cast<double>(random() % 65536) / 32768 - 1;
    return samples;
}

// A Hamming window times the response of the ideal low-pass, with a sum of 1.
std::vector<double> low_pass(int taps) {
    constexpr double kPi = std::numbers::pi;
    std::vector<double> response;
    double sum = 0;
    for (int n = 0; n < taps; ++n) {
        const double x = 2 * kCutoff / kSampleRate * (n - (taps - 1) / 2.0);
        const double window = taps == 1 ? 1 : 0.54 - 0.46 * std::cos(2 * kPi * n / (taps - 1));
        response.push_back(window * (x == 0 ? 1 : std::sin(kPi * x) / (kPi * x)));
        sum += response.back();
    }
    for (double& value : response) value /= sum;
    return response;
}

std::vector<double> convolution(const std::vector<double>& a, const std::vector<double>& b) {
    std::vector<double> result(a.size() + b.size() - 1);
    for (std::size_t i = 0; i < a.size(); ++i) {
        for (std::size_t j = 0; j < b.size(); ++j) result[i + j] += a[i] * b[j];
    }
    return result;
}

// Greatest magnitude away from the ends, where the filter sees the silence around the recording.
double amplitude(const std::vector<float>& samples) {
    double greatest = 0;
    for (std::size_t n = 100; n + 100 < samples.size(); ++n) {
        greatest = std::max(greatest, std::abs(static_cast<double>(samples[n])));
    }
    return greatest;
}

// The number behind the first occurrence of a text; NaN where there is none.
double number_after(const std::string& output, const std::string& text) {
    const auto found = output.find(text);
    return found == std::string::npos ? NAN : std::strtod(&output[found + text.size()], nullptr);
}

TEST_F(ConvolveExample, NamesAFileThatIsMissingAndExitsWithTwo) {
    const fs::path missing = folder_ / "no-such-file.wav";
    const auto result = run({missing});
    EXPECT_EQ(2, result.exit_code) << result.output;
    EXPECT_NE(std::string::npos, result.output.find(missing.string())) << result.output;
    EXPECT_FALSE(fs::exists(result_));
}

TEST_F(ConvolveExample, NamesAFileThatIsNoRecordingAndExitsWithTwo) {
    std::ofstream(recording_) << "no sound at all";
    const auto result = run({recording_});
    EXPECT_EQ(2, result.exit_code) << result.output;
    EXPECT_NE(std::string::npos, result.output.find(recording_.string())) << result.output;
    EXPECT_FALSE(fs::exists(result_));
}

TEST_F(ConvolveExample, RefusesAFilterThatIsImpossible) {
    const fs::path recording = write(noise(100));
    for (const auto& [option, value] :
         {std::pair("--taps", "0"), std::pair("--taps", "64"), std::pair("--taps", "33x"),
          std::pair("--cutoff", "0"), std::pair("--cutoff", "4000"),
          std::pair("--cutoff", "nan")}) {
        const auto result = run({option, value, recording});
        EXPECT_EQ(2, result.exit_code) << option << ' ' << value << '\n' << result.output;
        EXPECT_FALSE(fs::exists(result_)) << option << ' ' << value;
    }
}

TEST_F(ConvolveExample, NeverOverwritesTheRecording) {
    const fs::path recording = write(noise(100));
    const auto size = fs::file_size(recording);
    const auto result = run({"-o", recording, recording});
    EXPECT_EQ(2, result.exit_code) << result.output;
    EXPECT_EQ(size, fs::file_size(recording));
}

TEST_F(ConvolveExample, AnswersAnImpulseWithALowPass) {
    const auto response = low_pass(33);
    const auto answer = filtered({0.5}, 33);
    ASSERT_EQ(response.size(), answer.size());
    for (std::size_t n = 0; n < answer.size(); ++n) {
        EXPECT_NEAR(0.5 * response[n], answer[n], 1e-7) << "sample " << n;
    }
}

TEST_F(ConvolveExample, WritesTheConvolutionForFiltersOfEveryKindOfLength) {
    // A block, less, one more, and many with a last one that is cut off.
    for (const std::size_t length : {31u, 32u, 33u, 1000u}) {
        for (const int taps : {1, 2, 33, 62, 63}) {
            const auto samples = noise(length);
            const auto expected = convolution(samples, low_pass(taps));
            const auto result = filtered(samples, taps);
            ASSERT_EQ(expected.size(), result.size()) << length << " samples, " << taps << " taps";
            for (std::size_t n = 0; n < result.size(); ++n) {
                ASSERT_NEAR(expected[n], result[n], 2e-6)
                    << length << " samples, " << taps << " taps, sample " << n;
            }
        }
    }
}

TEST_F(ConvolveExample, KeepsALowSineAndRemovesAHighOne) {
    EXPECT_NEAR(0.5, amplitude(filtered(sine(200), 63)), 0.005);
    EXPECT_LT(amplitude(filtered(sine(3000), 63)), 0.005);
}

TEST_F(ConvolveExample, PrintsTheLargestDifferenceAndTheBoundItWasHeldTo) {
    const auto result = run({write(noise(1000))});
    EXPECT_EQ(0, result.exit_code) << result.output;
    const double difference = number_after(result.output, "direct convolution  ");
    const double bound = number_after(result.output, "(bound ");
    EXPECT_GT(difference, 0) << result.output;
    EXPECT_LE(difference, bound) << result.output;
    EXPECT_LT(bound, 1e-3) << result.output;
}

TEST_F(ConvolveExample, ExitsWithOneAndWritesNothingWhereATransformIsWrong) {
    const auto result = run({write(noise(1000))}, CONVOLVE_WITH_WRONG_INVERSE_PATH);
    EXPECT_EQ(1, result.exit_code) << result.output;
    EXPECT_NE(std::string::npos, result.output.find("result is wrong")) << result.output;
    EXPECT_FALSE(fs::exists(result_));
}

}  // namespace
}  // namespace qsvgen_test
