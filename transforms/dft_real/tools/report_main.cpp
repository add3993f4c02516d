/**
 * @file
 * @brief Compares what the real networks cost with their table: report_real_networks >FILE
 *
 * Markdown with a row for each length and the forward, inverse and Hartley network in it.
 */

#include <cstdio>
#include <exception>
#include <set>
#include <stdexcept>
#include <string>

#include "transforms/dft_real/kernels/real_dft_kernel.hpp"
#include "transforms/hartley/hartley_kernel.hpp"

namespace {

using namespace dft_real;

constexpr const char* kHead =
    R"(# Operations of the real networks

Made by `report_real_networks`; `scripts/test` compares this file with what it prints.

Sums (subtractions from 0 among them) and products by constants of each network, without the scale
factor and the doubling of an inverse transform's bins. Where a network takes less than the table of
orders allows, the difference stands behind it with the reason:

- **s**: fewer values reach the outputs with the opposite sign, so that fewer are subtracted from 0.
- **h**: in the convolution of a prime p with 4 | p - 1 the odd bins of its spectrum belong to values
  that change their sign half-way; half of the rows are formed only. (13, 29, 37, 41, 53, 61, and 59,
  whose inner 58 holds 29.)
- **c**: constants that meet are joined: a product by sin(2 pi / 3) that stands before or behind the
  products of a convolution, inverse 19 and 31.
- **r**: the complex transform of 16 points by split radix takes 24 products.

)";

constexpr const char* kWideSums = R"(
## Sums in the precision of their row

In a three-point butterfly whose operands are widened for its row a - b/2 already, a binary32 kernel
forms the sum a + b that goes on to the product by sin(2 pi / 3), and to nothing else, in binary64:
it is not rounded before the product. Such butterflies follow one another where an inner transform
of a convolution, or the transform of 27 points, holds two stages of three points.

| network | length: sums |
|---|---|
)";

kernelgen::Graph graph_of(int length, Kind kind) {
    switch (kind) {
        case Kind::Forward:
            return dft_kernel(length, Direction::Forward, Layout::CCS, Element::Real32).graph;
        case Kind::Inverse:
            return dft_kernel(length, Direction::Inverse, Layout::CCS, Element::Real32).graph;
        case Kind::Hartley:
            break;
    }
    return hartley::hartley_kernel(length, Element::Real32).graph;
}

bool holds_one_of(int length, const std::set<int>& primes) {
    for (int prime : primes) {
        if (length % prime == 0) return true;
    }
    return false;
}

/** The reasons told in the head that apply to this length. */
std::string reasons(int length, Kind kind, const Cost& less) {
    std::string text;
    if (holds_one_of(length, {13, 29, 37, 41, 53, 59, 61})) text += "h";
    if (less.products > 0 && holds_one_of(length, {19, 31, 37})) text += "c";
    if (length == 48 || length == 64) text += kind == Kind::Forward ? "" : "r";
    if (text.empty() && kind == Kind::Forward && less.products == 0) text = "s";
    return text;
}

std::string cell(int length, Kind kind) {
    const Cost ours = network_cost(graph_of(length, kind));
    const Cost table = row_of(length).cost_of(kind);
    const Cost less{table.sums - ours.sums, table.products - ours.products};
    std::string text = std::to_string(ours.sums) + " + " + std::to_string(ours.products);
    if (less.sums == 0 && less.products == 0) return text;
    const std::string why = reasons(length, kind, less);
    if (less.sums < 0 || less.products < 0 || why.empty())
        throw std::logic_error("a difference without a reason at length " + std::to_string(length));
    return text + " (" + std::to_string(-less.sums) + ", " + std::to_string(-less.products) +
           ") **" + why + "**";
}

std::string wide_sums_by_length(Kind kind) {
    std::string text;
    for (int n : lengths()) {
        const int sums = wide_sums(graph_of(n, kind));
        if (sums > 0)
            text += (text.empty() ? "" : ", ") + std::to_string(n) + ": " + std::to_string(sums);
    }
    return text;
}

void run() {
    std::printf("%s| N | forward | inverse | Hartley |\n|---|---|---|---|\n", kHead);
    for (int n : lengths())
        std::printf("| %d | %s | %s | %s |\n", n, cell(n, Kind::Forward).c_str(),
                    cell(n, Kind::Inverse).c_str(), cell(n, Kind::Hartley).c_str());
    std::printf("%s", kWideSums);
    std::printf("| forward | %s |\n", wide_sums_by_length(Kind::Forward).c_str());
    std::printf("| inverse | %s |\n", wide_sums_by_length(Kind::Inverse).c_str());
    std::printf("| Hartley | %s |\n", wide_sums_by_length(Kind::Hartley).c_str());
}

}  // namespace

int main(int, char** argv) {
    try {
        run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}
