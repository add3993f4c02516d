#include "tests/kernelgen/support/independent_value.hpp"

namespace kernelgen_test {

using kernelgen::Exact;

Independent IndependentEvaluator::evaluate(const Exact& constant, bool decimals) {
    const Exact::Expression& e = constant.expression();
    switch (e.kind) {
        case Exact::Kind::Rational:
            return Independent(e.numerator) / e.denominator;
        case Exact::Kind::CosineOfTurn:
            return cosine(e.numerator, e.denominator);
        case Exact::Kind::SquareRoot:
            return sqrt(Independent(e.numerator));
        case Exact::Kind::Pinned:
            return decimals ? Independent(e.decimal) : evaluate(e.terms.front(), decimals);
        case Exact::Kind::Sum:
            return sum(e, decimals);
        case Exact::Kind::Product: {
            Independent product = 1;
            for (const Exact& term : e.terms) product *= evaluate(term, decimals);
            return product;
        }
    }
    return std::numeric_limits<Independent>::quiet_NaN();
}

// Terms that cancel leave some of their last bits behind; what is that small beside them is zero.
Independent IndependentEvaluator::sum(const Exact::Expression& e, bool decimals) {
    Independent sum = 0;
    Independent magnitude = 0;
    for (const Exact& term : e.terms) {
        const Independent value = evaluate(term, decimals);
        sum += value;
        magnitude += abs(value);
    }
    if (abs(sum) < ldexp(magnitude, -180)) return 0;
    return sum;
}

Independent IndependentEvaluator::cosine(long numerator, long denominator) {
    auto [entry, fresh] = cosines_.try_emplace({numerator, denominator});
    if (fresh) {
        const Independent& turn = boost::math::constants::two_pi<Independent>();
        entry->second = cos(Independent(turn * numerator / denominator));
    }
    return entry->second;
}

}  // namespace kernelgen_test
