#include "tests/kernelgen/support/unfolded_bits.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "kernelgen/proof/bit_interpreter.hpp"
#include "kernelgen/values/unfold.hpp"
#include "kernelgen/values/value_interpreter.hpp"

namespace kernelgen_test {
namespace {

using kernelgen::Type;

constexpr const char* kMixtures[] = {"random", "zero", "denormal", "large", "infinite"};

/** A number of one kind. */
template <class Real>
Real number(const std::string& kind, std::mt19937& random) {
    using Limits = std::numeric_limits<Real>;
    const Real sign = random() % 2 == 0 ? 1 : -1;
    if (kind == "zero") return sign * 0;
    if (kind == "denormal") return sign * Limits::denorm_min() * static_cast<Real>(random() % 1000);
    if (kind == "large") return sign * Limits::max();
    if (kind == "infinite") return sign * Limits::infinity();
    return std::uniform_real_distribution<Real>(-1, 1)(random);
}

/** Numbers of one kind, a third of them random ones. */
std::vector<double> mixture(const std::string& kind, int length, Type precision) {
    std::mt19937 random(static_cast<std::uint32_t>(length));
    std::vector<double> numbers;
    for (int i = 0; i < length; ++i) {
        const std::string of = random() % 3 == 0 ? "random" : kind;
        numbers.push_back(precision == Type::Binary32 ? number<float>(of, random)
                                                      : number<double>(of, random));
    }
    return numbers;
}

/** Elements of the array that nodes for which `touches` holds touch. */
int length_of(const kernelgen::Graph& graph, bool (*touches)(kernelgen::Op)) {
    int length = 0;
    for (kernelgen::NodeId id : graph.live()) {
        const kernelgen::Node& n = graph.node(id);
        if (touches(n.op)) length = std::max(length, kernelgen::touched(n).past);
    }
    return length;
}

}  // namespace

void expect_unfolded_bits(const kernelgen::Graph& graph, Type precision) {
    const int inputs = length_of(graph, kernelgen::is_load);
    const int outputs = length_of(graph, kernelgen::is_store);
    kernelgen::ValueGraph values;
    const kernelgen::Outputs unfolded = kernelgen::unfold(graph, values);
    const double scales[] = {1, precision == Type::Binary32 ? -0x1.99999ap-4 : -0.1};
    for (const char* kind : kMixtures) {
        const std::vector<double> x = mixture(kind, inputs, precision);
        for (double scale : scales) {
            const auto wanted = kernelgen::interpret(graph, x, scale, outputs);
            const auto got = kernelgen::interpret(values, unfolded, x, scale, outputs);
            for (std::size_t i = 0; i < wanted.size(); ++i) {
                if (std::isnan(got[i]) && std::isnan(wanted[i])) continue;
                EXPECT_EQ(std::bit_cast<std::uint64_t>(got[i]),
                          std::bit_cast<std::uint64_t>(wanted[i]))
                    << kind << " inputs, scale " << scale << ", output " << i << ": " << got[i]
                    << ", wanted " << wanted[i];
            }
        }
    }
}

}  // namespace kernelgen_test
