/**
 * @file
 * @brief The machine code of the real kernels: scalar, of two precisions, and no more operations
 * than their networks have.
 *
 * That it is one straight line is a test of all kernels, in machine_code_test.cpp.
 */

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "support/disassembly.hpp"
#include "support/kernel_table.hpp"
#include "support/real_counts.hpp"
#include "support/real_layout.hpp"
#include "support/run_command.hpp"

namespace qsvgen_test {
namespace {

const Disassembly& library() {
    static const Disassembly disassembly = disassemble(QSVGEN_LIBRARY);
    return disassembly;
}

bool is_one_of(const Instruction& instruction, std::initializer_list<const char*> mnemonics) {
    return std::any_of(mnemonics.begin(), mnemonics.end(),
                       [&](const char* mnemonic) { return instruction.mnemonic == mnemonic; });
}

int count(const Function& function, std::initializer_list<const char*> mnemonics) {
    return static_cast<int>(
        std::count_if(function.code.begin(), function.code.end(),
                      [&](const auto& instruction) { return is_one_of(instruction, mnemonics); }));
}

// Of the two numbers that these convert the kernel uses one: they break a dependence on what the
// register held.
bool converts_one_number(const Instruction& instruction) {
    return is_one_of(instruction, {"cvtps2pd", "cvtpd2ps"});
}

// "xmm3,xmm3"
bool names_one_register_twice(const Instruction& instruction) {
    const auto comma = instruction.operands.find(',');
    return comma != std::string::npos &&
           instruction.operands.substr(0, comma) == instruction.operands.substr(comma + 1);
}

template <class E>
class RealMachineCode : public testing::Test {
  protected:
    using Check = std::function<void(const Kernel<E>&, const Function&)>;

    // A missing kernel is a failure, so that no check passes on nothing.
    static void for_each_function(const Check& check) {
        for (const auto& kernel : kernels<E>()) {
            const auto found = library().find(kernel.name);
            if (found == library().end() || found->second.code.empty()) {
                ADD_FAILURE() << "no machine code for " << kernel.name;
            } else {
                check(kernel, found->second);
            }
        }
    }
};
TYPED_TEST_SUITE(RealMachineCode, RealTypes, ElementNames);
using RealMachineCodeOf32f = RealMachineCode<RealSingle>;
using RealMachineCodeOf64f = RealMachineCode<RealDouble>;

TYPED_TEST(RealMachineCode, NoKernelCalculatesWithPackedNumbers) {
    this->for_each_function([](const auto&, const Function& function) {
        for (const auto& instruction : function.code) {
            EXPECT_TRUE(!is_packed_arithmetic(instruction.mnemonic) ||
                        converts_one_number(instruction))
                << function.name << ": " << to_string(instruction);
        }
    });
}

// A sign is changed by a subtraction, which leaves no negative zero; a mask would.
TYPED_TEST(RealMachineCode, VectorLogicOnlyClearsRegisters) {
    this->for_each_function([](const auto&, const Function& function) {
        for (const auto& instruction : function.code) {
            const bool is_logic =
                is_one_of(instruction, {"xorps", "xorpd", "pxor", "andps", "andpd", "pand",
                                        "andnps", "andnpd", "pandn", "orps", "orpd", "por"});
            if (!is_logic) continue;
            EXPECT_TRUE(instruction.mnemonic.find("xor") != std::string::npos &&
                        names_one_register_twice(instruction))
                << function.name << ": " << to_string(instruction);
        }
    });
}

TEST_F(RealMachineCodeOf64f, NothingIsConverted) {
    for_each_function([](const auto&, const Function& function) {
        for (const auto& instruction : function.code) {
            EXPECT_FALSE(instruction.mnemonic.starts_with("cvt"))
                << function.name << ": " << to_string(instruction);
        }
    });
}

TEST_F(RealMachineCodeOf64f, NothingIsCalculatedInBinary32) {
    for_each_function([](const auto&, const Function& function) {
        for (const auto& instruction : function.code) {
            EXPECT_TRUE(!is_scalar_arithmetic(instruction.mnemonic) ||
                        is_binary64_arithmetic(instruction.mnemonic))
                << function.name << ": " << to_string(instruction);
        }
    });
}

TEST_F(RealMachineCodeOf32f, LengthsTwoAndFourHoldNoBinary64AndAllOthersDo) {
    for_each_function([](const auto& kernel, const Function& function) {
        const bool holds_binary64 = std::any_of(
            function.code.begin(), function.code.end(),
            [](const auto& instruction) { return is_binary64_arithmetic(instruction.mnemonic); });
        EXPECT_EQ(kernel.length != 2 && kernel.length != 4, holds_binary64) << function.name;
    });
}

// Bins that are multiplied by 2, which a compiler may write as a sum.
template <class E>
int doublings(const Kernel<E>& kernel) {
    if (kernel.direction != Direction::Inverse) return 0;
    return 2 * last_complex_bin(kernel.length) - real_counts(kernel.length).folded_doublings;
}

template <class E>
int products_in_binary32(const Kernel<E>& kernel, const Function& function) {
    // Where doublings are products, they are the only ones beside those of the factor.
    const int products = count(function, {"mulss"});
    return products > kernel.length ? products - doublings(kernel) : products;
}

// No other product is of that precision: constants of networks are binary64.
TEST_F(RealMachineCodeOf32f, ProductsInBinary32AreThoseOfTheFactorAndTheDoubling) {
    for_each_function([](const auto& kernel, const Function& function) {
        const bool forward = kernel.direction == Direction::Forward;
        const int in_rows = forward ? real_counts(kernel.length).scaled_in_rows : 0;
        if (forward && is_open_by_half(kernel.length)) {
            EXPECT_GE(products_in_binary32(kernel, function), kernel.length - in_rows)
                << function.name;
        } else {
            EXPECT_EQ(kernel.length - in_rows, products_in_binary32(kernel, function))
                << function.name;
        }
    });
}

TYPED_TEST(RealMachineCode, NoKernelHasMoreSumsThanItsNetwork) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        const int sums = count(function, {"addss", "addsd", "subss", "subsd"});
        EXPECT_LE(sums, operation_counts(kernel.length, kernel.direction).sums + doublings(kernel))
            << function.name;
    });
}

TYPED_TEST(RealMachineCode, NoKernelHasMoreProductsThanItsNetworkAndItsFactor) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        const int products = count(function, {"mulss", "mulsd"});
        EXPECT_LE(products, operation_counts(kernel.length, kernel.direction).products +
                                kernel.length + doublings(kernel))
            << function.name;
    });
}

TYPED_TEST(RealMachineCode, NoKernelHasMoreOperationsThanItsNetworkItsFactorAndItsDoublings) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        const auto& network = operation_counts(kernel.length, kernel.direction);
        const int operations =
            count(function, {"addss", "addsd", "subss", "subsd", "mulss", "mulsd"});
        EXPECT_LE(operations, network.sums + network.products + kernel.length + doublings(kernel))
            << function.name;
    });
}

TYPED_TEST(RealMachineCode, NoKernelDividesTakesRootsOrCompares) {
    this->for_each_function([](const auto&, const Function& function) {
        for (const auto& instruction : function.code) {
            EXPECT_TRUE(!is_scalar_arithmetic(instruction.mnemonic) ||
                        is_one_of(instruction, {"addss", "addsd", "subss", "subsd", "mulss",
                                                "mulsd", "cvtss2sd", "cvtsd2ss"}))
                << function.name << ": " << to_string(instruction);
        }
    });
}

}  // namespace
}  // namespace qsvgen_test
