#pragma once

/** @file @brief PNG files of red, green, blue and opacity, byte by byte, so that no library vouches
 * for itself. */

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace qsvgen_test {

struct RgbaPicture {
    static constexpr std::size_t kChannels = 4;

    std::size_t width;
    std::size_t height;
    std::vector<std::uint8_t> samples;  ///< row after row, 4 of each pixel
};

inline std::string big_endian(std::uint32_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>(value >> shift & 0xFF));
    return bytes;
}

/** The polynomial of ISO 3309, bit by bit. */
inline std::uint32_t crc32(const std::string& bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc % 2 != 0 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

inline std::uint32_t adler32(const std::string& bytes) {
    constexpr std::uint32_t kModulus = 65521;
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char byte : bytes) {
        a = (a + static_cast<unsigned char>(byte)) % kModulus;
        b = (b + a) % kModulus;
    }
    return b << 16 | a;
}

inline std::string png_chunk(const std::string& kind, const std::string& data) {
    return big_endian(static_cast<std::uint32_t>(data.size())) + kind + data +
           big_endian(crc32(kind + data));
}

/** Stored, not compressed. */
inline void write_png(const std::filesystem::path& path, const RgbaPicture& picture) {
    std::string rows;
    const std::size_t row_size = picture.width * RgbaPicture::kChannels;
    for (std::size_t row = 0; row < picture.height; ++row) {
        rows.push_back('\0');  // no filter
        const auto begin = picture.samples.begin() + static_cast<std::ptrdiff_t>(row * row_size);
        rows.append(begin, begin + static_cast<std::ptrdiff_t>(row_size));
    }
    std::string stream = "\x78\x01";
    constexpr std::size_t kLargestBlock = 65535;
    for (std::size_t at = 0; at < rows.size(); at += kLargestBlock) {
        const std::string block = rows.substr(at, kLargestBlock);
        const auto size = static_cast<std::uint32_t>(block.size());
        stream.push_back(at + kLargestBlock >= rows.size() ? '\1' : '\0');
        for (const std::uint32_t number : {size, ~size}) {
            stream.push_back(static_cast<char>(number & 0xFF));
            stream.push_back(static_cast<char>(number >> 8 & 0xFF));
        }
        stream += block;
    }
    stream += big_endian(adler32(rows));
    // 8 bits a sample, red green blue opacity; no interlacing.
    const std::string header = big_endian(static_cast<std::uint32_t>(picture.width)) +
                               big_endian(static_cast<std::uint32_t>(picture.height)) +
                               std::string("\x08\x06\x00\x00\x00", 5);
    std::ofstream(path, std::ios::binary)
        << "\x89PNG\r\n\x1a\n"
        << png_chunk("IHDR", header) << png_chunk("IDAT", stream) << png_chunk("IEND", "");
}

}  // namespace qsvgen_test
