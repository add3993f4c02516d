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

Wide deviation(const Graph& graph, int inputs, int outputs, const Definition& wanted,
               const std::vector<Wide>& table) {
    Evaluation<ExactArithmetic> evaluation(graph);
    std::vector<Wide> source(static_cast<std::size_t>(inputs), Wide(0));
    source.insert(source.end(), table.begin(), table.end());
    Wide worst = 0;
    for (int column = 0; column < inputs; ++column) {
        // An output that no store writes must be caught, so it starts far from any entry.
        std::vector<Wide> destination(static_cast<std::size_t>(outputs), Wide(1000));
        source[static_cast<std::size_t>(column)] = 1;
        evaluation.run(source, 1, destination);
        source[static_cast<std::size_t>(column)] = 0;
        for (int row = 0; row < outputs; ++row) {
            const Wide error =
                abs(destination[static_cast<std::size_t>(row)] - wanted(row, column));
            if (error > worst) worst = error;
        }
    }
    return worst;
}

void prove(const std::string& kernel, const Graph& graph, int inputs, int outputs,
           const Definition& wanted, const std::vector<Wide>& table) {
    const Wide worst = deviation(graph, inputs, outputs, wanted, table);
    if (worst > Wide("1e-28"))
        throw std::runtime_error(kernel + ": the graph differs from the definition by " +
                                 worst.str(6, std::ios_base::scientific));
}

}  // namespace kernelgen
