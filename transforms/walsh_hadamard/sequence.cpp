#include "transforms/walsh_hadamard/sequence.hpp"

#include <optional>
#include <stdexcept>
#include <vector>

#include "kernelgen/values/unfold.hpp"
#include "kernelgen/values/value_hash.hpp"

namespace walsh_hadamard {
namespace {

using kernelgen::Outputs;
using kernelgen::SignedValue;
using kernelgen::Type;
using kernelgen::ValueGraph;

/** An array, whose elements are empty before they are written. */
using Memory = std::vector<std::optional<SignedValue>>;

Memory inputs(ValueGraph& values, int length, Element element) {
    Memory x;
    for (int n = 0; n < length; ++n) x.emplace_back(values.input(scalar_type(element), n));
    return x;
}

Outputs outputs_of(const Memory& y) {
    Outputs outputs;
    for (std::size_t i = 0; i < y.size(); ++i) {
        if (y[i]) outputs[static_cast<int>(i)] = *y[i];
    }
    return outputs;
}

/** The passes of a kernel at work on parts of arrays. */
class Passes {
  public:
    Passes(ValueGraph& values, const Kernel& kernel)
        : values_(values),
          kernel_(kernel),
          x_(inputs(values, kernel.length(), kernel.element)),
          y_(x_.size()),
          work_(static_cast<std::size_t>(buffer_size(kernel.order, kernel.element) /
                                         bytes(kernel.element))) {}

    Outputs run() {
        if (kernel_.stages.size() == 1)
            run(0, x_, 0, y_, 0);
        else if (kernel_.stages.size() == 2)
            run_two();
        else
            run_three();
        return outputs_of(y_);
    }

  private:
    void run(std::size_t body, const Memory& source, int source_offset, Memory& destination,
             int destination_offset) {
        const auto read = [&](int element, Type) {
            const auto& value = source.at(static_cast<std::size_t>(source_offset + element));
            if (!value) throw std::logic_error("a pass reads what none has written");
            return *value;
        };
        const Outputs outputs = kernelgen::unfold(kernel_.bodies[body].graph, values_, read);
        for (const auto& [element, value] : outputs)
            destination.at(static_cast<std::size_t>(destination_offset + element)) = value;
    }

    void run_two() {
        const int row = 1 << kernel_.stages[0];
        for (int i = 0; i < kernel_.length(); i += row) run(0, x_, i, work_, i);
        for (int c = 0; c < row; c += kernel_.width()) run(1, work_, c, y_, c);
    }

    void run_three() {
        const int row = 1 << kernel_.stages[0];
        const int block = big_block(kernel_.order, kernel_.element);
        const int temporary = kernel_.length();
        const int width = kernel_.width();
        for (int b = 0; b < kernel_.length(); b += block) {
            for (int i = 0; i < block; i += row) run(0, x_, b + i, work_, temporary + i);
            for (int c = 0; c < row; c += width) run(1, work_, temporary + c, work_, b + c);
        }
        for (int c = 0; c < block; c += width) run(2, work_, c, y_, c);
    }

    ValueGraph& values_;
    const Kernel& kernel_;
    const Memory x_;
    Memory y_;
    Memory work_;
};

}  // namespace

Outputs sums_of_reference(ValueGraph& values, int order, Element element) {
    const int N = 1 << order;
    std::vector<SignedValue> x;
    for (int n = 0; n < N; ++n) x.push_back(values.input(scalar_type(element), n));
    for (int h = 1; h < N; h *= 2) {
        for (int j = 0; j < N; ++j) {
            if ((j & h) != 0) continue;
            SignedValue& low = x[static_cast<std::size_t>(j)];
            SignedValue& high = x[static_cast<std::size_t>(j + h)];
            const SignedValue a = low;
            const SignedValue b = high;
            low = values.add(a, b);
            high = values.add(a, -b);
        }
    }
    Outputs outputs;
    for (int n = 0; n < N; ++n)
        outputs[n] = values.mul(x[static_cast<std::size_t>(n)], values.scale(scalar_type(element)));
    return outputs;
}

Outputs sums_of_kernel(ValueGraph& values, const Kernel& kernel) {
    return Passes(values, kernel).run();
}

std::string hash_of_values(const Kernel& kernel) {
    ValueGraph values;
    const Outputs outputs = sums_of_kernel(values, kernel);
    return kernelgen::hash_of_values(values, outputs);
}

}  // namespace walsh_hadamard
