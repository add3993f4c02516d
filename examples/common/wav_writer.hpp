#pragma once

#include <filesystem>
#include <span>

namespace example {

/**
 * Writes one channel, full scale 1, as a WAV file of 32-bit floating-point samples, which neither
 * rounds nor clips them. Makes the folder where there is none. Throws Error where that fails.
 * @param sample_rate in Hz
 */
void WriteWav(const std::filesystem::path& path, std::span<const float> samples, int sample_rate);

}  // namespace example
