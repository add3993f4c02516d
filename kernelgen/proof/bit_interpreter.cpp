#include "kernelgen/proof/bit_interpreter.hpp"

#include "kernelgen/proof/evaluation.hpp"
#include "kernelgen/proof/ieee_arithmetic.hpp"

namespace kernelgen {

std::vector<double> interpret(const Graph& graph, const std::vector<double>& source, double scale,
                              int outputs) {
    std::vector<double> destination(static_cast<std::size_t>(outputs), 0.0);
    Evaluation<IeeeArithmetic>(graph).run(source, scale, destination);
    return destination;
}

}  // namespace kernelgen
