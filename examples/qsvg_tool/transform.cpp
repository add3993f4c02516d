#include "transform.hpp"

#include <bit>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>

#include "command_line.hpp"
#include "common/error.hpp"
#include "qsvgen_batch.h"

namespace qsvg_tool {
namespace {

/** The library's functions by element type. */
template <class Real>
struct Library;

#define QSVG_TOOL_LIBRARY(REAL, SUFFIX)                                           \
    template <>                                                                   \
    struct Library<Real##REAL> {                                                  \
        using Complex = Complex##REAL;                                            \
        using Plan = QsvDCT4Plan_##SUFFIX;                                        \
        static constexpr auto kComplexForward = qsvgBatchDFTFwd_CToC_##SUFFIX##c; \
        static constexpr auto kComplexInverse = qsvgBatchDFTInv_CToC_##SUFFIX##c; \
        static constexpr decltype(&qsvgBatchHartley_##SUFFIX) kRealForward[] = {  \
            qsvgBatchDFTFwd_RToCCS_##SUFFIX, qsvgBatchDFTFwd_RToPack_##SUFFIX,    \
            qsvgBatchDFTFwd_RToPerm_##SUFFIX};                                    \
        static constexpr decltype(&qsvgBatchHartley_##SUFFIX) kRealInverse[] = {  \
            qsvgBatchDFTInv_CCSToR_##SUFFIX, qsvgBatchDFTInv_PackToR_##SUFFIX,    \
            qsvgBatchDFTInv_PermToR_##SUFFIX};                                    \
        static constexpr auto kHartley = qsvgBatchHartley_##SUFFIX;               \
        static constexpr auto kWalshHadamard = qsvgBatchWHT_##SUFFIX;             \
        static constexpr auto kDct4Plan = qsvgDCT4InitAlloc_##SUFFIX;             \
        static constexpr auto kDct4Free = qsvgDCT4Free_##SUFFIX;                  \
        static constexpr auto kDct4 = qsvgDCT4_##SUFFIX;                          \
    };
QSVG_TOOL_LIBRARY(32, 32f)
QSVG_TOOL_LIBRARY(64, 64f)
#undef QSVG_TOOL_LIBRARY

template <class Real>
constexpr int32_t kLongestDct4 = sizeof(Real) == sizeof(Real32) ? 1 << 26 : 1 << 25;

bool IsPowerOfTwo(int32_t length) {
    return length > 0 && std::has_single_bit(static_cast<uint32_t>(length));
}

/** Of all families whose functions need no plan: `count` blocks, one behind the other. */
template <class Real>
QsvStatus Call(const Request& request, const Real* source, Real* destination, int32_t count) {
    using Functions = Library<Real>;
    const auto layout = static_cast<size_t>(request.layout);
    const BlockLines lines = BlockLinesOf(request);
    const auto from = static_cast<ptrdiff_t>(lines.source);
    const auto to = static_cast<ptrdiff_t>(lines.destination);
    switch (request.family) {
        case Family::kDftComplex: {
            using Complex = typename Functions::Complex;
            const auto function =
                request.is_inverse ? Functions::kComplexInverse : Functions::kComplexForward;
            return function(reinterpret_cast<const Complex*>(source), 1, from,
                            reinterpret_cast<Complex*>(destination), 1, to, request.length, count,
                            request.flag);
        }
        case Family::kDftReal: {
            const auto function = request.is_inverse ? Functions::kRealInverse[layout]
                                                     : Functions::kRealForward[layout];
            return function(source, 1, from, destination, 1, to, request.length, count,
                            request.flag);
        }
        case Family::kHartley:
            return Functions::kHartley(source, 1, from, destination, 1, to, request.length, count,
                                       request.flag);
        case Family::kWalshHadamard:
            return Functions::kWalshHadamard(
                source, 1, from, destination, 1, to,
                std::countr_zero(static_cast<uint32_t>(request.length)), count, request.flag,
                nullptr);
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
    return Call<Real>(request, nullptr, nullptr, 0) != qsvStatusBadLength;
}

[[noreturn]] void Refused(const Request& request, QsvStatus status) {
    throw example::Error(
        example::ExitCode::kFailed,
        "the library refuses " + Title(request) + " with status " + std::to_string(status) + ".");
}

template <class Real>
BlockTransforms<Real> Dct4Of(const Request& request) {
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
        const auto length = static_cast<size_t>(request.length);
        std::vector<Real> result(source.size());
        for (size_t begin = 0; begin < source.size(); begin += length) {
            const QsvStatus done =
                Library<Real>::kDct4(source.data() + begin, result.data() + begin, plan.get());
            if (done != qsvStatusOk) Refused(request, done);
        }
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
BlockTransforms<Real> TransformsOf(const Request& request) {
    CheckLength(request);
    if (request.family == Family::kDct4) return Dct4Of<Real>(request);
    return [request](std::span<const Real> source) {
        const size_t parts = request.is_complex() ? 2 : 1;
        const BlockLines lines = BlockLinesOf(request);
        const size_t count = source.size() / (lines.source * parts);
        if (count > size_t{std::numeric_limits<int32_t>::max()}) {
            throw example::Error(
                example::ExitCode::kFailed,
                "there are " + std::to_string(count) +
                    " transforms, more than a call takes.\nTransform the text piece by piece.");
        }
        std::vector<Real> result(count * lines.destination * parts);
        const QsvStatus status =
            Call<Real>(request, source.data(), result.data(), static_cast<int32_t>(count));
        if (status != qsvStatusOk) Refused(request, status);
        return result;
    };
}

template BlockTransforms<Real32> TransformsOf<Real32>(const Request&);
template BlockTransforms<Real64> TransformsOf<Real64>(const Request&);

}  // namespace qsvg_tool
