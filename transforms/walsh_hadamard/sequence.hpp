#pragma once

/**
 * @file
 * @brief Shows that a kernel rounds as the reference sequence does: sum by sum, for all inputs.
 *
 * That the matrix is right does not show which sums were formed on the way. So the passes are run
 * over expressions instead of numbers, each expression known by a hash of its operation and its
 * operands (sums are commutative to the bit). Equal expressions give equal bits for any input.
 */

#include <compare>
#include <cstdint>
#include <vector>

#include "transforms/walsh_hadamard/walsh_hadamard_kernel.hpp"

namespace walsh_hadamard {

/** What was calculated from what. */
class Expression {
  public:
    /** A constant; kernels have none but the zeros that evaluation starts from. */
    explicit Expression(int value = 0);

    static Expression input(int index);
    static Expression scale();
    static Expression sum(Expression a, Expression b);
    static Expression difference(Expression a, Expression b);
    static Expression product(Expression a, Expression b);

    Expression operator-() const;
    auto operator<=>(const Expression&) const = default;

  private:
    Expression(std::uint64_t operation, std::uint64_t a, std::uint64_t b);
    std::uint64_t hash_;
};

/** Outputs of the stages of strides 1, 2, ..., N/2, times the scale factor. */
std::vector<Expression> sums_of_reference(int order);

/**
 * Outputs of the kernel's passes over a work buffer of exactly the promised size. Throws
 * std::out_of_range where one leaves its array.
 */
std::vector<Expression> sums_of_kernel(const Kernel& kernel);

}  // namespace walsh_hadamard
