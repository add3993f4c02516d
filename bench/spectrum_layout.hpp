#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>

namespace bench {

/** Order of the elements of a real transform's spectrum; see qsvgen.h. */
enum class SpectrumLayout { kCcs, kPack, kPerm };

/** As in the names of exported functions: CCS, Pack, Perm. */
inline const char* LayoutName(SpectrumLayout layout) {
    switch (layout) {
        case SpectrumLayout::kCcs:
            return "CCS";
        case SpectrumLayout::kPack:
            return "Pack";
        case SpectrumLayout::kPerm:
            return "Perm";
    }
    throw std::logic_error("no such layout");
}

/** Elements of the spectrum of length real samples. */
inline int SpectrumElements(SpectrumLayout layout, int length) {
    return layout == SpectrumLayout::kCcs ? 2 * (length / 2) + 2 : length;
}

/** Puts a spectrum of length real samples, which stands in CCS as the peer's does, into a layout.
 */
template <typename Real>
void RearrangeFromCcs(SpectrumLayout layout, int length, Real* spectrum) {
    if (layout == SpectrumLayout::kCcs) return;
    std::copy(spectrum + 2, spectrum + length + 1, spectrum + 1);
    if (layout == SpectrumLayout::kPerm && length % 2 == 0) {
        std::rotate(spectrum + 1, spectrum + length - 1, spectrum + length);
    }
}

}  // namespace bench
