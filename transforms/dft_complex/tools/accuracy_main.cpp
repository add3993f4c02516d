/**
 * @file
 * @brief Relative errors by the bit interpreter: report_dft_accuracy
 *
 * For each length that holds Rader's form of a prime from 17 on beside another factor, and for the
 * primes whose convolutions hold a second one: the error of the kernel as it ships, and of the
 * other forms and orders of factors that its rule leaves open, in units of eps sqrt(log2 N), eps =
 * 2^-23 in single and 2^-52 in double precision.
 */

#include <cmath>
#include <complex>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "kernelgen/graph/counts.hpp"
#include "kernelgen/proof/bit_interpreter.hpp"
#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/kernels/complex_kernel.hpp"
#include "transforms/dft_complex/layouts/element_layout.hpp"

namespace {

using namespace dft_complex;

constexpr int kSignals = 400;

double relative_error(const Graph& graph, int length, Element element) {
    std::mt19937 random(1);
    const auto sample = [&]() -> double {
        const double high = random() * 0x1p-31 - 1;
        return element == Element::Complex32 ? static_cast<float>(high) : high + random() * 0x1p-63;
    };
    long double sum = 0;
    for (int signal = 0; signal < kSignals; ++signal) {
        std::vector<double> x(static_cast<std::size_t>(2 * length));
        for (double& value : x) value = sample();
        const std::vector<double> y = kernelgen::interpret(graph, x, 1.0, 2 * length);
        long double error = 0;
        long double size = 0;
        for (int k = 0; k < length; ++k) {
            std::complex<long double> exact;
            for (int n = 0; n < length; ++n) {
                const long double turn = static_cast<long double>(n * k % length) / length;
                const auto i = static_cast<std::size_t>(2 * n);
                exact += std::complex<long double>(x[i], x[i + 1]) *
                         std::polar(1.0L, -2 * std::acos(-1.0L) * turn);
            }
            const auto i = static_cast<std::size_t>(2 * k);
            error += std::norm(exact - std::complex<long double>(y[i], y[i + 1]));
            size += std::norm(exact);
        }
        sum += error / size;
    }
    return std::sqrt(static_cast<double>(sum / kSignals));
}

void report(const char* form, const Graph& graph, int length, Element element) {
    const double eps = element == Element::Complex32 ? 0x1p-23 : 0x1p-52;
    const double unit = eps * std::sqrt(std::log2(length));
    const kernelgen::Counts counts = kernelgen::count(graph, element == Element::Complex32);
    std::printf("%s  %3d  %-38s %.3f  %d + %d\n", suffix(element).c_str(), length, form,
                relative_error(graph, length, element) / unit, counts.sums + counts.differences,
                counts.products);
    std::fflush(stdout);
}

void report_shipped(int length, Element element) {
    const Kernel kernel = proven_kernel(length, Direction::Forward, element);
    report("as it ships", kernel.graph, length, element);
}

void report_in_lanes(const char* form, const Rule& rule) {
    Network network;
    const Signal y = dft(network, rule, network.input(rule.length));
    const PackedKernel layout =
        lay_out_packed(network, y, Direction::Forward, lane_policy(rule.length), {});
    report(form, layout.graph, rule.length, Element::Complex32);
}

void report_by_elements(const Rule& rule) {
    Network network;
    const Signal y = dft(network, rule, network.input(rule.length));
    const Graph graph = lay_out_by_elements(network, y, Direction::Forward);
    const std::string form = rule.form == Rule::Form::Small ? "by its pairs" : to_string(rule);
    report(form.c_str(), graph, rule.length, Element::Complex64);
}

void report_single_precision() {
    const Rule n2 = small(2), n3 = small(3), n4 = small(4), n5 = small(5), n7 = small(7),
               n8 = small(8), n11 = small(11), n9 = T(n3, n3);
    struct Inner {
        const char* name;
        Rule rule;
    };
    const std::vector<Inner> of_16 = {
        {"T(4,4)", T(n4, n4)}, {"T(2,8)", T(n2, n8)}, {"T(8,2)", T(n8, n2)}};
    const std::vector<Inner> of_18 = {{"T(6,3)", T(P(n3, n2), n3)},
                                      {"P(2,9)", P(n2, n9)},
                                      {"P(9,2)", P(n9, n2)},
                                      {"T(3,6)", T(n3, P(n3, n2))}};
    const std::vector<Inner> of_22 = {{"P(2,11)", P(n2, n11)}, {"P(11,2)", P(n11, n2)}};
    const std::vector<Inner> of_28 = {{"P(4,7)", P(n4, n7)}, {"P(7,4)", P(n7, n4)}};
    const std::vector<Inner> of_30 = {{"5, 2, 3", P(P(n5, n2), n3)},
                                      {"2, 3, 5", P(P(n2, n3), n5)},
                                      {"3, 5, 2", P(P(n3, n5), n2)}};
    const auto spread = [](const Inner& inner) {
        return std::string("spread over the lanes, ") + inner.name;
    };
    report_shipped(34, Element::Complex32);
    for (const Inner& i : of_16) report_in_lanes(spread(i).c_str(), P(n2, R(i.rule)));
    report_shipped(38, Element::Complex32);
    for (const Inner& i : of_18) report_in_lanes(spread(i).c_str(), P(n2, R(i.rule)));
    report_shipped(46, Element::Complex32);
    for (const Inner& i : of_22) report_in_lanes(spread(i).c_str(), T(R(i.rule), n2));
    report_shipped(51, Element::Complex32);
    for (const Inner& i : of_16) report_in_lanes(spread(i).c_str(), P(R(i.rule), n3));
    report_shipped(53, Element::Complex32);
    report_in_lanes("R(52), 52 = P(13,4)", R(P(small(13), n4)));
    report_shipped(57, Element::Complex32);
    for (const Inner& i : of_18) report_in_lanes(spread(i).c_str(), P(R(i.rule), n3));
    report_shipped(58, Element::Complex32);
    for (const Inner& i : of_28) report_in_lanes(spread(i).c_str(), P(n2, R(i.rule)));
    report_shipped(62, Element::Complex32);
    for (const Inner& i : of_30) report_in_lanes(spread(i).c_str(), T(R(i.rule), n2));
}

void report_double_precision() {
    const Rule n2 = small(2), n3 = small(3);
    for (int prime : {17, 19, 29, 31}) {
        report_shipped(2 * prime, Element::Complex64);
        report_by_elements(P(n2, small(prime)));
        report_by_elements(P(small(prime), n2));
    }
    report_shipped(46, Element::Complex64);
    report_by_elements(P(n2, small(23)));
    for (int prime : {17, 19}) {
        report_shipped(3 * prime, Element::Complex64);
        report_by_elements(P(n3, small(prime)));
    }
    for (int prime : {53, 59}) {
        report_shipped(prime, Element::Complex64);
        report_by_elements(small(prime, SmallForm::Pairs));
    }
}

}  // namespace

int main() {
    std::printf("type   N  form                                   error  sums + products\n");
    report_single_precision();
    report_double_precision();
    return 0;
}
