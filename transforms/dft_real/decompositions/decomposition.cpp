#include "transforms/dft_real/decompositions/decomposition.hpp"

namespace dft_real {

Decomposition decomposed_rader(const Order& inner, ElevenPoints eleven) {
    const int L = length_of(inner);
    const Order out = row_of(L / 2).factors_of(Kind::Inverse);
    return {Method::Rader,
            false,
            {L + 1},
            {decomposed_real_dft(inner), decomposed_inverse(out, eleven)}};
}

Decomposition decomposed_rader_inverse(const Order& inner) {
    const int L = length_of(inner);
    const Order in = row_of(L / 2).factors_of(Kind::Forward);
    return {Method::Rader,
            true,
            {L + 1},
            {decomposed_real_dft(in), decomposed_inverse(inner, kElevenPointsBehindConvolutions)}};
}

Decomposition decomposed_real_dft(const Order& order) {
    Decomposition whole{method_of_real_dft(order), false, order};
    switch (whole.method) {
        case Method::BetweenTwos:
            whole.parts = {decomposed_real_dft({order.begin() + 1, order.end() - 1})};
            break;
        case Method::Coprime: {
            const CoprimeParts parts = coprime_parts(order);
            whole.parts = {decomposed_real_dft(parts.first), decomposed_real_dft(parts.second)};
            break;
        }
        case Method::Rader:
            return decomposed_rader(row_of(order.front()).order_of(Kind::Forward));
        case Method::PowerOfTwo:
        case Method::PowerOfOddPrime:
        case Method::Dense:
            break;
    }
    return whole;
}

Decomposition decomposed_inverse(const Order& order, ElevenPoints eleven) {
    Decomposition whole{method_of_inverse(order, eleven), true, order};
    if (whole.method == Method::Rader)
        return decomposed_rader_inverse(row_of(order.front()).order_of(Kind::Inverse));
    if (whole.method == Method::Coprime) {
        const CoprimeParts parts = coprime_parts(order);
        whole.parts = {decomposed_inverse(parts.first, eleven),
                       decomposed_inverse(parts.second, eleven)};
    }
    return whole;
}

Decomposition decomposition(int length, Kind kind) {
    const Order factors = row_of(length).factors_of(kind);
    return kind == Kind::Forward ? decomposed_real_dft(factors) : decomposed_inverse(factors);
}

}  // namespace dft_real
