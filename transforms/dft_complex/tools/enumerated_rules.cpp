#include "transforms/dft_complex/tools/enumerated_rules.hpp"

#include <algorithm>
#include <numeric>
#include <set>

#include "transforms/residues/residues.hpp"

namespace dft_complex {
namespace {

using residues::is_prime;

bool has_row(int length) {
    return std::binary_search(lengths().begin(), lengths().end(), length);
}

/** Rules, each formula once. */
class Rules {
  public:
    void add(const Rule& rule) {
        if (formulas_.insert(formula(rule)).second) rules_.push_back(rule);
    }
    const std::vector<Rule>& all() const { return rules_; }

  private:
    std::set<std::string> formulas_;
    std::vector<Rule> rules_;
};

std::vector<Rule> rules_of_part(int length, Element element) {
    Rules parts;
    if (has_row(length)) parts.add(row_of(length, element).rule);
    // A prime stands as one transform beside another factor, whatever it does alone.
    if (is_prime(length) || length == 4 || length == 8) parts.add(small(length));
    if (!has_row(length) && !is_prime(length)) {
        for (const Rule& rule : enumerated_rules(length, element)) parts.add(rule);
    }
    return parts.all();
}

void add_products(Rules& rules, int a, int b, Element element) {
    for (const Rule& first : rules_of_part(a, element)) {
        for (const Rule& second : rules_of_part(b, element)) {
            if (std::gcd(a, b) == 1) rules.add(P(first, second));
            rules.add(T(first, second, Residues::FromZero));
            if (b % 2 != 0) rules.add(T(first, second, Residues::AroundZero));
        }
    }
}

}  // namespace

std::vector<Rule> enumerated_rules(int length, Element element) {
    Rules rules;
    if (is_prime(length)) {
        rules.add(small(length));
        for (const Rule& inner : rules_of_part(length - 1, element)) rules.add(R(inner));
    }
    for (int a = 2; a <= length / 2; ++a) {
        if (length % a == 0) add_products(rules, a, length / a, element);
    }
    if (length >= 8 && (length & (length - 1)) == 0) rules.add(S(length));
    return rules.all();
}

}  // namespace dft_complex
