#include "batch_family.hpp"

#include <iterator>

#include "lengths.hpp"
#include "spectrum_layout.hpp"

namespace bench {
namespace {

std::vector<BatchFamily> MakeFamilies() {
    std::vector<BatchFamily> families;
    for (const std::string bits : {"32", "64"}) {
        const auto add = [&](BatchTransform transform, const std::string& type_suffix,
                             const std::string& name, const std::string& exported,
                             const std::string& peer_figures) {
            const std::string type = bits + type_suffix;
            families.push_back({.transform = transform,
                                .type = type,
                                .name = name,
                                .exported = exported + "_" + type,
                                .peer_figures = peer_figures + "_" + bits});
        };
        // The peers' complex transforms take the same time both ways.
        add(BatchTransform::kComplexForward, "fc", "dft_complex/fwd", "DFTFwd_CToC",
            "complex_forward");
        add(BatchTransform::kComplexInverse, "fc", "dft_complex/inv", "DFTInv_CToC",
            "complex_forward");
        add(BatchTransform::kRealForward, "f", "dft_real/fwd", "DFTFwd_RToCCS", "real_forward");
        add(BatchTransform::kRealInverse, "f", "dft_real/inv", "DFTInv_CCSToR", "real_inverse");
        add(BatchTransform::kHartley, "f", "hartley", "Hartley", "hartley");
        add(BatchTransform::kWalshHadamard, "f", "walsh_hadamard", "WHT", "walsh_hadamard");
    }
    return families;
}

}  // namespace

std::string NameOf(BatchLayout layout) {
    return layout == BatchLayout::kContiguous ? "contiguous" : "columns";
}

std::vector<int> BatchFamily::Sizes() const {
    // Up to 64 points, as the others.
    if (transform == BatchTransform::kWalshHadamard) return {1, 2, 3, 4, 5, 6};
    return {std::begin(kLengths), std::end(kLengths)};
}

int BatchFamily::SourceNumbers(int size) const {
    if (transform == BatchTransform::kRealInverse)
        return SpectrumElements(SpectrumLayout::kCcs, size);
    return (IsComplex() ? 2 : 1) * LengthOf(size);
}

int BatchFamily::ResultNumbers(int size) const {
    if (transform == BatchTransform::kRealForward)
        return SpectrumElements(SpectrumLayout::kCcs, size);
    return (IsComplex() ? 2 : 1) * LengthOf(size);
}

const std::vector<BatchFamily>& BatchFamilies() {
    static const std::vector<BatchFamily> families = MakeFamilies();
    return families;
}

}  // namespace bench
