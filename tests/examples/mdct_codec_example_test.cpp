/** @file @brief The lapped-transform example, run as a user runs it. */

#include <gtest/gtest.h>

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

class MdctCodecExample : public ExampleFolderTest {
  protected:
    MdctCodecExample() : ExampleFolderTest(MDCT_CODEC_PATH) {}

    CommandResult run(std::vector<std::string> arguments, const char* program = MDCT_CODEC_PATH) {
        std::vector<std::string> words = {program, "-o", result_};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return run_command(words, Errors::Together);
    }

    fs::path write(const std::vector<double>& samples) {
        write_wav(recording_, samples, kSampleRate);
        return recording_;
    }

    /** What comes back, and what the program said. */
    std::vector<float> decoded(const std::vector<double>& samples, const std::string& bits,
                               std::string* output = nullptr) {
        const auto result = run({"--bits", bits, write(samples)});
        EXPECT_EQ(0, result.exit_code) << result.output;
        if (output != nullptr) *output = result.output;
        return read_float_wav(result_);
    }

    const fs::path recording_ = folder_ / "recording.wav";
    const fs::path result_ = folder_ / "new folder" / "decoded.wav";
    const fs::path plot_ = folder_ / "new folder" / "decoded.png";
};

// Multiples of 2^-15, which 16 bits hold exactly.
std::vector<double> noise(std::size_t length) {
    std::mt19937 random(1);
    std::vector<double> samples(length);
    for (double& sample : samples) sample = static_cast<double>(random() % 65536) / 32768 - 1;
    return samples;
}

std::vector<double> chord() {
    std::vector<double> samples(kSampleRate);
    for (std::size_t n = 0; n < samples.size(); ++n) {
        const double turn = 2 * std::numbers::pi * static_cast<double>(n) / kSampleRate;
        const double sum =
            std::sin(220 * turn) + 0.5 * std::sin(277.2 * turn) + 0.25 * std::sin(1660 * turn);
        samples[n] = std::round(32768 * 0.4 * sum) / 32768;
    }
    return samples;
}

double signal_to_noise(const std::vector<double>& original, const std::vector<float>& decoded) {
    double signal = 0;
    double error = 0;
    for (std::size_t n = 0; n < original.size(); ++n) {
        signal += original[n] * original[n];
        error += std::pow(original[n] - static_cast<double>(decoded.at(n)), 2);
    }
    return 10 * std::log10(signal / error);
}

// The number behind the first occurrence of a text; NaN where there is none.
double number_after(const std::string& output, const std::string& text) {
    const auto found = output.find(text);
    return found == std::string::npos ? NAN : std::strtod(&output[found + text.size()], nullptr);
}

TEST_F(MdctCodecExample, NamesAFileThatIsMissingAndExitsWithTwo) {
    const fs::path missing = folder_ / "no-such-file.wav";
    const auto result = run({missing});
    EXPECT_EQ(2, result.exit_code) << result.output;
    EXPECT_NE(std::string::npos, result.output.find(missing.string())) << result.output;
    EXPECT_FALSE(fs::exists(result_));
}

TEST_F(MdctCodecExample, RefusesBitsThatAreImpossible) {
    const fs::path recording = write(noise(100));
    for (const char* bits : {"0", "1", "17", "-4", "4x", "", "many"}) {
        const auto result = run({"--bits", bits, recording});
        EXPECT_EQ(2, result.exit_code) << bits << '\n' << result.output;
        EXPECT_FALSE(fs::exists(result_)) << bits;
    }
}

TEST_F(MdctCodecExample, NeverOverwritesTheRecording) {
    const fs::path recording = write(noise(100));
    const auto size = fs::file_size(recording);
    const auto result = run({"-o", recording, recording});
    EXPECT_EQ(2, result.exit_code) << result.output;
    EXPECT_EQ(size, fs::file_size(recording));
}

TEST_F(MdctCodecExample, GivesEverySampleBackButForRoundingWhereNothingIsQuantised) {
    for (const std::size_t length : {1u, 255u, 256u, 257u, 512u, 1000u}) {
        const auto samples = noise(length);
        const auto result = decoded(samples, "none");
        ASSERT_EQ(samples.size(), result.size());
        for (std::size_t n = 0; n < length; ++n)
            ASSERT_NEAR(samples[n], result[n], 2e-6) << length << " samples, sample " << n;
    }
}

