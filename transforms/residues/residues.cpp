#include "transforms/residues/residues.hpp"

#include <stdexcept>
#include <vector>

namespace residues {

using kernelgen::Exact;
using kernelgen::ExactComplex;

bool is_prime(int n) {
    for (int d = 2; d * d <= n; ++d) {
        if (n % d == 0) return false;
    }
    return n > 1;
}

int power_modulo(int base, int exponent, int p) {
    int power = 1;
    for (int i = 0; i < exponent; ++i) power = power * base % p;
    return power;
}

int primitive_root(int p) {
    for (int g = 2;; ++g) {
        int order = 1;
        for (int power = g; power != 1; power = power * g % p) ++order;
        if (order == p - 1) return g;
    }
}

int from_remainders(int r, int a, int s, int b) {
    for (int k = r; k < a * b; k += a) {
        if (k % b == s) return k;
    }
    throw std::invalid_argument("lengths that are not coprime");
}

ExactComplex rader_spectrum(int p, int g, int k) {
    const int L = p - 1;
    std::vector<Exact> re;
    std::vector<Exact> im;
    for (int j = 0; j < L; ++j) {
        const long turns = power_modulo(g, (L - j) % L, p) * static_cast<long>(L) +
                           static_cast<long>(j) * k * p;  // in units of 1 / (p L)
        const ExactComplex root = ExactComplex::forward_root(turns, static_cast<long>(p) * L);
        re.push_back(root.re);
        im.push_back(root.im);
    }
    const Exact share = Exact::rational(1, L);
    return {Exact::product({share, Exact::sum(re)}), Exact::product({share, Exact::sum(im)})};
}

}  // namespace residues
