#include "kernelgen/graph/exact_constant.hpp"

#include <map>
#include <numeric>
#include <utility>

namespace kernelgen {
namespace {

Wide evaluate_cosine(long numerator, long denominator) {
    static std::map<std::pair<long, long>, Wide> known;
    auto [entry, fresh] = known.try_emplace({numerator, denominator});
    if (fresh) {
        Wide turn = boost::math::constants::two_pi<Wide>() * numerator / denominator;
        entry->second = cos(turn);
    }
    return entry->second;
}

// Sums that cancel exactly leave dust far below any constant of a transform.
Wide without_dust(const Wide& value) {
    static const Wide dust("1e-50");
    if (abs(value) < dust) return 0;
    return value;
}

Wide evaluate(const Exact::Expression& e) {
    switch (e.kind) {
        case Exact::Kind::Rational:
            return Wide(e.numerator) / e.denominator;
        case Exact::Kind::CosineOfTurn:
            return evaluate_cosine(e.numerator, e.denominator);
        case Exact::Kind::SquareRoot:
            return sqrt(Wide(e.numerator));
        case Exact::Kind::Pinned:
            return e.terms.front().value();
        case Exact::Kind::Sum: {
            Wide sum = 0;
            for (const Exact& term : e.terms) sum += term.value();
            return without_dust(sum);
        }
        case Exact::Kind::Product: {
            Wide product = 1;
            for (const Exact& term : e.terms) product *= term.value();
            return product;
        }
    }
    return 0;
}

}  // namespace

Exact::Exact(Expression expression) {
    expression.value = evaluate(expression);
    // 40 digits tell all constants of a library apart and hide the last bits of long sums.
    key_ = expression.value.str(40, std::ios_base::scientific) + expression.decimal;
    expression_ = std::make_shared<const Expression>(std::move(expression));
}

Exact Exact::rational(long numerator, long denominator) {
    const long divisor = std::gcd(numerator, denominator);
    return Exact({.kind = Kind::Rational,
                  .numerator = numerator / divisor,
                  .denominator = denominator / divisor});
}

Exact Exact::cosine_of_half_turn(long p, long q) {
    if (4 * p > q) return -cosine(q - 2 * p, 2 * q);
    if (p == 0) return rational(1);
    if (4 * p == q) return rational(0);
    if (6 * p == q) return rational(1, 2);
    return Exact({.kind = Kind::CosineOfTurn, .numerator = p, .denominator = q});
}

Exact Exact::cosine(long numerator, long denominator) {
    numerator %= denominator;
    if (numerator < 0) numerator += denominator;
    const long divisor = std::gcd(numerator, denominator);
    long p = numerator / divisor;
    const long q = denominator / divisor;
    if (2 * p > q) p = q - p;
    // A definition asks for the same few again and again.
    static std::map<std::pair<long, long>, Exact> known;
    const auto found = known.find({p, q});
    if (found != known.end()) return found->second;
    return known.emplace(std::pair(p, q), cosine_of_half_turn(p, q)).first->second;
}

Exact Exact::sine(long numerator, long denominator) {
    return cosine(4 * numerator - denominator, 4 * denominator);
}

Exact Exact::square_root(long radicand) {
    return Exact({.kind = Kind::SquareRoot, .numerator = radicand});
}

Exact Exact::sum(std::vector<Exact> terms) {
    return Exact({.kind = Kind::Sum, .terms = std::move(terms)});
}

Exact Exact::product(std::vector<Exact> terms) {
    return Exact({.kind = Kind::Product, .terms = std::move(terms)});
}

Exact Exact::pinned(const std::string& decimal, const Exact& ideal) {
    return Exact({.kind = Kind::Pinned, .terms = {ideal}, .decimal = decimal});
}

Exact Exact::operator-() const {
    const Expression& e = expression();
    if (e.kind == Kind::Rational) return rational(-e.numerator, e.denominator);
    if (e.kind == Kind::Pinned) {
        const std::string flipped =
            e.decimal.front() == '-' ? e.decimal.substr(1) : "-" + e.decimal;
        return pinned(flipped, -e.terms.front());
    }
    if (e.kind == Kind::Product && e.terms.size() == 2 && e.terms.front().value() == -1)
        return e.terms.back();
    return product({rational(-1), *this});
}

float Exact::to_binary32() const {
    if (expression().kind == Kind::Pinned) return static_cast<float>(to_binary64());
    return mpfr_get_flt(value().backend().data(), MPFR_RNDN);
}

double Exact::to_binary64() const {
    const Expression& e = expression();
    if (e.kind == Kind::Pinned) return std::stod(e.decimal);
    return mpfr_get_d(value().backend().data(), MPFR_RNDN);
}

ExactComplex ExactComplex::forward_root(long numerator, long denominator) {
    return {Exact::cosine(numerator, denominator), Exact::sine(-numerator, denominator)};
}

ExactComplex operator*(const ExactComplex& a, const ExactComplex& b) {
    if (a.is_one()) return b;
    if (b.is_one()) return a;
    return {Exact::sum({Exact::product({a.re, b.re}), -Exact::product({a.im, b.im})}),
            Exact::sum({Exact::product({a.re, b.im}), Exact::product({a.im, b.re})})};
}

}  // namespace kernelgen
