#include "block_filter.hpp"

#include <qsvgen_batch.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <stdexcept>
#include <vector>

namespace image_filter {
namespace {

constexpr size_t kColours = 3;

/** One colour of a band: of as many rows as a block has, filled up to whole blocks. */
class Band {
  public:
    Band(size_t length, size_t blocks)
        : length_(length),
          blocks_(blocks),
          pixels_(length * length * blocks),
          spectra_(length * bins_of_row()) {
        if (spectra_.size() > size_t{std::numeric_limits<int32_t>::max()})
            throw std::length_error("the picture is wider than a call takes");
    }

    /** Row after row, each of all blocks. */
    std::span<Real32> pixels() { return pixels_; }

    /** Replaces the pixels. */
    void Filter(std::span<const float> response, Work& work) {
        // Rows of blocks follow one another in memory, whichever block they belong to.
        Count(work, length_ * blocks_,
              qsvgBatchDFTFwd_RToCCS_32f(pixels_.data(), 1, length(), spectra_of_rows(), 1,
                                         2 * bins(), size(), rows(), qsvScaleFwdByN));
        // The same bin of the rows below one another: a column of complex numbers.
        const auto stride = static_cast<ptrdiff_t>(bins_of_row());
        Count(work, bins_of_row(),
              qsvgBatchDFTFwd_CToC_32fc(spectra_.data(), stride, 1, spectra_.data(), stride, 1,
                                        size(), columns(), qsvScaleFwdByN));
        Multiply(response);
        Count(work, bins_of_row(),
              qsvgBatchDFTInv_CToC_32fc(spectra_.data(), stride, 1, spectra_.data(), stride, 1,
                                        size(), columns(), qsvScaleFwdByN));
        Count(work, length_ * blocks_,
              qsvgBatchDFTInv_CCSToR_32f(spectra_of_rows(), 1, 2 * bins(), pixels_.data(), 1,
                                         length(), size(), rows(), qsvScaleFwdByN));
    }

  private:
    size_t bins_of_block() const { return length_ / 2 + 1; }
    size_t bins_of_row() const { return blocks_ * bins_of_block(); }

    // As the library has them.
    int32_t size() const { return static_cast<int32_t>(length_); }
    int32_t rows() const { return static_cast<int32_t>(length_ * blocks_); }
    int32_t columns() const { return static_cast<int32_t>(bins_of_row()); }
    ptrdiff_t length() const { return static_cast<ptrdiff_t>(length_); }
    ptrdiff_t bins() const { return static_cast<ptrdiff_t>(bins_of_block()); }
    /** The CCS layout of an even length is that of complex bins. */
    Real32* spectra_of_rows() { return &spectra_.data()->re; }

    static void Count(Work& work, size_t transforms, QsvStatus status) {
        if (status != qsvStatusOk) throw std::logic_error("a transform refused valid arguments");
        work.transforms += transforms;
        ++work.calls;
    }

    void Multiply(std::span<const float> response) {
        for (size_t row = 0; row < length_; ++row) {
            const auto gains = response.subspan(row * bins_of_block(), bins_of_block());
            for (size_t column = 0; column < bins_of_row(); ++column) {
                Complex32& bin = spectra_[row * bins_of_row() + column];
                const float gain = gains[column % bins_of_block()];
                bin = {bin.re * gain, bin.im * gain};
            }
        }
    }

    size_t length_;
    size_t blocks_;
    std::vector<Real32> pixels_;
    std::vector<Complex32> spectra_;
};

/** Of an infinite picture that begins as one of `size` pixels and is mirrored at its edges, the
 * pixels at the edges twice. */
size_t Mirrored(size_t position, size_t size) {
    const size_t in_period = position % (2 * size);
    return in_period < size ? in_period : 2 * size - 1 - in_period;
}

uint8_t Rounded(float sample) {
    return static_cast<uint8_t>(std::lround(std::clamp(sample, 0.0F, 255.0F)));
}

}  // namespace

Filtered FilterBlocks(const Picture& picture, Filter filter, size_t length) {
    const std::vector<float> response = ResponseOf(filter, length);
    const size_t blocks = (picture.width + length - 1) / length;
    const size_t row_size = blocks * length;
    const auto index = [&](size_t row, size_t column) {
        return (row * picture.width + column) * Picture::kChannels;
    };
    Band band(length, blocks);
    Filtered result{picture, {}};
    for (size_t top = 0; top < picture.height; top += length) {
        const size_t rows = std::min(length, picture.height - top);
        for (size_t colour = 0; colour < kColours; ++colour) {
            for (size_t row = 0; row < length; ++row) {
                const size_t picture_row = Mirrored(top + row, picture.height);
                for (size_t column = 0; column < row_size; ++column) {
                    const size_t pixel = index(picture_row, Mirrored(column, picture.width));
                    band.pixels()[row * row_size + column] = picture.samples[pixel + colour];
                }
            }
            band.Filter(response, result.work);
            for (size_t row = 0; row < rows; ++row) {
                for (size_t column = 0; column < picture.width; ++column) {
                    result.picture.samples[index(top + row, column) + colour] =
                        Rounded(band.pixels()[row * row_size + column]);
                }
            }
        }
    }
    return result;
}

}  // namespace image_filter
