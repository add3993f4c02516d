#include "kernel_family.hpp"

#include <stdexcept>

namespace bench {

std::string KernelFamily::KernelName(int length) const {
    return "qsvg" + exported + "_" + std::to_string(length) + "_" + type;
}

std::string KernelFamily::BenchmarkName(int length) const {
    return name + "/" + std::to_string(length) + "/" + type;
}

std::vector<KernelFamily> FamiliesOf(const std::string& type, SpectrumLayout layout) {
    const std::string bits = type.substr(0, 2);
    if ((bits != "32" && bits != "64") || (type != bits + "f" && type != bits + "fc")) {
        throw std::invalid_argument("unknown type '" + type + "'");
    }
    const auto family = [&](Transform transform, const std::string& name,
                            const std::string& exported, const std::string& peer_figures) {
        return KernelFamily{.transform = transform,
                            .layout = layout,
                            .type = type,
                            .name = name,
                            .exported = exported,
                            .peer_figures = peer_figures + "_" + bits};
    };
    if (type == bits + "fc") {
        if (layout != SpectrumLayout::kCcs) {
            throw std::invalid_argument("the complex DFT has one layout only");
        }
        // The peers' complex transforms take the same time both ways.
        return {
            family(Transform::kComplexForward, "dft_complex/fwd", "DFTFwd_CToC", "complex_forward"),
            family(Transform::kComplexInverse, "dft_complex/inv", "DFTInv_CToC",
                   "complex_forward")};
    }
    const std::string folder = layout == SpectrumLayout::kPack   ? "dft_real_pack/"
                               : layout == SpectrumLayout::kPerm ? "dft_real_perm/"
                                                                 : "dft_real/";
    const std::string spectrum = LayoutName(layout);
    std::vector<KernelFamily> families = {
        family(Transform::kRealForward, folder + "fwd", "DFTFwd_RTo" + spectrum, "real_forward"),
        family(Transform::kRealInverse, folder + "inv", "DFTInv_" + spectrum + "ToR",
               "real_inverse")};
    if (layout == SpectrumLayout::kCcs) {
        families.push_back(family(Transform::kHartley, "hartley", "Hartley", "hartley"));
    }
    return families;
}

}  // namespace bench
