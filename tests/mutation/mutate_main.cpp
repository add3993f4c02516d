/**
 * @file
 * @brief Changes every node of a sample of networks, one at a time, and counts which changes the
 * proof or a comparison of bits catches.
 *
 * The proof sees the matrix, unrounded; bits are compared over the fixed data whose transforms are
 * promised. The exit status is 1 where less than 99.5 % are caught. Values, too, are compared:
 * whose bits are others must have others, or they would prove what is not so.
 */

#include <bit>
#include <cmath>
#include <cstdio>
#include <exception>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "kernelgen/proof/bit_interpreter.hpp"
#include "kernelgen/proof/proof.hpp"
#include "kernelgen/values/unfold.hpp"
#include "mutation/mutant.hpp"
#include "same_bits/fixed_data.hpp"
#include "transforms/dft_complex/kernels/complex_kernel.hpp"
#include "transforms/dft_real/kernels/real_dft_kernel.hpp"
#include "transforms/hartley/hartley_kernel.hpp"
#include "transforms/walsh_hadamard/bodies.hpp"

namespace {

using kernelgen::ExactComplex;
using kernelgen::Graph;
using kernelgen::NodeId;
using kernelgen::Wide;
using mutation::Change;

constexpr double kWanted = 0.995;
constexpr auto Single = dft_real::Element::Real32;

struct Sample {
    std::string name;
    Graph graph;
    int inputs;
    int outputs;
    bool single;  ///< elements of binary32
    kernelgen::Definition definition;
};

ExactComplex root(long turns, int n) {
    return ExactComplex::forward_root(turns, n);
}

/** Entries of the matrices that define the transforms, by real elements. */
kernelgen::Definition dft(int n, int direction) {
    return [=](int row, int column) -> Wide {
        const ExactComplex w = root(static_cast<long>(direction) * (row / 2) * (column / 2), n);
        if (row % 2 == column % 2) return w.re.value();
        return row % 2 == 0 ? Wide(-w.im.value()) : w.im.value();
    };
}

bool is_zero_slot(int element, int n) {
    return element == 1 || (n % 2 == 0 && element == n + 1);
}

kernelgen::Definition real_to_ccs(int n) {
    return [=](int row, int column) -> Wide {
        if (is_zero_slot(row, n)) return 0;
        const ExactComplex w = root(static_cast<long>(row / 2) * column, n);
        return row % 2 == 0 ? w.re.value() : w.im.value();
    };
}

kernelgen::Definition ccs_to_real(int n) {
    return [=](int row, int column) -> Wide {
        if (is_zero_slot(column, n)) return 0;
        const bool has_conjugate = column / 2 > 0 && column / 2 * 2 < n;
        const ExactComplex w = root(static_cast<long>(column / 2) * row, n);
        const Wide part = column % 2 == 0 ? w.re.value() : w.im.value();
        return has_conjugate ? Wide(2 * part) : part;
    };
}

kernelgen::Definition cas(int n) {
    return [=](int row, int column) -> Wide {
        const ExactComplex w = root(static_cast<long>(row) * column, n);
        return w.re.value() - w.im.value();
    };
}

Wide hadamard(int row, int column) {
    return std::popcount(static_cast<unsigned>(row & column)) % 2 == 0 ? 1 : -1;
}

std::vector<Sample> samples() {
    std::vector<Sample> all;
    for (int n : {3, 8, 9, 11, 15, 16}) {
        const auto kernel = dft_complex::proven_kernel(n, dft_complex::Direction::Forward,
                                                       dft_complex::Element::Complex32);
        all.push_back({kernel.name(), kernel.graph, 2 * n, 2 * n, true, dft(n, 1)});
    }
    for (int n : {5, 13, 16, 20}) {
        const auto kernel = dft_complex::proven_kernel(n, dft_complex::Direction::Inverse,
                                                       dft_complex::Element::Complex64);
        all.push_back({kernel.name(), kernel.graph, 2 * n, 2 * n, false, dft(n, -1)});
    }
    for (int n : {7, 8, 12, 13, 19}) {
        const auto forward =
            dft_real::dft_kernel(n, dft_real::Direction::Forward, dft_real::Layout::CCS, Single);
        const auto inverse =
            dft_real::dft_kernel(n, dft_real::Direction::Inverse, dft_real::Layout::CCS, Single);
        const int bins = dft_real::array_length(dft_real::Layout::CCS, n);
        all.push_back({forward.name(), forward.graph, n, bins, true, real_to_ccs(n)});
        all.push_back({inverse.name(), inverse.graph, bins, n, true, ccs_to_real(n)});
    }
    for (int n : {9, 15}) {
        const auto kernel = hartley::hartley_kernel(n, Single);
        all.push_back({kernel.name(), kernel.graph, n, n, true, cas(n)});
    }
    const Graph row =
        walsh_hadamard::row_body(walsh_hadamard::Element::Real32, 5, walsh_hadamard::Scaling::Last);
    all.push_back({"rows of qsvgWHT_5_32f", row, 32, 32, true, hadamard});
    return all;
}

/** The data whose bits are promised. */
std::vector<std::vector<double>> inputs_of(const Sample& sample) {
    std::vector<std::vector<double>> inputs;
    const auto count = static_cast<std::size_t>(sample.inputs);
    same_bits::for_each_signal([&](same_bits::Data data, int number) {
        if (sample.single) {
            const auto x = same_bits::parts<float>(count, data, number);
            inputs.emplace_back(x.begin(), x.end());
        } else {
            inputs.push_back(same_bits::parts<double>(count, data, number));
        }
    });
    return inputs;
}

std::vector<double> outputs_of(const Sample& sample, const Graph& graph) {
    std::vector<double> all;
    for (const auto& x : inputs_of(sample)) {
        for (const double scale : {1.0, sample.single ? 0x1.99999ap-4 : 0.1}) {
            const auto y = kernelgen::interpret(graph, x, scale, sample.outputs);
            all.insert(all.end(), y.begin(), y.end());
        }
    }
    return all;
}

bool have_same_bits(const std::vector<double>& a, const std::vector<double>& b) {
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] || std::signbit(a[i]) != std::signbit(b[i])) return false;
    }
    return true;
}

