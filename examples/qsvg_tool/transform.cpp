#include "transform.hpp"

#include <bit>
#include <memory>
#include <string>

#include "command_line.hpp"
#include "common/error.hpp"

namespace qsvg_tool {
namespace {

/** The library's functions by element type. */
template <class Real>
struct Library;

#define QSVG_TOOL_LIBRARY(REAL, SUFFIX)                                                            \
    template <>                                                                                    \
    struct Library<Real##REAL> {                                                                   \
        using Complex = Complex##REAL;                                                             \
        using Plan = QsvDCT4Plan_##SUFFIX;                                                         \
        static constexpr auto kComplexForward = qsvgDFTFwd_CToC_##SUFFIX##c;                       \
        static constexpr auto kComplexInverse = qsvgDFTInv_CToC_##SUFFIX##c;                       \
        static constexpr decltype(&qsvgHartley_##SUFFIX) kRealForward[] = {                        \
            qsvgDFTFwd_RToCCS_##SUFFIX, qsvgDFTFwd_RToPack_##SUFFIX, qsvgDFTFwd_RToPerm_##SUFFIX}; \
        static constexpr decltype(&qsvgHartley_##SUFFIX) kRealInverse[] = {                        \
            qsvgDFTInv_CCSToR_##SUFFIX, qsvgDFTInv_PackToR_##SUFFIX, qsvgDFTInv_PermToR_##SUFFIX}; \
        static constexpr auto kHartley = qsvgHartley_##SUFFIX;                                     \
        static constexpr auto kWalshHadamard = qsvgWHT_##SUFFIX;                                   \
        static constexpr auto kDct4Plan = qsvgDCT4InitAlloc_##SUFFIX;                              \
        static constexpr auto kDct4Free = qsvgDCT4Free_##SUFFIX;                                   \
        static constexpr auto kDct4 = qsvgDCT4_##SUFFIX;                                           \
    };
QSVG_TOOL_LIBRARY(32, 32f)
QSVG_TOOL_LIBRARY(64, 64f)
#undef QSVG_TOOL_LIBRARY

template <class Real>
constexpr int32_t kLongestDct4 = sizeof(Real) == sizeof(Real32) ? 1 << 26 : 1 << 25;

bool IsPowerOfTwo(int32_t length) {
    return length > 0 && std::has_single_bit(static_cast<uint32_t>(length));
}

/** Of all families whose functions need no plan. */
template <class Real>
QsvStatus Call(const Request& request, const Real* source, Real* destination) {
    using Functions = Library<Real>;
    const auto layout = static_cast<size_t>(request.layout);
    switch (request.family) {
        case Family::kDftComplex: {
            using Complex = typename Functions::Complex;
            const auto function =
                request.is_inverse ? Functions::kComplexInverse : Functions::kComplexForward;
            return function(reinterpret_cast<const Complex*>(source),
                            reinterpret_cast<Complex*>(destination), request.length, request.flag);
        }
        case Family::kDftReal: {
            const auto function = request.is_inverse ? Functions::kRealInverse[layout]
                                                     : Functions::kRealForward[layout];
            return function(source, destination, request.length, request.flag);
        }
        case Family::kHartley:
            return Functions::kHartley(source, destination, request.length, request.flag);
        case Family::kWalshHadamard:
            return Functions::kWalshHadamard(
                source, destination, std::countr_zero(static_cast<uint32_t>(request.length)),
                request.flag, nullptr);
        case Family::kDct4:
            break;
    }
    return qsvStatusBadPlan;
}

/** Null arrays are refused after the length is, and before anything is looked at. */
template <class Real>
bool HasLength(const Request& request) {
    const bool needs_power_of_two =
        request.family == Family::kWalshHadamard || request.family == Family::kDct4;
    if (needs_power_of_two && !IsPowerOfTwo(request.length)) return false;
    // Of longer ones the library tells sizes, too, some of which have wrapped around.
    if (request.family == Family::kDct4)
        return request.length >= 2 && request.length <= kLongestDct4<Real>;
    return Call<Real>(request, nullptr, nullptr) != qsvStatusBadLength;
}

[[noreturn]] void Refused(const Request& request, QsvStatus status) {
    throw example::Error(
        example::ExitCode::kFailed,
        "the library refuses " + Title(request) + " with status " + std::to_string(status) + ".");
}

template <class Real>
BlockTransform<Real> Dct4Of(const Request& request) {
    typename Library<Real>::Plan* made = nullptr;
    const QsvStatus status = Library<Real>::kDct4Plan(&made, request.length);
    if (status == qsvStatusNullPointer) {
        throw example::Error(
            example::ExitCode::kFailed,
            "there is no memory for the plan of " + Title(request) + ".\nTake a shorter length.");
    }
    if (status != qsvStatusOk) Refused(request, status);
    const std::shared_ptr<typename Library<Real>::Plan> plan(made, Library<Real>::kDct4Free);
    return [plan, request](std::span<const Real> source) {
        std::vector<Real> result(source.size());
        const QsvStatus done = Library<Real>::kDct4(source.data(), result.data(), plan.get());
        if (done != qsvStatusOk) Refused(request, done);
        return result;
    };
}

}  // namespace

BlockLines BlockLinesOf(const Request& request) {
    const auto length = static_cast<size_t>(request.length);
    if (request.family != Family::kDftReal || request.layout != Layout::kCcs)
        return {length, length};
    const size_t spectrum = length % 2 == 0 ? length + 2 : length + 1;
    return request.is_inverse ? BlockLines{spectrum, length} : BlockLines{length, spectrum};
}

void CheckLength(const Request& request) {
    if (request.is_double ? HasLength<Real64>(request) : HasLength<Real32>(request)) return;
    const FamilyWords& words = WordsOf(request.family);
    WrongUse("There is no " + Title(request) + ": " + std::string(words.name) +
             " has the lengths " + std::string(words.lengths) + ".");
}

template <class Real>
BlockTransform<Real> TransformOf(const Request& request) {
    CheckLength(request);
    if (request.family == Family::kDct4) return Dct4Of<Real>(request);
    const size_t parts = request.is_complex() ? 2 : 1;
    const size_t size = BlockLinesOf(request).destination * parts;
    return [request, size](std::span<const Real> source) {
        std::vector<Real> result(size);
        const QsvStatus status = Call<Real>(request, source.data(), result.data());
        if (status != qsvStatusOk) Refused(request, status);
        return result;
    };
}

template BlockTransform<Real32> TransformOf<Real32>(const Request&);
template BlockTransform<Real64> TransformOf<Real64>(const Request&);

}  // namespace qsvg_tool
