#include "transforms/walsh_hadamard/sequence.hpp"

#include <algorithm>
#include <stdexcept>

#include "kernelgen/proof/evaluation.hpp"

namespace walsh_hadamard {
namespace {

using kernelgen::Type;

using Memory = std::vector<Expression>;

struct ExpressionArithmetic {
    using Real = Expression;
    static Expression constant(Type, const kernelgen::Exact&) {
        throw std::logic_error("no body holds a constant");
    }
    static Expression add(Type, const Expression& a, const Expression& b) {
        return Expression::sum(a, b);
    }
    static Expression sub(Type, const Expression& a, const Expression& b) {
        return Expression::difference(a, b);
    }
    static Expression mul(Type, const Expression& a, const Expression& b) {
        return Expression::product(a, b);
    }
    static Expression round_to_binary32(const Expression&) {
        throw std::logic_error("no body widens a value");
    }
};

/** A body at work on parts of two arrays. */
class Worker {
  public:
    explicit Worker(const Body& body) : evaluation_(body.graph), span_(span_of(body.graph)) {}

    void run(const Memory& source, int source_offset, Memory& destination, int destination_offset) {
        const Memory x = part(source, source_offset);
        Memory y = part(destination, destination_offset);
        evaluation_.run(x, Expression::scale(), y);
        std::copy(y.begin(), y.end(), destination.begin() + destination_offset);
    }

  private:
    static int span_of(const kernelgen::Graph& graph) {
        int span = 0;
        for (kernelgen::NodeId id : graph.live()) {
            const kernelgen::Node& n = graph.node(id);
            span = std::max(span, n.offset + kernelgen::lane_count(n.type));
        }
        return span;
    }

    Memory part(const Memory& all, int offset) const {
        if (offset < 0 || static_cast<std::size_t>(offset + span_) > all.size())
            throw std::out_of_range("a pass leaves its array");
        return {all.begin() + offset, all.begin() + offset + span_};
    }

    kernelgen::Evaluation<ExpressionArithmetic> evaluation_;
    int span_;
};

void run_two_passes(const Kernel& kernel, const Memory& x, Memory& y, Memory& work) {
    const int row = 1 << kernel.stages[0];
    Worker rows(kernel.bodies[0]);
    Worker columns(kernel.bodies[1]);
    for (int i = 0; i < kernel.length(); i += row) rows.run(x, i, work, i);
    for (int c = 0; c < row; c += lanes(kernel.element)) columns.run(work, c, y, c);
}

void run_three_passes(const Kernel& kernel, const Memory& x, Memory& y, Memory& work) {
    const int row = 1 << kernel.stages[0];
    const int block = big_block(kernel.order, kernel.element);
    const int temporary = kernel.length();
    const int width = lanes(kernel.element);
    Worker rows(kernel.bodies[0]);
    Worker middle(kernel.bodies[1]);
    Worker columns(kernel.bodies[2]);
    for (int b = 0; b < kernel.length(); b += block) {
        for (int i = 0; i < block; i += row) rows.run(x, b + i, work, temporary + i);
        for (int c = 0; c < row; c += width) middle.run(work, temporary + c, work, b + c);
    }
    for (int c = 0; c < block; c += width) columns.run(work, c, y, c);
}

std::uint64_t mixed(std::uint64_t hash) {
    // The finalizer of SplitMix64: every bit of the input reaches every bit of the output.
    hash += 0x9E3779B97F4A7C15ULL;
    hash = (hash ^ (hash >> 30)) * 0xBF58476D1CE4E5B9ULL;
    hash = (hash ^ (hash >> 27)) * 0x94D049BB133111EBULL;
    return hash ^ (hash >> 31);
}

enum Operation : std::uint64_t { kValue = 1, kInput, kScale, kSum, kDifference, kProduct, kMinus };

}  // namespace

Expression::Expression(std::uint64_t operation, std::uint64_t a, std::uint64_t b)
    : hash_(mixed(mixed(mixed(operation) ^ a) + b)) {}

Expression::Expression(int value) : Expression(kValue, static_cast<std::uint64_t>(value), 0) {}

Expression Expression::input(int index) {
    return {kInput, static_cast<std::uint64_t>(index), 0};
}
Expression Expression::scale() {
    return {kScale, 0, 0};
}
Expression Expression::sum(Expression a, Expression b) {
    return {kSum, std::min(a.hash_, b.hash_), std::max(a.hash_, b.hash_)};
}
Expression Expression::difference(Expression a, Expression b) {
    return {kDifference, a.hash_, b.hash_};
}
Expression Expression::product(Expression a, Expression b) {
    return {kProduct, std::min(a.hash_, b.hash_), std::max(a.hash_, b.hash_)};
}
Expression Expression::operator-() const {
    return {kMinus, hash_, 0};
}

std::vector<Expression> sums_of_reference(int order) {
    const int N = 1 << order;
    Memory x;
    for (int n = 0; n < N; ++n) x.push_back(Expression::input(n));
    for (int h = 1; h < N; h *= 2) {
        for (int j = 0; j < N; ++j) {
            if ((j & h) != 0) continue;
            Expression& low = x[static_cast<std::size_t>(j)];
            Expression& high = x[static_cast<std::size_t>(j + h)];
            const Expression a = low;
            const Expression b = high;
            low = Expression::sum(a, b);
            high = Expression::difference(a, b);
        }
    }
    for (Expression& value : x) value = Expression::product(value, Expression::scale());
    return x;
}

std::vector<Expression> sums_of_kernel(const Kernel& kernel) {
    Memory x;
    for (int n = 0; n < kernel.length(); ++n) x.push_back(Expression::input(n));
    Memory y(x.size());
    Memory work(static_cast<std::size_t>(buffer_size(kernel.order, kernel.element) /
                                         bytes(kernel.element)));
    if (kernel.stages.size() == 1)
        Worker(kernel.bodies[0]).run(x, 0, y, 0);
    else if (kernel.stages.size() == 2)
        run_two_passes(kernel, x, y, work);
    else
        run_three_passes(kernel, x, y, work);
    return y;
}

}  // namespace walsh_hadamard
