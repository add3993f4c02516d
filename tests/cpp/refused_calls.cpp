/** @file @brief Calls that compile, and the faults by which they do not: FAULT names one. */

#include <array>
#include <complex>
#include <span>
#include <type_traits>
#include <vector>

#include "qsvgen.hpp"

namespace faults {

enum Fault {
    kNone,
    kNoKernelOfLength,
    kNoKernelOfLengthOfVectors,
    kNoKernelOfNegativeLength,
    kNoKernelOfRealLength,
    kNoKernelOfOrder,
    kSizeOfSource,
    kSizeOfDestination,
    kSizeOfSpectrum,
    kSizeBesideAVector,
    kPrecision,
    kConstantDestination,
    kTemporarySource,
    kWorkOfLowerOrder,
    kPlanCopied,
    kPlanOfComplex,
    kRowsOfDifferentSize
};

#ifndef FAULT
#define FAULT kNone
#endif
constexpr bool is(Fault fault) {
    return FAULT == fault;
}
template <bool Faulty, class Wrong, class Right>
using choice = std::conditional_t<Faulty, Wrong, Right>;

using Single = std::complex<float>;
using Double = std::complex<double>;
template <std::size_t Size>
using Points = std::array<Single, Size>;

QsvStatus calls() {
    constexpr int kLength = is(kNoKernelOfLength) ? 65 : 15;
    constexpr std::size_t kSourceSize = is(kSizeOfSource) ? 14 : kLength;
    constexpr std::size_t kDestinationSize = is(kSizeOfDestination) ? 16 : kLength;
    using Written = std::array<choice<is(kPrecision), Double, Single>, kDestinationSize>;
    Points<kSourceSize> x{};
    choice<is(kConstantDestination), const Points<15>, Written> y{};
    static_cast<void>(qsvgen::dft<kLength>(x, y));

    constexpr int kInverseLength = is(kNoKernelOfNegativeLength) ? -1 : 15;
    Points<15> z{};
    static_cast<void>(qsvgen::inverse_dft<kInverseLength>(z, z));

    constexpr int kVectorLength = is(kNoKernelOfLengthOfVectors) ? 1 : 15;
    constexpr std::size_t kSizeBeside = is(kSizeBesideAVector) ? 16 : 15;
    std::vector<Single> v(15);
    Points<kSizeBeside> beside{};
    static_cast<void>(qsvgen::dft<kVectorLength>(v, v));
    static_cast<void>(qsvgen::dft<15>(v, beside));

    constexpr int kRealLength = is(kNoKernelOfRealLength) ? 100 : 15;
    constexpr std::size_t kSpectrum = is(kSizeOfSpectrum) ? 15 : qsvgen::ccs.size(kRealLength);
    std::array<float, kRealLength> signal{};
    std::array<float, kSpectrum> spectrum{};
    static_cast<void>(qsvgen::real_dft<kRealLength>(signal, spectrum, qsvgen::ccs));

    constexpr int kOrder = is(kNoKernelOfOrder) ? 14 : 9;
    constexpr int kWorkOrder = is(kWorkOfLowerOrder) ? 8 : 9;
    static std::array<float, 1 << kOrder> long_signal{};
    static std::array<float, 512> shorter{};
    static qsvgen::WalshHadamardWork<float, kWorkOrder> work;
    static_cast<void>(qsvgen::walsh_hadamard<kOrder>(long_signal, long_signal));
    static_cast<void>(qsvgen::walsh_hadamard<9>(shorter, shorter, work));

    using Viewed = choice<is(kTemporarySource), std::vector<float>, std::span<const float>>;
    static_cast<void>(qsvgen::frames(Viewed(signal.begin(), signal.end()), 5, 5));

    using Row = choice<is(kRowsOfDifferentSize), std::vector<float>, std::array<float, 4>>;
    std::vector<Row> nested;
    static_cast<void>(qsvgen::rows(nested));

    using Plan = qsvgen::Dct4Plan<choice<is(kPlanOfComplex), Single, float>>;
    const Plan plan(64);
    choice<is(kPlanCopied), const Plan, const Plan&> other(plan);
#if defined(STATUS_UNREAD)
    qsvgen::dft(v, v);
#endif
    return other.status();
}

}  // namespace faults
