#include "overlap_add.hpp"

#include <qsvgen.h>

#include <algorithm>
#include <array>
#include <complex>
#include <stdexcept>

namespace convolve {
namespace {

constexpr size_t kBins = kTransformLength / 2 + 1;

using Block = std::array<Real32, kTransformLength>;
/** Bins from 0 to half the sample rate; in memory their parts alternate, as in the CCS layout. */
using Spectrum = std::array<std::complex<Real32>, kBins>;

void Check(QsvStatus status) {
    if (status != qsvStatusOk) throw std::logic_error("the transform refused valid arguments");
}

/** Spectrum of at most kTransformLength samples, filled up with zeros. */
Spectrum SpectrumOf(std::span<const float> samples) {
    Block block{};
    std::copy(samples.begin(), samples.end(), block.begin());
    Spectrum spectrum;
    auto* const parts = reinterpret_cast<Real32*>(spectrum.data());
    Check(qsvgDFTFwd_RToCCS_64_32f(block.data(), parts, qsvScaleNone));
    return spectrum;
}

Block SignalOf(const Spectrum& spectrum) {
    Block block;
    const auto* const parts = reinterpret_cast<const Real32*>(spectrum.data());
    Check(qsvgDFTInv_CCSToR_64_32f(parts, block.data(), qsvScaleInvByN));
    return block;
}

/** Without the search for infinities that the language's product of complex numbers makes. */
std::complex<Real32> Product(std::complex<Real32> a, std::complex<Real32> b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

}  // namespace

std::vector<float> OverlapAdd(std::span<const float> samples, std::span<const float> response,
                              const example::ProgressCallback& progress) {
    const Spectrum gains = SpectrumOf(response);
    const size_t block_length = BlockLength(response.size());
    std::vector<float> filtered(samples.size() + response.size() - 1);
    for (size_t start = 0; start < samples.size(); start += block_length) {
        const size_t count = std::min(block_length, samples.size() - start);
        Spectrum spectrum = SpectrumOf(samples.subspan(start, count));
        for (size_t k = 0; k < kBins; ++k) spectrum[k] = Product(spectrum[k], gains[k]);
        const Block block = SignalOf(spectrum);
        for (size_t n = 0; n < count + response.size() - 1; ++n) filtered[start + n] += block[n];
        progress(start + count, samples.size());
    }
    return filtered;
}

}  // namespace convolve
