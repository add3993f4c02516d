#pragma once

/**
 * @file
 * @brief Constants as exact expressions, rounded once and correctly where a kernel needs bits.
 *
 * A constant keeps the expression it came from (cosine of a rational turn, square root, rational,
 * sums and products of these), so that the proof can use it unrounded and a test can evaluate it
 * again with another library. Values carry about 200 bits; equal constants compare equal.
 */

#include <boost/multiprecision/mpfr.hpp>
#include <memory>
#include <string>
#include <vector>

namespace kernelgen {

/** Reals of the proof: 60 decimal digits, far beyond the 113 bits that one rounding needs. */
using Wide = boost::multiprecision::number<
    boost::multiprecision::mpfr_float_backend<60, boost::multiprecision::allocate_stack>,
    boost::multiprecision::et_off>;

class Exact {
  public:
    enum class Kind { Rational, CosineOfTurn, SquareRoot, Sum, Product, Pinned };

    struct Expression {
        Kind kind;
        long numerator = 0;    ///< of a rational or a turn; the radicand of a square root
        long denominator = 1;  ///< of a rational or a turn
        std::vector<Exact> terms =
            {};                    ///< of a sum or a product; the exact value of a pinned constant
        std::string decimal = {};  ///< what a pinned constant is rounded from
        Wide value = 0;
    };

    Exact() : Exact(rational(0, 1)) {}

    static Exact rational(long numerator, long denominator = 1);
    /** cos(2 pi numerator / denominator), reduced to the first quadrant. */
    static Exact cosine(long numerator, long denominator);
    /** sin(2 pi numerator / denominator). */
    static Exact sine(long numerator, long denominator);
    static Exact square_root(long radicand);
    static Exact sum(std::vector<Exact> terms);
    static Exact product(std::vector<Exact> terms);
    /** A constant whose binary64 value is that of `decimal`, though `ideal` may round elsewhere. */
    static Exact pinned(const std::string& decimal, const Exact& ideal);

    Exact operator-() const;

    const Expression& expression() const { return *expression_; }
    const Wide& value() const { return expression_->value; }
    bool is_zero() const { return value() == 0; }
    bool is_one() const { return value() == 1; }
    bool is_negative() const { return value() < 0; }

    float to_binary32() const;
    double to_binary64() const;

    /** Identity: equal for equal constants however they were formed. */
    const std::string& key() const { return key_; }

  private:
    explicit Exact(Expression expression);
    /** cos(2 pi p / q) for a reduced p / q from 0 to 1/2. */
    static Exact cosine_of_half_turn(long p, long q);
    std::shared_ptr<const Expression> expression_;
    std::string key_;
};

/** A complex constant, for twiddle factors and spectra. */
struct ExactComplex {
    Exact re = Exact::rational(1);
    Exact im = Exact::rational(0);

    /** exp(-2 pi i numerator / denominator), the forward direction's root of unity. */
    static ExactComplex forward_root(long numerator, long denominator);
    bool is_one() const { return re.is_one() && im.is_zero(); }
};

ExactComplex operator*(const ExactComplex& a, const ExactComplex& b);

}  // namespace kernelgen
