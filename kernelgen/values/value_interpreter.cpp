#include "kernelgen/values/value_interpreter.hpp"

#include "kernelgen/proof/ieee_arithmetic.hpp"

namespace kernelgen {

std::vector<double> interpret(const ValueGraph& values, const Outputs& outputs,
                              const std::vector<double>& source, double scale, int length) {
    std::vector<double> results(values.size());
    const auto result = [&](SignedValue value) {
        const double size = results[static_cast<std::size_t>(value.id)];
        return value.negative ? -size : size;
    };
    const auto evaluate = [&](const ValueNode& n) {
        switch (n.op) {
            case ValueOp::Input:
                return source.at(static_cast<std::size_t>(n.place));
            case ValueOp::Scale:
                return scale;
            case ValueOp::Constant:
                return constant_of(n);
            case ValueOp::Add:
                return IeeeArithmetic::add(n.precision, result(n.a), result(n.b));
            case ValueOp::Mul:
                return IeeeArithmetic::mul(n.precision, result(n.a), result(n.b));
            case ValueOp::Widen:
                return result(n.a);
            case ValueOp::Round:
                return IeeeArithmetic::round_to_binary32(result(n.a));
        }
        return 0.0;
    };
    for (ValueId id : values.live(outputs))
        results[static_cast<std::size_t>(id)] = evaluate(values.node(id));
    std::vector<double> destination(static_cast<std::size_t>(length), 0.0);
    for (const auto& [element, value] : outputs)
        destination.at(static_cast<std::size_t>(element)) = result(value);
    return destination;
}

}  // namespace kernelgen
