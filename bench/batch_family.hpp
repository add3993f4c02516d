#pragma once

#include <string>
#include <vector>

namespace bench {

/** Of a call that is measured. */
inline constexpr int kMostTransforms = 257;

/** What the transforms of a batch compute: which plan of the peer does the same. */
enum class BatchTransform {
    kComplexForward,
    kComplexInverse,
    kRealForward,
    kRealInverse,
    kHartley,
    kWalshHadamard
};

/** Where the transforms of a batch stand: one behind the other, or side by side in the columns of a
 * row-major array. */
enum class BatchLayout { kContiguous, kColumns };

/** contiguous, columns */
std::string NameOf(BatchLayout layout);

/** Batches that differ in length, count and layout alone. Spectra of real samples are in CCS. */
struct BatchFamily {
    BatchTransform transform = BatchTransform::kComplexForward;
    std::string type;          ///< of an element: 32fc, 64fc, 32f, 64f
    std::string name;          ///< as in the names of benchmarks: dft_real/fwd
    std::string exported;      ///< behind qsvgBatch, and behind qsvg: DFTFwd_RToCCS_32f
    std::string peer_figures;  ///< the family in bench/peers: real_forward_32

    bool IsComplex() const {
        return transform == BatchTransform::kComplexForward ||
               transform == BatchTransform::kComplexInverse;
    }
    bool IsSingle() const { return type.starts_with("32"); }

    /** Lengths, or orders of the Walsh-Hadamard transform. */
    std::vector<int> Sizes() const;

    /** Samples of a transform. */
    int LengthOf(int size) const {
        return transform == BatchTransform::kWalshHadamard ? 1 << size : size;
    }

    /** Real numbers in a source, and in a result: two for each complex element. */
    int SourceNumbers(int size) const;
    int ResultNumbers(int size) const;
};

/** All families of both precisions, those of a type together. */
const std::vector<BatchFamily>& BatchFamilies();

}  // namespace bench
