#pragma once

/**
 * @file
 * @brief What holds for the constants of every real kernel.
 */

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tests/dft_complex/white_box/support/constants_of_graph.hpp"
#include "tests/kernelgen/support/independent_value.hpp"
#include "transforms/dft_real/kernels/real_kernel.hpp"

namespace dft_real_test {

/** Live constants of a kernel. */
inline std::vector<kernelgen::Exact> constants_of(const dft_real::RealKernel& kernel) {
    std::vector<kernelgen::Exact> values;
    for (kernelgen::NodeId id : kernel.graph.live()) {
        const kernelgen::Node& n = kernel.graph.node(id);
        if (n.op != kernelgen::Op::Constant) continue;
        values.push_back(kernel.graph.constants()[static_cast<std::size_t>(n.constant)].front());
    }
    return values;
}

inline bool is_pinned(const kernelgen::Exact& constant) {
    return constant.expression().kind == kernelgen::Exact::Kind::Pinned;
}

/** Looks at each constant once, though many kernels hold it. */
class ConstantChecks {
  public:
    void expect_rounded_once_and_positive(const dft_real::RealKernel& kernel) {
        for (const kernelgen::Exact& c : constants_of(kernel)) {
            EXPECT_FALSE(c.is_negative()) << kernel.name() << ": " << c.key();
            if (!seen_.insert(c.key()).second) continue;
            const double value = c.to_binary64();
            EXPECT_TRUE(kernelgen_test::is_nearest(value, evaluator_.as_written(c)))
                << kernel.name() << ": " << c.key() << " became " << std::hexfloat << value;
            const kernelgen_test::Independent ideal = evaluator_.ideal(c);
            // A joined product is of two rounded values and rounded itself; a settled constant
            // stands one unit beside the nearest.
            if (is_pinned(c)) {
                EXPECT_LT(abs(kernelgen_test::Independent(value / ideal - 1)), 0x1p-51)
                    << kernel.name() << ": " << c.key();
            }
            const kernelgen_test::Independent in_proof(
                c.value().str(60, std::ios_base::scientific));
            EXPECT_LT(abs(kernelgen_test::Independent(in_proof - ideal)),
                      kernelgen_test::Independent("1e-50"))
                << kernel.name() << ": " << c.key();
        }
    }

    std::size_t distinct() const { return seen_.size(); }

  private:
    kernelgen_test::IndependentEvaluator evaluator_;
    std::set<std::string> seen_;
};

/** Lengths of coprime factors that are powers of primes below 11. */
inline const std::vector<int> kCoprimeLengths = {6,  10, 12, 14, 15, 18, 20, 21, 24, 28,
                                                 30, 35, 36, 40, 42, 45, 48, 56, 60, 63};

/** |cos| and |sin| of the turns of each factor; 2, which doubles inputs, among them. */
inline dft_complex_test::Magnitudes roots_of_factors(int length) {
    dft_complex_test::Magnitudes keys = {kernelgen::Exact::rational(2).key()};
    for (int prime : {2, 3, 5, 7}) {
        int power = 1;
        for (; length % prime == 0; length /= prime) power *= prime;
        keys.merge(dft_complex_test::roots(power));
    }
    return keys;
}

/** Constants that neither a factor holds nor a product of two constants has become. */
inline dft_complex_test::Magnitudes foreign_constants(const dft_real::RealKernel& kernel) {
    dft_complex_test::Magnitudes keys;
    for (const kernelgen::Exact& c : constants_of(kernel)) {
        if (!is_pinned(c)) keys.insert(c.key());
    }
    return dft_complex_test::without(keys, roots_of_factors(kernel.length));
}

}  // namespace dft_real_test
