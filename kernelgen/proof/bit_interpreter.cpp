#include "kernelgen/proof/bit_interpreter.hpp"

#include "kernelgen/proof/evaluation.hpp"

namespace kernelgen {
namespace {

struct IeeeArithmetic {
    using Real = double;
    static double constant(Type type, const Exact& c) {
        return is_binary32(type) ? static_cast<double>(c.to_binary32()) : c.to_binary64();
    }
    static double add(Type type, double a, double b) {
        return is_binary32(type) ? static_cast<float>(a) + static_cast<float>(b) : a + b;
    }
    static double sub(Type type, double a, double b) {
        return is_binary32(type) ? static_cast<float>(a) - static_cast<float>(b) : a - b;
    }
    static double mul(Type type, double a, double b) {
        return is_binary32(type) ? static_cast<float>(a) * static_cast<float>(b) : a * b;
    }
    static double round_to_binary32(double a) { return static_cast<float>(a); }
};

}  // namespace

std::vector<double> interpret(const Graph& graph, const std::vector<double>& source, double scale,
                              int outputs) {
    std::vector<double> destination(static_cast<std::size_t>(outputs), 0.0);
    Evaluation<IeeeArithmetic>(graph).run(source, scale, destination);
    return destination;
}

}  // namespace kernelgen
