#include "transforms/dft_complex/rules/rules.hpp"

#include <stdexcept>

namespace dft_complex {

Rule small(int length, SmallForm form) {
    return {Rule::Form::Small, length, {}, form};
}
Rule P(const Rule& a, const Rule& b) {
    return {Rule::Form::PrimeFactor, a.length * b.length, {a, b}};
}
Rule P(const Rule& a, const Rule& b, const Rule& first_of_b) {
    return {Rule::Form::PrimeFactor, a.length * b.length, {a, b, first_of_b}};
}
Rule S(int length) {
    return {Rule::Form::SplitRadix, length, {}};
}
Rule T(const Rule& a, const Rule& b, Residues residues) {
    return {Rule::Form::CooleyTukey, a.length * b.length, {a, b}, SmallForm::Usual, residues};
}
Rule R(const Rule& inner) {
    return {Rule::Form::Rader, inner.length + 1, {inner}};
}
Rule C(int p, const Rule& inner) {
    return {Rule::Form::Chirp, p, {inner}};
}

Rule reversed(const Rule& rule) {
    if (rule.parts.size() > 2)
        throw std::invalid_argument("the rule " + formula(rule) +
                                    " has a third part, so it cannot run in opposite order");
    switch (rule.form) {
        case Rule::Form::PrimeFactor:
            return P(reversed(rule.parts[1]), reversed(rule.parts[0]));
        case Rule::Form::CooleyTukey:
            return T(reversed(rule.parts[1]), reversed(rule.parts[0]), rule.residues);
        default:
            return rule;
    }
}

std::string to_string(const Rule& rule) {
    const auto part = [&](std::size_t i) { return std::to_string(rule.parts[i].length); };
    switch (rule.form) {
        case Rule::Form::Small:
            if (rule.length >= 13) return "R(" + std::to_string(rule.length - 1) + ")";
            return rule.length == 7 || rule.length == 11 ? "D" : "leaf";
        case Rule::Form::SplitRadix:
            return "S";
        case Rule::Form::PrimeFactor:
            return "P(" + part(0) + "," + part(1) + ")";
        case Rule::Form::CooleyTukey:
            return "T(" + part(0) + "," + part(1) + ")";
        case Rule::Form::Rader:
            return "R(" + part(0) + ")";
        case Rule::Form::Chirp:
            return "C(" + part(0) + ")";
    }
    return {};
}

std::string formula(const Rule& rule) {
    std::string parts;
    for (const Rule& part : rule.parts) parts += (parts.empty() ? "" : ",") + formula(part);
    std::string length = std::to_string(rule.length);
    switch (rule.form) {
        case Rule::Form::Small:
            switch (rule.small_form) {
                case SmallForm::Usual:
                    return length;
                case SmallForm::HalfSumOfTwo:
                    return length + "h";
                case SmallForm::RaderOfSeven:
                    return length + "r";
                case SmallForm::Pairs:
                    return length + "p";
            }
            return length;
        case Rule::Form::SplitRadix:
            return "S" + length;
        case Rule::Form::PrimeFactor:
            return "P(" + parts + ")";
        case Rule::Form::CooleyTukey:
            return "T(" + parts + (rule.residues == Residues::FromZero ? ")0" : ")");
        case Rule::Form::Rader:
            return "R(" + parts + ")";
        case Rule::Form::Chirp:
            return "C" + length + "(" + parts + ")";
    }
    return {};
}

}  // namespace dft_complex
