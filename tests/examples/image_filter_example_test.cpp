/** @file @brief The example that filters pictures, run as a user runs it. */

#include <gtest/gtest.h>
#include <lodepng.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "support/example_folder.hpp"
#include "support/png_file.hpp"
#include "support/run_command.hpp"

namespace qsvgen_test {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kOpacity = 3;

class ImageFilterExample : public ExampleFolderTest {
  protected:
    ImageFilterExample() : ExampleFolderTest(IMAGE_FILTER_PATH) {}

    CommandResult run(std::vector<std::string> arguments) const {
        std::vector<std::string> words = {IMAGE_FILTER_PATH, "-o", result_};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return run_command(words, Errors::Together);
    }

    fs::path write(const RgbaPicture& picture) const {
        write_png(picture_, picture);
        return picture_;
    }

    RgbaPicture filtered(const RgbaPicture& picture, const std::string& filter, int block) const {
        const auto result =
            run({"--filter", filter, "--block", std::to_string(block), write(picture)});
        EXPECT_EQ(0, result.exit_code) << result.output;
        return read(result_);
    }

    static RgbaPicture read(const fs::path& path) {
        RgbaPicture picture{};
        unsigned width = 0;
        unsigned height = 0;
        EXPECT_EQ(0U, lodepng::decode(picture.samples, width, height, path.string())) << path;
        picture.width = width;
        picture.height = height;
        return picture;
    }

