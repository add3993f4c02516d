#include "transforms/dft_complex/decompositions/decompositions.hpp"

namespace dft_complex {

Signal dft(Network& net, const Rule& rule, const Signal& x) {
    switch (rule.form) {
        case Rule::Form::Small:
            return net.transform(rule.length, x, rule.small_form);
        case Rule::Form::PrimeFactor:
            return prime_factor(net, rule.parts[0], rule.parts[1], rule.parts.back(), x);
        case Rule::Form::SplitRadix:
            return split_radix(net, x);
        case Rule::Form::CooleyTukey:
            return cooley_tukey(net, rule.parts[0], rule.parts[1], rule.residues, x);
        case Rule::Form::Rader:
            return rader(net, rule.parts[0], x);
        case Rule::Form::Chirp:
            return chirp(net, rule.parts[0], x);
    }
    return {};
}

}  // namespace dft_complex
