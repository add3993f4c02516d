#include "kernelgen/proof/proof.hpp"

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

}  // namespace

Deviation largest_deviation(const Graph& graph, int inputs, int outputs, const Definition& wanted,
                            const std::vector<Wide>& table) {
    Evaluation<ExactArithmetic> evaluation(graph);
    std::vector<Wide> source(static_cast<std::size_t>(inputs), Wide(0));
    source.insert(source.end(), table.begin(), table.end());
    Deviation worst;
    for (int column = 0; column < inputs; ++column) {
        // An output that no store writes must be caught, so it starts far from any entry.
        std::vector<Wide> destination(static_cast<std::size_t>(outputs), Wide(1000));
        source[static_cast<std::size_t>(column)] = 1;
        evaluation.run(source, 1, destination);
        source[static_cast<std::size_t>(column)] = 0;
        for (int row = 0; row < outputs; ++row) {
            const Wide& got = destination[static_cast<std::size_t>(row)];
            const Wide entry = wanted(row, column);
            const Wide size = abs(got - entry);
            if (size > worst.size) worst = {size, row, column, entry, got};
        }
    }
    return worst;
}

Wide deviation(const Graph& graph, int inputs, int outputs, const Definition& wanted,
               const std::vector<Wide>& table) {
    return largest_deviation(graph, inputs, outputs, wanted, table).size;
}

void prove(const std::string& kernel, const Graph& graph, int inputs, int outputs,
           const Definition& wanted, const std::vector<Wide>& table) {
    const Deviation worst = largest_deviation(graph, inputs, outputs, wanted, table);
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

}  // namespace kernelgen