    const fs::path picture_ = folder_ / "picture.png";
    const fs::path result_ = folder_ / "new folder" / "filtered.png";
    const fs::path before_ = folder_ / "new folder" / "filtered_before.png";
};

RgbaPicture noise(std::size_t width, std::size_t height) {
    std::mt19937 random(1);
    RgbaPicture picture{width, height, {}};
    for (std::size_t i = 0; i < width * height * RgbaPicture::kChannels; ++i)
        picture.samples.push_back(static_cast<std::uint8_t>(random() % 256));
    return picture;
}

using Plane = std::vector<std::complex<double>>;

/** The definition, of each row and of each column of a square. */
Plane transformed(const Plane& x, std::size_t length, double sign) {
    const auto pass = [&](const Plane& from, std::size_t stride, std::size_t distance) {
        Plane to(from.size());
        for (std::size_t line = 0; line < length; ++line) {
            for (std::size_t k = 0; k < length; ++k) {
                for (std::size_t n = 0; n < length; ++n) {
                    const double turn =
                        static_cast<double>(n * k % length) / static_cast<double>(length);
                    to[line * distance + k * stride] +=
                        from[line * distance + n * stride] *
                        std::polar(1.0, sign * 2 * std::numbers::pi * turn);
                }
            }
        }
        return to;
    };
    return pass(pass(x, 1, length), length, 1);
}

/** What is left of an amplitude: half of it at one cycle in 16 pixels. */
double gain(const std::string& filter, double cycles_down, double cycles_across) {
    const double frequency = std::hypot(cycles_down, cycles_across);
    const double low_pass = std::exp2(-std::pow(16 * frequency, 2));
    return filter == "low-pass" ? low_pass : 1 + 1.5 * (1 - low_pass);
}

/** Of a row or column of that many pixels, mirrored at its end with the last pixel twice. */
std::size_t mirrored(std::size_t position, std::size_t size) {
    // From pixel to pixel, as one walks.
    std::size_t at = 0;
    bool is_forward = true;
    for (std::size_t step = 0; step < position; ++step) {
        if (is_forward && at + 1 == size) {
            is_forward = false;
        } else if (!is_forward && at == 0) {
            is_forward = true;
        } else {
            at = is_forward ? at + 1 : at - 1;
        }
    }
    return at;
}

/** One colour of a block as the filter leaves it, not rounded. */
Plane filtered_block(const RgbaPicture& picture, std::size_t top, std::size_t left,
                     std::size_t colour, const std::string& filter, std::size_t length) {
    Plane block;
    for (std::size_t row = 0; row < length; ++row) {
        for (std::size_t column = 0; column < length; ++column) {
            const std::size_t pixel = mirrored(top + row, picture.height) * picture.width +
                                      mirrored(left + column, picture.width);
            block.push_back(picture.samples[pixel * RgbaPicture::kChannels + colour]);
        }
    }
    Plane spectrum = transformed(block, length, -1);
    const auto cycles = [&](std::size_t bin) {
        return static_cast<double>(std::min(bin, length - bin)) / static_cast<double>(length);
    };
    for (std::size_t row = 0; row < length; ++row) {
        for (std::size_t column = 0; column < length; ++column) {
            spectrum[row * length + column] *=
                gain(filter, cycles(row), cycles(column)) / static_cast<double>(length * length);
        }
    }
    return transformed(spectrum, length, 1);
}

/** Rounded to what a file holds; a value halfway may go either way. */
void expect_filtered(const RgbaPicture& before, const RgbaPicture& after, const std::string& filter,
                     std::size_t length) {
    ASSERT_EQ(before.width, after.width);
    ASSERT_EQ(before.height, after.height);
    for (std::size_t top = 0; top < before.height; top += length) {
        for (std::size_t left = 0; left < before.width; left += length) {
            for (std::size_t colour = 0; colour < kOpacity; ++colour) {
                const Plane block = filtered_block(before, top, left, colour, filter, length);
                for (std::size_t row = top; row < std::min(top + length, before.height); ++row) {
                    for (std::size_t column = left; column < std::min(left + length, before.width);
                         ++column) {
                        const double wanted = std::clamp(
                            block[(row - top) * length + column - left].real(), 0.0, 255.0);
                        const std::size_t pixel = row * before.width + column;
                        EXPECT_NEAR(wanted, after.samples[pixel * RgbaPicture::kChannels + colour],
                                    0.501)
                            << filter << ", blocks of " << length << ", row " << row << ", column "
                            << column << ", colour " << colour;
                    }
                }
            }
        }
    }
}

TEST_F(ImageFilterExample, FiltersEachBlockAsItsDefinitionSays) {
    const RgbaPicture picture = noise(48, 32);
    for (const std::string filter : {"low-pass", "sharpen"})
        expect_filtered(picture, filtered(picture, filter, 16), filter, 16);
}

TEST_F(ImageFilterExample, FillsBlocksThatTheEdgesCutByTheMirroredPicture) {
    // Less than half a block of a new one; more than half; not even one.
    for (const auto& [width, height] :
         {std::pair(37u, 19u), std::pair(31u, 30u), std::pair(5u, 3u), std::pair(1u, 1u)}) {
        const RgbaPicture picture = noise(width, height);
        expect_filtered(picture, filtered(picture, "sharpen", 16), "sharpen", 16);
    }
}

TEST_F(ImageFilterExample, FiltersBlocksOfSixtyFourPixels) {
    const RgbaPicture picture = noise(70, 64);
    expect_filtered(picture, filtered(picture, "low-pass", 64), "low-pass", 64);
}

TEST_F(ImageFilterExample, LeavesOpacityAlone) {
    const RgbaPicture before = noise(40, 20);
    const RgbaPicture after = filtered(before, "low-pass", 16);
    ASSERT_EQ(before.samples.size(), after.samples.size());
    for (std::size_t i = kOpacity; i < before.samples.size(); i += RgbaPicture::kChannels)
        EXPECT_EQ(before.samples[i], after.samples[i]) << "pixel " << i / RgbaPicture::kChannels;
}

TEST_F(ImageFilterExample, WritesThePictureBeforeBesideTheOneAfter) {
    const RgbaPicture picture = noise(40, 20);
    filtered(picture, "low-pass", 16);
    EXPECT_EQ(picture.samples, read(before_).samples);
}

TEST_F(ImageFilterExample, TransformsRowsAndColumnsOfManyBlocksInACall) {
    const auto result = run({write(noise(40, 20))});
    // Of each of 3 colours and 2 bands of 3 blocks: 48 rows and 27 columns, there and back.
    EXPECT_NE(std::string::npos, result.output.find("900 of length 16 in 24 calls"))
        << result.output;
}

TEST_F(ImageFilterExample, NamesAFileThatIsMissingAndExitsWithTwo) {
    const fs::path missing = folder_ / "no-such-picture.png";
    const auto result = run({missing});
    EXPECT_EQ(2, result.exit_code) << result.output;
    EXPECT_NE(std::string::npos, result.output.find(missing.string())) << result.output;
    EXPECT_FALSE(fs::exists(result_));
}

TEST_F(ImageFilterExample, NamesAFileThatIsNoPictureAndExitsWithTwo) {
    std::ofstream(picture_) << "no picture at all";
    const auto result = run({picture_});
    EXPECT_EQ(2, result.exit_code) << result.output;
    EXPECT_NE(std::string::npos, result.output.find(picture_.string())) << result.output;
    EXPECT_FALSE(fs::exists(result_));
}

TEST_F(ImageFilterExample, NamesAPlaceThatCannotBeWrittenAndExitsWithOne) {
    std::ofstream(folder_ / "new folder") << "a file in the place of the folder";
    const auto result = run({write(noise(4, 4))});
    EXPECT_EQ(1, result.exit_code) << result.output;
    EXPECT_NE(std::string::npos, result.output.find("new folder")) << result.output;
}

TEST_F(ImageFilterExample, RefusesToOverwriteThePicture) {
    write(noise(4, 4));
    const auto size = fs::file_size(picture_);
    const auto result =
        run_command({IMAGE_FILTER_PATH, "-o", picture_, picture_}, Errors::Together);
    EXPECT_EQ(2, result.exit_code) << result.output;
    EXPECT_EQ(size, fs::file_size(picture_));
    const fs::path before = folder_ / "x_before.png";
    fs::copy(picture_, before);
    EXPECT_EQ(2, run_command({IMAGE_FILTER_PATH, "-o", folder_ / "x.png", before}, Errors::Together)
                     .exit_code);
}

TEST_F(ImageFilterExample, RefusesFiltersAndBlocksThatItDoesNotHave) {
    const std::string picture = write(noise(4, 4));
    for (const std::vector<std::string>& wrong :
         {std::vector<std::string>{"--filter", "high-pass", picture},
          {"--block", "32", picture},
          {picture, picture},
          {}}) {
        EXPECT_EQ(2, run(wrong).exit_code);
    }
    EXPECT_EQ(2,
              run_command({IMAGE_FILTER_PATH, "-o", folder_ / "x.jpg", picture}, Errors::Together)
                  .exit_code);
    EXPECT_FALSE(fs::exists(result_));
}

}  // namespace
}  // namespace qsvgen_test
