#include "dct4/construct.hpp"
#include "dct4/operations.hpp"
#include "plan/sine_cosine.hpp"
#include "plan/wrapping.hpp"

namespace dct4::QSVG_ELEMENT {

using plan::Wrapping;

extern "C" {

envlambda* DCT4(envlambda___init__)(envlambda* object, Arena* arena, std::int32_t numerator,
                                    std::int32_t denominator) {
    set_coefficient_head(object, DCT4(envlambda___del__), DCT4(envlambda_at), arena);
    object->numerator = numerator;
    object->denominator = denominator;
    return object;
}

envfCompose* DCT4(envfCompose___init__)(envfCompose* object, Arena* arena,
                                        const envfCompose_parameters& parameters) {
    set_coefficient_head(object, DCT4(envfCompose___del__), DCT4(envfCompose_at), arena);
    static_cast<envfCompose_parameters&>(*object) = parameters;
    return object;
}

Real DCT4(envlambda_at)(const CoefficientObject* object, std::int32_t i, std::int32_t /*j*/,
                        std::int32_t /*k*/) {
    const auto* const lambda = static_cast<const envlambda*>(object);
    const std::int32_t points = lambda->numerator / lambda->denominator;
    return (static_cast<Real>(i) + Real(0.5)) / static_cast<Real>(points);
}

Real DCT4(envfsplit_at)(const CoefficientObject* object, std::int32_t i, std::int32_t j,
                        std::int32_t k) {
    const CoefficientObject* const inner = static_cast<const envfsplit*>(object)->inner;
    return inner->at(inner, (Wrapping(i) * kPlanLanes + j).value(), k, 0);
}

Real DCT4(envfCompose_at)(const CoefficientObject* object, std::int32_t r, std::int32_t k,
                          std::int32_t /*unused*/) {
    const auto* const compose = static_cast<const envfCompose*>(object);
    const std::int32_t place = (Wrapping(compose->rowStride) * r + k).value();
    const std::int32_t row = place / 2 / compose->factor;
    const std::int32_t column = place / 2 % compose->factor;
    const std::int32_t odd_product =
        ((Wrapping(2) * row + 1) * (Wrapping(2) * column + 1) * 2).value();
    const Real x = static_cast<Real>(odd_product) / static_cast<Real>(compose->angleBase);
    return place % 2 != 0 ? EXPORTED(SinPi)(x) : EXPORTED(CosPi)(x);
}

// They own nothing.
void DCT4(envlambda___del__)(EnvObject* /*object*/) {}
void DCT4(envfsplit___del__)(EnvObject* /*object*/) {}
void DCT4(envfCompose___del__)(EnvObject* /*object*/) {}
}

Real owng_TFunc_IIIR_at(const CoefficientObject* object, std::int32_t i, std::int32_t j,
                        std::int32_t k) {
    return object->at(object, i, j, k);
}

}  // namespace dct4::QSVG_ELEMENT
