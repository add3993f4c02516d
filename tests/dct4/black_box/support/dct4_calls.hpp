#pragma once

/** @file @brief What tests of the DCT-IV's callers begin with: a signal, and its transform by a
 * usual call. */

#include <gtest/gtest.h>

#include <vector>

#include "support/dct4_interface.hpp"
#include "support/signals.hpp"

namespace qsvgen_test {

template <class E>
class Dct4Calls : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Functions = Dct4Interface<E>;
    using Plan = typename Functions::Plan;
    using Signal = std::vector<Real>;

    static Signal signal(std::int32_t length) {
        return random_signal<E>(static_cast<std::size_t>(length), 60);
    }

    static Signal transformed(Plan* plan, const Signal& x) {
        Signal y(x.size());
        EXPECT_EQ(0, Functions::kRun(x.data(), y.data(), plan));
        return y;
    }
};

}  // namespace qsvgen_test
