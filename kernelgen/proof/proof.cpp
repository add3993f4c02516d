#include "kernelgen/proof/proof.hpp"

#include <numeric>
#include <stdexcept>
#include <vector>

#include "kernelgen/proof/evaluation.hpp"

namespace kernelgen {
namespace {

struct ExactArithmetic {
    using Real = Wide;
    static Wide constant(Type, const Exact& c) { return c.value(); }
    // Unit vectors keep most values of the early stages zero; skipping them halves the time.
    static Wide add(Type, const Wide& a, const Wide& b) {
        if (a.is_zero()) return b;
        if (b.is_zero()) return a;
        return a + b;
    }
    static Wide sub(Type, const Wide& a, const Wide& b) {
        if (b.is_zero()) return a;
        return a - b;
    }
    static Wide mul(Type, const Wide& a, const Wide& b) {
        if (a.is_zero() || b.is_zero()) return 0;
        return a * b;
    }
    static Wide round_to_binary32(const Wide& a) { return a; }
};

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

Places all_below(int count) {
    Places places(at(count));
    std::iota(places.begin(), places.end(), 0);
    return places;
}

std::size_t size_of(const Places& places) {
    return places.empty() ? 0 : at(places.back() + 1);
}

/** No entry of a matrix is near these: what a body must not read, and what it has not written. */
const Wide kForeign = Wide("1e40");
const Wide kUnwritten = Wide(1000);

void throw_if_above_limit(const std::string& kernel, const Deviation& worst) {
    if (worst.size <= Wide("1e-28")) return;
    const auto digits = [](const Wide& value, int number) {
        return value.str(number, std::ios_base::scientific);
    };
    throw std::runtime_error(kernel + ": the graph differs from the definition by " +
                             digits(worst.size, 6) + " in row " + std::to_string(worst.row) +
                             " (output), column " + std::to_string(worst.column) +
                             " (input), of real elements: wanted " + digits(worst.wanted, 32) +
                             ", got " + digits(worst.got, 32));
}

}  // namespace

Deviation deviation_between(const Graph& graph, const Places& inputs, const Places& outputs,
                            const Definition& wanted, const std::vector<Wide>& table) {
    Evaluation<ExactArithmetic> evaluation(graph);
    std::vector<Wide> source(size_of(inputs), kForeign);
    for (int place : inputs) source[at(place)] = 0;
    source.insert(source.end(), table.begin(), table.end());
    std::vector<Wide> destination(size_of(outputs), kUnwritten);
    Deviation worst;
    const auto compare = [&](const Wide& got, const Wide& expected, int row, int column) {
        const Wide size = abs(got - expected);
        if (size > worst.size) worst = {size, row, column, expected, got};
    };
    for (std::size_t column = 0; column < inputs.size(); ++column) {
        // An output that no store writes must be caught.
        for (int place : outputs) destination[at(place)] = kUnwritten;
        source[at(inputs[column])] = 1;
        evaluation.run(source, 1, destination);
        source[at(inputs[column])] = 0;
        for (std::size_t row = 0; row < outputs.size(); ++row) {
            const int r = static_cast<int>(row);
            const int c = static_cast<int>(column);
            compare(destination[at(outputs[row])], wanted(r, c), r, c);
        }
    }
    for (int place : outputs) destination[at(place)] = kUnwritten;
    // What is written between the outputs belongs to no row and no column.
    for (const Wide& value : destination) compare(value, kUnwritten, -1, -1);
    return worst;
}

Wide deviation(const Graph& graph, int inputs, int outputs, const Definition& wanted,
               const std::vector<Wide>& table) {
    return deviation_between(graph, all_below(inputs), all_below(outputs), wanted, table).size;
}

void prove_between(const std::string& kernel, const Graph& graph, const Places& inputs,
                   const Places& outputs, const Definition& wanted,
                   const std::vector<Wide>& table) {
    throw_if_above_limit(kernel, deviation_between(graph, inputs, outputs, wanted, table));
}

void prove(const std::string& kernel, const Graph& graph, int inputs, int outputs,
           const Definition& wanted, const std::vector<Wide>& table) {
    prove_between(kernel, graph, all_below(inputs), all_below(outputs), wanted, table);
}

}  // namespace kernelgen
