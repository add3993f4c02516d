#pragma once

#include <string>
#include <vector>

#include "spectrum_layout.hpp"

namespace bench {

/** What a kernel computes: which plan of the peer does the same. */
enum class Transform { kComplexForward, kComplexInverse, kRealForward, kRealInverse, kHartley };

/** Kernels that differ in nothing but their length: a line of the plots. */
struct KernelFamily {
    Transform transform = Transform::kComplexForward;
    SpectrumLayout layout = SpectrumLayout::kCcs;  ///< of the real transforms' spectra
    std::string type;                              ///< of an element: 32fc, 64fc, 32f, 64f
    std::string name;                              ///< as in the names of benchmarks: dft_real/fwd
    std::string exported;                          ///< of exported names: DFTFwd_RToCCS
    std::string peer_figures;                      ///< the family in bench/peers: real_forward_32

    std::string KernelName(int length) const;     ///< qsvgDFTFwd_RToCCS_15_32f
    std::string BenchmarkName(int length) const;  ///< dft_real/fwd/15/32f
};

/**
 * All families of elements of that type, real spectra in that layout. The Hartley transform has no
 * layout, so it is among them only with CCS. Throws std::invalid_argument for an unknown type, and
 * for a complex one with another layout than CCS.
 */
std::vector<KernelFamily> FamiliesOf(const std::string& type, SpectrumLayout layout);

}  // namespace bench
