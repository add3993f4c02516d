#include "dct4_plans.hpp"

#include <array>
#include <bit>
#include <vector>

namespace python {
namespace {

constexpr size_t kOrders = 27;
constexpr ptrdiff_t kMostKeptBytes = ptrdiff_t{64} << 20;

struct IdlePlans {
    std::array<std::array<std::vector<void*>, kOrders>, 2> by_order;
    ptrdiff_t bytes = 0;
};

/** Never destroyed: threads that outlive the interpreter may still hold plans. */
IdlePlans& idle_plans() {
    static auto* const plans = new IdlePlans;
    return *plans;
}

std::vector<void*>& idle(Precision precision, ptrdiff_t length) {
    return idle_plans().by_order[static_cast<size_t>(precision)][static_cast<size_t>(
        std::countr_zero(static_cast<size_t>(length)))];
}

ptrdiff_t plan_bytes(Precision precision, ptrdiff_t length) {
    int32_t bytes = 0;
    if (precision == Precision::kSingle)
        qsvgDCT4GetSize_32f(static_cast<int32_t>(length), &bytes);
    else
        qsvgDCT4GetSize_64f(static_cast<int32_t>(length), &bytes);
    return bytes;
}

template <Precision precision>
void* make(ptrdiff_t length) {
    typename Dct4<precision>::Plan* plan = nullptr;
    const QsvStatus status = Dct4<precision>::make(&plan, static_cast<int32_t>(length));
    return status == qsvStatusOk ? plan : nullptr;
}

void destroy(Precision precision, void* plan) {
    if (precision == Precision::kSingle)
        qsvgDCT4Free_32f(static_cast<QsvDCT4Plan_32f*>(plan));
    else
        qsvgDCT4Free_64f(static_cast<QsvDCT4Plan_64f*>(plan));
}

}  // namespace

void* take_dct4_plan(Precision precision, ptrdiff_t length) {
    std::vector<void*>& plans = idle(precision, length);
    if (plans.empty()) return nullptr;
    void* const plan = plans.back();
    plans.pop_back();
    idle_plans().bytes -= plan_bytes(precision, length);
    return plan;
}

void* make_dct4_plan(Precision precision, ptrdiff_t length) {
    return precision == Precision::kSingle ? make<Precision::kSingle>(length)
                                           : make<Precision::kDouble>(length);
}

void give_back_dct4_plan(Precision precision, ptrdiff_t length, void* plan) {
    const ptrdiff_t bytes = plan_bytes(precision, length);
    if (idle_plans().bytes + bytes > kMostKeptBytes) {
        destroy(precision, plan);
        return;
    }
    try {
        idle(precision, length).push_back(plan);
        idle_plans().bytes += bytes;
    } catch (const std::bad_alloc&) {
        destroy(precision, plan);
    }
}

}  // namespace python