bool is_proven(const Sample& sample, const Graph& graph) {
    return kernelgen::deviation(graph, sample.inputs, sample.outputs, sample.definition) <=
           Wide("1e-28");
}

bool have_same_values(const Graph& a, const Graph& b) {
    kernelgen::ValueGraph values;
    const kernelgen::Outputs outputs = kernelgen::unfold(a, values);
    return outputs == kernelgen::unfold(b, values);
}

struct Score {
    int mutants = 0;
    int by_proof = 0;
    int by_bits = 0;
    int caught = 0;
    int by_values = 0;

    void add(const Score& other) {
        mutants += other.mutants;
        by_proof += other.by_proof;
        by_bits += other.by_bits;
        caught += other.caught;
        by_values += other.by_values;
    }
    double share() const { return static_cast<double>(caught) / mutants; }
};

void print(const char* what, const Score& score) {
    std::printf(
        "%-24s %6d mutants, caught by the proof %6d, by bits %6d, by either %6d: %.2f %%; "
        "by values %6d\n",
        what, score.mutants, score.by_proof, score.by_bits, score.caught, 100 * score.share(),
        score.by_values);
}

using Scores = std::map<Change, Score>;

/** All mutants of one sample; names those that nothing catches. */
void mutate(const Sample& sample, Scores& scores) {
    if (!is_proven(sample, sample.graph))
        throw std::runtime_error(sample.name + ": is not what defines it, before any change");
    const auto right = outputs_of(sample, sample.graph);
    for (const NodeId id : sample.graph.live()) {
        for (const Change change : mutation::kChanges) {
            const auto changed = mutation::mutant(sample.graph, id, change);
            if (!changed) continue;
            const bool proof = !is_proven(sample, *changed);
            const bool bits = !have_same_bits(right, outputs_of(sample, *changed));
            const bool values = !have_same_values(sample.graph, *changed);
            scores[change].add(
                {1, proof ? 1 : 0, bits ? 1 : 0, proof || bits ? 1 : 0, values ? 1 : 0});
            if (bits && !values)
                throw std::runtime_error(
                    sample.name + ": a change (" + mutation::to_string(change) + ") at node " +
                    std::to_string(id) + " gives other bits from the same values");
            if (!proof && !bits)
                std::printf("%s: nothing catches a change (%s) at node %d\n", sample.name.c_str(),
                            mutation::to_string(change).c_str(), id);
        }
    }
}

int run() {
    Scores scores;
    const auto all = samples();
    for (std::size_t i = 0; i < all.size(); ++i) {
        std::fprintf(stderr, "%zu of %zu: %s\n", i + 1, all.size(), all[i].name.c_str());
        mutate(all[i], scores);
    }
    Score total;
    for (const auto& [change, score] : scores) {
        print(mutation::to_string(change).c_str(), score);
        total.add(score);
    }
    print("all", total);
    return total.share() >= kWanted ? 0 : 1;
}

}  // namespace

int main(int, char** argv) {
    try {
        return run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
}
