/** @file @brief The exported functions that size, make and destroy plans. */

#include "dct4/construct.hpp"
#include "dct4/operations.hpp"
#include "plan/wrapping.hpp"
#include "platform/qsvcore.h"

namespace {

/** Whether no plan of that length is so much as begun. The 32-bit library leaves it to the sums of
 * what a plan takes, whose answers callers know: they also tell a size for lengths that are of no
 * use, a power of two and one, and where the sum has wrapped around. */
constexpr bool is_refused_by_length(std::int32_t length) {
    if (sizeof(void*) == 4) return false;
    return length < 2 || (length & (length - 1)) != 0 ||
           length > dct4::QSVG_ELEMENT::kLongestPowerOfTwo;
}

using namespace dct4::QSVG_ELEMENT;

/** Where the first block goes: behind the bump pointer and some reserve, on a 32-byte boundary. The
 *  remainder is that of the address as a signed number, so that it is negative in the upper half of
 *  the address space and the reserve longer there: half of it is a 32-bit program's, none of it is
 * a 64-bit one's. */
std::uintptr_t arena_start(const Arena* arena) {
    const auto head = reinterpret_cast<std::uintptr_t>(arena);
    return head + 64U - static_cast<std::uintptr_t>(static_cast<std::intptr_t>(head) % 32);
}

}  // namespace

extern "C" {

QsvStatus EXPORTED(DCT4GetSize)(std::int32_t length, std::int32_t* size) {
    if (is_refused_by_length(length)) return qsvStatusBadLength;
    const std::int32_t need = DCT4(env1_mem)(length);
    if (need < 0) return qsvStatusBadLength;
    const auto reserve = static_cast<std::int32_t>(2 * qsvgAlignSize32Bytes(1));
    *size = (plan::Wrapping(need) + reserve).value();
    return qsvStatusOk;
}

QsvStatus EXPORTED(DCT4Init)(Plan** plan, std::int32_t length, std::uint8_t* buffer) {
    if (plan == nullptr || buffer == nullptr) return qsvStatusNullPointer;
    if (is_refused_by_length(length)) return qsvStatusBadLength;
    auto* const arena = reinterpret_cast<Arena*>(buffer);
    arena->bump = arena_start(arena);
    env1* const root = DCT4(env1___init__)(allocate<env1>(arena), arena, length);
    const QsvStatus status = DCT4(env1_plan)(root);
    if (status != qsvStatusOk) {
        DCT4(env1___del__)(root);
        qsvgArenaFree(arena, root, sizeof(env1));
        return status;
    }
    *plan = reinterpret_cast<Plan*>(root);
    return qsvStatusOk;
}

QsvStatus EXPORTED(DCT4InitAlloc)(Plan** plan, std::int32_t length) {
    if (plan == nullptr) return qsvStatusNullPointer;
    std::int32_t size = 0;
    const QsvStatus supported = EXPORTED(DCT4GetSize)(length, &size);
    if (supported != qsvStatusOk) return supported;
    auto* const buffer = static_cast<std::uint8_t*>(qsvMalloc(size));
    const QsvStatus status = EXPORTED(DCT4Init)(plan, length, buffer);
    if (status != qsvStatusOk) qsvFree(buffer);
    return status;
}

QsvStatus EXPORTED(DCT4Free)(Plan* plan) {
    if (plan == nullptr) return qsvStatusNullPointer;
    auto* const root = reinterpret_cast<env1*>(plan);
    Arena* const arena = root->arena;
    DCT4(env1___del__)(root);
    qsvgArenaFree(arena, root, sizeof(env1));
    qsvFree(arena);
    return qsvStatusOk;
}
}
