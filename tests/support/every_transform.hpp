#pragma once

/** @file @brief Every kernel and some plans of an element type, to be run alike. */

#include <functional>
#include <string>
#include <vector>

#include "support/dct4_interface.hpp"
#include "support/kernel_table.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {

template <class E>
struct AnyTransform {
    using Element = typename E::Element;

    std::string name;
    std::size_t source_size;
    std::size_t destination_size;
    /** Of arrays of these sizes at any boundary of four bytes; all else is made beforehand. */
    std::function<QsvStatus(const Element*, Element*)> run;
};

template <class E, class Visit>
void for_each_transform(const Visit& visit) {
    using Element = typename E::Element;
    for (const auto& kernel : kernels<E>()) {
        visit(AnyTransform<E>{
            describe(kernel, qsvScaleBySqrtN), kernel.source_size(), kernel.destination_size(),
            [&](const Element* x, Element* y) { return kernel.run(x, y, qsvScaleBySqrtN); }});
    }
    if constexpr (kIsReal<E>) {
        for (const auto& kernel : order_kernels<E>()) {
            WorkBuffer buffer(kernel.buffer_bytes);
            visit(AnyTransform<E>{describe(kernel, qsvScaleBySqrtN), kernel.size(), kernel.size(),
                                  [&](const Element* x, Element* y) {
                                      return kernel.run(x, y, qsvScaleBySqrtN, buffer.data());
                                  }});
        }
        for (const std::int32_t length : kPlanLengths) {
            using Functions = Dct4Interface<E>;
            typename Functions::Plan* plan = nullptr;
            ASSERT_EQ(qsvStatusOk, Functions::kInitAlloc(&plan, length)) << length;
            const auto size = static_cast<std::size_t>(length);
            visit(AnyTransform<E>{
                "DCT-IV of " + std::to_string(length), size, size,
                [&](const Element* x, Element* y) { return Functions::kRun(x, y, plan); }});
            EXPECT_EQ(qsvStatusOk, Functions::kFree(plan)) << length;
        }
    }
}

}  // namespace qsvgen_test
