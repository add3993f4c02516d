#pragma once

#include <fftw3.h>

#include <array>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "batch_family.hpp"
#include "fftw_peer.hpp"

namespace bench {

/**
 * Plans a batch out of place by FFTW's advanced interface. `size` is the length or, of the
 * Walsh-Hadamard transform, the order: FFTW's is one of that many dimensions of length 2. Spectra
 * of real samples are complex elements there, which stand side by side in columns, where ours are
 * rows of real parts and rows of imaginary ones. The inverse of them may leave anything in the
 * source.
 */
template <typename Fftw>
typename Fftw::Plan PlanMany(BatchTransform transform, BatchLayout layout, int size, int count,
                             typename Fftw::Real* src, typename Fftw::Real* dst, unsigned flags) {
    using Complex = typename Fftw::Complex;
    auto* const complex_src = reinterpret_cast<Complex*>(src);
    auto* const complex_dst = reinterpret_cast<Complex*>(dst);
    const bool is_contiguous = layout == BatchLayout::kContiguous;
    const int stride = is_contiguous ? 1 : count;
    const auto distance = [is_contiguous](int elements) { return is_contiguous ? elements : 1; };
    const int bins = size / 2 + 1;
    switch (transform) {
        case BatchTransform::kComplexForward:
        case BatchTransform::kComplexInverse:
            return Fftw::kPlanManyComplex(
                1, &size, count, complex_src, nullptr, stride, distance(size), complex_dst, nullptr,
                stride, distance(size),
                transform == BatchTransform::kComplexForward ? FFTW_FORWARD : FFTW_BACKWARD, flags);
        case BatchTransform::kRealForward:
            return Fftw::kPlanManyRealForward(1, &size, count, src, nullptr, stride, distance(size),
                                              complex_dst, nullptr, stride, distance(bins), flags);
        case BatchTransform::kRealInverse:
            return Fftw::kPlanManyRealInverse(1, &size, count, complex_src, nullptr, stride,
                                              distance(bins), dst, nullptr, stride, distance(size),
                                              flags);
        case BatchTransform::kHartley: {
            const fftw_r2r_kind kind = FFTW_DHT;
            return Fftw::kPlanManyRealToReal(1, &size, count, src, nullptr, stride, distance(size),
                                             dst, nullptr, stride, distance(size), &kind, flags);
        }
        case BatchTransform::kWalshHadamard: {
            std::array<int, 8> lengths = {};
            std::array<fftw_r2r_kind, 8> kinds = {};
            lengths.fill(2);
            kinds.fill(FFTW_DHT);
            const int length = 1 << size;
            return Fftw::kPlanManyRealToReal(size, lengths.data(), count, src, nullptr, stride,
                                             distance(length), dst, nullptr, stride,
                                             distance(length), kinds.data(), flags);
        }
    }
    throw std::logic_error("no such transform");
}

/** What FFTW has learnt by planning, kept in a file between runs: planning takes most of a run. */
template <typename Fftw>
class Wisdom {
  public:
    /** `folder` is empty where nothing is to be kept. */
    explicit Wisdom(const std::string& folder) {
        if (folder.empty()) return;
        std::filesystem::create_directories(folder);
        path_ = folder + (sizeof(typename Fftw::Real) == sizeof(float) ? "/fftw_wisdom_single"
                                                                       : "/fftw_wisdom_double");
        // There is none before the first run, and another version's is refused.
        Fftw::ImportWisdom(path_);
    }

    /** Throws std::runtime_error where the file can't be written. */
    void Save() const {
        if (path_.empty()) return;
        // An interrupted run leaves the file of the save before.
        const std::string unfinished = path_ + ".new";
        if (!Fftw::ExportWisdom(unfinished))
            throw std::runtime_error("cannot write '" + unfinished + "'");
        std::filesystem::rename(unfinished, path_);
    }

  private:
    std::string path_;
};

}  // namespace bench