TEST_F(MdctCodecExample, PrintsTheLargestDifferenceAndTheBoundItWasHeldTo) {
    std::string output;
    decoded(noise(1000), "none", &output);
    const double difference = number_after(output, "from the recording  ");
    const double bound = number_after(output, "(bound ");
    EXPECT_GT(difference, 0) << output;
    EXPECT_LE(difference, bound) << output;
    EXPECT_LT(bound, 2e-4) << output;
}

TEST_F(MdctCodecExample, PrintsTheSignalToNoiseRatioOfWhatItWrites) {
    for (const char* bits : {"2", "4", "8", "16"}) {
        std::string output;
        const auto samples = chord();
        const double ratio = signal_to_noise(samples, decoded(samples, bits, &output));
        EXPECT_NEAR(ratio, number_after(output, "signal to noise  "), 0.06) << output;
    }
}

TEST_F(MdctCodecExample, EveryBitMoreIsWorthSomeSixDecibels) {
    const auto samples = noise(20000);
    double before = signal_to_noise(samples, decoded(samples, "4"));
    for (const char* bits : {"5", "6", "7", "8", "9", "10"}) {
        const double now = signal_to_noise(samples, decoded(samples, bits));
        EXPECT_NEAR(6.3, now - before, 1) << bits << " bits";
        before = now;
    }
}

TEST_F(MdctCodecExample, PrintsACompressionThatCountsScalesAndCoefficients) {
    std::string output;
    decoded(noise(2560), "4", &output);
    // Eleven frames of 256 coefficients and 16 scales, against samples of 16 bits.
    EXPECT_NEAR(2560 * 16.0 / (11 * (256 * 4 + 16 * 8)), number_after(output, "compression  "),
                0.005)
        << output;
    EXPECT_EQ(11 * (256 * 4 + 16 * 8) / 8, number_after(output, "a frame: ")) << output;
}

TEST_F(MdctCodecExample, KeepsSilence) {
    for (const char* bits : {"2", "none"}) {
        for (const float sample : decoded(std::vector<double>(1000, 0.0), bits))
            EXPECT_EQ(0.0F, sample);
    }
}

TEST_F(MdctCodecExample, DrawsBothSpectra) {
    decoded(chord(), "4");
    EXPECT_GT(fs::file_size(plot_), 1000u);
    std::ifstream data(fs::path(plot_).replace_extension(".dat"));
    std::string head;
    std::getline(data, head);
    int bands = 0;
    double loudest_frequency = 0;
    double loudest = -1000;
    for (double frequency, original, decoded; data >> frequency >> original >> decoded; ++bands) {
        if (decoded > loudest) loudest_frequency = frequency;
        loudest = std::max(loudest, decoded);
    }
    EXPECT_EQ(256, bands);
    EXPECT_NEAR(220, loudest_frequency, 16);
}

TEST_F(MdctCodecExample, ExitsWithOneAndWritesNothingWhereTheTransformIsWrong) {
    const auto result =
        run({"--bits", "none", write(noise(1000))}, MDCT_CODEC_WITH_WRONG_TRANSFORM_PATH);
    EXPECT_EQ(1, result.exit_code) << result.output;
    EXPECT_NE(std::string::npos, result.output.find("result is wrong")) << result.output;
    EXPECT_FALSE(fs::exists(result_));
}

TEST_F(MdctCodecExample, EndsWithAFailureWhereTheTransformRefuses) {
    for (const char* bits : {"none", "8"}) {
        const auto result =
            run({"--bits", bits, write(noise(1000))}, MDCT_CODEC_WITH_REFUSING_TRANSFORM_PATH);
        EXPECT_EQ(1, result.exit_code) << result.output;
        EXPECT_NE(std::string::npos, result.output.find("refused")) << result.output;
        EXPECT_FALSE(fs::exists(result_)) << bits;
        EXPECT_FALSE(fs::exists(plot_)) << bits;
    }
}

}  // namespace
}  // namespace qsvgen_test
