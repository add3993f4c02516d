#pragma once

/** @file @brief WAV files of one channel, byte by byte, so that no library vouches for itself. */

#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace qsvgen_test {

inline void put_little_endian(std::ofstream& file, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) file.put(static_cast<char>(value >> (8 * i) & 0xFF));
}

/** Samples of 16 bits, full scale 1; sample_rate in Hz. */
inline void write_wav(const std::filesystem::path& path, const std::vector<double>& samples,
                      int sample_rate) {
    std::ofstream file(path, std::ios::binary);
    const auto rate = static_cast<std::uint32_t>(sample_rate);
    const auto bytes = static_cast<std::uint32_t>(2 * samples.size());
    file << "RIFF";
    put_little_endian(file, 36 + bytes, 4);
    file << "WAVEfmt ";
    put_little_endian(file, 16, 4);        // size of the format
    put_little_endian(file, 1, 2);         // linear samples
    put_little_endian(file, 1, 2);         // channels
    put_little_endian(file, rate, 4);      // samples a second
    put_little_endian(file, 2 * rate, 4);  // bytes a second
    put_little_endian(file, 2, 2);         // bytes a frame
    put_little_endian(file, 16, 2);        // bits a sample
    file << "data";
    put_little_endian(file, bytes, 4);
    for (const double sample : samples) {
        put_little_endian(file, static_cast<std::uint32_t>(std::lround(32768 * sample)), 2);
    }
}

/** Samples of a file of one channel in binary32; none where the file is not of that form. */
inline std::vector<float> read_float_wav(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)),
                            std::istreambuf_iterator<char>());
    const auto number = [&](std::size_t at, std::size_t size) {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < size && at + i < bytes.size(); ++i) {
            value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i]))
                     << (8 * i);
        }
        return value;
    };
    if (!bytes.starts_with("RIFF") || bytes.compare(8, 4, "WAVE") != 0) return {};
    std::vector<float> samples;
    bool is_float = false;
    for (std::size_t chunk = 12; chunk + 8 <= bytes.size();) {
        const std::string name = bytes.substr(chunk, 4);
        const std::size_t begin = chunk + 8;
        const std::size_t size = number(chunk + 4, 4);
        if (name == "fmt ") {
            constexpr std::uint32_t kFloatSamples = 3;
            is_float = number(begin, 2) == kFloatSamples && number(begin + 2, 2) == 1 &&
                       number(begin + 14, 2) == 32;
        } else if (name == "data" && is_float && begin + size <= bytes.size()) {
            for (std::size_t at = begin; at + 4 <= begin + size; at += 4) {
                samples.push_back(std::bit_cast<float>(number(at, 4)));
            }
        }
        chunk = begin + size + size % 2;
    }
    return samples;
}

}  // namespace qsvgen_test
