#include "transforms/dft_complex/decompositions/network_evaluation.hpp"

#include "transforms/dft_complex/decompositions/signals.hpp"

namespace dft_complex {
namespace {

class NetworkEvaluation {
  public:
    NetworkEvaluation(ComplexAlgebra& algebra, const Points& x, ConjugateFactors conjugate_factors)
        : algebra_(algebra), x_(x), fold_(conjugate_factors == ConjugateFactors::Folded) {}

    void run(const SmallTransform& transform) {
        std::vector<Factors> factors;
        for (const Value& value : transform.inputs) factors.push_back({value.factor});
        Points points;
        if (fold_ && folds_conjugate_factors(transform.form, factors)) {
            for (const Value& value : transform.inputs) points.push_back(at_source(value.source));
            done_.push_back(with_conjugate_factors(algebra_, points, factors, transform.form));
            return;
        }
        for (const Value& value : transform.inputs) points.push_back(evaluate(value));
        done_.push_back(small_transform(algebra_, transform.radix, transform.form, points));
    }

    ComplexVector evaluate(const Value& value) {
        if (value.absent) return {};
        const ComplexVector product = algebra_.times(at_source(value.source), {value.factor});
        return value.addend ? algebra_.add(product, at_source(*value.addend)) : product;
    }

  private:
    const ComplexVector& at_source(const Source& source) const {
        return source.transform == Source::kInput ? x_[at(source.slot)]
                                                  : done_[at(source.transform)][at(source.slot)];
    }

    ComplexAlgebra& algebra_;
    const Points& x_;
    bool fold_;
    std::vector<Points> done_;
};

}  // namespace

Points evaluate(ComplexAlgebra& algebra, const Network& network, const Points& x,
                const Signal& outputs, ConjugateFactors conjugate_factors) {
    NetworkEvaluation evaluation(algebra, x, conjugate_factors);
    for (const SmallTransform& transform : network.transforms()) evaluation.run(transform);
    Points y;
    for (const Value& value : outputs) y.push_back(evaluation.evaluate(value));
    return y;
}

}  // namespace dft_complex
