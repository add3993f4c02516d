#include "support/definitions.hpp"

#include <bit>
#include <cmath>
#include <numbers>

#include "support/real_reference.hpp"
#include "support/reference_dft.hpp"

namespace qsvgen_test {
namespace {

Numbers complex_dft(const Numbers& source, Direction direction) {
    std::vector<Wide> x;
    for (std::size_t i = 0; i < source.size(); i += 2) x.push_back({source[i], source[i + 1]});
    Numbers result;
    for (const Wide& value : reference_dft(x, direction)) {
        result.push_back(value.re);
        result.push_back(value.im);
    }
    return result;
}

Numbers walsh_hadamard(const Numbers& x) {
    Numbers result;
    for (std::size_t k = 0; k < x.size(); ++k) {
        long double sum = 0;
        for (std::size_t n = 0; n < x.size(); ++n)
            sum += std::popcount(k & n) % 2 == 0 ? x[n] : -x[n];
        result.push_back(sum);
    }
    return result;
}

Numbers dct4(const Numbers& x) {
    const auto N = static_cast<long double>(x.size());
    Numbers result;
    for (std::size_t k = 0; k < x.size(); ++k) {
        long double sum = 0;
        for (std::size_t n = 0; n < x.size(); ++n) {
            const long double turns = (n + 0.5L) * (k + 0.5L);
            sum += x[n] * std::cos(std::numbers::pi_v<long double> / N * turns);
        }
        result.push_back(sum);
    }
    return result;
}

void add_complex(std::vector<ToolCase>& cases, int length, bool is_double) {
    for (const bool inverse : {false, true}) {
        const auto direction = inverse ? Direction::Inverse : Direction::Forward;
        Words words = {"dft-complex", std::to_string(length), is_double ? "64fc" : "32fc"};
        if (inverse) words.emplace_back("--inverse");
        cases.push_back({words, true, length, length, is_double, !inverse, inverse,
                         [=](const Numbers& x) { return complex_dft(x, direction); }});
    }
}

/** A transform of a real signal without directions. */
void add_own_inverse(std::vector<ToolCase>& cases, const std::string& family, int length,
                     bool is_double, const std::function<Numbers(const Numbers&)>& definition) {
    cases.push_back({{family, std::to_string(length), is_double ? "64f" : "32f"},
                     false,
                     length,
                     length,
                     is_double,
                     false,
                     false,
                     definition});
}

void add_real(std::vector<ToolCase>& cases, int length, bool is_double) {
    const std::string number = std::to_string(length);
    const std::string type = is_double ? "64f" : "32f";
    for (const Layout layout : kRealLayouts) {
        const std::string name = layout == Layout::Ccs    ? "ccs"
                                 : layout == Layout::Pack ? "pack"
                                                          : "perm";
        for (const bool inverse : {false, true}) {
            Words words = {"dft-real", number, type, "--layout", name};
            if (inverse) words.emplace_back("--inverse");
            const auto direction = inverse ? Direction::Inverse : Direction::Forward;
            const auto lines = inverse ? static_cast<int>(spectrum_size(layout, length)) : length;
            cases.push_back(
                {words, false, length, lines, is_double, !inverse, inverse,
                 [=](const Numbers& x) { return RealReference(direction, layout, length)(x); }});
        }
    }
    add_own_inverse(cases, "hartley", length, is_double, [=](const Numbers& x) {
        return RealReference(Direction::Both, Layout::Natural, length)(x);
    });
}

}  // namespace

std::vector<ToolCase> all_tool_cases() {
    std::vector<ToolCase> cases;
    for (const bool is_double : {false, true}) {
        for (const int length : {2, 15, 16, 47, 64}) {
            add_complex(cases, length, is_double);
            add_real(cases, length, is_double);
        }
        for (const int length : {2, 64, 512, 4096}) {
            add_own_inverse(cases, "walsh-hadamard", length, is_double, walsh_hadamard);
        }
        for (const int length : {2, 32, 64, 1024}) {
            add_own_inverse(cases, "dct4", length, is_double, dct4);
        }
    }
    return cases;
}

}  // namespace qsvgen_test
