/**
 * @file
 * @brief The machine code of every complex kernel and twin holds the arithmetic of its graph,
 * operation by operation, and no other.
 */

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "kernelgen/graph/counts.hpp"
#include "support/disassembly.hpp"
#include "tests/dft_complex/white_box/support/all_kernels.hpp"

namespace {

using dft_complex_test::Element;
using dft_complex_test::for_each_kernel;
using dft_complex_test::Kernel;
using kernelgen::Counts;
using qsvgen_test::Disassembly;
using qsvgen_test::Function;

/** How often a function holds an arithmetic instruction, by mnemonic. */
using Arithmetic = std::map<std::string, int>;

const Function& function_named(const std::string& name) {
    static const Disassembly library = qsvgen_test::disassemble(QSVGEN_LIBRARY);
    static const Function missing;
    const auto found = library.find(name);
    EXPECT_NE(library.end(), found) << "no machine code for " << name;
    return found == library.end() ? missing : found->second;
}

Arithmetic arithmetic_of(const Function& function) {
    Arithmetic found;
    for (const auto& instruction : function.code) {
        const auto& mnemonic = instruction.mnemonic;
        // Comparisons that set the processor's flags belong to a condition.
        if (mnemonic.starts_with("comi") || mnemonic.starts_with("ucomi")) continue;
        if (qsvgen_test::is_packed_arithmetic(mnemonic) ||
            qsvgen_test::is_scalar_arithmetic(mnemonic))
            ++found[mnemonic];
    }
    return found;
}

/** Products by 2 in all lanes, which a compiler may write as sums. */
int doublings(const kernelgen::Graph& graph) {
    const auto is_two = [&](kernelgen::NodeId operand) {
        const kernelgen::Node& node = graph.node(operand);
        if (node.op != kernelgen::Op::Constant) return false;
        const auto& lanes = graph.constants()[static_cast<std::size_t>(node.constant)];
        return std::all_of(lanes.begin(), lanes.end(),
                           [](const auto& lane) { return lane.to_binary64() == 2; });
    };
    int number = 0;
    for (const kernelgen::NodeId id : graph.live()) {
        const kernelgen::Node& node = graph.node(id);
        number += node.op == kernelgen::Op::Mul && (is_two(node.a) || is_two(node.b));
    }
    return number;
}

/** Without the operations that there are none of. */
Arithmetic arithmetic_of(const Kernel& kernel, int products_as_sums = 0) {
    const bool single = kernel.element == Element::Complex32;
    Counts counts = kernelgen::count(kernel.graph, single);
    counts.sums += products_as_sums;
    counts.products -= products_as_sums;
    const std::string ending = std::string(kernel.is_scalar() ? "s" : "p") + (single ? "s" : "d");
    Arithmetic expected = {{"add" + ending, counts.sums},      {"sub" + ending, counts.differences},
                           {"mul" + ending, counts.products},  {"addsd", counts.wide_sums},
                           {"subsd", counts.wide_differences}, {"mulsd", counts.wide_products}};
    std::erase_if(expected, [](const auto& operation) { return operation.second == 0; });
    return expected;
}

/** Conversions follow from where binary64 meets binary32, and one serves several uses. */
Arithmetic without_conversions(Arithmetic arithmetic) {
    std::erase_if(arithmetic,
                  [](const auto& operation) { return operation.first.starts_with("cvt"); });
    return arithmetic;
}

/**
 * Whether a function holds the operations of its graph: to the last one by GCC. Clang takes a minus
 * into a constant, a - c b as a + (-c) b, which keeps every bit, so that sums and differences are
 * one there, and a sum that so comes to stand twice is formed once.
 */
bool agrees(const Arithmetic& expected, const Arithmetic& found) {
#ifdef __clang__
    const auto joined = [](const Arithmetic& arithmetic) {
        Arithmetic sums;
        for (const auto& [mnemonic, number] : arithmetic)
            sums[mnemonic.starts_with("sub") ? "add" + mnemonic.substr(3) : mnemonic] += number;
        return sums;
    };
    const Arithmetic wanted = joined(expected);
    const Arithmetic got = joined(found);
    return std::equal(
        wanted.begin(), wanted.end(), got.begin(), got.end(), [](const auto& a, const auto& b) {
            const bool is_sum = a.first.starts_with("add");
            return a.first == b.first && (is_sum ? b.second <= a.second : b.second == a.second);
        });
#else
    return expected == found;
#endif
}

/** As the library has them, whose lanes are those of its target. */
template <class Check>
void for_each_compiled_kernel(const Check& check) {
    const kernelgen::Target& target = kernelgen::target_named(TARGET);
    for_each_kernel([&](const Kernel& kernel) {
        check(
            dft_complex::described_kernel(kernel.length, kernel.direction, kernel.element, target));
    });
}

bool is_written_with_both_copies(const Kernel& kernel) {
    return !kernel.is_scalar() && kernel.twin_name().empty() &&
           kernel.target.spelling == kernelgen::Spelling::SseIntrinsics;
}

TEST(MachineCodeCounts, EveryFunctionHoldsTheSumsDifferencesAndProductsOfItsGraphAndNoOthers) {
    for_each_compiled_kernel([](const Kernel& kernel) {
        if (is_written_with_both_copies(kernel)) return;
        std::vector<std::string> names = {kernel.name()};
        if (!kernel.twin_name().empty()) names.push_back(kernel.twin_name());
        for (const auto& name : names) {
            const Arithmetic found = without_conversions(arithmetic_of(function_named(name)));
            const int twos = doublings(kernel.graph);
            if (twos > 0 && agrees(arithmetic_of(kernel, twos), found)) continue;
            EXPECT_TRUE(agrees(arithmetic_of(kernel), found))
                << name << ": " << testing::PrintToString(found) << " instead of "
                << testing::PrintToString(arithmetic_of(kernel));
        }
    });
}

// A compiler may merge the two.
TEST(MachineCodeCounts, AFunctionWrittenWithBothCopiesHoldsTheGraphOnceOrTwice) {
    int looked_at = 0;
    for_each_compiled_kernel([&](const Kernel& kernel) {
        if (!is_written_with_both_copies(kernel)) return;
        ++looked_at;
        const Arithmetic once = arithmetic_of(kernel);
        Arithmetic twice = once;
        for (auto& operation : twice) operation.second *= 2;
        const Arithmetic found = arithmetic_of(function_named(kernel.name()));
        EXPECT_TRUE(agrees(once, found) || agrees(twice, found))
            << kernel.name() << ": " << testing::PrintToString(found) << " instead of "
            << testing::PrintToString(once) << " once or twice";
    });
    // Lengths 2 to 4 of double precision, forward and inverse.
    EXPECT_EQ(std::string(TARGET) == "ia32" ? 6 : 0, looked_at);
}

TEST(MachineCodeCounts, OnlyTheKernelsThatFormProductsInBinary64Convert) {
    for_each_compiled_kernel([](const Kernel& kernel) {
        const bool converts =
            kernelgen::count(kernel.graph, kernel.element == Element::Complex32).conversions > 0;
        const Arithmetic found = arithmetic_of(function_named(kernel.name()));
        EXPECT_EQ(converts, found != without_conversions(found)) << kernel.name();
    });
}

}  // namespace
