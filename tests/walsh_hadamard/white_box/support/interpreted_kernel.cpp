#include "tests/walsh_hadamard/white_box/support/interpreted_kernel.hpp"

#include <algorithm>

#include "kernelgen/proof/bit_interpreter.hpp"

namespace walsh_hadamard_test {
namespace {

using walsh_hadamard::Kernel;
using Memory = std::vector<double>;

std::size_t at(int i) {
    return static_cast<std::size_t>(i);
}

int span_of(const kernelgen::Graph& graph) {
    int span = 0;
    for (kernelgen::NodeId store : graph.stores()) {
        const kernelgen::Node& n = graph.node(store);
        span = std::max(span, n.offset + kernelgen::lane_count(n.type));
    }
    return span;
}

void run(const kernelgen::Graph& graph, const Memory& source, int from, double scale,
         Memory& destination, int to) {
    const Memory x(source.begin() + from, source.begin() + from + span_of(graph));
    const Memory y = kernelgen::interpret(graph, x, scale, span_of(graph));
    for (kernelgen::NodeId store : graph.stores()) {
        const kernelgen::Node& n = graph.node(store);
        for (int lane = 0; lane < kernelgen::lane_count(n.type); ++lane)
            destination.at(at(to + n.offset + lane)) = y[at(n.offset + lane)];
    }
}

}  // namespace

std::vector<double> interpreted(const Kernel& kernel, const std::vector<double>& x, double scale) {
    const int N = kernel.length();
    const int width = walsh_hadamard::lanes(kernel.element);
    const auto body = [&](std::size_t i) -> const kernelgen::Graph& {
        return kernel.bodies.at(i).graph;
    };
    Memory y(x.size());
    if (!kernel.has_passes()) {
        run(body(0), x, 0, scale, y, 0);
        return y;
    }
    Memory work(x.size());
    const int row = 1 << kernel.stages[0];
    for (int i = 0; i < N; i += row) run(body(0), x, i, scale, work, i);
    int columns = row;
    if (kernel.stages.size() == 3) {
        columns = row << kernel.stages[1];
        const Memory rows = work;
        for (int block = 0; block < N; block += columns) {
            for (int c = 0; c < row; c += width)
                run(body(1), rows, block + c, scale, work, block + c);
        }
    }
    for (int c = 0; c < columns; c += width)
        run(body(kernel.bodies.size() - 1), work, c, scale, y, c);
    return y;
}

}  // namespace walsh_hadamard_test
